// SPDX-License-Identifier: GPL-3.0-or-later
// Special cases of the batch run: stalled by the settings dialog, two engines at once, folder or list removed, window
// closed.
#include "window_fixture.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <QtTest>

namespace {

void expectWarning(const WindowFixture &fixture)
{
    DialogAnswer<QMessageBox> answer([](QMessageBox &box) { box.accept(); });
    fixture.press();
    QVERIFY(answer.seen());
}

} // namespace

class WidgetsBatchEdge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void settingsDialogStallsTheRun_data();
    void settingsDialogStallsTheRun();
    void stalledWindowAllowsItsActions();
    void engineThatEndsWhileTheDialogIsOpen();
    void settingsAppliedDuringARunCountForTheNext();
    void twoEnginesMoveOneCounter();
    void endKillsOnlyTheNewestEngine();
    void stopChecksTheFolderFirst();
    void stopChecksTheListFirst();
    void stalledStartChecksTheFolderFirst();
    void rowsRemovedWhileStalled();
    void closingDuringARunLetsTheEngineFinish();
    void closingDuringARunEndsTheProgram();
    void closingWithTwoEnginesLetsBothFinish();
    void aboutBoxDoesNotDisturbTheRun();
    void runGoesOnWhileAMessageBoxIsOpen();
};

void WidgetsBatchEdge::settingsDialogStallsTheRun_data()
{
    QTest::addColumn<QByteArray>("closingButton");
    QTest::newRow("Cancel") << QByteArray("pushButton_Cancle");
    QTest::newRow("Apply") << QByteArray("pushButton_Apply");
}

void WidgetsBatchEdge::settingsDialogStallsTheRun()
{
    QFETCH(QByteArray, closingButton);
    WindowFixture fixture;
    fixture.beginRun(3);
    fixture.visitSettings(closingButton.constData());
    QVERIFY(!g_bProcess);
    QVERIFY(fixture.showsRunning());
    fixture.folder.release(0);
    fixture.waitForEnded(1);
    fixture.waitForCounter(1);
    QVERIFY(fixture.showsRunning());
    QCOMPARE(fixture.bar()->value(), 1);
    QCOMPARE(fixture.folder.runCount(), 1);

    fixture.folder.releaseAll();
    fixture.press();
    QVERIFY(g_bProcess);
    fixture.waitForIdle();
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList(
            {QStringLiteral("1.pdf"), QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
}

void WidgetsBatchEdge::stalledWindowAllowsItsActions()
{
    WindowFixture fixture;
    fixture.beginRun(3);
    fixture.visitSettings();
    fixture.selectFormat(7);
    QCOMPARE(storedSetting(QStringLiteral("ConverterFormat")), QStringLiteral("7"));
    fixture.table()->setCurrentCell(2, 0);
    QTest::mouseClick(fixture.button("toolButton_Delete"), Qt::LeftButton);
    QCOMPARE(fixture.table()->rowCount(), 2);
    QTest::mouseClick(fixture.button("toolButton_Clear"), Qt::LeftButton);
    QCOMPARE(fixture.table()->rowCount(), 0);
    QVERIFY(fixture.showsRunning());
    fixture.folder.releaseAll();
    fixture.waitForEnded(1);
    fixture.press(); // no rows: nothing happens
    QVERIFY(fixture.showsRunning());
}

void WidgetsBatchEdge::engineThatEndsWhileTheDialogIsOpen()
{
    WindowFixture fixture;
    fixture.beginRun(2);
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        fixture.folder.release(0);
        fixture.waitForCounter(1);
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_Setting"), Qt::LeftButton);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.folder.runCount(), 1);
    QVERIFY(fixture.showsRunning());
}

void WidgetsBatchEdge::settingsAppliedDuringARunCountForTheNext()
{
    WindowFixture fixture;
    fixture.beginRun(1);
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(QStringLiteral("lineEdit_FirstPage"))->setText(QStringLiteral("5"));
        QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("pushButton_Apply")), Qt::LeftButton);
    });
    QTest::mouseClick(fixture.button("toolButton_Setting"), Qt::LeftButton);
    QVERIFY(answer.seen());
    fixture.folder.releaseAll();
    fixture.waitForCounter(1);
    fixture.runToTheEnd();
    QVERIFY(!fixture.folder.runs().at(0).arguments.contains("-f"));
    QCOMPARE(fixture.folder.runs().at(1).arguments.mid(0, 2), QByteArrayList({"-f", "5"}));
}

void WidgetsBatchEdge::twoEnginesMoveOneCounter()
{
    WindowFixture fixture;
    fixture.beginRun(4);
    fixture.visitSettings();
    fixture.press(); // a new run while the earlier engine still works on row 0
    fixture.waitForRuns(2);
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid));
    QCOMPARE(fixture.window->m_nCurrentRow, 0);
    fixture.folder.release(0); // the earlier one ends: the counter moves, row 1 starts
    fixture.waitForRuns(3);
    QCOMPARE(fixture.window->m_nCurrentRow, 1);
    fixture.folder.release(1); // the first of the new run ends: row 2 starts
    fixture.waitForRuns(4);
    QCOMPARE(fixture.window->m_nCurrentRow, 2);
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList(
            {QStringLiteral("1.pdf"), QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QVERIFY(!g_bProcess);
}

void WidgetsBatchEdge::endKillsOnlyTheNewestEngine()
{
    WindowFixture fixture;
    fixture.beginRun(1);
    fixture.visitSettings();
    fixture.press();
    fixture.waitForRuns(2);
    const qint64 earlier = fixture.folder.runs().at(0).pid;
    const qint64 newest = fixture.folder.runs().at(1).pid;
    fixture.press(); // Stop
    QVERIFY(fixture.showsIdle());
    fixture.waitForDeath(newest);
    QVERIFY(ProgramFolder::isAlive(earlier));
    fixture.folder.releaseAll();
    fixture.waitForEnded(1);
    QVERIFY(fixture.folder.runs().at(0).ended);
    fixture.waitForCounter(1); // counted, though idle
    QVERIFY(fixture.showsIdle());
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runCount(), 3);
}

void WidgetsBatchEdge::stopChecksTheFolderFirst()
{
    WindowFixture fixture;
    fixture.beginRun(2, QStringLiteral("hang"));
    QVERIFY(QDir().rmdir(fixture.outputFolder));
    expectWarning(fixture);
    QVERIFY(g_bProcess);
    QVERIFY(fixture.showsRunning());
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid));
    QVERIFY(QDir().mkdir(fixture.outputFolder));
    fixture.press();
    QVERIFY(fixture.showsIdle());
    fixture.waitForDeath(fixture.folder.runs().at(0).pid);
}

void WidgetsBatchEdge::stopChecksTheListFirst()
{
    WindowFixture fixture;
    const QStringList paths = fixture.beginRun(1);
    fixture.table()->setRowCount(0); // the window itself refuses to empty the list now
    fixture.press();
    QVERIFY(g_bProcess);
    QVERIFY(fixture.showsRunning());
    fixture.drop(paths);
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QVERIFY(!g_bProcess);
}

void WidgetsBatchEdge::stalledStartChecksTheFolderFirst()
{
    WindowFixture fixture;
    fixture.beginRun(1);
    fixture.visitSettings();
    fixture.folder.releaseAll();
    fixture.waitForCounter(1);
    QVERIFY(QDir(fixture.outputFolder).removeRecursively());
    expectWarning(fixture);
    QVERIFY(!g_bProcess);
    QVERIFY(fixture.showsRunning());
    QVERIFY(QDir().mkdir(fixture.outputFolder));
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 2);
}

void WidgetsBatchEdge::rowsRemovedWhileStalled()
{
    // The end of the earlier engine advances the counter of the new run beyond its only row: the run ends at once.
    WindowFixture fixture;
    fixture.beginRun(3);
    fixture.visitSettings();
    while (fixture.table()->rowCount() > 1) {
        fixture.table()->setCurrentCell(1, 0);
        QTest::mouseClick(fixture.button("toolButton_Delete"), Qt::LeftButton);
    }
    fixture.press();
    fixture.waitForRuns(2);
    QCOMPARE(fixture.bar()->maximum(), 1);
    fixture.folder.release(0);
    fixture.waitForIdle();
    fixture.waitForDeath(fixture.folder.runs().at(1).pid);
    QVERIFY(!fixture.folder.runs().at(1).ended);
}

void WidgetsBatchEdge::closingDuringARunLetsTheEngineFinish()
{
    WindowFixture fixture;
    fixture.beginRun(2);
    const qint64 pid = fixture.folder.runs().at(0).pid;
    fixture.close();
    QVERIFY(ProgramFolder::isAlive(pid));
    fixture.folder.releaseAll();
    fixture.waitForEnded(1);
    fixture.waitForDeath(pid);
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/1.doc")));
    QCoreApplication::processEvents();
    QCOMPARE(fixture.folder.runCount(), 1);
}

void WidgetsBatchEdge::closingDuringARunEndsTheProgram()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait write")});
    fixture.open();
    fixture.dropFiles(2);
    QTimer::singleShot(0, fixture.window.data(), [&]() {
        fixture.press();
        fixture.waitForRuns(1);
        fixture.window->close();
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid)); // nobody waited for it
    fixture.folder.releaseAll();
    fixture.waitForEnded(1);
}

void WidgetsBatchEdge::closingWithTwoEnginesLetsBothFinish()
{
    WindowFixture fixture;
    fixture.beginRun(2);
    fixture.visitSettings();
    fixture.press();
    fixture.waitForRuns(2);
    fixture.close();
    fixture.folder.releaseAll();
    fixture.waitForEnded(2);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.folder.runCount(), 2);
}

void WidgetsBatchEdge::aboutBoxDoesNotDisturbTheRun()
{
    WindowFixture fixture;
    fixture.beginRun(2);
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        fixture.folder.releaseAll();
        fixture.waitForIdle();
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_About"), Qt::LeftButton);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.folder.endedCount(), 2);
}

void WidgetsBatchEdge::runGoesOnWhileAMessageBoxIsOpen()
{
    WindowFixture fixture;
    fixture.beginRun(3);
    QVERIFY(QDir().rmdir(fixture.outputFolder));
    DialogAnswer<QMessageBox> answer([&](QMessageBox &box) {
        QVERIFY(QDir().mkdir(fixture.outputFolder));
        fixture.folder.releaseAll();
        fixture.waitForIdle();
        box.accept();
    });
    fixture.press();
    QVERIFY(answer.seen());
    QVERIFY(fixture.showsIdle());
    QCOMPARE(fixture.folder.endedCount(), 3);
}

QTEST_MAIN(WidgetsBatchEdge)
#include "widgets_batch_edge.moc"
