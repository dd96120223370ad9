// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz_support.h"

#include "settings/store.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace fuzz {

namespace {

const QTemporaryDir &temporaryFolder()
{
    static const QTemporaryDir folder;
    return folder;
}

/// More than the number of settings files that Qt caches after their last use.
constexpr int settingsFolders = 64;

} // namespace

void require(bool holds, const char *rule)
{
    if (!holds) {
        std::fprintf(stderr, "broken rule: %s\n", rule);
        std::abort();
    }
}

void workInTemporaryFolder()
{
    require(temporaryFolder().isValid() && QDir::setCurrent(temporaryFolder().path()), "a temporary folder is there");
}

void writeSettingsFile(const QByteArray &bytes)
{
    static int next = 0;
    const QString folder = temporaryFolder().filePath(QString::number(next++ % settingsFolders));
    require(QDir().mkpath(folder) && QDir::setCurrent(folder), "a folder for the settings file is there");
    QFile file(store::fileName);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the settings file is written");
}

void startApplication()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static QApplication application(count, arguments);
}

QByteArrayList fields(const std::uint8_t *data, std::size_t size, int count)
{
    QByteArray rest = bytes(data, size);
    QByteArrayList all;
    while (all.size() < count - 1) {
        const qsizetype end = rest.indexOf('\0');
        all.append(end < 0 ? rest : rest.left(end));
        rest = end < 0 ? QByteArray() : rest.mid(end + 1);
    }
    all.append(rest);
    return all;
}

QByteArray bytes(const std::uint8_t *data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
}

} // namespace fuzz
