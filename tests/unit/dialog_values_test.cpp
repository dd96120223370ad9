// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/dialog_values.h"

#include <QStringList>
#include <QTest>

namespace {

QStringList listed(std::span<const QLatin1String> texts)
{
    QStringList result;
    for (const QLatin1String text : texts) {
        result.append(text);
    }
    return result;
}

} // namespace

class DialogValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lists();
    void colorDepthLists_data();
    void colorDepthLists();
    void numberFields_data();
    void numberFields();
    void passwords_data();
    void passwords();
    void rows_data();
    void rows();
    void storedColorDepth_data();
    void storedColorDepth();
    void grayJpegComesBackAsFullColor();
};

void DialogValuesTest::lists()
{
    QCOMPARE(
        listed(dialogValues::wordModeTexts()).join(QLatin1Char('|')),
        QStringLiteral("Combine text blocks automatically (Good)|Flow text with text boxes|Flow text without text "
                       "boxes|Continuous text without text boxes|Exact mode for reconstruction"));
    QCOMPARE(
        listed(dialogValues::compressionTexts()).join(QLatin1Char('|')),
        QStringLiteral("None compression|CCITT Group 3 fax encoding 1D|CCITT Group 3 fax encoding 2D|CCITT Group 4 fax "
                       "encoding|LZW compression|PackBits compression|204x98 G3 Class F TIFF|204x196 G3 Class F TIFF"));
}

void DialogValuesTest::colorDepthLists_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<bool>("isJpeg");
    for (const char *extension : {".jpeg", ".jpe", ".jpg"}) {
        QTest::addRow("%s", extension) << QString::fromLatin1(extension) << true;
    }
    for (const char *extension : {"", ".JPG", "jpg", ".doc", ".tiff", ".png", ".jp"}) {
        QTest::addRow("'%s'", extension) << QString::fromLatin1(extension) << false;
    }
}

void DialogValuesTest::colorDepthLists()
{
    QFETCH(const QString, extension);
    QFETCH(const bool, isJpeg);
    const QStringList depths = listed(dialogValues::colorDepthTexts(extension));
    QCOMPARE(
        depths.join(QLatin1Char('|')),
        isJpeg ? QStringLiteral("8 Bits|24 Bits") : QStringLiteral("1 Bit|8 Bits|24 Bits"));
    QCOMPARE(depths.at(dialogValues::fullColorRow(extension)), QStringLiteral("24 Bits"));
}

void DialogValuesTest::numberFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pageField");
    QTest::addColumn<QString>("sizeField");
    QTest::addColumn<QString>("storedPage");
    QTest::addColumn<QString>("storedSize");
    const auto row = [](const char *text, const char *pageField, const char *sizeField, const char *storedSize) {
        // A page is stored as shown.
        QTest::addRow("'%s'", text) << QString::fromLatin1(text) << QString::fromLatin1(pageField)
                                    << QString::fromLatin1(sizeField) << QString::fromLatin1(pageField)
                                    << QString::fromLatin1(storedSize);
    };
    row("", "", "", "0");
    row("0", "", "", "0");
    row("1", "1", "1", "1");
    row("-1", "", "", "0");
    row("-3", "", "", "0");
    row("abc", "", "", "0");
    row("1.5", "", "", "0");
    row("7", "7", "7", "7");
    row("007", "7", "007", "7");
    row("0012", "12", "0012", "12");
    row("0800", "800", "0800", "800");
    row("+5", "5", "+5", "5");
    row("9999", "9999", "9999", "9999");
    row("2147483647", "2147483647", "2147483647", "2147483647");
    row("2147483648", "", "", "0");
}

void DialogValuesTest::numberFields()
{
    QFETCH(const QString, text);
    QTEST(dialogValues::pageField(text), "pageField");
    QTEST(dialogValues::sizeField(text), "sizeField");
    QTEST(dialogValues::storedPage(text), "storedPage");
    QTEST(dialogValues::storedSize(text), "storedSize");
}

void DialogValuesTest::passwords_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addRow("nothing") << QString() << QString();
    QTest::addRow("spaces") << QStringLiteral("   \t") << QString();
    QTest::addRow("spaces around") << QStringLiteral(" ab ") << QStringLiteral(" ab ");
    QTest::addRow("quotes") << QStringLiteral("a\"b") << QStringLiteral("a\"b");
}

void DialogValuesTest::passwords()
{
    QFETCH(const QString, typed);
    QTEST(dialogValues::passwordText(typed), "kept");
}

void DialogValuesTest::rows_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("wordMode");
    QTest::addColumn<int>("colorDepth");
    QTest::addColumn<int>("jpegDepth");
    QTest::addColumn<int>("compression");
    const auto row = [](const char *stored, int wordMode, int colorDepth, int jpegDepth, int compression) {
        QTest::addRow("'%s'", stored) << QString::fromLatin1(stored) << wordMode << colorDepth << jpegDepth
                                      << compression;
    };
    row("0", 0, 0, 0, 0);
    row("1", 1, 1, 1, 1);
    row("2", 2, 2, 2, 2); // a row that the JPEG list does not have
    row("3", 3, 2, 2, 3);
    row("4", 4, 2, 2, 4);
    row("5", 0, 2, 2, 5);
    row("7", 0, 2, 2, 7);
    row("8", 0, 2, 2, 8); // one row past the end passes
    row("9", 0, 2, 2, 0);
    row("-1", 0, 2, 2, 0);
    row("abc", 0, 0, 0, 0);
    row("", 0, 0, 0, 0);
}

void DialogValuesTest::rows()
{
    QFETCH(const QString, stored);
    QTEST(dialogValues::wordModeRow(stored.toInt(), 5), "wordMode");
    QTEST(dialogValues::colorDepthRow(stored, 3), "colorDepth");
    QTEST(dialogValues::colorDepthRow(stored, 2), "jpegDepth");
    QTEST(dialogValues::compressionRow(stored, 8), "compression");
}

void DialogValuesTest::storedColorDepth_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("general");
    QTest::addColumn<QString>("jpeg");
    for (int row = -1; row < 3; ++row) {
        QTest::addRow("%d", row) << row << QString::number(row) << QString::number(row + 1);
    }
}

void DialogValuesTest::storedColorDepth()
{
    QFETCH(const int, row);
    QTEST(dialogValues::storedColorDepth(row, QStringLiteral(".png")), "general");
    QTEST(dialogValues::storedColorDepth(row, QStringLiteral(".jpg")), "jpeg");
}

/// "8 Bits" is stored as 1, which is "24 Bits" in the same list; that is stored as 2, which selects nothing.
void DialogValuesTest::grayJpegComesBackAsFullColor()
{
    const QString jpeg = QStringLiteral(".jpeg");
    const QString stored = dialogValues::storedColorDepth(0, jpeg);
    QCOMPARE(stored, QStringLiteral("1"));
    const int row = dialogValues::colorDepthRow(stored, 2);
    QCOMPARE(listed(dialogValues::colorDepthTexts(jpeg)).at(row), QStringLiteral("24 Bits"));
    QCOMPARE(dialogValues::colorDepthRow(dialogValues::storedColorDepth(row, jpeg), 2), 2);
    QCOMPARE(dialogValues::storedColorDepth(-1, jpeg), QStringLiteral("0"));
}

QTEST_APPLESS_MAIN(DialogValuesTest)
#include "dialog_values_test.moc"
