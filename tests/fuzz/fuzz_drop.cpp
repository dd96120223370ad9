// SPDX-License-Identifier: GPL-3.0-or-later
// Drops a list of URLs, in the form passed by another program, on the main window.
#include "fuzz_support.h"

#include "app/tovrane.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QTableWidget>
#include <QUrl>

namespace {

class OpenWindow : public tovrane
{
public:
    using tovrane::dropEvent;
};

/// The files that inputs can refer to: a PDF file, an empty one, a folder with a PDF name, another file.
void makeFiles()
{
    QDir().mkdir(QStringLiteral("folder.pdf"));
    for (const auto &[name, size] : {std::pair("a.pdf", 2048), std::pair("empty.PDF", 0), std::pair("b.txt", 10)}) {
        QFile file(QString::fromLatin1(name));
        fuzz::require(
            file.open(QIODevice::WriteOnly) && file.write(QByteArray(size, ' ')) == size, "a file is written");
    }
}

/// The rows that a drop must add, entry by entry.
QStringList expectedRows(const QList<QUrl> &urls)
{
    QStringList rows;
    for (qsizetype index = 0; index < urls.size(); ++index) {
        const QString path = urls[index].toLocalFile();
        if (path.isEmpty()) {
            break;
        }
        const bool isPdf = path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
        // The row index counts all entries; beyond the end of the table nothing is inserted.
        if (isPdf && !QDir(path).exists() && index == rows.size()) {
            rows.append(path);
        }
    }
    return rows;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    fuzz::startApplication();
    fuzz::workInTemporaryFolder();
    makeFiles();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static OpenWindow window;
    const auto *table = window.findChild<QTableWidget *>(QStringLiteral("tableWidget_Files"));
    window.On_Button_ClearFile();
    fuzz::require(table->rowCount() == 0, "clearing leaves no row");

    QMimeData dropped;
    dropped.setData(QStringLiteral("text/uri-list"), fuzz::bytes(data, size));
    const QStringList expected = expectedRows(dropped.urls());
    QDropEvent event(QPointF(), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    window.dropEvent(&event);

    fuzz::require(table->rowCount() == expected.size(), "as many rows as listable files before the first skipped");
    for (int row = 0; row < table->rowCount(); ++row) {
        fuzz::require(table->item(row, 0) && table->item(row, 0)->text() == expected[row], "a row holds the path");
        const auto bytes = static_cast<qint32>(QFileInfo(expected[row]).size());
        fuzz::require((table->item(row, 1) != nullptr) == (bytes > 0), "a size is shown if it is above 0");
    }
    return 0;
}
