// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/output_kinds.h"

#include "app/output_extensions.h"

#include <QStringList>
#include <QTest>

class OutputKindsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachRow_data();
    void eachRow();
    void thereAreNine() { QCOMPARE(outputKinds().size(), std::size_t(9)); }
    void storedRowIsTakenByItsExactText_data();
    void storedRowIsTakenByItsExactText();
    void rowsOutsideTheList_data();
    void rowsOutsideTheList();
};

void OutputKindsTest::eachRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("defaultIndex");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<bool>("hasWordMode");
    QTest::addColumn<bool>("hasImageTab");
    QTest::addColumn<int>("disabled");
    const auto row = [](int number, const char *text, int defaultIndex, const char *offered, int disabled) {
        QTest::addRow("%s", text) << number << QString::fromLatin1(text) << defaultIndex << QString::fromLatin1(offered)
                                  << (number == 0) << (number == 8) << disabled;
    };
    row(0, "PDF to Word", 0, ".doc .rtf", 0);
    row(1, "PDF to Excel", 5, ".xls", 0);
    row(2, "PDF to PPT", 4, ".pptx", 0);
    row(3, "PDF to HTML", 8, ".html .htm", 1);
    row(4, "PDF to XML", 10, ".xml", 1);
    row(5, "PDF to PostScript", 11, ".ps", 0);
    row(6, "PDF to EPS", 12, ".eps", 0);
    row(7, "PDF to Text", 7, ".txt", 2);
    row(8, "PDF to Image", 13, ".tiff .tif .jpeg .jpe .jpg .tga .png .gif .bmp .ppm .pbm .pgm .pnm", 0);
}

void OutputKindsTest::eachRow()
{
    QFETCH(const int, row);
    const OutputKind &kind = outputKinds()[static_cast<std::size_t>(row)];
    QStringList offered;
    for (const QLatin1String extension : kind.offeredExtensions) {
        offered.append(extension);
    }
    QTEST(QString(kind.text), "text");
    QTEST(indexOfExtension(kind.defaultExtension), "defaultIndex");
    QCOMPARE(defaultExtensionOfRow(row), QString(kind.defaultExtension));
    QTEST(offered.join(QLatin1Char(' ')), "offered");
    QTEST(kind.hasWordMode, "hasWordMode");
    QTEST(kind.hasImageTab, "hasImageTab");
    QTEST(static_cast<int>(kind.disabled), "disabled");
    QCOMPARE(outputKindOfStoredRow(QString::number(row)), &kind);
    QCOMPARE(selectableRow(row), row);
}

void OutputKindsTest::storedRowIsTakenByItsExactText_data()
{
    QTest::addColumn<QString>("stored");
    for (const char *stored : {"", "9", "-1", "abc", "07", " 7", "7 ", "+7", "7.0", "99999999999"}) {
        QTest::addRow("'%s'", stored) << QString::fromLatin1(stored);
    }
}

void OutputKindsTest::storedRowIsTakenByItsExactText()
{
    QFETCH(const QString, stored);
    QCOMPARE(outputKindOfStoredRow(stored), nullptr);
}

void OutputKindsTest::rowsOutsideTheList_data()
{
    QTest::addColumn<int>("row");
    for (const int row : {-1, 9, 10, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        QTest::addRow("%d", row) << row;
    }
}

void OutputKindsTest::rowsOutsideTheList()
{
    QFETCH(const int, row);
    QCOMPARE(defaultExtensionOfRow(row), QStringLiteral(".doc"));
    QCOMPARE(selectableRow(row), 0);
}

QTEST_APPLESS_MAIN(OutputKindsTest)
#include "output_kinds_test.moc"
