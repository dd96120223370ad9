// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace store {

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

/// Gives the settings file back to those who owned it before it was replaced.
void restoreOwners(const QFileInfo &before)
{
    const QByteArray path = QFile::encodeName(fileName);
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    // Only root may give a file away, but everybody may give it to a group of theirs. If that fails as well, whoever
    // saved last owns the file: the system allows no more.
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
    before.stat(); // now, while it is the old file
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
