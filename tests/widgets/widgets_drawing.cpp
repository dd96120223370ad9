// SPDX-License-Identifier: GPL-3.0-or-later
// Optimised drawing has the same result as simple drawing.
#include "app/frame_limiter.h"
#include "app/images.h"
#include "app/window_background.h"

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>
#include <QtTest>

#ifdef __linux__
#include <sys/syscall.h>
#include <unistd.h>

#include <ctime>

namespace {

/// How many clock readings remain before the thread appears to sleep; never if below 0.
int looksBeforeSleep = -1;

} // namespace

/// Replaces the C library's function in this program and its libraries.
extern "C" int clock_gettime(clockid_t clock, struct timespec *time) noexcept
{
    const auto result = static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
    if (looksBeforeSleep > 0) {
        --looksBeforeSleep;
    } else if (looksBeforeSleep == 0) {
        ++time->tv_sec;
    }
    return result;
}
#endif

namespace {

/// Shows a number, and counts how often it is painted.
class NumberWidget : public QWidget
{
public:
    void show(int number)
    {
        m_number = number;
        update();
    }

    int drawnNumber = -1;
    int timesDrawn = 0;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        drawnNumber = m_number;
        ++timesDrawn;
    }

private:
    int m_number = 0;
};

QImage slopeOfRows(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(251 - 3 * y, (y * 37) % 256, 255 - y * y % 200));
        }
    }
    return image;
}

/// Longer than a frame, so that no update is pending from showing the window.
void waitForTheNextFrame()
{
    QElapsedTimer sinceShown;
    sinceShown.start();
    QTRY_VERIFY_WITH_TIMEOUT(sinceShown.elapsed() > 40, 30000);
}

} // namespace

class WidgetsDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stretchesAsTheToolkitDoes_data();
    void stretchesAsTheToolkitDoes();
    void drawsOnceAFrame();
    void drawsASingleChangeAtOnce();
    void drawsAfterASleepInTheMiddle_data();
    void drawsAfterASleepInTheMiddle();
};

void WidgetsDrawing::stretchesAsTheToolkitDoes_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QSize>("size");
    QImage mixed = slopeOfRows(10, 10);
    mixed.setPixel(9, 4, qRgb(1, 2, 3));
    const QImage background = loadImage(image::background).toImage();
    QVERIFY(!background.isNull());
    for (const QSize size :
         {QSize(720, 483), QSize(470, 422), QSize(320, 251), QSize(10, 10), QSize(1, 1), QSize(7, 30)}) {
        const QByteArray name = QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height());
        QTest::newRow(("background to " + name).constData()) << background << size;
        QTest::newRow(("plain rows to " + name).constData()) << slopeOfRows(10, 10) << size;
        QTest::newRow(("rows of two colours to " + name).constData()) << mixed << size;
        QTest::newRow(("transparent to " + name).constData())
            << slopeOfRows(10, 10).convertToFormat(QImage::Format_ARGB32_Premultiplied) << size;
    }
}

void WidgetsDrawing::stretchesAsTheToolkitDoes()
{
    QFETCH(QImage, image);
    QFETCH(QSize, size);
    QCOMPARE(stretched(image, size), image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void WidgetsDrawing::drawsOnceAFrame()
{
    constexpr int changes = 20000;
    NumberWidget widget;
    new FrameLimiter(&widget);
    widget.QWidget::show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    const int before = widget.timesDrawn;
    QElapsedTimer timer;
    timer.start();
    for (int number = 1; number <= changes; ++number) {
        widget.show(number);
        QCoreApplication::processEvents();
    }
    const qint64 frames = timer.elapsed() / 15 + 2; // timers count in whole milliseconds
    QVERIFY2(
        widget.timesDrawn - before <= frames,
        qPrintable(QStringLiteral("%1 times in %2 frames").arg(widget.timesDrawn - before).arg(frames)));
    QTRY_COMPARE_WITH_TIMEOUT(widget.drawnNumber, changes, 30000);
}

void WidgetsDrawing::drawsASingleChangeAtOnce()
{
    NumberWidget widget;
    new FrameLimiter(&widget);
    widget.QWidget::show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    waitForTheNextFrame();
    widget.show(5);
    QCoreApplication::processEvents();
    QCOMPARE(widget.drawnNumber, 5);
}

void WidgetsDrawing::drawsAfterASleepInTheMiddle_data()
{
    QTest::addColumn<int>("looks");
    for (int looks = 0; looks < 8; ++looks) {
        QTest::addRow("after %d looks at the clock", looks) << looks;
    }
}

/// The thread may be suspended anywhere, also between two clock readings.
void WidgetsDrawing::drawsAfterASleepInTheMiddle()
{
#ifdef __linux__
    QFETCH(const int, looks);
    NumberWidget widget;
    new FrameLimiter(&widget);
    widget.QWidget::show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    waitForTheNextFrame();
    widget.show(1);
    QCoreApplication::sendPostedEvents(&widget, QEvent::UpdateRequest);
    QCOMPARE(widget.drawnNumber, 1);
    widget.show(2);
    looksBeforeSleep = looks;
    QCoreApplication::sendPostedEvents(&widget, QEvent::UpdateRequest);
    looksBeforeSleep = -1;
    QTRY_COMPARE_WITH_TIMEOUT(widget.drawnNumber, 2, 5000);
#else
    QSKIP("not run: the clock cannot be replaced here");
#endif
}

QTEST_MAIN(WidgetsDrawing)
#include "widgets_drawing.moc"
