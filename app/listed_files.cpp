// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/listed_files.h"

#include "app/size_text.h"

#include <QFileInfo>

namespace {

/// The text after the last "."; the whole path when it has none. Lower-cased.
QString extensionAfterDot(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
}

/// A path without any "." has no extension, not even when the whole of it reads "pdf".
bool isDroppablePdf(const QString &path)
{
    return path.contains(QLatin1Char('.')) && extensionAfterDot(path) == QLatin1String("pdf");
}

} // namespace

PathFacts probeFileSystem(const QString &path)
{
    const QFileInfo info(path);
    return {info.isDir(), info.size()};
}

QString folderOfPath(const QString &path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')));
}

QList<ListedFile> filesToAdd(const QStringList &paths, const PathProbe &probe)
{
    QList<ListedFile> files;
    files.reserve(paths.size());
    for (const QString &path : paths) {
        if (extensionAfterDot(path) == QLatin1String("pdf")) {
            files.append({path, addedSizeText(listedSize(probe(path).bytes))});
        }
    }
    return files;
}

QList<ListedFile> filesToDrop(const QList<QUrl> &urls, const PathProbe &probe)
{
    QList<ListedFile> files;
    files.reserve(urls.size());
    for (const QUrl &url : urls) {
        const QString path = url.toLocalFile();
        // A row's number counts every dropped entry, the table only the listed ones, and it refuses rows past its end:
        // after one skipped entry no later row fits. So the first entry that is not listed ends the drop, on purpose.
        if (path.isEmpty() || !isDroppablePdf(path)) {
            break;
        }
        const PathFacts facts = probe(path);
        if (facts.isFolder) {
            break;
        }
        files.append({path, droppedSizeText(listedSize(facts.bytes))});
    }
    return files;
}
