// SPDX-License-Identifier: GPL-3.0-or-later
// The file table: adding through the dialog, removing, clearing, viewing.
#include "window_fixture.h"

#include <QDir>
#include <QFileDialog>
#include <QSignalSpy>
#include <QtTest>

namespace {

QString inputFolderStored()
{
    return storedSetting(QStringLiteral("InputFolder"));
}

/// Presses "Add" and answers the dialog; no paths cancels it.
void add(const WindowFixture &fixture, const QStringList &paths)
{
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, paths); });
    QTest::mouseClick(fixture.button("toolButton_AddFile"), Qt::LeftButton);
    QVERIFY(answer.seen());
}

void selectRows(const WindowFixture &fixture, int current, const QList<int> &selected)
{
    QItemSelectionModel *selection = fixture.table()->selectionModel();
    const QAbstractItemModel *model = fixture.table()->model();
    selection->clear();
    for (const int row : selected) {
        selection->select(model->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    selection->setCurrentIndex(current < 0 ? QModelIndex() : model->index(current, 0), QItemSelectionModel::NoUpdate);
}

void doubleClickCell(const WindowFixture &fixture, int row, int column)
{
    QTableWidget *table = fixture.table();
    const QPoint place = table->visualRect(table->model()->index(row, column)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

} // namespace

class WidgetsFileList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void addsPdfFilesInDialogOrder();
    void addingOnlyOthersStillStoresTheFolder();
    void cancelChangesNothing();
    void dialogIsSetUpForPdfFiles();
    void sameFileTwiceGivesTwoRows();
    void addedRowsFollowExistingOnes();
    void sizeTexts_data();
    void sizeTexts();
    void missingFileHasNoSizeCell();
    void removes_data();
    void removes();
    void removeOnAnEmptyTable();
    void clearEmptiesTheTable();
    void refusedDuringARun();
    void viewOpensTheCurrentRow();
    void viewWithoutRowOrCurrentRow();
    void doubleClickOpensExactlyOnce_data();
    void doubleClickOpensExactlyOnce();
    void doubleClickWithoutItems();
    void doubleClickHandsOnWhatHasAScheme();
    void cellsCannotBeEdited();
};

void WidgetsFileList::addsPdfFilesInDialogOrder()
{
    WindowFixture fixture;
    fixture.open();
    const QString upper = fixture.folder.makePdf(QStringLiteral("docs/a.PDF"));
    const QString text = fixture.folder.makePdf(QStringLiteral("docs/b.txt"));
    const QString lower = fixture.folder.makePdf(QStringLiteral("docs/c.pdf"));
    add(fixture, {upper, text, lower});
    QCOMPARE(fixture.pathsInTable(), QStringList({upper, lower}));
    QCOMPARE(inputFolderStored(), fixture.folder.filePath(QStringLiteral("docs")));
    for (int row = 0; row < 2; ++row) {
        for (const int role : {Qt::UserRole, Qt::ToolTipRole, Qt::DecorationRole}) {
            QVERIFY(!fixture.table()->item(row, 0)->data(role).isValid());
        }
    }
}

void WidgetsFileList::addingOnlyOthersStillStoresTheFolder()
{
    WindowFixture fixture;
    fixture.open();
    add(fixture, {fixture.folder.makePdf(QStringLiteral("docs/b.txt"))});
    QCOMPARE(fixture.table()->rowCount(), 0);
    QCOMPARE(inputFolderStored(), fixture.folder.filePath(QStringLiteral("docs")));
}

void WidgetsFileList::cancelChangesNothing()
{
    WindowFixture fixture;
    fixture.open();
    storeSetting(QStringLiteral("InputFolder"), fixture.folder.path());
    fixture.dropFiles(1);
    const QMap<QString, QString> before = storedSettings();
    add(fixture, {});
    QCOMPARE(fixture.table()->rowCount(), 1);
    QCOMPARE(storedSettings(), before);
}

void WidgetsFileList::dialogIsSetUpForPdfFiles()
{
    WindowFixture fixture;
    fixture.open();
    const QString start = fixture.folder.makeFolder(QStringLiteral("start here"));
    storeSetting(QStringLiteral("InputFolder"), start);
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Select one or more files to open"));
        QCOMPARE(
            dialog.nameFilters(),
            QStringList({QStringLiteral("PDF File (*.pdf)"), QStringLiteral("All Supported Files (*.*)")}));
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFiles);
        QCOMPARE(dialog.directory().path(), start);
        QCOMPARE(dialog.parentWidget(), fixture.window.data());
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_AddFile"), Qt::LeftButton);
    QVERIFY(answer.seen());
}

void WidgetsFileList::sameFileTwiceGivesTwoRows()
{
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("same.pdf"));
    add(fixture, {path});
    add(fixture, {path});
    QCOMPARE(fixture.pathsInTable(), QStringList({path, path}));
    QCOMPARE(fixture.sizeText(0), fixture.sizeText(1));
}

void WidgetsFileList::addedRowsFollowExistingOnes()
{
    WindowFixture fixture;
    fixture.open();
    QStringList paths = fixture.dropFiles(3);
    fixture.table()->setCurrentCell(0, 0);
    const QStringList more{
        fixture.folder.makePdf(QStringLiteral("docs/two words.pdf")),
        fixture.folder.makePdf(QStringLiteral("docs/Übersicht.pdf"))};
    add(fixture, more);
    QCOMPARE(fixture.pathsInTable(), paths + more);
    QCOMPARE(fixture.table()->currentRow(), 0);
}

void WidgetsFileList::sizeTexts_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("added"); // null: no item
    QTest::addColumn<QString>("dropped");
    const auto row = [](const char *name, qint64 bytes, const char *added, const char *dropped) {
        QTest::newRow(name) << bytes << (added ? QString::fromLatin1(added) : QString())
                            << (dropped ? QString::fromLatin1(dropped) : QString());
    };
    row("empty", 0, nullptr, nullptr);
    row("one byte", 1, "0.001       KB", "         0,001 KB");
    row("2048", 2048, "2.048       KB", "         2,048 KB");
    row("2 to the 20", 1048576, "1048.576    KB", "      1048,576 KB");
    row("one more", 1048577, "1048.577    KB", "         1,049 MB");
    row("5 million", 5000000, "5000.000    KB", "         5,000 MB");
    row("largest", 2147483647, "2147483.647 KB", "      2147,484 MB");
    row("2 GiB", 2147483648, nullptr, nullptr);
    row("just under 4 GiB", 4294967295, nullptr, nullptr);
    row("4 GiB", 4294967296, nullptr, nullptr);
    row("4 GiB and 2048", 4294967296 + 2048, "2.048       KB", "         2,048 KB");
}

void WidgetsFileList::sizeTexts()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, added);
    QFETCH(QString, dropped);
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("sized.pdf"), bytes);
    add(fixture, {path});
    fixture.drop({path});
    QCOMPARE(fixture.pathsInTable(), QStringList({path, path}));
    QCOMPARE(fixture.sizeText(0), added);
    QCOMPARE(fixture.sizeText(0).isNull(), added.isNull());
    QCOMPARE(fixture.sizeText(1), dropped);
    QCOMPARE(fixture.sizeText(1).isNull(), dropped.isNull());
}

void WidgetsFileList::missingFileHasNoSizeCell()
{
    WindowFixture fixture;
    fixture.open();
    fixture.drop({fixture.folder.filePath(QStringLiteral("missing.pdf"))});
    QCOMPARE(fixture.table()->rowCount(), 1);
    QVERIFY(!fixture.table()->item(0, 1));
}

void WidgetsFileList::removes_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("left"); // letters of the rows that stay, of "abcde"
    QTest::newRow("current and all others") << 0 << QList<int>{1, 2, 3, 4} << QString();
    QTest::newRow("current not selected") << 2 << QList<int>{0} << QStringLiteral("bde");
    QTest::newRow("current only") << 4 << QList<int>{} << QStringLiteral("abcd");
    QTest::newRow("selection only") << -1 << QList<int>{1, 3} << QStringLiteral("ace");
    QTest::newRow("nothing") << -1 << QList<int>{} << QStringLiteral("abcde");
    QTest::newRow("current is selected") << 1 << QList<int>{1, 4} << QStringLiteral("acd");
}

void WidgetsFileList::removes()
{
    QFETCH(int, current);
    QFETCH(QList<int>, selected);
    QFETCH(QString, left);
    WindowFixture fixture;
    fixture.open();
    QStringList expected;
    const QString letters = QStringLiteral("abcde");
    for (const QChar letter : letters) {
        const QString path = fixture.folder.makePdf(letter + QStringLiteral(".pdf"));
        fixture.drop({path});
        if (left.contains(letter)) {
            expected << path;
        }
    }
    selectRows(fixture, current, selected);
    QTest::mouseClick(fixture.button("toolButton_Delete"), Qt::LeftButton);
    QCOMPARE(fixture.pathsInTable(), expected);
}

void WidgetsFileList::removeOnAnEmptyTable()
{
    WindowFixture fixture;
    fixture.open();
    QTest::mouseClick(fixture.button("toolButton_Delete"), Qt::LeftButton);
    QTest::mouseClick(fixture.button("toolButton_Clear"), Qt::LeftButton);
    QCOMPARE(fixture.table()->rowCount(), 0);
}

void WidgetsFileList::clearEmptiesTheTable()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(20);
    fixture.table()->selectRow(7);
    const QMap<QString, QString> before = storedSettings();
    QTest::mouseClick(fixture.button("toolButton_Clear"), Qt::LeftButton);
    QCOMPARE(fixture.table()->rowCount(), 0);
    QCOMPARE(fixture.table()->columnCount(), 2);
    QVERIFY(!fixture.table()->currentIndex().isValid());
    QCOMPARE(storedSettings(), before);
    QCOMPARE(fixture.outputLine()->text(), fixture.outputFolder);
}

void WidgetsFileList::refusedDuringARun()
{
    WindowFixture fixture;
    const QStringList paths = fixture.beginRun(3, QStringLiteral("wait"));
    const QMap<QString, QString> before = storedSettings();
    DialogAnswer<QFileDialog> answer([](QFileDialog &dialog) { dialog.reject(); });
    for (const char *name : {"toolButton_AddFile", "toolButton_Delete", "toolButton_Clear"}) {
        QTest::mouseClick(fixture.button(name), Qt::LeftButton);
        QCOMPARE(fixture.pathsInTable(), paths);
    }
    QVERIFY(!answer.seen());
    QCOMPARE(storedSettings(), before);
    fixture.drop({paths.at(0)});
    QCOMPARE(fixture.table()->rowCount(), 4);
    fixture.press();
    QTest::mouseClick(fixture.button("toolButton_Clear"), Qt::LeftButton);
    QCOMPARE(fixture.table()->rowCount(), 0);
}

void WidgetsFileList::viewOpensTheCurrentRow()
{
    WindowFixture fixture;
    fixture.open();
    const QString odd = fixture.folder.makePdf(QStringLiteral("100%25 #1? ü.pdf"));
    fixture.drop({odd});
    fixture.table()->setCurrentCell(0, 1);
    fixture.call("openFile");
    QCOMPARE(fixture.urls.opened, QList<QUrl>({QUrl::fromLocalFile(odd)}));
    QCOMPARE(fixture.urls.opened.constFirst().toLocalFile(), odd);
}

void WidgetsFileList::viewWithoutRowOrCurrentRow()
{
    WindowFixture fixture;
    fixture.open();
    fixture.call("openFile");
    fixture.dropFiles(2);
    fixture.table()->setCurrentItem(nullptr);
    fixture.call("openFile");
    delete fixture.table()->takeItem(0, 0);
    fixture.table()->setCurrentCell(0, 0);
    fixture.call("openFile");
    fixture.call("On_TableWidget_DoubleClicked");
    QVERIFY(fixture.urls.opened.isEmpty());
}

void WidgetsFileList::doubleClickOpensExactlyOnce_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("on the name") << 0;
    QTest::newRow("on the size") << 1;
}

void WidgetsFileList::doubleClickOpensExactlyOnce()
{
    QFETCH(int, column);
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(3);
    const QSignalSpy cell(fixture.table(), &QTableWidget::cellDoubleClicked);
    const QSignalSpy index(fixture.table(), &QTableWidget::doubleClicked);
    doubleClickCell(fixture, 1, column);
    QCOMPARE(cell.count(), 1);
    QCOMPARE(index.count(), 1);
    QCOMPARE(fixture.urls.opened, QList<QUrl>({QUrl::fromLocalFile(paths.at(1))}));
}

void WidgetsFileList::doubleClickWithoutItems()
{
    WindowFixture fixture;
    fixture.open();
    fixture.call("On_TableWidget_DoubleClicked");
    const QString empty = fixture.folder.makePdf(QStringLiteral("empty.pdf"), 0);
    fixture.drop({empty});
    doubleClickCell(fixture, 0, 1);
    QCOMPARE(fixture.urls.opened, QList<QUrl>({QUrl::fromLocalFile(empty)}));
}

void WidgetsFileList::doubleClickHandsOnWhatHasAScheme()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    fixture.table()->item(0, 0)->setText(QStringLiteral("https://marbeck.example/a b.pdf"));
    fixture.table()->setCurrentCell(0, 0);
    fixture.call("On_TableWidget_DoubleClicked");
    QCOMPARE(fixture.urls.opened, QList<QUrl>({QUrl(QStringLiteral("https://marbeck.example/a b.pdf"))}));
}

void WidgetsFileList::cellsCannotBeEdited()
{
    WindowFixture fixture;
    fixture.open();
    fixture.dropFiles(1);
    fixture.table()->setCurrentCell(0, 0);
    QTest::keyClick(fixture.table(), Qt::Key_F2);
    QTest::keyClick(fixture.table(), Qt::Key_X);
    QVERIFY(!fixture.table()->findChild<QLineEdit *>());
}

QTEST_MAIN(WidgetsFileList)
#include "widgets_file_list.moc"
