// SPDX-License-Identifier: GPL-3.0-or-later
// Memory does not grow in long runs or with large amounts of output.
#include "window_fixture.h"

#include <QtTest>

namespace {

constexpr qint64 allowedGrowth = 2048; // kB

/// The sanitizers keep freed memory, so that growth cannot be measured; the run itself is still checked.
void expectFlat(qint64 before)
{
    const qint64 growth = residentKilobytes() - before;
    std::printf("growth: %lld kB\n", static_cast<long long>(growth));
#ifndef QUORRA_SANITIZED
    QVERIFY2(growth < allowedGrowth, qPrintable(QString::number(growth)));
#endif
}

void runToTheEnd(const WindowFixture &fixture)
{
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle(), 10 * longWait);
}

} // namespace

class WidgetsMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void manyFilesInOneRun();
    void floodOfOutput();
};

/// QUORRA_ROUNDS says how many files.
void WidgetsMemory::manyFilesInOneRun()
{
    const int files = qEnvironmentVariableIsSet("QUORRA_ROUNDS") ? qEnvironmentVariableIntValue("QUORRA_ROUNDS") : 1000;
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("quiet exit:0")});
    fixture.open();
    fixture.dropFiles(100);
    runToTheEnd(fixture); // everything that is made once is made now
    const QString path = fixture.folder.makePdf(QStringLiteral("same.pdf"));
    fixture.drop(QStringList(files - 100, path));
    QCOMPARE(fixture.table()->rowCount(), files);

    int started = 0;
    int reached = 0;
    connect(fixture.bar(), &QProgressBar::valueChanged, this, [&](int value) {
        started += value > 0 ? 1 : 0;
        reached = qMax(reached, value);
    });
    const qint64 before = residentKilobytes();
    runToTheEnd(fixture);
    expectFlat(before);
    QCOMPARE(started, files);
    QCOMPARE(reached, files);
    QCOMPARE(fixture.table()->currentRow(), files - 1);
}

void WidgetsMemory::floodOfOutput()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("write"), QStringLiteral("wait flood:400000000 write")});
    fixture.open();
    fixture.dropFiles(1);
    runToTheEnd(fixture);
    const qint64 before = residentKilobytes();
    fixture.folder.release(1);
    runToTheEnd(fixture);
    expectFlat(before);
    QCOMPARE(fixture.folder.endedCount(), 2);
}

QTEST_MAIN(WidgetsMemory)
#include "widgets_memory.moc"
