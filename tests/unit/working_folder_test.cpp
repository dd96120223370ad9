// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/working_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <unistd.h>

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr QFile::Permissions readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
constexpr uid_t nobody = 65534;

/// File modes mean nothing to root: while this lives the process is an ordinary
/// user.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_root(geteuid() == 0)
    {
        if (m_root && setresuid(nobody, nobody, 0) != 0) {
            qFatal("setresuid");
        }
    }
    ~OrdinaryUser()
    {
        if (m_root && setresuid(0, 0, 0) != 0) {
            qFatal("setresuid");
        }
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    bool m_root;
};

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

/// Permissions of owner, group and others, without the doubles for the calling
/// user.
QFile::Permissions modeOf(const QString &path)
{
    const QFile::Permissions callers = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    return QFile::permissions(path) & ~callers;
}

} // namespace

class WorkingFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void writableFolderIsKept();
    void unwritableFolderIsReplaced();
    void looseFolderIsClosed();
    void linkFollowsTheProgram();
    void fileOfTheUserStays();
    void programFolderWhereNothingCanBeMade_data();
    void programFolderWhereNothingCanBeMade();
    void userFolderFollowsTheEnvironment();

private:
    QString program() const { return m_base->filePath(QStringLiteral("opt/Quörra folder")); }
    QString home() const { return m_base->filePath(QStringLiteral("home")); }
    QString user() const { return home() + QStringLiteral("/.config/quorra-converter"); }
    QString link() const { return user() + QStringLiteral("/Qtminw"); }

    std::unique_ptr<QTemporaryDir> m_base;
};

void WorkingFolderTest::init()
{
    const OrdinaryUser ordinary;
    m_base = std::make_unique<QTemporaryDir>();
    QVERIFY(m_base->isValid());
    QVERIFY(QDir().mkpath(program()));
    QVERIFY(QDir().mkpath(home()));
    writeFile(program() + QStringLiteral("/Qtminw"), "engine");
    QVERIFY(QFile::setPermissions(program(), readOnly));
}

void WorkingFolderTest::cleanup()
{
    const OrdinaryUser ordinary;
    QFile::setPermissions(program(), ownerOnly);
    QFile::setPermissions(home(), ownerOnly);
    m_base.reset();
}

void WorkingFolderTest::writableFolderIsKept()
{
    const OrdinaryUser ordinary;
    QVERIFY(QFile::setPermissions(program(), ownerOnly));
    QCOMPARE(workingFolder(program(), user()), program());
    QVERIFY(!QFileInfo::exists(user()));
    QCOMPARE(QDir(home()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void WorkingFolderTest::unwritableFolderIsReplaced()
{
    const OrdinaryUser ordinary;
    QCOMPARE(workingFolder(program(), user()), user());
    QCOMPARE(modeOf(user()), ownerOnly);
    QVERIFY(QFileInfo(link()).isSymLink());
    QCOMPARE(QFileInfo(link()).symLinkTarget(), program() + QStringLiteral("/Qtminw"));
    QCOMPARE(QFileInfo(link()).size(), 6);

    // A second start keeps saved settings.
    writeFile(user() + QStringLiteral("/settingquorra.ini"), "kept");
    QCOMPARE(workingFolder(program(), user()), user());
    QCOMPARE(QFileInfo(user() + QStringLiteral("/settingquorra.ini")).size(), 4);
    QCOMPARE(QFileInfo(link()).size(), 6);
}

void WorkingFolderTest::looseFolderIsClosed()
{
    const OrdinaryUser ordinary;
    QVERIFY(QDir().mkpath(user()));
    QVERIFY(QFile::setPermissions(user(), ownerOnly | QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther));
    QCOMPARE(workingFolder(program(), user()), user());
    QCOMPARE(modeOf(user()), ownerOnly);
}

void WorkingFolderTest::linkFollowsTheProgram()
{
    const OrdinaryUser ordinary;
    QVERIFY(QDir().mkpath(user()));
    QVERIFY(QFile::link(home() + QStringLiteral("/gone/Qtminw"), link()));
    QCOMPARE(workingFolder(program(), user()), user());
    QCOMPARE(QFileInfo(link()).symLinkTarget(), program() + QStringLiteral("/Qtminw"));
}

void WorkingFolderTest::fileOfTheUserStays()
{
    const OrdinaryUser ordinary;
    QVERIFY(QDir().mkpath(user()));
    writeFile(link(), "an engine of the user's");
    QCOMPARE(workingFolder(program(), user()), user());
    QVERIFY(!QFileInfo(link()).isSymLink());
    QCOMPARE(QFileInfo(link()).size(), 23);
}

void WorkingFolderTest::programFolderWhereNothingCanBeMade_data()
{
    QTest::addColumn<bool>("fileInItsPlace");
    QTest::newRow("a file in the folder's place") << true;
    QTest::newRow("a home that cannot be written") << false;
}

void WorkingFolderTest::programFolderWhereNothingCanBeMade()
{
    QFETCH(bool, fileInItsPlace);
    const OrdinaryUser ordinary;
    if (fileInItsPlace) {
        QVERIFY(QDir().mkpath(QFileInfo(user()).path()));
        writeFile(user(), "in the way");
    } else {
        QVERIFY(QFile::setPermissions(home(), readOnly));
    }
    QCOMPARE(workingFolder(program(), user()), program());
    QVERIFY(!QFileInfo(user()).isDir());
}

void WorkingFolderTest::userFolderFollowsTheEnvironment()
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/somewhere/else");
    const QString folder = userWorkingFolder();
    qputenv("XDG_CONFIG_HOME", before);
    QCOMPARE(folder, QStringLiteral("/somewhere/else/quorra-converter"));
}

QTEST_GUILESS_MAIN(WorkingFolderTest)
#include "working_folder_test.moc"
