// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/listed_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr qint64 gibibyte = qint64(1) << 30;

/// A fake file system: the path determines what it is.
PathFacts pretend(const QString &path)
{
    PathFacts facts;
    facts.isFolder = path.contains(QLatin1String("folder"));
    facts.bytes =
        path.contains(QLatin1String("empty")) ? 0 : (path.contains(QLatin1String("huge")) ? 3 * gibibyte : 2048);
    return facts;
}

QString pathsOf(const QList<ListedFile> &files)
{
    QStringList paths;
    for (const ListedFile &file : files) {
        paths.append(file.path);
    }
    return paths.join(QLatin1Char('|'));
}

} // namespace

class ListedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folderOfAPath_data();
    void folderOfAPath();
    void addedFiles_data();
    void addedFiles();
    void droppedFiles_data();
    void droppedFiles();
    void sizeTextsDiffer();
    void sizesThatShowNothing();
    void realFiles();
    void droppedFolderNamedLikeAFile();
};

void ListedFilesTest::folderOfAPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addRow("file") << QStringLiteral("/in/a.pdf") << QStringLiteral("/in");
    QTest::addRow("deep") << QStringLiteral("/in/b c/ä.pdf") << QStringLiteral("/in/b c");
    QTest::addRow("at the root") << QStringLiteral("/a.pdf") << QString();
    QTest::addRow("no slash") << QStringLiteral("a.pdf") << QStringLiteral("a.pdf");
}

void ListedFilesTest::folderOfAPath()
{
    QFETCH(const QString, path);
    QTEST(folderOfPath(path), "folder");
}

void ListedFilesTest::addedFiles_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("listed");
    const auto row = [](const char *name, const char *chosen, const char *listed) {
        QTest::addRow("%s", name) << QString::fromUtf8(chosen) << QString::fromUtf8(listed);
    };
    row("others are left out", "/in/a.PDF|/in/b.txt|/in/c.pdf", "/in/a.PDF|/in/c.pdf");
    row("none is a PDF", "/in/b.txt|/in/c.pdf.gz", "");
    row("the same twice", "/in/a.pdf|/in/a.pdf", "/in/a.pdf|/in/a.pdf");
    row("any case", "/in/a.Pdf|/in/b.pDF", "/in/a.Pdf|/in/b.pDF");
    row("several dots", "/in/a.b.pdf|/in/pdf.a", "/in/a.b.pdf");
    row("no dot", "/in/apdf|/in/pdf", "");
    row("dot in the folder only", "/in.pdf/a|/in.x/a.pdf", "/in.x/a.pdf");
    row("name is the extension", "/in/.pdf", "/in/.pdf");
    row("trailing dot", "/in/a.pdf.", "");
    row("trailing space", "/in/a.pdf ", "");
    row("not ASCII", "/in/ä ö\"文.pdf", "/in/ä ö\"文.pdf");
}

void ListedFilesTest::addedFiles()
{
    QFETCH(const QString, chosen);
    QTEST(pathsOf(filesToAdd(chosen.split(QLatin1Char('|')), pretend)), "listed");
}

void ListedFilesTest::droppedFiles_data()
{
    QTest::addColumn<QString>("urls");
    QTest::addColumn<QString>("listed");
    const auto row = [](const char *name, const char *urls, const char *listed) {
        QTest::addRow("%s", name) << QString::fromUtf8(urls) << QString::fromUtf8(listed);
    };
    row("nothing", "", "");
    row("all listed", "file:///in/a.pdf file:///in/B.PDF", "/in/a.pdf|/in/B.PDF");
    row("folder", "file:///in/folder", "");
    row("folder named like a file", "file:///in/folder.pdf file:///in/x.pdf", "");
    row("file, then folder", "file:///in/x.pdf file:///in/folder", "/in/x.pdf");
    row("folder, then file", "file:///in/folder file:///in/x.pdf", "");
    row("other file in between", "file:///in/a.pdf file:///in/b.txt file:///in/c.pdf file:///in/d.pdf", "/in/a.pdf");
    row("no dot", "file:///in/pdf file:///in/x.pdf", "");
    row("not local first", "https://marbeck.example/a.pdf file:///in/x.pdf", "");
    row("not local later", "file:///in/x.pdf mailto:a@marbeck.example file:///in/y.pdf", "/in/x.pdf");
    row("encoded characters", "file:///in/a%20b%C3%A4.pdf", "/in/a bä.pdf");
    row("the same twice", "file:///in/x.pdf file:///in/x.pdf", "/in/x.pdf|/in/x.pdf");
}

void ListedFilesTest::droppedFiles()
{
    QFETCH(const QString, urls);
    QList<QUrl> dropped;
    for (const QString &url : urls.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        dropped.append(QUrl(url));
    }
    QTEST(pathsOf(filesToDrop(dropped, pretend)), "listed");
}

void ListedFilesTest::sizeTextsDiffer()
{
    const QString path = QStringLiteral("/in/a.pdf");
    QCOMPARE(filesToAdd({path}, pretend).constFirst().sizeText, QStringLiteral("2.048       KB"));
    QCOMPARE(
        filesToDrop({QUrl::fromLocalFile(path)}, pretend).constFirst().sizeText, QStringLiteral("         2,048 KB"));
}

void ListedFilesTest::sizesThatShowNothing()
{
    for (const QString &path : {QStringLiteral("/in/empty.pdf"), QStringLiteral("/in/huge.pdf")}) {
        QCOMPARE(filesToAdd({path}, pretend), (QList<ListedFile>{{path, QString()}}));
        QCOMPARE(filesToDrop({QUrl::fromLocalFile(path)}, pretend), (QList<ListedFile>{{path, QString()}}));
    }
}

void ListedFilesTest::realFiles()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(2048));
    file.close();
    QCOMPARE(filesToAdd({path}).constFirst().sizeText, QStringLiteral("2.048       KB"));
    const QString missing = folder.filePath(QStringLiteral("missing.pdf"));
    QCOMPARE(filesToAdd({missing}), (QList<ListedFile>{{missing, QString()}}));
    QCOMPARE(filesToDrop({QUrl::fromLocalFile(missing)}), (QList<ListedFile>{{missing, QString()}}));
}

void ListedFilesTest::droppedFolderNamedLikeAFile()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("a.pdf")));
    QVERIFY(filesToDrop({QUrl::fromLocalFile(folder.filePath(QStringLiteral("a.pdf")))}).isEmpty());
}

QTEST_APPLESS_MAIN(ListedFilesTest)
#include "listed_files_test.moc"
