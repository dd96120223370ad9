// SPDX-License-Identifier: GPL-3.0-or-later
// The program itself, as a file that is started: where it looks for its settings.
#include "program_folder.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

class WidgetsProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsLieBesideTheExecutable_data();
    void settingsLieBesideTheExecutable();
};

void WidgetsProgram::settingsLieBesideTheExecutable_data()
{
    QTest::addColumn<bool>("throughLink");
    QTest::newRow("started by its path") << false;
    QTest::newRow("started through a link") << true;
}

void WidgetsProgram::settingsLieBesideTheExecutable()
{
    QFETCH(bool, throughLink);
    const ProgramFolder folder(ProgramFolder::WithoutEngine);
    const QString home = folder.makeFolder(QStringLiteral("program folder"));
    const QString elsewhere = folder.makeFolder(QStringLiteral("elsewhere"));
    const QString program = home + QStringLiteral("/quorra-converter");
    QVERIFY(QFile::copy(QStringLiteral(QUORRA_PROGRAM), program));
    const QString link = elsewhere + QStringLiteral("/link");
    QVERIFY(QFile::link(program, link));
    const QString settings = home + QStringLiteral("/settingquorra.ini");
    writeFile(settings, "[SettingInfo]\nConverterFormat=20\nListWidgetCurrtentItemRow=8\n");

    QProcess process;
    process.setWorkingDirectory(elsewhere);
    process.start(throughLink ? link : program, {QStringLiteral("ignored argument.pdf")});
    QVERIFY(process.waitForStarted(60000));
    // The start stores the kind's default extension.
    QTRY_COMPARE_WITH_TIMEOUT(
        fileContent(settings), QByteArray("[SettingInfo]\nConverterFormat=13\nListWidgetCurrtentItemRow=8\n"), 60000);
    QVERIFY(!QFile::exists(elsewhere + QStringLiteral("/settingquorra.ini")));
    QCOMPARE(process.state(), QProcess::Running);
    process.kill();
    QVERIFY(process.waitForFinished(60000));
}

QTEST_GUILESS_MAIN(WidgetsProgram)
#include "widgets_program.moc"
