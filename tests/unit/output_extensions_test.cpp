// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/output_extensions.h"

#include <QTest>

class OutputExtensionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void extensionOfEachIndex_data();
    void extensionOfEachIndex();
    void indexOfEachExtension_data();
    void indexOfEachExtension();
    void bothWaysAgree();
};

void OutputExtensionsTest::extensionOfEachIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("extension");
    const QStringList extensions =
        QStringLiteral(".doc .docx .rtf .ppt .pptx .xls .xlsx .txt .html .htm .xml .ps .eps .tiff .tif "
                       ".jpeg .jpe .jpg .tga none .png .pnm .gif .bmp .ppm .pbm .pgm .pnm")
            .split(QLatin1Char(' '));
    QCOMPARE(extensions.size(), 28);
    for (int index = 0; index < extensions.size(); ++index) {
        const QString &extension = extensions.at(index);
        QTest::addRow("%d", index) << index << (index == 19 ? QString() : extension);
    }
    for (const int index : {-1, 28, 29, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        QTest::addRow("%d", index) << index << QString();
    }
}

void OutputExtensionsTest::extensionOfEachIndex()
{
    QFETCH(const int, index);
    QFETCH(const QString, extension);
    QCOMPARE(extensionOfIndex(index), extension);
}

void OutputExtensionsTest::indexOfEachExtension_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<int>("index");
    const auto row = [](const char *extension, int index) {
        QTest::addRow("'%s'", extension) << QString::fromLatin1(extension) << index;
    };
    row(".doc", 0);
    row(".xls", 5);
    row(".txt", 7);
    row(".tiff", 13);
    row(".tif", 14);
    row(".pnm", 21); // also at 27
    row(".pgm", 26);
    row("", -1); // not the unassigned 19
    row(".PDF", -1);
    row(".DOC", -1);
    row(".Pnm", -1);
    row("doc", -1);
    row(".doc ", -1);
    row(".", -1);
}

void OutputExtensionsTest::indexOfEachExtension()
{
    QFETCH(const QString, extension);
    QFETCH(const int, index);
    QCOMPARE(indexOfExtension(extension), index);
}

void OutputExtensionsTest::bothWaysAgree()
{
    for (int index = 0; index < 28; ++index) {
        const int expected = index == 19 ? -1 : (index == 27 ? 21 : index);
        QCOMPARE(indexOfExtension(extensionOfIndex(index)), expected);
    }
}

QTEST_APPLESS_MAIN(OutputExtensionsTest)
#include "output_extensions_test.moc"
