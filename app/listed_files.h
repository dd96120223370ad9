// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

// Which files enter the list, and in which form.

/// One row of the file table: the path as it was given, and the text of the size column (empty: no size cell).
struct ListedFile
{
    QString path;
    QString sizeText;

    friend bool operator==(const ListedFile &, const ListedFile &) = default;
};

/// What the list wants to know of a path. A path that does not exist is no folder and has size 0.
struct PathFacts
{
    bool isFolder = false;
    qint64 bytes = 0;
};

using PathProbe = std::function<PathFacts(const QString &path)>;

/// Asks the file system.
[[nodiscard]] PathFacts probeFileSystem(const QString &path);

/// The folder part of a path: the text before its last "/". A path without "/" is returned whole.
[[nodiscard]] QString folderOfPath(const QString &path);

/// The rows for the paths that the file dialog returned: PDF files in the dialog's order, everything else left out.
[[nodiscard]] QList<ListedFile> filesToAdd(const QStringList &paths, const PathProbe &probe = probeFileSystem);

/// The rows for dropped URLs, in their order. The first entry that is not a listable file (no local file, a folder, no
/// PDF) ends the list: nothing that follows it in the same drop is listed, on purpose.
[[nodiscard]] QList<ListedFile> filesToDrop(const QList<QUrl> &urls, const PathProbe &probe = probeFileSystem);
