// SPDX-License-Identifier: GPL-3.0-or-later
// Permissions of the settings file: only its owner for a new file; an existing file keeps them.
#include "settings/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <memory>

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// User IDs not used by any account of the system.
constexpr uid_t firstUser = 54321;
constexpr uid_t secondUser = 54322;
constexpr gid_t firstGroup = 54331;
constexpr gid_t secondGroup = 54332;
constexpr gid_t sharedGroup = 54333;

struct stat statusOf(const char *path)
{
    struct stat status = {};
    if (::stat(path, &status) != 0) {
        status.st_mode = 0;
    }
    return status;
}

constexpr const char *file = "settingquorra.ini";

int modeOf(const char *path)
{
    return statusOf(path).st_mode & 07777;
}

/// Runs `work` in a separate process as another user. Returns true if this succeeded and `work` returned true.
template <class Work>
bool asUser(uid_t user, gid_t group, Work work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const bool changed = ::setgroups(1, &sharedGroup) == 0 && ::setgid(group) == 0 && ::setuid(user) == 0;
        ::_exit(changed && work() ? 0 : 1);
    }
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

bool storeSecret()
{
    store::write(store::key::userPassword, QStringLiteral("secret"));
    return store::text(store::open(), store::key::userPassword, QLatin1String("")) == QLatin1String("secret");
}

} // namespace

class SettingsFileModeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aNewFileIsItsOwnersAlone_data();
    void aNewFileIsItsOwnersAlone();
    void anExistingFileKeepsItsMode_data();
    void anExistingFileKeepsItsMode();
    void readingChangesNoMode();
    void aSharedFileStaysShared();
    void rootLeavesTheFileToItsOwner();
    void leavesAFolderInItsPlaceAlone();

private:
    QString m_before = QDir::currentPath();
    std::unique_ptr<QTemporaryDir> m_folder;
};

void SettingsFileModeTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(m_folder->path()));
}

void SettingsFileModeTest::cleanup()
{
    QDir::setCurrent(m_before);
    m_folder.reset();
}

void SettingsFileModeTest::aNewFileIsItsOwnersAlone_data()
{
    QTest::addColumn<int>("mask");
    for (const int mask : {0, 002, 022, 077}) {
        QTest::addRow("umask %03o", mask) << mask;
    }
}

void SettingsFileModeTest::aNewFileIsItsOwnersAlone()
{
    QFETCH(const int, mask);
    const mode_t before = ::umask(static_cast<mode_t>(mask));
    const bool stored = storeSecret();
    ::umask(before);
    QVERIFY(stored);
    QCOMPARE(modeOf(file), 0600);
}

void SettingsFileModeTest::anExistingFileKeepsItsMode_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0600, 0640, 0660, 0644, 0666}) {
        QTest::addRow("%04o", mode) << mode;
    }
}

void SettingsFileModeTest::anExistingFileKeepsItsMode()
{
    QFETCH(const int, mode);
    store::write(store::key::tempName, QStringLiteral("1"));
    QCOMPARE(::chmod(file, static_cast<mode_t>(mode)), 0);
    QVERIFY(storeSecret());
    QCOMPARE(modeOf(file), mode);
    {
        store::Writer settings;
        settings.set(store::key::width, QStringLiteral("1"));
        settings.set(store::key::height, QStringLiteral("2"));
    }
    QCOMPARE(modeOf(file), mode);
}

void SettingsFileModeTest::readingChangesNoMode()
{
    store::write(store::key::tempName, QStringLiteral("1"));
    QCOMPARE(::chmod(file, 0664), 0);
    QCOMPARE(store::text(store::open(), store::key::tempName, QLatin1String("")), QStringLiteral("1"));
    QCOMPARE(modeOf(file), 0664);
}

/// Two users of a group save alternately. Qt assigns the new file to the group of the user who saves.
void SettingsFileModeTest::aSharedFileStaysShared()
{
    if (::geteuid() != 0) {
        QSKIP("not run: only root can become two users");
    }
    QCOMPARE(::chown(".", firstUser, sharedGroup), 0);
    QCOMPARE(::chmod(".", 0770), 0);
    QVERIFY(asUser(firstUser, firstGroup, storeSecret));
    QCOMPARE(modeOf(file), 0600);
    QCOMPARE(::chown(file, firstUser, sharedGroup), 0);
    QCOMPARE(::chmod(file, 0660), 0);
    const std::array users{std::pair{secondUser, secondGroup}, std::pair{firstUser, firstGroup}};
    for (const auto &[user, group] : {users[0], users[0], users[1], users[1]}) {
        QVERIFY(asUser(user, group, storeSecret));
        QCOMPARE(modeOf(file), 0660);
        QCOMPARE(statusOf(file).st_gid, sharedGroup);
    }
}

void SettingsFileModeTest::rootLeavesTheFileToItsOwner()
{
    if (::geteuid() != 0) {
        QSKIP("not run: only root can save a file of somebody else's");
    }
    store::write(store::key::tempName, QStringLiteral("1"));
    QCOMPARE(::chown(file, firstUser, firstGroup), 0);
    QVERIFY(storeSecret());
    QCOMPARE(statusOf(file).st_uid, firstUser);
    QCOMPARE(statusOf(file).st_gid, firstGroup);
    QCOMPARE(modeOf(file), 0600);
}

void SettingsFileModeTest::leavesAFolderInItsPlaceAlone()
{
    QVERIFY(QDir().mkdir(store::fileName));
    const int before = modeOf(file);
    store::write(store::key::tempName, QStringLiteral("1"));
    QCOMPARE(modeOf(file), before);
}

QTEST_GUILESS_MAIN(SettingsFileModeTest)
#include "settings_file_mode_test.moc"
