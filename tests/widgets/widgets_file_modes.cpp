// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders without permission to read or write. The test program drops root privileges first, because root
// ignores file modes.
#include "settings/setting.h"
#include "window_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QtTest>

namespace {

const QFile::Permissions readOnlyFolder = QFile::ReadOwner | QFile::ExeOwner;
const QFile::Permissions openFolder = readOnlyFolder | QFile::WriteOwner;

QString settingsPath(const WindowFixture &fixture)
{
    return fixture.folder.filePath(QStringLiteral("settingquorra.ini"));
}

/// Permissions of owner, group and others, without the doubles for the calling user.
QFile::Permissions modeOf(const QString &path)
{
    return QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
}

} // namespace

class WidgetsFileModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { failOnUnexpectedWarnings(); }

    void settingsInAnUnwritableFolder();
    void unreadableSettings();
    void readOnlySettingsStayAsTheyWere();
    void settingsKeepTheirMode_data();
    void settingsKeepTheirMode();
    void newSettingsAreTheOwnersAlone();
    void unreadableInput();
    void unwritableOutputFolder();
    void engineWithoutTheRightToRun();
};

void WidgetsFileModes::initTestCase()
{
    // Otherwise the tests below would pass without testing anything.
    const ProgramFolder folder;
    const QString path = folder.makePdf(QStringLiteral("closed.pdf"));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    QFile file(path);
    QVERIFY(!file.open(QIODevice::ReadOnly));
}

/// Nothing is saved then, and all kinds use the defaults.
void WidgetsFileModes::settingsInAnUnwritableFolder()
{
    WindowFixture fixture;
    QVERIFY(QFile::setPermissions(fixture.folder.path(), readOnlyFolder));
    fixture.open();
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        QCOMPARE(fixture.window->GetOutputFormat(), QStringLiteral(".doc"));
        QCOMPARE(fixture.window->m_strOutputFormat, QStringLiteral(".doc"));
        QVERIFY(fixture.window->m_strParameter.contains(QStringLiteral("\"-wordmode\" \"0\"")));
        const tovrane again;
        QCOMPARE(again.findChild<QListWidget *>()->currentRow(), 0);
    }
    fixture.visitSettings("pushButton_Apply");
    {
        const Setting dialog;
        QCOMPARE(
            dialog.findChild<QComboBox *>(QStringLiteral("comboBox_Format"))->currentText(), QStringLiteral(".doc"));
    }
    QVERIFY(!QFile::exists(settingsPath(fixture)));
    QVERIFY(storedSettings().isEmpty());
    QVERIFY(QFile::setPermissions(fixture.folder.path(), openFolder));
    fixture.selectFormat(7);
    QCOMPARE(fixture.window->GetOutputFormat(), QStringLiteral(".txt"));
}

void WidgetsFileModes::unreadableSettings()
{
    WindowFixture fixture;
    const QByteArray content("[SettingInfo]\nConverterFormat=20\nListWidgetCurrtentItemRow=8\nFirstPage=3\n");
    writeFile(settingsPath(fixture), content);
    QVERIFY(QFile::setPermissions(settingsPath(fixture), QFile::Permissions()));
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), 0);
    fixture.selectFormat(4);
    fixture.visitSettings();
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 1);
    QVERIFY(!fixture.folder.runs().at(0).arguments.contains("-f"));
    QVERIFY(QFile::setPermissions(settingsPath(fixture), QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(fileContent(settingsPath(fixture)), content);
}

void WidgetsFileModes::readOnlySettingsStayAsTheyWere()
{
    WindowFixture fixture;
    const QByteArray content("[SettingInfo]\nConverterFormat=20\nFirstPage=3\nListWidgetCurrtentItemRow=8\n");
    writeFile(settingsPath(fixture), content);
    QVERIFY(QFile::setPermissions(settingsPath(fixture), QFile::ReadOwner));
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), 8);
    fixture.selectFormat(4);
    fixture.visitSettings("pushButton_Apply");
    QCOMPARE(fileContent(settingsPath(fixture)), content);
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 1);
    QCOMPARE(fileContent(settingsPath(fixture)), content);
}

void WidgetsFileModes::settingsKeepTheirMode_data()
{
    QTest::addColumn<QFile::Permissions>("mode");
    const QFile::Permissions owner = QFile::ReadOwner | QFile::WriteOwner;
    QTest::newRow("0600") << owner;
    QTest::newRow("0640") << (owner | QFile::ReadGroup);
    QTest::newRow("0660") << (owner | QFile::ReadGroup | QFile::WriteGroup);
}

/// Users may have shared the file on purpose: neither a start nor any action changes its mode.
void WidgetsFileModes::settingsKeepTheirMode()
{
    QFETCH(const QFile::Permissions, mode);
    WindowFixture fixture;
    writeFile(settingsPath(fixture), "[SettingInfo]\nListWidgetCurrtentItemRow=8\n");
    QVERIFY(QFile::setPermissions(settingsPath(fixture), mode));
    fixture.open();
    QCOMPARE(modeOf(settingsPath(fixture)), mode);
    fixture.selectFormat(3);
    QCOMPARE(modeOf(settingsPath(fixture)), mode);
    fixture.visitSettings("pushButton_Apply");
    QCOMPARE(modeOf(settingsPath(fixture)), mode);
    QCOMPARE(storedSetting(QStringLiteral("ColorDepth")), QStringLiteral("2")); // written indeed
}

void WidgetsFileModes::newSettingsAreTheOwnersAlone()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(modeOf(settingsPath(fixture)), QFile::ReadOwner | QFile::WriteOwner);
    fixture.visitSettings("pushButton_Apply");
    QCOMPARE(modeOf(settingsPath(fixture)), QFile::ReadOwner | QFile::WriteOwner);
}

void WidgetsFileModes::unreadableInput()
{
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("closed/in.pdf"));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    fixture.drop({path});
    QCOMPARE(fixture.sizeText(0), QStringLiteral("         2,048 KB")); // the folder tells the size
    QVERIFY(QFile::setPermissions(QFileInfo(path).path(), QFile::Permissions()));
    fixture.drop({path});
    QCOMPARE(fixture.pathsInTable(), QStringList({path, path}));
    QVERIFY(fixture.sizeText(1).isNull());
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 2);
    QVERIFY(QFile::setPermissions(QFileInfo(path).path(), openFolder));
}

void WidgetsFileModes::unwritableOutputFolder()
{
    WindowFixture fixture;
    fixture.open();
    QVERIFY(QFile::setPermissions(fixture.outputFolder, readOnlyFolder));
    const QStringList paths = fixture.dropFiles(2);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 2);
    QVERIFY(QDir(fixture.outputFolder).isEmpty());
    QCOMPARE(fixture.pathsInTable(), paths);
    QVERIFY(QFile::setPermissions(fixture.outputFolder, openFolder));
    fixture.runToTheEnd();
    QCOMPARE(QDir(fixture.outputFolder).entryList(QDir::Files).size(), 2);
}

void WidgetsFileModes::engineWithoutTheRightToRun()
{
    WindowFixture fixture;
    QVERIFY(QFile::setPermissions(fixture.folder.enginePath(), QFile::ReadOwner | QFile::WriteOwner));
    fixture.open();
    fixture.dropFiles(1);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.window->m_pProcess.isNull(), longWait);
    QVERIFY(fixture.showsRunning());
    fixture.press();
    QVERIFY(fixture.showsIdle());
}

int main(int argc, char **argv)
{
    if (ProgramFolder::engineBytes().isEmpty() || !becomeOrdinaryUser()) {
        return 1;
    }
    const QApplication application(argc, argv);
    WidgetsFileModes test;
    return QTest::qExec(&test, argc, argv);
}
#include "widgets_file_modes.moc"
