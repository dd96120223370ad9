// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number.h"

#include <QTest>

using namespace quorra;

/// Which texts of cells are numbers, their values and formats.
class NumberTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsNumbers_data();
    void readsNumbers();
    void leavesTextsAlone_data();
    void leavesTextsAlone();
    void recognisesNumbersOfTables();
    void recognisesAllThatItReads();
    void findsTheDocumentsStyle_data();
    void findsTheDocumentsStyle();
};

void NumberTest::readsNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("comma");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("grouped");
    QTest::addColumn<bool>("percent");
    QTest::addColumn<bool>("parentheses");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("suffix");

    const QString none;
    QTest::newRow("zero") << QStringLiteral("0") << false << 0.0 << 0 << false << false << false << none << none;
    QTest::newRow("year") << QStringLiteral("2015") << false << 2015.0 << 0 << false << false << false << none << none;
    QTest::newRow("thousands") << QStringLiteral("1,234,567") << false << 1234567.0 << 0 << true << false << false
                               << none << none;
    QTest::newRow("decimals") << QStringLiteral("3.50") << false << 3.5 << 2 << false << false << false << none << none;
    QTest::newRow("both") << QStringLiteral("1,234.5") << false << 1234.5 << 1 << true << false << false << none
                          << none;
    QTest::newRow("no whole part") << QStringLiteral(".25") << false << 0.25 << 2 << false << false << false << none
                                   << none;
    QTest::newRow("minus") << QStringLiteral("-12") << false << -12.0 << 0 << false << false << false << none << none;
    QTest::newRow("true minus") << QStringLiteral("\u221212.0") << false << -12.0 << 1 << false << false << false
                                << none << none;
    QTest::newRow("dash as minus") << QStringLiteral("\u20134") << false << -4.0 << 0 << false << false << false << none
                                   << none;
    QTest::newRow("plus") << QStringLiteral("+5") << false << 5.0 << 0 << false << false << false << QStringLiteral("+")
                          << none;
    QTest::newRow("parentheses") << QStringLiteral("(1,234)") << false << -1234.0 << 0 << true << false << true << none
                                 << none;
    QTest::newRow("percent") << QStringLiteral("12.5%") << false << 0.125 << 1 << false << true << false << none
                             << none;
    QTest::newRow("percent apart") << QStringLiteral("7 %") << false << 0.07 << 0 << false << true << false << none
                                   << none;
    QTest::newRow("dollars") << QStringLiteral("$1,200") << false << 1200.0 << 0 << true << false << false
                             << QStringLiteral("$") << none;
    QTest::newRow("dollars apart") << QStringLiteral("$ 15") << false << 15.0 << 0 << false << false << false
                                   << QStringLiteral("$ ") << none;
    QTest::newRow("negative dollars") << QStringLiteral("($3)") << false << -3.0 << 0 << false << false << true
                                      << QStringLiteral("$") << none;
    QTest::newRow("euros behind") << QStringLiteral("12,50 \u20ac") << true << 12.5 << 2 << false << false << false
                                  << none << QStringLiteral(" \u20ac");
    QTest::newRow("comma") << QStringLiteral("1.234,5") << true << 1234.5 << 1 << true << false << false << none
                           << none;
    QTest::newRow("comma read as thousands")
        << QStringLiteral("1,234") << false << 1234.0 << 0 << true << false << false << none << none;
    QTest::newRow("comma read as decimals")
        << QStringLiteral("1,234") << true << 1.234 << 3 << false << false << false << none << none;
    QTest::newRow("spaces between thousands")
        << QStringLiteral("12 345 678") << false << 12345678.0 << 0 << true << false << false << none << none;
    QTest::newRow("spaces around") << QStringLiteral("  42 ") << false << 42.0 << 0 << false << false << false << none
                                   << none;
}

void NumberTest::readsNumbers()
{
    QFETCH(QString, text);
    QFETCH(bool, comma);
    QFETCH(double, value);
    const std::optional<Number> number = readNumber(text, comma ? NumberStyle::Comma : NumberStyle::Point);
    QVERIFY(number);
    QCOMPARE(number->value, value);
    QTEST(number->decimals, "decimals");
    QTEST(number->grouped, "grouped");
    QTEST(number->percent, "percent");
    QTEST(number->parentheses, "parentheses");
    QTEST(number->prefix, "prefix");
    QTEST(number->suffix, "suffix");
}

void NumberTest::leavesTextsAlone_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",           " ",     "-",     "n/a",      "00123", "-007", "12-34", "1/2",
                             "2003-04",    "12.",   "1.2.3", "1,23,456", "12:30", "(12",  "12)",   "(-5)",
                             "5-",         "12 34", "1 2 3", "Total",    "3rd",   "A4",   "12a",   "1234567890123456",
                             "31.12.2015", "%",     "$",     "1.234.5",  "0x10",  "1e5",  "+-3",   "12 345 67"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void NumberTest::leavesTextsAlone()
{
    QFETCH(QString, text);
    QVERIFY(!readNumber(text, NumberStyle::Point));
    QVERIFY(!readNumber(text, NumberStyle::Comma));
}

void NumberTest::recognisesNumbersOfTables()
{
    for (const char *number : {"12", "-3.5%", "1,505", "$ 7", "–", "...", "12a", "31.12.2015", "2003-04", "EUR 2 "}) {
        QVERIFY2(looksNumeric(QString::fromUtf8(number)), number);
    }
    for (const char *word : {"Year", "PK-12 schools", "A1B", "EURO12", "USD", "NYSE$"}) {
        QVERIFY2(!looksNumeric(QString::fromUtf8(word)), word);
    }
}

// The detectors must not take a column of words for what the spreadsheet then writes as numbers.
void NumberTest::recognisesAllThatItReads()
{
    int read = 0;
    for (const char *before : {"", "-", "+", "(", "$", "US$", "AUD$ ", "EUR ", "CHF", "-£"}) {
        for (const char *digits : {"5", "0.5", "1,234", "12 345", "1.234,5"}) {
            for (const char *behind : {"", "%", " %", ")", " EUR", "USD", " €"}) {
                const QString text = QString::fromUtf8(before) + QString::fromUtf8(digits) + QString::fromUtf8(behind);
                if (readNumber(text, NumberStyle::Point) || readNumber(text, NumberStyle::Comma)) {
                    ++read;
                    QVERIFY2(looksNumeric(text), qPrintable(text));
                }
            }
        }
    }
    QVERIFY(read > 100);
}

void NumberTest::findsTheDocumentsStyle_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<bool>("comma");
    const auto row = [](const char *name, const QStringList &texts, bool comma) {
        QTest::newRow(name) << texts << comma;
    };
    row("nothing", {}, false);
    row("open", {QStringLiteral("1,234"), QStringLiteral("1.234")}, false);
    row("decimal comma", {QStringLiteral("12,5"), QStringLiteral("1.234")}, true);
    row("decimal point", {QStringLiteral("12.5"), QStringLiteral("1,234")}, false);
    row("many points", {QStringLiteral("1.234.567")}, true);
    row("many commas", {QStringLiteral("1,234,567")}, false);
    row("most win", {QStringLiteral("1,5"), QStringLiteral("2,5 %"), QStringLiteral("2.5")}, true);
    row("words do not count", {QStringLiteral("a1,5"), QStringLiteral("2.5")}, false);
}

void NumberTest::findsTheDocumentsStyle()
{
    QFETCH(QStringList, texts);
    QFETCH(bool, comma);
    QCOMPARE(numberStyleOf(texts) == NumberStyle::Comma, comma);
}

QTEST_APPLESS_MAIN(NumberTest)
#include "number_test.moc"
