// SPDX-License-Identifier: GPL-3.0-or-later
#include "working_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// Creates `folder` if necessary. Returns true if it is writable and accessible only to its owner (it contains
/// passwords).
bool makePrivateFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir()) {
        const QDir parent = info.dir();
        return parent.mkpath(QStringLiteral(".")) && parent.mkdir(info.fileName(), ownerOnly);
    }
    return info.isWritable() && QFile::setPermissions(folder, ownerOnly);
}

/// Makes `link` a link to `target`. A link to another target (the program has been moved) is replaced; other files are
/// kept.
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
    // Not the application name, which depends on the name under which the program was started.
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
