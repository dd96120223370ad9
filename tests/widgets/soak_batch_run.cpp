// SPDX-License-Identifier: GPL-3.0-or-later
// Hundreds of runs in one process with random Stop, drops, settings dialogs and clicks on output kinds. QUORRA_SEED
// reproduces a test run; QUORRA_ROUNDS sets the number of runs.
#include "random_source.h"
#include "run_model.h"
#include "window_fixture.h"

#include <QCheckBox>
#include <QtTest>

namespace {

QString describe(const RunModel &model)
{
    return QStringLiteral("rows %1 running %2 stop %3 counter %4 bar %5 started %6 kind %7")
        .arg(model.rows)
        .arg(model.running)
        .arg(model.showsStop)
        .arg(model.counter)
        .arg(model.bar)
        .arg(model.started)
        .arg(model.kind);
}

QString describe(const WindowFixture &fixture)
{
    RunModel seen;
    seen.rows = fixture.table()->rowCount();
    seen.running = g_bProcess;
    seen.showsStop = fixture.showsRunning();
    seen.counter = fixture.window->m_nCurrentRow;
    seen.bar = fixture.bar()->value();
    seen.started = fixture.folder.runCount();
    seen.kind = storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")).toInt();
    return describe(seen);
}

} // namespace

class SoakBatchRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void followsTheModel();
    void keepsItsRulesAtRandomMoments();

private:
    void act(const WindowFixture &fixture, RunModel &model);
    void finishRun(const WindowFixture &fixture, RunModel &model);
    void expect(const WindowFixture &fixture, const RunModel &model);

    RandomSource m_random;
};

void SoakBatchRun::expect(const WindowFixture &fixture, const RunModel &model)
{
    QTRY_COMPARE_WITH_TIMEOUT(describe(fixture), describe(model), longWait);
    QCoreApplication::processEvents();
    QCOMPARE(describe(fixture), describe(model));
    QVERIFY(fixture.showsRunning() != fixture.showsIdle());
    const QList<EngineRun> runs = fixture.folder.runs();
    for (const EngineRun &run : runs) {
        const QByteArray input = run.arguments.value(run.arguments.size() - 2);
        const int row = model.converted.value(run.number);
        if (row < fixture.table()->rowCount()) {
            QCOMPARE(QString::fromUtf8(input), fixture.table()->item(row, 0)->text());
        }
    }
    for (const int engine : model.alive) {
        QVERIFY(ProgramFolder::isAlive(runs.value(engine).pid));
    }
}

void SoakBatchRun::act(const WindowFixture &fixture, RunModel &model)
{
    const int files = 1 + m_random.below(3);
    const int kind = m_random.below(9);
    switch (m_random.below(8)) {
    case 0:
        fixture.drop(QStringList(files, fixture.folder.filePath(QStringLiteral("same.pdf"))));
        model.drop(files);
        break;
    case 1:
        fixture.visitSettings(m_random.oneIn(2) ? "pushButton_Apply" : "pushButton_Cancle");
        model.settings();
        break;
    case 2:
        fixture.formats()->setCurrentRow(kind);
        fixture.call("On_ListWidget_ItemClicked"); // as the click on a row that is current already
        model.clickKind(kind);
        break;
    case 3:
        if (m_random.oneIn(4)) {
            fixture.call("On_Button_ClearFile");
            model.clear();
        }
        break;
    case 4:
    case 5:
        fixture.press();
        model.press();
        break;
    default:
        if (!model.alive.isEmpty()) {
            const int engine = model.alive.at(m_random.below(int(model.alive.size())));
            fixture.folder.release(engine);
            model.end(engine);
        }
        break;
    }
}

/// Lets every engine end, one by one.
void SoakBatchRun::finishRun(const WindowFixture &fixture, RunModel &model)
{
    while (!model.alive.isEmpty() && !QTest::currentTestFailed()) {
        const int engine = model.alive.constFirst();
        fixture.folder.release(engine);
        model.end(engine);
        expect(fixture, model);
    }
    fixture.folder.forgetRuns();
    model.started = 0;
    model.converted.clear();
    fixture.call("On_Button_ClearFile");
    model.clear();
}

void SoakBatchRun::followsTheModel()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait")});
    fixture.folder.makePdf(QStringLiteral("same.pdf"));
    fixture.open();
    RunModel model;
    const int rounds = randomRounds(200);
    for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
        for (int step = 4 + m_random.below(16); step > 0 && !QTest::currentTestFailed(); --step) {
            act(fixture, model);
            expect(fixture, model);
        }
        finishRun(fixture, model);
    }
}

/// The engine exits at random times, so the model cannot follow, but some conditions always hold.
void SoakBatchRun::keepsItsRulesAtRandomMoments()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("quiet write")});
    fixture.folder.makePdf(QStringLiteral("same.pdf"));
    fixture.open();
    RunModel ignored;
    const int rounds = randomRounds(200);
    for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
        fixture.drop(QStringList(1 + m_random.below(5), fixture.folder.filePath(QStringLiteral("same.pdf"))));
        for (int step = m_random.below(12); step > 0 && !QTest::currentTestFailed(); --step) {
            ignored.alive.clear();
            act(fixture, ignored);
            for (int turns = m_random.below(20); turns > 0; --turns) {
                QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            }
            QVERIFY(fixture.showsRunning() != fixture.showsIdle());
            if (g_bProcess) {
                QVERIFY(fixture.showsRunning());
                QVERIFY(fixture.window->m_nCurrentRow < fixture.table()->rowCount());
                QCOMPARE(fixture.bar()->value(), fixture.window->m_nCurrentRow + 1);
                QCOMPARE(fixture.table()->currentRow(), fixture.window->m_nCurrentRow);
            }
            QCOMPARE(fixture.bar()->value() == 0, fixture.showsIdle());
        }
        QTRY_VERIFY_WITH_TIMEOUT(!g_bProcess, longWait);
        fixture.call("On_Button_ClearFile");
        QCOMPARE(fixture.table()->rowCount(), 0);
    }
}

QTEST_MAIN(SoakBatchRun)
#include "soak_batch_run.moc"
