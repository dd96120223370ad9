// SPDX-License-Identifier: GPL-3.0-or-later
#include "working_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// True if `folder` exists afterwards, can be written, and is closed to everybody but its owner (it holds passwords).
bool makePrivateFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir()) {
        const QDir parent = info.dir();
        return parent.mkpath(QStringLiteral(".")) && parent.mkdir(info.fileName(), ownerOnly);
    }
    return info.isWritable() && QFile::setPermissions(folder, ownerOnly);
}

/// Makes `link` lead to `target`. A link that leads elsewhere (the program has moved) is replaced; a file of the user's
/// is left alone.
void linkTo(const QString &target, const QString &link)
{
    const QFileInfo info(link);
    if (info.isSymLink() && info.symLinkTarget() != target) {
        QFile::remove(link);
    }
    QFile::link(target, link);
}

} // namespace

QString userWorkingFolder()
{
    // Not the application's name, which follows the name the program was started under.
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/quorra-converter");
}

QString workingFolder(const QString &programFolder, const QString &userFolder)
{
    if (QFileInfo(programFolder).isWritable() || !makePrivateFolder(userFolder)) {
        return programFolder;
    }
    const QString engine = QStringLiteral("/Qtminw");
    linkTo(programFolder + engine, userFolder + engine);
    return userFolder;
}
