// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

/// Permissions of owner, group and others, without the doubles for the calling user.
QFile::Permissions modeOf(const QString &path)
{
    const QFile::Permissions callers = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    return QFile::permissions(path) & ~callers;
}

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

class SettingsFileModeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void closesTheFileAndLaterWritesKeepIt();
    void opensNothing_data();
    void opensNothing();
    void needsNoFile();
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

void SettingsFileModeTest::closesTheFileAndLaterWritesKeepIt()
{
    store::write(store::key::tempName, QStringLiteral("1"));
    QVERIFY(QFile::setPermissions(store::fileName, ownerOnly | QFile::ReadGroup | QFile::ReadOther));
    store::restrictToOwner();
    QCOMPARE(modeOf(store::fileName), ownerOnly);
    store::write(store::key::userPassword, QStringLiteral("secret"));
    QCOMPARE(store::open().value(store::key::userPassword).toString(), QStringLiteral("secret"));
    QCOMPARE(modeOf(store::fileName), ownerOnly);
}

void SettingsFileModeTest::opensNothing_data()
{
    QTest::addColumn<QFile::Permissions>("before");
    QTest::addColumn<QFile::Permissions>("after");
    QTest::newRow("locked by its owner") << QFile::Permissions() << QFile::Permissions();
    QTest::newRow("read-only") << (QFile::ReadOwner | QFile::ReadOther) << QFile::Permissions(QFile::ReadOwner);
}

void SettingsFileModeTest::opensNothing()
{
    QFETCH(QFile::Permissions, before);
    QFETCH(QFile::Permissions, after);
    store::write(store::key::tempName, QStringLiteral("1"));
    QVERIFY(QFile::setPermissions(store::fileName, before));
    store::restrictToOwner();
    QCOMPARE(modeOf(store::fileName), after);
}

void SettingsFileModeTest::needsNoFile()
{
    store::restrictToOwner();
    QVERIFY(!QFileInfo::exists(store::fileName));
}

void SettingsFileModeTest::leavesAFolderInItsPlaceAlone()
{
    QVERIFY(QDir().mkdir(store::fileName));
    const QFile::Permissions before = modeOf(store::fileName);
    store::restrictToOwner();
    QCOMPARE(modeOf(store::fileName), before);
}

QTEST_GUILESS_MAIN(SettingsFileModeTest)
#include "settings_file_mode_test.moc"
