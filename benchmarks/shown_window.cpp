// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_window.h"

#include "app/tovrane.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QTableWidget>
#include <QToolButton>

#include <filesystem>

namespace benchmark {

ShownWindow::ShownWindow(const std::string &folder) : m_application(m_argumentCount, m_arguments)
{
    QDir::setCurrent(QString::fromStdString(folder));
    m_window = new tovrane;
    m_table = m_window->findChild<QTableWidget *>(QStringLiteral("tableWidget_Files"));
    m_window->show();
    settle();
}

void ShownWindow::drop(const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &enter);
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &event);
}

void ShownWindow::press(const char *buttonName)
{
    button(buttonName)->click();
}

void ShownWindow::run(const QString &outputFolder)
{
    m_window->findChild<QLineEdit *>(QStringLiteral("lineEdit_OutputPath"))->setText(outputFolder);
    const QToolButton *start = button("toolButton_Start");
    press("toolButton_Start");
    while (start->text() == QLatin1String("Stop")) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void ShownWindow::handleEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

void ShownWindow::settle()
{
    constexpr int twoFrames = 40; // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < twoFrames) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, twoFrames);
    }
}

QToolButton *ShownWindow::button(const char *name) const
{
    return m_window->findChild<QToolButton *>(QString::fromLatin1(name));
}

QList<QUrl> makeFiles(const std::string &folder, int count)
{
    const QString base = QString::fromStdString(folder) + QStringLiteral("/input");
    QDir().mkpath(base);
    QList<QUrl> urls;
    for (int index = 0; index < count; ++index) {
        const QString path = base + QStringLiteral("/document %1.pdf").arg(index);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(QByteArray(2000 + index % 1000, ' '));
        }
        urls.append(QUrl::fromLocalFile(path));
    }
    return urls;
}

void placeEngine(const std::string &engine, const std::string &folder)
{
    std::filesystem::copy_file(engine, folder + "/Qtminw");
}

} // namespace benchmark
