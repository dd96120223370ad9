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

/// Records what is handed to the desktop to open, and keeps it from being opened.
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
    void look();

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

/// Answers the open dialog as a user would who types the names (with their folder) and presses Open; an empty list
/// cancels it. The same for the folder chooser.
void answerFileDialog(QFileDialog &dialog, const QStringList &paths);

/// True when the drag was accepted.
bool sendDragEnter(QWidget &window, const QMimeData &data);
void sendDrop(QWidget &window, const QList<QUrl> &urls);
void sendDrop(QWidget &window, const QStringList &paths);

/// Memory of this process that is really in use, in kB, after giving back to the system what can be given back.
qint64 residentKilobytes();

/// Call it in init(): any warning fails the test, but for the one that the table's style sheet is expected to give and
/// those of the offscreen platform about what it cannot do.
void failOnUnexpectedWarnings();

/// Gives up root's rights for the rest of this process, so that file modes count; true when the process now runs as an
/// ordinary user (also when it did before). Call it before the application object is made.
bool becomeOrdinaryUser();
