// SPDX-License-Identifier: GPL-3.0-or-later
// The normal batch run: order, progress, arguments of the engine, stopping.
#include "window_fixture.h"

#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QtTest>

class WidgetsBatchRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void convertsRowsInOrder();
    void oneRowShowsAllOfTheBar();
    void startButtonFollowsTheRun();
    void endsSilently();
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
    fixture.beginRun(3);
    const char *const percent[] = {"33%", "66%", "100%"};
    for (int row = 0; row < 3; ++row) {
        fixture.waitForRuns(row + 1);
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
    fixture.waitForIdle();
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
    fixture.beginRun(1);
    QCOMPARE(fixture.bar()->text(), QStringLiteral("100%"));
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QCOMPARE(fixture.bar()->text(), QStringLiteral("0%"));
}

void WidgetsBatchRun::startButtonFollowsTheRun()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait write")});
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
    fixture.runToTheEnd();
    QVERIFY(!anyBox.seen());
}

void WidgetsBatchRun::stopKillsTheEngine()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("write"), QStringLiteral("hang")});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    fixture.waitForRuns(2);
    QCOMPARE(fixture.window->m_nCurrentRow, 1);
    const qint64 pid = fixture.folder.runs().at(1).pid;
    QVERIFY(ProgramFolder::isAlive(pid));
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QVERIFY(!g_bProcess);
    QCOMPARE(fixture.bar()->value(), 0);
    fixture.waitForDeath(pid);
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
    fixture.waitForRuns(2);
    fixture.press();
    fixture.runToTheEnd();
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
        fixture.runToTheEnd();
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
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 1);
}

void WidgetsBatchRun::outputFolderIsTakenAsTyped()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    fixture.outputLine()->setText(QStringLiteral("out")); // relative to the program's folder
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runs().at(0).arguments.constLast(), QByteArray("out/1.doc"));
    fixture.outputLine()->setText(fixture.outputFolder + QLatin1Char('/'));
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runs().at(1).arguments.constLast(), fixture.outputFolder.toUtf8() + "//1.doc");
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
    fixture.runToTheEnd();
    QCOMPARE(fileContent(output), "converted " + paths.at(0).toUtf8() + "\n");
}

void WidgetsBatchRun::goesOnAfterFailures()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("exit:7"), QStringLiteral("crash"), QStringLiteral("write")});
    fixture.open();
    fixture.dropFiles(4);
    fixture.runToTheEnd();
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
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(fixture.sizeText(row), QStringLiteral("         2,048 KB"));
    }

    fixture.table()->setColumnCount(3);
    fixture.call("ClearnInfo");
    QCOMPARE(fixture.pathsInTable(), paths);
    for (int row = 0; row < 4; ++row) {
        QVERIFY(fixture.table()->item(row, 2) && fixture.table()->item(row, 2)->text().isEmpty());
    }
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
    // A row beyond the end starts nothing and is not an error.
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
    fixture.beginRun(1, QStringLiteral("hang"));
    QVERIFY(fixture.window->m_pProcess);
    QCOMPARE(fixture.window->m_pProcess->processChannelMode(), QProcess::SeparateChannels);
    QCOMPARE(fixture.window->m_pProcess->parent(), nullptr);
    QCOMPARE(fixture.window->m_pProcess->program(), fixture.folder.enginePath());
    fixture.press();
}

QTEST_MAIN(WidgetsBatchRun)
#include "widgets_batch_run.moc"
