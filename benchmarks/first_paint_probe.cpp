// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded into a program with LD_PRELOAD: reports on descriptor 3 when the first window of the program has been painted,
// and exits. If QUORRA_PROBE_SETTING is set, it first opens the settings dialog like a click on its button, and reports
// the time until the dialog has been painted. The program itself is not modified.
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QToolButton>

#include <unistd.h>

namespace {

constexpr int reportDescriptor = 3;

void report(const QByteArray &text)
{
    if (::write(reportDescriptor, text.constData(), static_cast<std::size_t>(text.size())) < 0) {
        ::_exit(1);
    }
}

class FirstPaintProbe : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType()) {
            return false;
        }
        const QWidget *widget = static_cast<QWidget *>(watched);
        if (!widget->isWindow() || widget == m_painted) {
            return false;
        }
        const bool first = !m_painted;
        m_painted = widget;
        // The paint event only starts the painting; what is queued here runs when it is complete.
        const auto next = [this, first]() { first ? firstWindowPainted() : dialogPainted(); };
        QMetaObject::invokeMethod(this, next, Qt::QueuedConnection);
        return false;
    }

private:
    void firstWindowPainted()
    {
        report("P");
        auto *button = m_painted->findChild<QToolButton *>(QStringLiteral("toolButton_Setting"));
        if (!button || !qEnvironmentVariableIsSet("QUORRA_PROBE_SETTING")) {
            ::_exit(0);
        }
        // What the program does after its first paint is not part of opening the dialog.
        QCoreApplication::processEvents();
        m_opening.start();
        button->click();
    }

    void dialogPainted()
    {
        report(QByteArray::number(static_cast<double>(m_opening.nsecsElapsed()) / 1e6, 'f', 6));
        ::_exit(0);
    }

    const QWidget *m_painted = nullptr;
    QElapsedTimer m_opening;
};

void installProbe()
{
    static FirstPaintProbe probe;
    qApp->installEventFilter(&probe);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installProbe)
