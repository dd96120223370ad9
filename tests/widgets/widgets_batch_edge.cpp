// SPDX-License-Identifier: GPL-3.0-or-later
// The batch run off the straight path: stalled by the settings dialog, two engines at once, folder or list taken away,
// the window closed.
#include "window_fixture.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <QtTest>

namespace {

const QString waitThenWrite = QStringLiteral("wait write");

void expectWarning(const WindowFixture &fixture)
{
    DialogAnswer<QMessageBox> answer([](QMessageBox &box) { box.accept(); });
    fixture.press();
    QVERIFY(answer.seen());
}

void waitForRuns(const WindowFixture &fixture, int count)
{
    QTRY_COMPARE_WITH_TIMEOUT(fixture.folder.runCount(), count, longWait);
}

void waitForEnded(const WindowFixture &fixture, int count)
{
    QTRY_COMPARE_WITH_TIMEOUT(fixture.folder.endedCount(), count, longWait);
}

// The window has taken notice of that many ends of engines since the run began.
void waitForCounter(const WindowFixture &fixture, int count)
{
    QTRY_COMPARE_WITH_TIMEOUT(fixture.window->m_nCurrentRow, count, longWait);
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
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings(closingButton.constData());
    QVERIFY(!g_bProcess);
    QVERIFY(fixture.showsRunning());
    fixture.folder.release(0);
    waitForEnded(fixture, 1);
    waitForCounter(fixture, 1);
    QVERIFY(fixture.showsRunning());
    QCOMPARE(fixture.bar()->value(), 1);
    QCOMPARE(fixture.folder.runCount(), 1);

    fixture.folder.releaseAll();
    fixture.press();
    QVERIFY(g_bProcess);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList(
            {QStringLiteral("1.pdf"), QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
}

void WidgetsBatchEdge::stalledWindowAllowsItsActions()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    waitForRuns(fixture, 1);
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
    waitForEnded(fixture, 1);
    fixture.press(); // no rows: nothing happens
    QVERIFY(fixture.showsRunning());
}

void WidgetsBatchEdge::engineThatEndsWhileTheDialogIsOpen()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    waitForRuns(fixture, 1);
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        fixture.folder.release(0);
        waitForCounter(fixture, 1);
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
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    waitForRuns(fixture, 1);
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(QStringLiteral("lineEdit_FirstPage"))->setText(QStringLiteral("5"));
        QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("pushButton_Apply")), Qt::LeftButton);
    });
    QTest::mouseClick(fixture.button("toolButton_Setting"), Qt::LeftButton);
    QVERIFY(answer.seen());
    fixture.folder.releaseAll();
    waitForCounter(fixture, 1);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QVERIFY(!fixture.folder.runs().at(0).arguments.contains("-f"));
    QCOMPARE(fixture.folder.runs().at(1).arguments.mid(0, 2), QByteArrayList({"-f", "5"}));
}

void WidgetsBatchEdge::twoEnginesMoveOneCounter()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(4);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings();
    fixture.press(); // a new run while the earlier engine still works on row 0
    waitForRuns(fixture, 2);
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid));
    QCOMPARE(fixture.window->m_nCurrentRow, 0);
    fixture.folder.release(0); // the earlier one ends: the counter moves, row 1 starts
    waitForRuns(fixture, 3);
    QCOMPARE(fixture.window->m_nCurrentRow, 1);
    fixture.folder.release(1); // the first of the new run ends: row 2 starts
    waitForRuns(fixture, 4);
    QCOMPARE(fixture.window->m_nCurrentRow, 2);
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList(
            {QStringLiteral("1.pdf"), QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
    fixture.folder.releaseAll();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QVERIFY(!g_bProcess);
}

void WidgetsBatchEdge::endKillsOnlyTheNewestEngine()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings();
    fixture.press();
    waitForRuns(fixture, 2);
    const qint64 earlier = fixture.folder.runs().at(0).pid;
    const qint64 newest = fixture.folder.runs().at(1).pid;
    fixture.press(); // Stop
    QVERIFY(fixture.showsIdle());
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(newest), longWait);
    QVERIFY(ProgramFolder::isAlive(earlier));
    fixture.folder.releaseAll();
    waitForEnded(fixture, 1);
    QVERIFY(fixture.folder.runs().at(0).ended);
    waitForCounter(fixture, 1); // counted, though idle
    QVERIFY(fixture.showsIdle());
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QCOMPARE(fixture.folder.runCount(), 3);
}

void WidgetsBatchEdge::stopChecksTheFolderFirst()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("hang")});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    waitForRuns(fixture, 1);
    QVERIFY(QDir().rmdir(fixture.outputFolder));
    expectWarning(fixture);
    QVERIFY(g_bProcess);
    QVERIFY(fixture.showsRunning());
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid));
    QVERIFY(QDir().mkdir(fixture.outputFolder));
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(fixture.folder.runs().at(0).pid), longWait);
}

void WidgetsBatchEdge::stopChecksTheListFirst()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    fixture.press();
    waitForRuns(fixture, 1);
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
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings();
    fixture.folder.releaseAll();
    waitForCounter(fixture, 1);
    QVERIFY(QDir(fixture.outputFolder).removeRecursively());
    expectWarning(fixture);
    QVERIFY(!g_bProcess);
    QVERIFY(fixture.showsRunning());
    QVERIFY(QDir().mkdir(fixture.outputFolder));
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QCOMPARE(fixture.folder.endedCount(), 2);
}

void WidgetsBatchEdge::rowsRemovedWhileStalled()
{
    // The earlier engine's end moves the counter of the new run past its only row: the run is over at once.
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings();
    while (fixture.table()->rowCount() > 1) {
        fixture.table()->setCurrentCell(1, 0);
        QTest::mouseClick(fixture.button("toolButton_Delete"), Qt::LeftButton);
    }
    fixture.press();
    waitForRuns(fixture, 2);
    QCOMPARE(fixture.bar()->maximum(), 1);
    fixture.folder.release(0);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(fixture.folder.runs().at(1).pid), longWait);
    QVERIFY(!fixture.folder.runs().at(1).ended);
}

void WidgetsBatchEdge::closingDuringARunLetsTheEngineFinish()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    waitForRuns(fixture, 1);
    const qint64 pid = fixture.folder.runs().at(0).pid;
    fixture.close();
    QVERIFY(ProgramFolder::isAlive(pid));
    fixture.folder.releaseAll();
    waitForEnded(fixture, 1);
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(pid), longWait);
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/1.doc")));
    QCoreApplication::processEvents();
    QCOMPARE(fixture.folder.runCount(), 1);
}

void WidgetsBatchEdge::closingDuringARunEndsTheProgram()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    QTimer::singleShot(0, fixture.window.data(), [&]() {
        fixture.press();
        waitForRuns(fixture, 1);
        fixture.window->close();
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(ProgramFolder::isAlive(fixture.folder.runs().at(0).pid)); // nobody waited for it
    fixture.folder.releaseAll();
    waitForEnded(fixture, 1);
}

void WidgetsBatchEdge::closingWithTwoEnginesLetsBothFinish()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    waitForRuns(fixture, 1);
    fixture.visitSettings();
    fixture.press();
    waitForRuns(fixture, 2);
    fixture.close();
    fixture.folder.releaseAll();
    waitForEnded(fixture, 2);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.folder.runCount(), 2);
}

void WidgetsBatchEdge::aboutBoxDoesNotDisturbTheRun()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(2);
    fixture.press();
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        fixture.folder.releaseAll();
        QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_About"), Qt::LeftButton);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.folder.endedCount(), 2);
}

void WidgetsBatchEdge::runGoesOnWhileAMessageBoxIsOpen()
{
    WindowFixture fixture;
    fixture.folder.plan({waitThenWrite});
    fixture.open();
    fixture.dropFiles(3);
    fixture.press();
    waitForRuns(fixture, 1);
    QVERIFY(QDir().rmdir(fixture.outputFolder));
    DialogAnswer<QMessageBox> answer([&](QMessageBox &box) {
        QVERIFY(QDir().mkdir(fixture.outputFolder));
        fixture.folder.releaseAll();
        QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), longWait);
        box.accept();
    });
    fixture.press();
    QVERIFY(answer.seen());
    QVERIFY(fixture.showsIdle());
    QCOMPARE(fixture.folder.endedCount(), 3);
}

QTEST_MAIN(WidgetsBatchEdge)
#include "widgets_batch_edge.moc"
