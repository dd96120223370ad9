// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace store {

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

/// Restores the owner and group that the settings file had before it was replaced.
void restoreOwners(const QFileInfo &before)
{
    const QByteArray path = QFile::encodeName(fileName);
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    // Only root can change the owner of a file, but every user can change its group to one of their own. If that fails,
    // too, the file belongs to the user who saved last.
    [[maybe_unused]] const bool isRestored = ::chown(path.constData(), before.ownerId(), before.groupId()) == 0 ||
                                             ::chown(path.constData(), sameOwner, before.groupId()) == 0;
}

} // namespace

QSettings open()
{
    return QSettings(fileName, QSettings::IniFormat);
}

Writer::Writer() : m_settings(open()) {}

Writer::~Writer()
{
    QFileInfo before(fileName);
    const bool isNew = !before.exists();
    before.stat(); // reads the attributes before the file is replaced
    m_settings.sync();
    if (isNew) {
        QFile::setPermissions(fileName, ownerOnly);
    } else {
        restoreOwners(before);
    }
}

void Writer::set(QLatin1String key, const QString &value)
{
    m_settings.setValue(key, value);
}

QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback)
{
    return settings.value(key, fallback).toString();
}

void write(QLatin1String key, const QString &value)
{
    Writer().set(key, value);
}

bool isOn(const QString &flag)
{
    return flag == QLatin1String("1");
}

QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace store
