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
    void asksTheFallback();
    void readsSpacesAsTheDocumentUsesThem();
    void marksNegativeNumbers();
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
    QTest::newRow("triangle") << QStringLiteral("\u25b31,234") << false << -1234.0 << 0 << true << false << false
                              << none << none;
    QTest::newRow("trailing minus") << QStringLiteral("1.50-") << false << -1.5 << 2 << false << false << false << none
                                    << none;
    QTest::newRow("currency outside") << QStringLiteral("$ (5)") << false << -5.0 << 0 << false << false << true
                                      << QStringLiteral("$ ") << none;
    QTest::newRow("currency code") << QStringLiteral("SEK 1 500") << true << 1500.0 << 0 << true << false << false
                                   << QStringLiteral("SEK ") << none;
    QTest::newRow("letters as currency") << QStringLiteral("99,90 K\u010d") << true << 99.9 << 2 << false << false
                                         << false << none << QStringLiteral(" K\u010d");
    QTest::newRow("word as currency") << QStringLiteral("TOP 2.50") << false << 2.5 << 2 << false << false << false
                                      << QStringLiteral("TOP ") << none;
    QTest::newRow("mark before") << QStringLiteral("*1,234") << false << 1234.0 << 0 << true << false << false
                                 << QStringLiteral("*") << none;
    QTest::newRow("note before") << QStringLiteral("(3)5") << false << 5.0 << 0 << false << false << false
                                 << QStringLiteral("(3)") << none;
    QTest::newRow("mark behind") << QStringLiteral("7.5%**") << false << 0.075 << 1 << false << true << false << none
                                 << QStringLiteral("**");
    QTest::newRow("note behind") << QStringLiteral("-8.5 (a)") << false << -8.5 << 1 << false << false << false << none
                                 << QStringLiteral(" (a)");
    QTest::newRow("per mille") << QStringLiteral("5 \u2030") << false << 5.0 << 0 << false << false << false << none
                               << QStringLiteral(" \u2030");
    QTest::newRow("full width") << QStringLiteral("\uff11\uff0c\uff12\uff13\uff14") << false << 1234.0 << 0 << true
                                << false << false << none << none;
    QTest::newRow("exponent") << QStringLiteral("1.50E-03") << false << 0.0015 << 2 << false << false << false << none
                              << none;
    QTest::newRow("spaces around") << QStringLiteral("  42 ") << false << 42.0 << 0 << false << false << false << none
                                   << none;
}

void NumberTest::readsNumbers()
{
    QFETCH(QString, text);
    QFETCH(bool, comma);
    QFETCH(double, value);
    const std::optional<Number> number = readNumber(text, {comma ? NumberStyle::Comma : NumberStyle::Point});
    QVERIFY(number);
    QCOMPARE(number->value, value);
    QTEST(number->decimals, "decimals");
    QTEST(number->grouped, "grouped");
    QTEST(number->percent, "percent");
    QTEST(number->negative == NegativeForm::Parentheses, "parentheses");
    QTEST(number->prefix, "prefix");
    QTEST(number->suffix, "suffix");
}

void NumberTest::leavesTextsAlone_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"",           " ",     "-",     "n/a",      "00123",    "-007",         "12-34",  "1/2",
          "2003-04",    "12.",   "1.2.3", "1,23,456", "12:30",    "(12",          "12)",    "(-5)",
          "5\u2013",    "12 34", "1 2 3", "Total",    "3rd",      "A4",           "12a",    "1234567890123456",
          "31.12.2015", "%",     "$",     "1.234.5",  "0x10",     "1e5",          "+-3",    "12 345 67",
          "<5",         "~5",    "5(3)",  "12 (3)",   "(3) 5",    "#5",           "TOP 10", "+49 123 456",
          "1.5E+999",   "$5 $",  "-(5)",  "(5-)",     "\u25b3-5", "5 \u20ac USD", "5(b)",   "506 (b)"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void NumberTest::leavesTextsAlone()
{
    QFETCH(QString, text);
    QVERIFY(!readNumber(text, {NumberStyle::Point}));
    QVERIFY(!readNumber(text, {NumberStyle::Comma}));
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
    for (const char *before :
         {"", "-", "+", "(", "$", "US$", "AUD$ ", "EUR ", "CHF", "-£", "△", "*", "(3)", "Rs. ", "kr ", "TOP "}) {
        for (const char *digits : {"5", "0.5", "1,234", "12 345", "1.234,5"}) {
            for (const char *behind : {"", "%", " %", ")", " EUR", "USD", " €", "-", " zł", "‰", "†", " (b)", "E+02"}) {
                const QString text = QString::fromUtf8(before) + QString::fromUtf8(digits) + QString::fromUtf8(behind);
                if (readNumber(text, {NumberStyle::Point}) || readNumber(text, {NumberStyle::Comma})) {
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
    QCOMPARE(numberHabitsOf(texts).style == NumberStyle::Comma, comma);
}

void NumberTest::asksTheFallback()
{
    const NumberHabits comma{NumberStyle::Comma};
    QCOMPARE(numberHabitsOf({QStringLiteral("1.234")}, comma).style, NumberStyle::Comma);
    QCOMPARE(numberHabitsOf({QStringLiteral("12.5")}, comma).style, NumberStyle::Point);
}

void NumberTest::readsSpacesAsTheDocumentUsesThem()
{
    const QStringList spaced = {QStringLiteral("1 234"), QStringLiteral("12 345 678")};
    const QStringList commas = {QStringLiteral("1,234"), QStringLiteral("12,345"), QStringLiteral("12 345")};
    QVERIFY(readNumber(QStringLiteral("12 345"), numberHabitsOf(spaced)));
    QVERIFY(!readNumber(QStringLiteral("12 345"), numberHabitsOf(commas))); // two numbers of two columns
}

void NumberTest::marksNegativeNumbers()
{
    const auto form = [](const char *text) { return readNumber(QString::fromUtf8(text), {})->negative; };
    QCOMPARE(form("-5"), NegativeForm::Minus);
    QCOMPARE(form("(5)"), NegativeForm::Parentheses);
    QCOMPARE(form("△5"), NegativeForm::Triangle);
    QCOMPARE(form("5-"), NegativeForm::TrailingMinus);
}

QTEST_APPLESS_MAIN(NumberTest)
#include "number_test.moc"
