// SPDX-License-Identifier: GPL-3.0-or-later
// The output folder: restored at start, chosen in the folder dialog, opened by the unconnected Browse slot.
#include "window_fixture.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QtTest>

namespace {

QString folderStored()
{
    return storedSetting(QStringLiteral("OutputFolder"));
}

void choose(const WindowFixture &fixture)
{
    QTest::mouseClick(fixture.child<QPushButton>("toolButton_Change"), Qt::LeftButton);
}

} // namespace

class WidgetsOutputFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void savedFolderIsShownAtStart_data();
    void savedFolderIsShownAtStart();
    void choosingStoresAndShows();
    void chooserStartsAtTheSavedFolder();
    void chooserOffersFoldersOnly();
    void cancelPutsTheSavedFolderBack();
    void typedFolderIsNotStored();
    void refusedDuringARun();
    void browseWarnsAboutAMissingFolder();
    void browseStartsAViewerDetached();
};

void WidgetsOutputFolder::savedFolderIsShownAtStart_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("none") << QString();
    QTest::newRow("that no longer exists") << QStringLiteral("/no/such/folder");
    QTest::newRow("spaces, accents, comma") << QStringLiteral("/tmp/Büro, Akten und \"mehr\"");
    QTest::newRow("relative") << QStringLiteral("out");
}

void WidgetsOutputFolder::savedFolderIsShownAtStart()
{
    QFETCH(QString, folder);
    WindowFixture fixture;
    if (!folder.isNull()) {
        storeSetting(QStringLiteral("OutputFolder"), folder);
    }
    const tovrane window;
    QCOMPARE(window.findChild<QLineEdit *>(QStringLiteral("lineEdit_OutputPath"))->text(), folder);
}

void WidgetsOutputFolder::choosingStoresAndShows()
{
    WindowFixture fixture;
    fixture.open();
    const QString chosen = fixture.folder.makeFolder(QStringLiteral("Büro, Akten"));
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, {chosen}); });
    choose(fixture);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.outputLine()->text(), chosen);
    QCOMPARE(folderStored(), chosen);
}

void WidgetsOutputFolder::chooserStartsAtTheSavedFolder()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("OutputFolder"), fixture.outputFolder);
    QString started;
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) {
        started = dialog.directory().path();
        dialog.reject();
    });
    choose(fixture);
    QVERIFY(answer.seen());
    QCOMPARE(started, fixture.outputFolder);
}

void WidgetsOutputFolder::chooserOffersFoldersOnly()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("OutputFolder"), QStringLiteral("/no/such/folder"));
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Open directory"));
        QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
        QVERIFY(dialog.testOption(QFileDialog::ShowDirsOnly));
        QVERIFY(dialog.testOption(QFileDialog::DontResolveSymlinks));
        QCOMPARE(dialog.parentWidget(), fixture.window.data());
        QVERIFY(dialog.directory().exists());
        dialog.reject();
    });
    choose(fixture);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.outputLine()->text(), QStringLiteral("/no/such/folder"));
}

void WidgetsOutputFolder::cancelPutsTheSavedFolderBack()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("OutputFolder"), fixture.outputFolder);
    fixture.outputLine()->setText(QStringLiteral("/typed"));
    DialogAnswer<QFileDialog> answer([](QFileDialog &dialog) { dialog.reject(); });
    choose(fixture);
    QVERIFY(answer.seen());
    QCOMPARE(fixture.outputLine()->text(), fixture.outputFolder);
    QCOMPARE(folderStored(), fixture.outputFolder);
}

void WidgetsOutputFolder::typedFolderIsNotStored()
{
    WindowFixture fixture;
    fixture.open();
    fixture.outputLine()->clear();
    QTest::keyClicks(fixture.outputLine(), fixture.outputFolder);
    fixture.dropFiles(1);
    fixture.press();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.showsIdle() && fixture.folder.endedCount() == 1, longWait);
    QVERIFY(folderStored().isNull());
}

void WidgetsOutputFolder::refusedDuringARun()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait")});
    fixture.open();
    storeSetting(QStringLiteral("OutputFolder"), QStringLiteral("/saved"));
    fixture.dropFiles(1);
    fixture.press();
    const QMap<QString, QString> before = storedSettings();
    DialogAnswer<QFileDialog> answer([](QFileDialog &dialog) { dialog.reject(); });
    choose(fixture);
    QVERIFY(!answer.seen());
    QCOMPARE(fixture.outputLine()->text(), fixture.outputFolder);
    QCOMPARE(storedSettings(), before);
    fixture.press();
}

void WidgetsOutputFolder::browseWarnsAboutAMissingFolder()
{
    WindowFixture fixture;
    fixture.open();
    fixture.outputLine()->setText(QStringLiteral("/no/such/folder"));
    DialogAnswer<QMessageBox> answer([&](QMessageBox &box) {
        QCOMPARE(box.windowTitle(), QStringLiteral("Warning"));
        QCOMPARE(box.text(), QStringLiteral("Please select a correct output folder!"));
        QCOMPARE(box.standardButtons(), QMessageBox::Yes);
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.parentWidget(), fixture.window.data());
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    fixture.call("On_Button_Browse");
    QVERIFY(answer.seen());
}

void WidgetsOutputFolder::browseStartsAViewerDetached()
{
    // A fake file browser, first in the search path, to record the slot's command.
    WindowFixture fixture;
    const QString bin = fixture.folder.makeFolder(QStringLiteral("bin"));
    const QString seen = fixture.folder.filePath(QStringLiteral("seen"));
    const QString script = bin + QStringLiteral("/explorer");
    writeFile(
        script, QStringLiteral("#!/bin/sh\nprintf '%s|' \"$@\" > '%1.new'\nmv '%1.new' '%1'\n").arg(seen).toUtf8());
    QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray earlierPath = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(bin) + ':' + earlierPath);
    fixture.open();
    fixture.call("On_Button_Browse");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(seen), longWait);
    QCOMPARE(fileContent(seen), QFile::encodeName(fixture.outputFolder) + '|');

    fixture.outputLine()->setText(fixture.folder.makeFolder(QStringLiteral("two words")));
    QFile::remove(seen);
    fixture.call("On_Button_Browse");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(seen), longWait);
    // The folder is not quoted, so a space in it separates arguments.
    QCOMPARE(fileContent(seen), QFile::encodeName(fixture.folder.filePath(QStringLiteral("two"))) + "|words|");
    qputenv("PATH", earlierPath);
}

QTEST_MAIN(WidgetsOutputFolder)
#include "widgets_output_folder.moc"
