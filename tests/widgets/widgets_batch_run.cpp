// SPDX-License-Identifier: GPL-3.0-or-later
// The batch run as it is meant to go: order, progress, the engine's arguments, stopping.
#include "window_fixture.h"

#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QtTest>

namespace {

const QString waitThenWrite = QStringLiteral("wait write");

bool engineStarted(const WindowFixture &fixture, int runs)
{
    return fixture.folder.runCount() >= runs;
}

QByteArrayList argumentsOfRun(const WindowFixture &fixture, int run)
{
    return fixture.folder.runs().value(run).arguments;
}

// Stores one kind and extension, as "Apply" would after a click on the kind.
void chooseExtension(const WindowFixture &fixture, int row, int extensionIndex)
{
    fixture.selectFormat(row);
    storeSetting(QStringLiteral("ConverterFormat"), QString::number(extensionIndex));
}

void runToTheEnd(const WindowFixture &fixture)
{
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QVERIFY(!g_bProcess);
}

} // namespace

class WidgetsBatchRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void convertsRowsInOrder();
    void oneRowShowsAllOfTheBar();
    void startButtonFollowsTheRun();
    void endsSilently();
    void argumentsOfAPlainRun();
    void outputNames_data();
    void outputNames();
    void xmlAddsItsBareSwitchLast();
    void otherKindsAddNothing();
    void settingsReachTheEngine();
    void settingsAreReadForEveryFile();
    void stringsOfTheWindowAreRefreshed();
    void stopKillsTheEngine();
    void startsAgainAfterAStop();
    void startsAgainAfterTheEnd();
    void noRowsDoNothing();
    void wrongFolderWarns_data();
    void wrongFolderWarns();
    void outputFolderIsTakenAsTyped();
    void existingOutputIsReplaced();
    void goesOnAfterFailures();
    void startButtonLook();
    void outputLineFollowsItsArgument();
    void killWithoutAProcessResetsTheState();
    void clearInfoLeavesThePathsAlone();
    void exeCmdDoesNothingWhenIdle();
    void exeEndOnlyCountsWhenIdle();
    void engineIsStartedOnSeparateChannels();
};

void WidgetsBatchRun::convertsRowsInOrder()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    const char *const percent[] = {"33%", "66%", "100%"};
    for (int row = 0; row < 3; ++row) {
        QTRY_VERIFY_WITH_TIMEOUT(engineStarted(fixture, row + 1), longWait);
        QVERIFY(g_bProcess);
        QVERIFY(fixture.showsRunning());
        QCOMPARE(fixture.window->m_nCurrentRow, row);
        QCOMPARE(fixture.bar()->maximum(), 3);
        QCOMPARE(fixture.bar()->value(), row + 1);
        QCOMPARE(fixture.bar()->text(), QLatin1String(percent[row]));
        QCOMPARE(fixture.table()->currentRow(), row);
        QCOMPARE(fixture.table()->currentColumn(), 0);
        QCOMPARE(fixture.table()->selectionModel()->selectedRows().size(), 1);
        QCOMPARE(fixture.folder.runCount(), row + 1);
        fixture.folder.release(row);
    }
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QVERIFY(!g_bProcess);
    QCOMPARE(fixture.bar()->value(), 0);
    QCOMPARE(fixture.bar()->maximum(), 3);
    QCOMPARE(fixture.bar()->text(), QStringLiteral("0%"));
    QCOMPARE(fixture.window->m_nCurrentRow, 0);
    QCOMPARE(fixture.table()->currentRow(), 2);
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList({QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
    QCOMPARE(QDir(fixture.outputFolder).entryList(QDir::Files).size(), 3);
}

void WidgetsBatchRun::oneRowShowsAllOfTheBar()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    QCOMPARE(fixture.bar()->text(), QStringLiteral("100%"));
    fixture.folder.releaseAll();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QCOMPARE(fixture.bar()->text(), QStringLiteral("0%"));
}

void WidgetsBatchRun::startButtonFollowsTheRun()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(1);
    QVERIFY(fixture.showsIdle());
    fixture.press();
    QVERIFY(fixture.showsRunning());
    const QImage stop(QStringLiteral(":/MyImage/Image/stop.png"));
    QCOMPARE(
        fixture.startButton()
            ->icon()
            .pixmap(stop.size())
            .toImage()
            .convertToFormat(QImage::Format_ARGB32_Premultiplied),
        stop.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    fixture.press();
    QVERIFY(fixture.showsIdle());
}

void WidgetsBatchRun::endsSilently()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(2);
    ModalAnswer anyBox(ModalAnswer::isA<QDialog>(), [](QWidget *dialog) { dialog->close(); });
    runToTheEnd(fixture);
    QVERIFY(!anyBox.seen());
}

void WidgetsBatchRun::argumentsOfAPlainRun()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    runToTheEnd(fixture);
    const QByteArrayList expected{
        "-wordmode", "0", "-call", paths.at(0).toUtf8(), fixture.outputFolder.toUtf8() + "/1.doc"};
    QCOMPARE(argumentsOfRun(fixture, 0), expected);
}

void WidgetsBatchRun::outputNames_data()
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

void WidgetsBatchRun::outputNames()
{
    QFETCH(QString, input);
    QFETCH(int, extensionIndex);
    QFETCH(QString, output);
    QFETCH(QString, firstPage);
    WindowFixture fixture;
    fixture.open();
    fixture.drop({fixture.folder.makePdf(QStringLiteral("in.dir/") + input)});
    chooseExtension(fixture, 8, extensionIndex);
    runToTheEnd(fixture);
    QCOMPARE(
        QString::fromUtf8(argumentsOfRun(fixture, 0).constLast()), fixture.outputFolder + QLatin1Char('/') + output);
    QCOMPARE(strOutputFileExist1, fixture.outputFolder + QLatin1Char('/') + output);
    QCOMPARE(strOutputFileExist2, fixture.outputFolder + QLatin1Char('/') + firstPage);
}

void WidgetsBatchRun::xmlAddsItsBareSwitchLast()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("UserPassword"), QStringLiteral(" a b "));
    fixture.selectFormat(4);
    const QStringList paths = fixture.dropFiles(1);
    runToTheEnd(fixture);
    const QByteArrayList expected{
        "-upw", " a b ", "-htmlformat", "-call", paths.at(0).toUtf8(), fixture.outputFolder.toUtf8() + "/1.xml"};
    QCOMPARE(argumentsOfRun(fixture, 0), expected);
    QVERIFY(!fixture.window->m_strParameter.contains(QStringLiteral("-htmlformat")));
}

void WidgetsBatchRun::otherKindsAddNothing()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        runToTheEnd(fixture);
        QCOMPARE(argumentsOfRun(fixture, row).contains("-htmlformat"), row == 4);
        QCOMPARE(argumentsOfRun(fixture, row).contains("-wordmode"), row == 0);
        QCOMPARE(argumentsOfRun(fixture, row).contains("-compress"), row == 8);
    }
}

void WidgetsBatchRun::settingsReachTheEngine()
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
    for (const auto &[name, value] : values)
        storeSetting(QLatin1String(name), QLatin1String(value));
    runToTheEnd(fixture);
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

void WidgetsBatchRun::settingsAreReadForEveryFile()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(engineStarted(fixture, 1), longWait);
    storeSettings(
        {{QStringLiteral("ConverterFormat"), QStringLiteral("7")}, {QStringLiteral("FirstPage"), QStringLiteral("3")}});
    fixture.folder.releaseAll();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QVERIFY(argumentsOfRun(fixture, 0).constLast().endsWith("/1.doc"));
    const QByteArrayList second = argumentsOfRun(fixture, 1);
    QCOMPARE(second.mid(0, 3), QByteArrayList({"-f", "3", "-call"}));
    QVERIFY(second.constLast().endsWith("/2.txt"));
}

void WidgetsBatchRun::stringsOfTheWindowAreRefreshed()
{
    WindowFixture fixture;
    fixture.open();
    fixture.selectFormat(6);
    QCOMPARE(fixture.window->m_strOutputFormat, QStringLiteral(".eps"));
    QCOMPARE(fixture.window->m_strParameter, QString(13, QLatin1Char(' ')));
    chooseExtension(fixture, 8, 26);
    fixture.dropFiles(1);
    runToTheEnd(fixture);
    QCOMPARE(fixture.window->m_strOutputFormat, QStringLiteral(".pgm"));
    QCOMPARE(fixture.window->m_strParameter, QString(8, QLatin1Char(' ')) + QStringLiteral("\"-gray\"     "));
}

void WidgetsBatchRun::stopKillsTheEngine()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("write"), QStringLiteral("hang")});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(engineStarted(fixture, 2), longWait);
    QCOMPARE(fixture.window->m_nCurrentRow, 1);
    const qint64 pid = fixture.folder.runs().at(1).pid;
    QVERIFY(ProgramFolder::isAlive(pid));
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QVERIFY(!g_bProcess);
    QCOMPARE(fixture.bar()->value(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(pid), longWait);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.folder.runCount(), 2);
    QVERIFY(fixture.showsIdle());
}

void WidgetsBatchRun::startsAgainAfterAStop()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("write"), QStringLiteral("hang"), QStringLiteral("write")});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(engineStarted(fixture, 2), longWait);
    fixture.press();
    runToTheEnd(fixture);
    QCOMPARE(
        fixture.folder.inputsOfRuns(), QStringList(
                                           {QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("1.pdf"),
                                            QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
}

void WidgetsBatchRun::startsAgainAfterTheEnd()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(2);
    for (int time = 1; time <= 3; ++time) {
        runToTheEnd(fixture);
        QCOMPARE(fixture.folder.endedCount(), 2 * time);
    }
}

void WidgetsBatchRun::noRowsDoNothing()
{
    WindowFixture fixture;
    fixture.open();
    fixture.outputLine()->clear();
    ModalAnswer anyBox(ModalAnswer::isA<QDialog>(), [](QWidget *dialog) { dialog->close(); });
    fixture.press();
    QVERIFY(!anyBox.seen());
    QVERIFY(fixture.showsIdle());
    QVERIFY(!g_bProcess);
    QCOMPARE(fixture.folder.runCount(), 0);
}

void WidgetsBatchRun::wrongFolderWarns_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("missing") << QStringLiteral("/no/such/folder");
    QTest::newRow("a file") << QStringLiteral("Qtminw");
}

void WidgetsBatchRun::wrongFolderWarns()
{
    QFETCH(QString, typed);
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    fixture.outputLine()->setText(typed);
    DialogAnswer<QMessageBox> answer([&](QMessageBox &box) {
        QCOMPARE(box.windowTitle(), QStringLiteral("Warning"));
        QCOMPARE(box.text(), QStringLiteral("Please select a correct output folder!"));
        QCOMPARE(box.standardButtons(), QMessageBox::Yes);
        QCOMPARE(box.buttons().size(), 1);
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.parentWidget(), fixture.window.data());
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    fixture.press();
    QVERIFY(answer.seen());
    QVERIFY(fixture.showsIdle());
    QCOMPARE(fixture.outputLine()->text(), typed);
    QCOMPARE(fixture.folder.runCount(), 0);
    fixture.outputLine()->setText(fixture.outputFolder);
    runToTheEnd(fixture);
    QCOMPARE(fixture.folder.endedCount(), 1);
}

void WidgetsBatchRun::outputFolderIsTakenAsTyped()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    fixture.outputLine()->setText(QStringLiteral("out")); // relative to the program's folder
    runToTheEnd(fixture);
    QCOMPARE(argumentsOfRun(fixture, 0).constLast(), QByteArray("out/1.doc"));
    fixture.outputLine()->setText(fixture.outputFolder + QLatin1Char('/'));
    runToTheEnd(fixture);
    QCOMPARE(argumentsOfRun(fixture, 1).constLast(), fixture.outputFolder.toUtf8() + "//1.doc");
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/1.doc")));
}

void WidgetsBatchRun::existingOutputIsReplaced()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    const QString output = fixture.outputFolder + QStringLiteral("/1.doc");
    writeFile(
        output, "an earlier result that is longer than the new one, and then some more text to be sure of it, yes");
    runToTheEnd(fixture);
    QCOMPARE(fileContent(output), "converted " + paths.at(0).toUtf8() + "\n");
}

void WidgetsBatchRun::goesOnAfterFailures()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("exit:7"), QStringLiteral("crash"), QStringLiteral("write")});
    fixture.open();
    fixture.dropFiles(4);
    runToTheEnd(fixture);
    QCOMPARE(fixture.folder.runCount(), 4);
    QCOMPARE(
        QDir(fixture.outputFolder).entryList(QDir::Files),
        QStringList({QStringLiteral("3.doc"), QStringLiteral("4.doc")}));
}

void WidgetsBatchRun::startButtonLook()
{
    WindowFixture fixture;
    fixture.open();
    for (const bool running : {true, false}) {
        fixture.startButton()->setAutoRaise(false);
        fixture.startButton()->setToolButtonStyle(Qt::ToolButtonIconOnly);
        fixture.startButton()->setIconSize(QSize(3, 3));
        fixture.window->DymicUpdateStartButtonIconText(running);
        QCOMPARE(fixture.startButton()->text(), running ? QStringLiteral("Stop") : QStringLiteral("Start"));
        QCOMPARE(fixture.startButton()->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        QVERIFY(fixture.startButton()->autoRaise());
        QCOMPARE(fixture.startButton()->iconSize(), QSize(48, 48));
    }
}

void WidgetsBatchRun::outputLineFollowsItsArgument()
{
    WindowFixture fixture;
    fixture.open();
    fixture.window->DymicUpdateOutputLineText(true);
    QVERIFY(fixture.outputLine()->isReadOnly());
    QVERIFY(fixture.outputLine()->isEnabled());
    fixture.window->DymicUpdateOutputLineText(false);
    QVERIFY(!fixture.outputLine()->isReadOnly());
}

void WidgetsBatchRun::killWithoutAProcessResetsTheState()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(3);
    g_bProcess = true;
    fixture.window->DymicUpdateStartButtonIconText(true);
    fixture.window->DymicUpdateOutputLineText(true);
    fixture.window->m_nCurrentRow = 2;
    fixture.bar()->setValue(50);
    fixture.window->KillProcess();
    QVERIFY(!g_bProcess);
    QVERIFY(fixture.showsIdle());
    QCOMPARE(fixture.window->m_nCurrentRow, 0);
    QCOMPARE(fixture.bar()->value(), 0);
}

void WidgetsBatchRun::clearInfoLeavesThePathsAlone()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(4);
    fixture.call("ClearnInfo");
    QCOMPARE(fixture.pathsInTable(), paths);
    QCOMPARE(fixture.table()->columnCount(), 2);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(fixture.sizeText(row), QStringLiteral("         2,048 KB"));
}

void WidgetsBatchRun::exeCmdDoesNothingWhenIdle()
{
    WindowFixture fixture(ProgramFolder::WithoutEngine);
    fixture.open();
    fixture.dropFiles(1);
    QVERIFY(fixture.window->ExeCmd());
    g_bProcess = true;
    QVERIFY(!fixture.window->ExeCmd());
    fixture.folder.installEngine();
    // A row past the end starts nothing and is no error.
    fixture.window->m_nCurrentRow = 5;
    QVERIFY(fixture.window->ExeCmd());
    QCOMPARE(fixture.bar()->value(), 0);
    g_bProcess = false;
    QCOMPARE(fixture.folder.runCount(), 0);
}

void WidgetsBatchRun::exeEndOnlyCountsWhenIdle()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(3);
    fixture.call("ExeEnd");
    QCOMPARE(fixture.window->m_nCurrentRow, 1);
    QCOMPARE(fixture.folder.runCount(), 0);
    QVERIFY(fixture.showsIdle());
}

void WidgetsBatchRun::engineIsStartedOnSeparateChannels()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("hang")});
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    QVERIFY(fixture.window->m_pProcess);
    QCOMPARE(fixture.window->m_pProcess->processChannelMode(), QProcess::SeparateChannels);
    QCOMPARE(fixture.window->m_pProcess->parent(), nullptr);
    QCOMPARE(fixture.window->m_pProcess->program(), fixture.folder.enginePath());
    fixture.press();
}

QTEST_MAIN(WidgetsBatchRun)
#include "widgets_batch_run.moc"
