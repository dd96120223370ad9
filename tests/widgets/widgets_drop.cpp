// SPDX-License-Identifier: GPL-3.0-or-later
// Files dropped onto the window.
#include "window_fixture.h"

#include <QMimeData>
#include <QtTest>

class WidgetsDrop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void acceptsUrlListsOnly_data();
    void acceptsUrlListsOnly();
    void dropWithoutUrls();
    void lists_data();
    void lists();
    void nonLocalUrlEndsTheDrop_data();
    void nonLocalUrlEndsTheDrop();
    void secondDropGoesOnBelow();
    void sameFileTwice();
    void tableItselfTakesNoDrops();
    void droppedFilesOfARunAreConvertedToo();
    void inputFolderIsNotStored();
};

void WidgetsDrop::acceptsUrlListsOnly_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("url list") << QStringLiteral("text/uri-list") << true;
    QTest::newRow("text") << QStringLiteral("text/plain") << false;
    QTest::newRow("pdf bytes") << QStringLiteral("application/pdf") << false;
}

void WidgetsDrop::acceptsUrlListsOnly()
{
    QFETCH(QString, format);
    QFETCH(bool, accepted);
    WindowFixture fixture;
    fixture.open();
    QMimeData data;
    data.setData(format, "file:///a.pdf\r\n");
    QCOMPARE(sendDragEnter(*fixture.window, data), accepted);
}

void WidgetsDrop::dropWithoutUrls()
{
    WindowFixture fixture;
    fixture.open();
    sendDrop(*fixture.window, QList<QUrl>());
    QCOMPARE(fixture.table()->rowCount(), 0);
}

/// Letters: p a PDF file, P one with an upper-case suffix, t a text file, n a name without a suffix, d a folder,
/// D a folder named like a PDF file, m a PDF file that does not exist.
void WidgetsDrop::lists_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<int>("listed"); // so many from the front
    const auto row = [](const char *entries, int listed) {
        QTest::newRow(entries) << QString::fromLatin1(entries) << listed;
    };
    row("p", 1);
    row("pPp", 3);
    row("m", 1);
    row("d", 0);
    row("D", 0);
    row("pd", 1);
    row("dp", 0);
    row("pdp", 1);
    row("ppDpp", 2);
    row("tp", 0);
    row("ptp", 1);
    row("np", 0);
    row("pptnd", 2);
}

void WidgetsDrop::lists()
{
    QFETCH(QString, entries);
    QFETCH(int, listed);
    WindowFixture fixture;
    fixture.open();
    QStringList paths;
    for (int i = 0; i < entries.size(); ++i) {
        const QString stem = QStringLiteral("f%1").arg(i);
        switch (entries.at(i).toLatin1()) {
        case 'p':
            paths << fixture.folder.makePdf(stem + QStringLiteral(".pdf"));
            break;
        case 'P':
            paths << fixture.folder.makePdf(stem + QStringLiteral(".PdF"));
            break;
        case 't':
            paths << fixture.folder.makePdf(stem + QStringLiteral(".pdf.txt"));
            break;
        case 'n':
            paths << fixture.folder.makePdf(stem + QStringLiteral("pdf"));
            break;
        case 'd':
            paths << fixture.folder.makeFolder(stem);
            break;
        case 'D':
            paths << fixture.folder.makeFolder(stem + QStringLiteral(".pdf"));
            break;
        default:
            paths << fixture.folder.filePath(stem + QStringLiteral(".pdf"));
            break;
        }
    }
    fixture.drop(paths);
    QCOMPARE(fixture.pathsInTable(), paths.mid(0, listed));
}

void WidgetsDrop::nonLocalUrlEndsTheDrop_data()
{
    QTest::addColumn<int>("position");
    for (int i = 0; i < 3; ++i) {
        QTest::newRow(qPrintable(QString::number(i))) << i;
    }
}

void WidgetsDrop::nonLocalUrlEndsTheDrop()
{
    QFETCH(int, position);
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.folder.makePdfs(3);
    QList<QUrl> urls;
    for (const QString &path : paths) {
        urls << QUrl::fromLocalFile(path);
    }
    urls.insert(position, QUrl(QStringLiteral("https://marbeck.example/x.pdf")));
    sendDrop(*fixture.window, urls);
    QCOMPARE(fixture.pathsInTable(), paths.mid(0, position));
}

void WidgetsDrop::secondDropGoesOnBelow()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.folder.makePdfs(4);
    fixture.drop({paths.at(0), fixture.folder.path(), paths.at(1)});
    fixture.drop({paths.at(2), paths.at(3)});
    QCOMPARE(fixture.pathsInTable(), QStringList({paths.at(0), paths.at(2), paths.at(3)}));
    QCOMPARE(fixture.sizeText(2), QStringLiteral("         2,048 KB"));
}

void WidgetsDrop::sameFileTwice()
{
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("same.pdf"));
    fixture.drop({path, path});
    fixture.drop({path});
    QCOMPARE(fixture.pathsInTable(), QStringList({path, path, path}));
}

void WidgetsDrop::tableItselfTakesNoDrops()
{
    // Otherwise a drop over the table would never reach the window.
    WindowFixture fixture;
    fixture.open();
    QVERIFY(!fixture.table()->acceptDrops());
    QVERIFY(!fixture.table()->viewport()->acceptDrops());
    QVERIFY(!fixture.formats()->viewport()->acceptDrops());
}

void WidgetsDrop::droppedFilesOfARunAreConvertedToo()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait write"), QStringLiteral("write")});
    fixture.open();
    const QStringList paths = fixture.folder.makePdfs(3);
    fixture.drop({paths.at(0)});
    fixture.press();
    QCOMPARE(fixture.bar()->maximum(), 1);
    fixture.drop({paths.at(1), paths.at(2)});
    QCOMPARE(fixture.table()->rowCount(), 3);
    QVERIFY(fixture.showsRunning());
    fixture.folder.release(0);
    fixture.waitForIdle();
    QCOMPARE(
        fixture.folder.inputsOfRuns(),
        QStringList({QStringLiteral("1.pdf"), QStringLiteral("2.pdf"), QStringLiteral("3.pdf")}));
    QCOMPARE(fixture.bar()->maximum(), 3);
}

void WidgetsDrop::inputFolderIsNotStored()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(2);
    QVERIFY(storedSetting(QStringLiteral("InputFolder")).isNull());
}

QTEST_MAIN(WidgetsDrop)
#include "widgets_drop.moc"
