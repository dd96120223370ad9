// SPDX-License-Identifier: GPL-3.0-or-later
// Unusual file names, files and folders that disappear, engines that misbehave: the window remains usable, keeps its
// list, and can start again.
#include "window_fixture.h"

#include <QDir>
#include <QMessageBox>
#include <QtTest>

namespace {

/// A path of about `length` characters to a file that exists.
QString longPath(const ProgramFolder &folder, int length)
{
    QString name = QStringLiteral("long");
    while (folder.filePath(name).size() + 220 < length) {
        name += QLatin1Char('/') + QString(200, QLatin1Char('d'));
    }
    name += QLatin1Char('/') + QString(length - folder.filePath(name).size() - 5, QLatin1Char('n'));
    return folder.makePdf(name + QStringLiteral(".pdf"));
}

/// Afterwards, the list is complete, and with a working engine a run converts all files.
void expectUsable(const WindowFixture &fixture, const QStringList &paths)
{
    QCOMPARE(fixture.pathsInTable(), paths);
    fixture.folder.removeEngine();
    fixture.folder.installEngine();
    fixture.folder.plan({QStringLiteral("write")});
    if (fixture.showsRunning()) {
        fixture.press();
    }
    QVERIFY(fixture.showsIdle());
    const int before = fixture.folder.endedCount();
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), before + int(paths.size()));
    QCOMPARE(fixture.pathsInTable(), paths);
    fixture.selectFormat(3);
    QCOMPARE(storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("3"));
}

} // namespace

class WidgetsBadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void oddNamesReachTheEngine_data();
    void oddNamesReachTheEngine();
    void quotesSplitTheArguments();
    void longestPaths();
    void nameThatIsTooLong();
    void nameThatIsNoText();
    void inputVanishes();
    void inputIsAFolderNow();
    void outputFolderVanishesMidRun();
    void outputFolderOfOddName();
    void engineMissing();
    void engineEmpty();
    void engineNotExecutable_data();
    void engineNotExecutable();
    void engineCrashes();
    void engineHangs();
    void engineVanishesMidRun();
    void engineFloodsItsOutput();
};

void WidgetsBadInput::oddNamesReachTheEngine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    const auto row = [](const char *tag, const char *base) {
        QTest::newRow(tag) << QString::fromUtf8(base) + QStringLiteral(".pdf") << QString::fromUtf8(base);
    };
    row("spaces", " two  words ");
    row("non-ASCII", "Übersicht 漢字 😀");
    row("apostrophe", "it's");
    row("newline", "two\nlines");
    row("tab", "a\tb");
    row("leading dash", "-call");
    row("only dashes", "--");
    row("shell characters", "$(touch x);`y`|&<>*?");
    row("backslash", "a\\b");
    row("percent", "100%20%s%n");
    row("hash", "a#b");
    row("combining", "e\xcc\x81");
}

void WidgetsBadInput::oddNamesReachTheEngine()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("in/") + name);
    fixture.drop({path});
    QCOMPARE(fixture.pathsInTable(), QStringList({path}));
    QVERIFY(!fixture.sizeText(0).isNull());
    fixture.runToTheEnd();
    const QString output = fixture.outputFolder + QLatin1Char('/') + base + QStringLiteral(".doc");
    const QByteArrayList arguments = fixture.folder.runs().value(0).arguments;
    QCOMPARE(arguments.mid(2), QByteArrayList({"-call", path.toUtf8(), output.toUtf8()}));
    QVERIFY(QFile::exists(output));
    expectUsable(fixture, {path});
}

/// Nothing is escaped: a quote in a name splits the command in the wrong place. Only this file is not converted.
void WidgetsBadInput::quotesSplitTheArguments()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths{
        fixture.folder.makePdf(QStringLiteral("in/a\"b.pdf")), fixture.folder.makePdf(QStringLiteral("in/\".pdf")),
        fixture.folder.makePdf(QStringLiteral("in/\"\"\"x\"\".pdf")),
        fixture.folder.makePdf(QStringLiteral("in/ok.pdf"))};
    fixture.drop(paths);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runCount(), 4);
    QVERIFY(fixture.folder.runs().at(0).arguments.constLast() != fixture.outputFolder.toUtf8() + "/a\"b.doc");
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/ok.doc")));
    expectUsable(fixture, paths);
}

void WidgetsBadInput::longestPaths()
{
    WindowFixture fixture;
    fixture.open();
    const QString path = longPath(fixture.folder, 4000);
    QCOMPARE(path.size(), 4000);
    fixture.drop({path});
    QCOMPARE(fixture.sizeText(0), QStringLiteral("         2,048 KB"));
    fixture.runToTheEnd();
    const QByteArrayList arguments = fixture.folder.runs().value(0).arguments;
    QCOMPARE(arguments.value(arguments.size() - 2), path.toUtf8());
    QCOMPARE(QDir(fixture.outputFolder).entryList(QDir::Files).size(), 1);
    expectUsable(fixture, {path});
}

void WidgetsBadInput::nameThatIsTooLong()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths{
        fixture.folder.filePath(QString(4000, QLatin1Char('n')) + QStringLiteral(".pdf")),
        fixture.folder.makePdf(QStringLiteral("ok.pdf"))};
    fixture.drop(paths);
    QVERIFY(fixture.sizeText(0).isNull());
    fixture.table()->setCurrentCell(0, 0);
    fixture.call("openFile");
    fixture.call("On_TableWidget_DoubleClicked");
    QCOMPARE(fixture.urls.opened.size(), 1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runCount(), 2);
    QVERIFY(QFile::exists(fixture.outputFolder + QStringLiteral("/ok.doc")));
    expectUsable(fixture, paths);
}

void WidgetsBadInput::nameThatIsNoText()
{
    WindowFixture fixture;
    fixture.open();
    const QByteArray bytes = QFile::encodeName(fixture.folder.path()) + "/\xff\xfe.pdf";
    QList<QUrl> urls{QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"))};
    sendDrop(*fixture.window, urls);
    QCOMPARE(fixture.table()->rowCount(), 1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runCount(), 1);
    expectUsable(fixture, fixture.pathsInTable());
}

void WidgetsBadInput::inputVanishes()
{
    WindowFixture fixture;
    const QStringList paths = fixture.beginRun(3);
    for (const QString &path : paths) {
        QVERIFY(QFile::remove(path));
    }
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QCOMPARE(fixture.folder.runCount(), 3);
    QCOMPARE(fixture.sizeText(1), QStringLiteral("         2,048 KB"));
    expectUsable(fixture, paths);
}

void WidgetsBadInput::inputIsAFolderNow()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    QVERIFY(QFile::remove(paths.at(0)));
    QVERIFY(QDir().mkdir(paths.at(0)));
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runs().value(0).arguments.value(3), paths.at(0).toUtf8());
    expectUsable(fixture, paths);
}

void WidgetsBadInput::outputFolderVanishesMidRun()
{
    WindowFixture fixture;
    const QStringList paths = fixture.beginRun(3);
    QVERIFY(QDir(fixture.outputFolder).removeRecursively());
    fixture.folder.releaseAll();
    fixture.waitForIdle();
    QCOMPARE(fixture.folder.runCount(), 3);
    QVERIFY(!QFile::exists(fixture.outputFolder));
    DialogAnswer<QMessageBox> answer([](QMessageBox &box) { box.accept(); });
    fixture.press();
    QVERIFY(answer.seen());
    QVERIFY(QDir().mkdir(fixture.outputFolder));
    expectUsable(fixture, paths);
}

void WidgetsBadInput::outputFolderOfOddName()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(1);
    const QStringList names{QStringLiteral("-out"), QStringLiteral(" o u t"), QStringLiteral("Ausgabe ü\n2")};
    for (const QString &name : names) {
        // A line edit replaces a newline by a space, so such a folder cannot be typed; the result does not exist.
        const QString folder = fixture.folder.makeFolder(name);
        fixture.outputLine()->setText(folder);
        if (fixture.outputLine()->text() != folder) {
            continue;
        }
        fixture.runToTheEnd();
        QVERIFY(QFile::exists(folder + QStringLiteral("/1.doc")));
    }
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineMissing()
{
    WindowFixture fixture(ProgramFolder::WithoutEngine);
    fixture.open();
    const QStringList paths = fixture.dropFiles(2);
    ModalAnswer anyBox(ModalAnswer::isA<QDialog>(), [](QWidget *dialog) { dialog->close(); });
    for (int time = 0; time < 2; ++time) {
        fixture.press();
        QVERIFY(fixture.showsIdle());
        QVERIFY(!g_bProcess);
        QCOMPARE(fixture.bar()->value(), 0);
    }
    QVERIFY(!anyBox.seen());
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineEmpty()
{
    WindowFixture fixture(ProgramFolder::WithoutEngine);
    writeFile(fixture.folder.enginePath(), QByteArray());
    QVERIFY(QFile::setPermissions(fixture.folder.enginePath(), QFile::ReadOwner | QFile::ExeOwner));
    fixture.open();
    const QStringList paths = fixture.dropFiles(2);
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QVERIFY(!g_bProcess);
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineNotExecutable_data()
{
    QTest::addColumn<QByteArray>("content"); // null: a folder
    QTest::addColumn<bool>("executable");
    QTest::newRow("no right to run it") << QByteArray("#!/bin/sh\n") << false;
    QTest::newRow("no program") << QByteArray("\x7f\x45LF broken") << true;
    QTest::newRow("no interpreter") << QByteArray("#!/no/such/interpreter\n") << true;
    QTest::newRow("a folder") << QByteArray() << true;
}

/// The run is stalled until Stop: an engine that cannot be started never finishes.
void WidgetsBadInput::engineNotExecutable()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, executable);
    WindowFixture fixture(ProgramFolder::WithoutEngine);
    const QString engine = fixture.folder.enginePath();
    if (content.isNull()) {
        QVERIFY(QDir().mkdir(engine));
    } else {
        writeFile(engine, content);
        QFile::Permissions rights = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(QFile::setPermissions(engine, executable ? rights | QFile::ExeOwner : rights));
    }
    fixture.open();
    const QStringList paths = fixture.dropFiles(2);
    for (int time = 0; time < 2; ++time) {
        fixture.press();
        QVERIFY(g_bProcess);
        QTRY_VERIFY_WITH_TIMEOUT(fixture.window->m_pProcess.isNull(), longWait); // released
        QVERIFY(fixture.showsRunning());
        QCOMPARE(fixture.bar()->value(), 1);
        QCOMPARE(fixture.window->m_nCurrentRow, 0);
        fixture.press();
        QVERIFY(fixture.showsIdle());
        QVERIFY(!g_bProcess);
    }
    if (content.isNull()) {
        QVERIFY(QDir().rmdir(engine));
    }
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineCrashes()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("crash")});
    fixture.open();
    const QStringList paths = fixture.dropFiles(3);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runCount(), 3);
    QCOMPARE(fixture.folder.endedCount(), 0);
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineHangs()
{
    WindowFixture fixture;
    const QStringList paths = fixture.beginRun(2, QStringLiteral("hang"));
    QVERIFY(fixture.showsRunning());
    fixture.press();
    QVERIFY(fixture.showsIdle());
    fixture.waitForDeath(fixture.folder.runs().at(0).pid);
    expectUsable(fixture, paths);
}

/// The engine deletes itself while it converts the first file: the next start finds none, and the run is stalled.
void WidgetsBadInput::engineVanishesMidRun()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("vanish write")});
    fixture.open();
    const QStringList paths = fixture.dropFiles(3);
    fixture.press();
    fixture.waitForCounter(1);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.window->m_pProcess.isNull(), longWait); // the finished one is released
    QVERIFY(g_bProcess);
    QVERIFY(fixture.showsRunning());
    QCOMPARE(fixture.bar()->value(), 1);
    QCOMPARE(fixture.folder.runCount(), 1);
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QCOMPARE(fixture.bar()->value(), 0);
    expectUsable(fixture, paths);
}

void WidgetsBadInput::engineFloodsItsOutput()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("flood:20000000 write")});
    fixture.open();
    const QStringList paths = fixture.dropFiles(2);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.endedCount(), 2);
    expectUsable(fixture, paths);
}

QTEST_MAIN(WidgetsBadInput)
#include "widgets_bad_input.moc"
