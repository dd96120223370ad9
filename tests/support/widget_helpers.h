// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <functional>

class QFileDialog;
class QMimeData;
class QWidget;

/// Records what the desktop is asked to open, without opening it.
class UrlRecorder : public QObject
{
    Q_OBJECT

public:
    UrlRecorder();
    ~UrlRecorder() override;
    UrlRecorder(const UrlRecorder &) = delete;
    UrlRecorder &operator=(const UrlRecorder &) = delete;

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url);
};

/// Answers modal dialogs that block in exec(): as soon as a visible modal widget passes `accepts`, `answer` is called
/// with it, once per ModalAnswer. Make it before the call that blocks, and check seen() after it.
class ModalAnswer : public QObject
{
    Q_OBJECT

public:
    ModalAnswer(std::function<bool(QWidget *)> accepts, std::function<void(QWidget *)> answer);

    template <class Dialog>
    static std::function<bool(QWidget *)> isA()
    {
        return [](QWidget *widget) { return qobject_cast<Dialog *>(widget) != nullptr; };
    }

    bool seen() const { return m_seen; }

private:
    void check();

    std::function<bool(QWidget *)> m_accepts;
    std::function<void(QWidget *)> m_answer;
    QTimer m_timer;
    bool m_seen = false;
};

/// As ModalAnswer, for one kind of dialog: DialogAnswer<QMessageBox> answer([](QMessageBox &box) { ... });
template <class Dialog>
class DialogAnswer : public ModalAnswer
{
public:
    explicit DialogAnswer(std::function<void(Dialog &)> answer)
        : ModalAnswer(isA<Dialog>(), [answer](QWidget *widget) { answer(*qobject_cast<Dialog *>(widget)); })
    {}
};

/// Answers the open dialog by typing the names (with their folder) and pressing Open; an empty list cancels it.
/// Likewise for the folder dialog.
void answerFileDialog(QFileDialog &dialog, const QStringList &paths);

/// Returns true if the drag was accepted.
bool sendDragEnter(QWidget &window, const QMimeData &data);
void sendDrop(QWidget &window, const QList<QUrl> &urls);
void sendDrop(QWidget &window, const QStringList &paths);

/// Memory in use by this process in kB, after returning free memory to the system.
qint64 residentKilobytes();

/// Call it in init(): warnings make the test fail, except the expected one about the table's style sheet and those of
/// the offscreen platform about missing features.
void failOnUnexpectedWarnings();

/// Drops root privileges of this process, so that file modes apply. Returns true if the process is now run by an
/// ordinary user (or was before). Call it before the application object is created.
bool becomeOrdinaryUser();
