// SPDX-License-Identifier: GPL-3.0-or-later
#include "widget_helpers.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QRegularExpression>
#include <QtTest>

#include <cerrno>
#include <grp.h>
#include <malloc.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

/// The empty scheme is for URLs without one.
const QStringList &recordedSchemes()
{
    static const QStringList schemes{
        QStringLiteral("file"), QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("mailto"),
        QStringLiteral("")};
    return schemes;
}

bool dragInto(QWidget &window, const QMimeData &data)
{
    QDragEnterEvent event(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(false);
    QApplication::sendEvent(&window, &event);
    return event.isAccepted();
}

} // namespace

UrlRecorder::UrlRecorder()
{
    for (const QString &scheme : recordedSchemes()) {
        QDesktopServices::setUrlHandler(scheme, this, "open");
    }
}

UrlRecorder::~UrlRecorder()
{
    for (const QString &scheme : recordedSchemes()) {
        QDesktopServices::unsetUrlHandler(scheme);
    }
}

void UrlRecorder::open(const QUrl &url)
{
    opened << url;
}

ModalAnswer::ModalAnswer(std::function<bool(QWidget *)> accepts, std::function<void(QWidget *)> answer)
    : m_accepts(std::move(accepts))
    , m_answer(std::move(answer))
{
    connect(&m_timer, &QTimer::timeout, this, &ModalAnswer::check);
    m_timer.start(1);
}

void ModalAnswer::check()
{
    QWidget *widget = QApplication::activeModalWidget();
    if (m_seen || !widget || !widget->isVisible() || !m_accepts(widget)) {
        return;
    }
    m_seen = true;
    m_timer.stop();
    const QPointer<QWidget> dialog(widget);
    m_answer(widget);
    // A failed check returns early; the dialog must not block the test forever.
    if (dialog && dialog->isVisible() && QTest::currentTestFailed()) {
        dialog->close();
    }
}

void answerFileDialog(QFileDialog &dialog, const QStringList &paths)
{
    if (paths.isEmpty()) {
        dialog.reject();
        return;
    }
    QString typed = paths.constFirst();
    if (paths.size() > 1) {
        typed = QLatin1Char('"') + paths.join(QStringLiteral("\" \"")) + QLatin1Char('"');
    }
    dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(typed);
    QMetaObject::invokeMethod(&dialog, "accept");
}

bool sendDragEnter(QWidget &window, const QMimeData &data)
{
    const bool accepted = dragInto(window, data);
    // Qt remembers the widget that accepted the drag until the drag leaves it.
    QDragLeaveEvent leave;
    QApplication::sendEvent(&window, &leave);
    return accepted;
}

void sendDrop(QWidget &window, const QList<QUrl> &urls)
{
    QMimeData data;
    if (urls.isEmpty()) {
        data.setData(QStringLiteral("text/uri-list"), QByteArray()); // as setUrls() would drop the format as well
    } else {
        data.setUrls(urls);
    }
    if (!dragInto(window, data)) {
        return; // no drop follows a refused drag
    }
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

void sendDrop(QWidget &window, const QStringList &paths)
{
    QList<QUrl> urls;
    urls.reserve(paths.size());
    for (const QString &path : paths) {
        urls << QUrl::fromLocalFile(path);
    }
    sendDrop(window, urls);
}

qint64 residentKilobytes()
{
    malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) {
        return -1;
    }
    return statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

void failOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!Could not parse stylesheet of object QTableWidget\\(|This plugin does not support )")));
}

bool becomeOrdinaryUser()
{
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0) {
        return true;
    }
    if (setgroups(0, nullptr) != 0 || setresgid(nobody, nobody, nobody) != 0 ||
        setresuid(nobody, nobody, nobody) != 0) {
        return false;
    }
    // Changing the user disables tracing, which the leak checker requires.
    prctl(PR_SET_DUMPABLE, 1);
    return setuid(0) != 0 && errno == EPERM;
}
