// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/listed_files.h"

#include "app/size_text.h"

#include <QFileInfo>

namespace {

/// Returns the text after the last "." in lower case; the whole path if there is none.
QString extensionAfterDot(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
}

/// A path without a "." has no extension, not even if it is "pdf".
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
        // The row index counts all dropped entries, but the table only contains the listed ones and rejects rows beyond
        // its end: after one skipped entry no later row is valid. The first entry that is not listed therefore ends the
        // drop, on purpose.
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
