// SPDX-License-Identifier: GPL-3.0-or-later
// Settings files that are damaged, binary, huge, or not files at all: the window opens, works and converts.
#include "settings/setting.h"
#include "window_fixture.h"

#include <QComboBox>
#include <QDir>
#include <QRandomGenerator>
#include <QtTest>

namespace {

QByteArray randomBytes(int count)
{
    QRandomGenerator generator(20261121);
    QByteArray bytes(count, '\0');
    for (char &byte : bytes) {
        byte = char(generator.bounded(256));
    }
    return bytes;
}

QByteArray manyKeys(int bytes)
{
    QByteArray content("[SettingInfo]\nListWidgetCurrtentItemRow=7\n");
    for (int i = 0; content.size() < bytes; ++i) {
        content += "Key" + QByteArray::number(i) + '=' + QByteArray(100, 'v') + '\n';
    }
    return content;
}

/// Performs all user actions once and checks their results.
void useTheWindow(const WindowFixture &fixture)
{
    fixture.visitSettings("pushButton_Apply");
    fixture.selectFormat(7);
    QCOMPARE(storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("7"));
    QCOMPARE(fixture.window->GetOutputFormat(), QStringLiteral(".txt"));
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 1);
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/1.txt")));
    fixture.visitSettings();
}

} // namespace

class WidgetsBadSettingsFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void windowWorks_data();
    void windowWorks();
    void hugeValuesAreHandedOn();
    void folderInTheFilesPlaceKeepsNothing();
    void fileThatGoesAwayMidway();
};

void WidgetsBadSettingsFile::windowWorks_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("row");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("one NUL") << QByteArray(1, '\0') << 0;
    QTest::newRow("no section") << QByteArray("ListWidgetCurrtentItemRow=3\n") << 0;
    QTest::newRow("section not closed") << QByteArray("[SettingInfo\nListWidgetCurrtentItemRow=3\n") << 3;
    QTest::newRow("lines without values") << QByteArray("[SettingInfo]\nConverterFormat\n=\n==\n\\\n") << 0;
    QTest::newRow("bad escapes") << QByteArray("[SettingInfo]\nTempName=\\x\\xzz\\\nUserPassword=\"open\n") << 0;
    QTest::newRow("odd types") << QByteArray("[SettingInfo]\nListWidgetCurrtentItemRow=@Size(3 "
                                             "4)\nConverterFormat=@Variant(\\0\\0)\nFirstPage=1, 2, 3\n")
                               << 0;
    QTest::newRow("invalid UTF-8") << QByteArray("[SettingInfo]\nTempName=\xff\xfe\xc3(\nWordMode=\xf0\x9f\n") << 0;
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf[SettingInfo]\nListWidgetCurrtentItemRow=4\n") << 4;
    QTest::newRow("CR LF") << QByteArray("[SettingInfo]\r\nListWidgetCurrtentItemRow=5\r\n") << 5;
    QTest::newRow("doubled keys") << QByteArray(
                                         "[SettingInfo]\nListWidgetCurrtentItemRow=1\nListWidgetCurrtentItemRow=2\n")
                                  << 2;
    QTest::newRow("binary") << randomBytes(65536) << 0;
    QTest::newRow("5 MB of keys") << manyKeys(5000000) << 7;
    QTest::newRow("5 MB in one line") << "[SettingInfo]\nTempName=" + QByteArray(5000000, 'x') << 0;
    QTest::newRow("5 MB of zeros") << QByteArray(5000000, '\0') << 0;
}

void WidgetsBadSettingsFile::windowWorks()
{
    QFETCH(QByteArray, content);
    QFETCH(int, row);
    WindowFixture fixture;
    writeFile(fixture.folder.filePath(QStringLiteral("settingquorra.ini")), content);
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), row);
    if (content.size() > 1000000) { // a value that long is more than a command line takes
        storeSetting(QStringLiteral("TempName"), QString());
    }
    useTheWindow(fixture);
}

void WidgetsBadSettingsFile::hugeValuesAreHandedOn()
{
    WindowFixture fixture;
    const QString value(100000, QLatin1Char('p'));
    storeSettings({{QStringLiteral("TempName"), value}, {QStringLiteral("UserPassword"), value}});
    fixture.open();
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runs().value(0).arguments.value(1), value.toUtf8());
    fixture.visitSettings("pushButton_Apply");
    QCOMPARE(storedSetting(QStringLiteral("UserPassword")).size(), 32767); // what a line of text holds
}

/// Nothing can be stored: each kind uses the default extension, and each start selects the first kind.
void WidgetsBadSettingsFile::folderInTheFilesPlaceKeepsNothing()
{
    WindowFixture fixture;
    fixture.folder.makeFolder(QStringLiteral("settingquorra.ini"));
    fixture.open();
    fixture.dropFiles(1);
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        QCOMPARE(fixture.window->GetOutputFormat(), QStringLiteral(".doc"));
        fixture.runToTheEnd();
        QVERIFY(fixture.folder.runs().value(row).arguments.constLast().endsWith("/out/1.doc"));
    }
    fixture.visitSettings("pushButton_Apply");
    QVERIFY(storedSettings().isEmpty());
    const Setting dialog;
    QCOMPARE(dialog.findChild<QComboBox *>(QStringLiteral("comboBox_Format"))->currentText(), QStringLiteral(".doc"));
    const tovrane again;
    QCOMPARE(again.findChild<QListWidget *>()->currentRow(), 0);
    QVERIFY(QDir(fixture.folder.filePath(QStringLiteral("settingquorra.ini"))).isEmpty());
}

void WidgetsBadSettingsFile::fileThatGoesAwayMidway()
{
    WindowFixture fixture;
    storeSetting(QStringLiteral("FirstPage"), QStringLiteral("3"));
    fixture.folder.plan({QStringLiteral("wait write")});
    fixture.open();
    fixture.selectFormat(8);
    fixture.dropFiles(2);
    fixture.press();
    fixture.waitForRuns(1);
    QVERIFY(QFile::remove(fixture.folder.filePath(QStringLiteral("settingquorra.ini"))));
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QVERIFY(fixture.folder.runs().at(0).arguments.constLast().endsWith("/1.tiff"));
    QVERIFY(fixture.folder.runs().at(1).arguments.constLast().endsWith("/2.doc"));
    QVERIFY(!fixture.folder.runs().at(1).arguments.contains("-f"));
}

QTEST_MAIN(WidgetsBadSettingsFile)
#include "widgets_bad_settings_file.moc"
