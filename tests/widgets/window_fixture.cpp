// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_fixture.h"

#include <QDialog>
#include <QtTest>

WindowFixture::WindowFixture(ProgramFolder::Engine engine)
    : folder(engine)
    , outputFolder(folder.makeFolder(QStringLiteral("out")))
{}

WindowFixture::~WindowFixture()
{
    // Engines that still wait or hang exit when their folder is removed.
    if (window) {
        close();
    }
}

void WindowFixture::open()
{
    window = new OpenWindow;
    outputLine()->setText(outputFolder);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.data()));
}

void WindowFixture::close()
{
    window->close();
    QTRY_VERIFY_WITH_TIMEOUT(window.isNull(), longWait);
}

void WindowFixture::call(const char *slot) const
{
    QVERIFY2(QMetaObject::invokeMethod(window.data(), slot, Qt::DirectConnection), slot);
}

void WindowFixture::press() const
{
    QTest::mouseClick(startButton(), Qt::LeftButton);
}

void WindowFixture::drop(const QStringList &paths) const
{
    sendDrop(*window, paths);
}

QStringList WindowFixture::dropFiles(int count) const
{
    QStringList paths = folder.makePdfs(count);
    drop(paths);
    return paths;
}

QStringList WindowFixture::beginRun(int files, const QString &plan)
{
    folder.plan({plan});
    open();
    QStringList paths = dropFiles(files);
    press();
    waitForRuns(1);
    return paths;
}

void WindowFixture::runToTheEnd() const
{
    press();
    waitForIdle();
}

void WindowFixture::waitForIdle() const
{
    QTRY_VERIFY_WITH_TIMEOUT(showsIdle(), longWait);
    QVERIFY(!g_bProcess);
}

void WindowFixture::waitForRuns(int count) const
{
    QTRY_COMPARE_WITH_TIMEOUT(folder.runCount(), count, longWait);
}

void WindowFixture::waitForEnded(int count) const
{
    QTRY_COMPARE_WITH_TIMEOUT(folder.endedCount(), count, longWait);
}

void WindowFixture::waitForCounter(int row) const
{
    QTRY_COMPARE_WITH_TIMEOUT(window->m_nCurrentRow, row, longWait);
}

void WindowFixture::waitForDeath(qint64 engine) const
{
    QTRY_VERIFY_WITH_TIMEOUT(!ProgramFolder::isAlive(engine), longWait);
}

void WindowFixture::visitSettings(const char *closingButton) const
{
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton *>(QLatin1String(closingButton)), Qt::LeftButton);
    });
    QTest::mouseClick(button("toolButton_Setting"), Qt::LeftButton);
    QVERIFY(answer.seen());
}

QStringList WindowFixture::pathsInTable() const
{
    QStringList paths;
    for (int row = 0; row < table()->rowCount(); ++row) {
        paths << (table()->item(row, 0) ? table()->item(row, 0)->text() : QStringLiteral("(no item)"));
    }
    return paths;
}

QString WindowFixture::sizeText(int row) const
{
    const QTableWidgetItem *item = table()->item(row, 1);
    return item ? item->text() : QString();
}

bool WindowFixture::showsIdle() const
{
    return startButton()->text() == QLatin1String("Start") && !outputLine()->isReadOnly();
}

bool WindowFixture::showsRunning() const
{
    return startButton()->text() == QLatin1String("Stop") && outputLine()->isReadOnly();
}
