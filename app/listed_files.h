// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

// Which files are added to the list, and how they are shown.

/// A row of the file table: the path as given, and the text of the size column (empty if there is no size cell).
struct ListedFile
{
    QString path;
    QString sizeText;

    friend bool operator==(const ListedFile &, const ListedFile &) = default;
};

/// What the list needs to know about a path. A path that does not exist is not a folder and has size 0.
struct PathFacts
{
    bool isFolder = false;
    qint64 bytes = 0;
};

using PathProbe = std::function<PathFacts(const QString &path)>;

/// Asks the file system.
[[nodiscard]] PathFacts probeFileSystem(const QString &path);

/// Returns the folder of a path: the text before its last "/". A path without "/" is returned unchanged.
[[nodiscard]] QString folderOfPath(const QString &path);

/// Returns the rows for paths selected in the file dialog: PDF files in their order, without other files.
[[nodiscard]] QList<ListedFile> filesToAdd(const QStringList &paths, const PathProbe &probe = probeFileSystem);

/// Returns the rows for dropped URLs, in their order. The first entry that cannot be listed (not a local file, a
/// folder, not a PDF) ends the list: nothing after it in the same drop is listed, on purpose.
[[nodiscard]] QList<ListedFile> filesToDrop(const QList<QUrl> &urls, const PathProbe &probe = probeFileSystem);
