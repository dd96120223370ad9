// SPDX-License-Identifier: GPL-3.0-or-later
//
// A window that acts as the source of a drag: it offers the files given on the command line like a file manager. It
// reports each step of the drag on standard output, so that the test that moves the pointer can wait for it.
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextStream>
#include <QUrl>

namespace {

void tell(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

class DragSource : public QLabel
{
public:
    explicit DragSource(const QList<QUrl> &urls) : QLabel(QStringLiteral("Drag me")), m_urls(urls)
    {
        setAlignment(Qt::AlignCenter);
        setWindowTitle(QStringLiteral("Drag source"));
        setFixedSize(160, 120);
    }

protected:
    void mousePressEvent(QMouseEvent *) override { m_pressed = true; }
    void mouseReleaseEvent(QMouseEvent *) override { m_pressed = false; }

    void mouseMoveEvent(QMouseEvent *) override
    {
        if (!m_pressed) {
            return;
        }
        m_pressed = false;
        auto *drag = new QDrag(this);
        auto *data = new QMimeData;
        data->setUrls(m_urls);
        drag->setMimeData(data);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            tell(action == Qt::IgnoreAction ? QStringLiteral("refused") : QStringLiteral("accepted"));
        });
        tell(QStringLiteral("dragging"));
        const Qt::DropAction result = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
        tell(result == Qt::IgnoreAction ? QStringLiteral("nothing dropped") : QStringLiteral("dropped"));
    }

private:
    QList<QUrl> m_urls;
    bool m_pressed = false;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QList<QUrl> urls;
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    for (const QString &argument : arguments) {
        urls.append(QUrl(argument));
    }
    DragSource source(urls);
    source.show();
    return QCoreApplication::exec();
}
