// SPDX-License-Identifier: GPL-3.0-or-later
// The arguments with which a run starts the engine.
#include "window_fixture.h"

#include <QtTest>

namespace {

QByteArrayList argumentsOfRun(const WindowFixture &fixture, int run)
{
    return fixture.folder.runs().value(run).arguments;
}

/// Stores one kind and extension, as "Apply" would after a click on the kind.
void chooseExtension(const WindowFixture &fixture, int row, int extensionIndex)
{
    fixture.selectFormat(row);
    storeSetting(QStringLiteral("ConverterFormat"), QString::number(extensionIndex));
}

} // namespace

class WidgetsBatchCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void argumentsOfAPlainRun();
    void outputNames_data();
    void outputNames();
    void xmlAddsItsBareSwitchLast();
    void otherKindsAddNothing();
    void settingsReachTheEngine();
    void settingsAreReadForEveryFile();
    void stringsOfTheWindowAreRefreshed();
};

void WidgetsBatchCommand::argumentsOfAPlainRun()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    fixture.runToTheEnd();
    const QByteArrayList expected{
        "-wordmode", "0", "-call", paths.at(0).toUtf8(), fixture.outputFolder.toUtf8() + "/1.doc"};
    QCOMPARE(argumentsOfRun(fixture, 0), expected);
}

void WidgetsBatchCommand::outputNames_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("extensionIndex");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("firstPage");
    const auto row = [](const char *input, int index, const char *output, const char *firstPage) {
        QTest::newRow(input) << QString::fromUtf8(input) << index << QString::fromUtf8(output)
                             << QString::fromUtf8(firstPage);
    };
    row("a.b.pdf", 0, "a.doc", "a0001.doc");
    row("plain.pdf", 20, "plain.png", "plain0001.png");
    row("report.final.pdf", 7, "report.txt", "report0001.txt");
    row(".hidden.pdf", 13, ".tiff", "0001.tiff");
    row("no extension.pdf", 19, "no extension", "no extension0001");
    row("beyond.pdf", 28, "beyond", "beyond0001");
    row("Größe.pdf", 21, "Größe.pnm", "Größe0001.pnm");
}

void WidgetsBatchCommand::outputNames()
{
    QFETCH(QString, input);
    QFETCH(int, extensionIndex);
    QFETCH(QString, output);
    QFETCH(QString, firstPage);
    WindowFixture fixture;
    fixture.open();
    fixture.drop({fixture.folder.makePdf(QStringLiteral("in.dir/") + input)});
    chooseExtension(fixture, 8, extensionIndex);
    fixture.runToTheEnd();
    QCOMPARE(
        QString::fromUtf8(argumentsOfRun(fixture, 0).constLast()), fixture.outputFolder + QLatin1Char('/') + output);
    QCOMPARE(strOutputFileExist1, fixture.outputFolder + QLatin1Char('/') + output);
    QCOMPARE(strOutputFileExist2, fixture.outputFolder + QLatin1Char('/') + firstPage);
}

void WidgetsBatchCommand::xmlAddsItsBareSwitchLast()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("UserPassword"), QStringLiteral(" a b "));
    fixture.selectFormat(4);
    const QStringList paths = fixture.dropFiles(1);
    fixture.runToTheEnd();
    const QByteArrayList expected{
        "-upw", " a b ", "-htmlformat", "-call", paths.at(0).toUtf8(), fixture.outputFolder.toUtf8() + "/1.xml"};
    QCOMPARE(argumentsOfRun(fixture, 0), expected);
    QVERIFY(!fixture.window->m_strParameter.contains(QStringLiteral("-htmlformat")));
}

void WidgetsBatchCommand::otherKindsAddNothing()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        fixture.runToTheEnd();
        QCOMPARE(argumentsOfRun(fixture, row).contains("-htmlformat"), row == 4);
        QCOMPARE(argumentsOfRun(fixture, row).contains("-wordmode"), row == 0);
        QCOMPARE(argumentsOfRun(fixture, row).contains("-compress"), row == 8);
    }
}

void WidgetsBatchCommand::settingsReachTheEngine()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    const std::pair<const char *, const char *> values[] = {
        {"TempName", "page %03d"}, {"AppSignalTempName", "1"},
        {"FirstPage", "007"},      {"LastPage", "9"},
        {"ResizePage", "1"},       {"Width", "0800"},
        {"Height", "600"},         {"ResetResolution", "1"},
        {"XRes", "150"},           {"YRes", "75"},
        {"ColorDepth", "1"},       {"Compression", "2"},
        {"MultiPageTIFF", "1"},    {"UserPassword", "user"},
        {"MasterPassword", "own"},
    };
    fixture.selectFormat(8);
    for (const auto &[name, value] : values) {
        storeSetting(QLatin1String(name), QLatin1String(value));
    }
    fixture.runToTheEnd();
    const QByteArrayList expected{
        "-tempname",
        "page %03d",
        "-tempname1",
        "-f",
        "7",
        "-l",
        "9",
        "-width",
        "800",
        "-height",
        "600",
        "-xres",
        "150",
        "-yres",
        "75",
        "-gray",
        "-compress",
        "88884",
        "-multipage",
        "-upw",
        "user",
        "-opw",
        "own",
        "-call",
        paths.at(0).toUtf8(),
        fixture.outputFolder.toUtf8() + "/1.tiff"};
    QCOMPARE(argumentsOfRun(fixture, 0), expected);
}

void WidgetsBatchCommand::settingsAreReadForEveryFile()
{
    WindowFixture fixture;
    fixture.beginRun(2);
    storeSettings(
        {{QStringLiteral("ConverterFormat"), QStringLiteral("7")}, {QStringLiteral("FirstPage"), QStringLiteral("3")}});
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QVERIFY(argumentsOfRun(fixture, 0).constLast().endsWith("/1.doc"));
    const QByteArrayList second = argumentsOfRun(fixture, 1);
    QCOMPARE(second.mid(0, 3), QByteArrayList({"-f", "3", "-call"}));
    QVERIFY(second.constLast().endsWith("/2.txt"));
}

void WidgetsBatchCommand::stringsOfTheWindowAreRefreshed()
{
    WindowFixture fixture;
    fixture.open();
    fixture.selectFormat(6);
    QCOMPARE(fixture.window->m_strOutputFormat, QStringLiteral(".eps"));
    QCOMPARE(fixture.window->m_strParameter, QString(13, QLatin1Char(' ')));
    chooseExtension(fixture, 8, 26);
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.window->m_strOutputFormat, QStringLiteral(".pgm"));
    QCOMPARE(fixture.window->m_strParameter, QString(8, QLatin1Char(' ')) + QStringLiteral("\"-gray\"     "));
}

QTEST_MAIN(WidgetsBatchCommand)
#include "widgets_batch_command.moc"
