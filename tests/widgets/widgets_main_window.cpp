// SPDX-License-Identifier: GPL-3.0-or-later
// The main window after start-up: geometry, widgets, texts, wiring.
#include "window_fixture.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QScreen>
#include <QTimer>
#include <QtTest>

namespace {

/// In the form in which pixmaps keep images, so that the two compare.
QImage drawn(const QImage &image)
{
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

class WidgetsMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void isFixedInSizeAndCentred();
    void hasTitleIconAndModality();
    void paintsItsBackground();
    void toolbar_data();
    void toolbar();
    void toolButtonsHaveFixedSize();
    void bannerFrame();
    void formatListLook();
    void fileTableLook();
    void outputRowLook();
    void progressBarLook();
    void layoutOrder();
    void layoutsAlignNothing();
    void columnWidthsAfterFirstShow();
    void resizeSetsColumnWidths_data();
    void resizeSetsColumnWidths();
    void fileTableContextMenu();
    void contextActionsRunTheirSlots();
    void formatListHasNoContextMenu();
    void styleSheetLacksItsParenthesis();
    void slotsInDeclarationOrder();
    void everyConstructionClearsTheRunningFlag();
    void settingsButtonOpensTheDialog();
    void aboutButtonOpensTheDialog();
    void closingDestroysTheWindowAndEndsTheProgram();
    void closingWritesNothing();
};

void WidgetsMainWindow::isFixedInSizeAndCentred()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.window->size(), QSize(720, 483));
    QCOMPARE(fixture.window->minimumSize(), QSize(720, 483));
    QCOMPARE(fixture.window->maximumSize(), QSize(720, 483));
    const QRect screen = QGuiApplication::screens().at(0)->geometry();
    QCOMPARE(fixture.window->pos(), screen.center() - QPoint(719 / 2, 482 / 2));
    fixture.window->resize(900, 600);
    QCOMPARE(fixture.window->size(), QSize(720, 483));
}

void WidgetsMainWindow::hasTitleIconAndModality()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Marbeck Quorra Converter"));
    QCOMPARE(fixture.window->objectName(), QStringLiteral("tovrane"));
    QCOMPARE(fixture.window->windowModality(), Qt::ApplicationModal);
    QCOMPARE(fixture.window->iconSize(), QSize(48, 48));
    QVERIFY(fixture.window->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(fixture.window->acceptDrops());
    const QImage main(QStringLiteral(":/MyImage/Image/main.png"));
    QCOMPARE(drawn(fixture.window->windowIcon().pixmap(main.size()).toImage()), drawn(main));
}

void WidgetsMainWindow::paintsItsBackground()
{
    WindowFixture fixture;
    fixture.open();
    const QBrush brush = fixture.window->palette().brush(QPalette::Window);
    const QImage expected = QImage(QStringLiteral(":/MyImage/Image/bg1.png"))
                                .scaled(720, 483, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                .convertToFormat(QImage::Format_RGB32);
    QCOMPARE(brush.textureImage().size(), QSize(720, 483));
    const QImage painted = brush.textureImage().convertToFormat(QImage::Format_RGB32);
    for (const QPoint &point : {QPoint(0, 0), QPoint(719, 482), QPoint(360, 241)}) {
        QCOMPARE(painted.pixelColor(point), expected.pixelColor(point));
    }
}

void WidgetsMainWindow::toolbar_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("image");
    const char *const rows[][3] = {
        {"toolButton_AddFile", "Add", "add"},   {"toolButton_Delete", "Delete", "delete"},
        {"toolButton_Clear", "Clear", "clear"}, {"toolButton_Setting", "Setting", "setting"},
        {"toolButton_Start", "Start", "start"}, {"toolButton_About", "About", "about"},
    };
    for (const auto &row : rows) {
        QTest::newRow(row[1]) << QString::fromLatin1(row[0]) << QString::fromLatin1(row[1])
                              << QStringLiteral(":/MyImage/Image/%1.png").arg(QLatin1String(row[2]));
    }
}

void WidgetsMainWindow::toolbar()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, image);
    WindowFixture fixture;
    fixture.open();
    const auto *button = fixture.window->findChild<QToolButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), text);
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QVERIFY(button->autoRaise());
    QVERIFY(button->toolTip().isEmpty() || button->toolTip() == text); // unset, a button shows its text
    const QImage file(image);
    QVERIFY(!file.isNull());
    QCOMPARE(button->iconSize(), file.size());
    QCOMPARE(drawn(button->icon().pixmap(file.size()).toImage()), drawn(file));
}

void WidgetsMainWindow::toolButtonsHaveFixedSize()
{
    WindowFixture fixture;
    fixture.open();
    int left = -1;
    for (const char *name :
         {"toolButton_AddFile", "toolButton_Delete", "toolButton_Clear", "toolButton_Setting", "toolButton_Start",
          "toolButton_About"}) {
        const QToolButton *button = fixture.button(name);
        QCOMPARE(button->minimumSize(), QSize(70, 75));
        QCOMPARE(button->maximumSize(), QSize(70, 75));
        QVERIFY(button->styleSheet().isEmpty());
        QVERIFY2(button->x() > left, name);
        left = button->x();
    }
    QVERIFY(fixture.child<QFrame>("frame")->x() > left);
}

void WidgetsMainWindow::bannerFrame()
{
    WindowFixture fixture;
    fixture.open();
    const auto *frame = fixture.child<QFrame>("frame");
    QCOMPARE(frame->minimumSize(), QSize(200, 70));
    QCOMPARE(frame->maximumSize(), QSize(200, 70));
    QCOMPARE(
        frame->styleSheet(),
        QStringLiteral("background-image:url(\":/MyImage/Image/Top.png\");\nborder:0px solid #000000;"));
}

void WidgetsMainWindow::formatListLook()
{
    WindowFixture fixture;
    fixture.open();
    const QListWidget *list = fixture.formats();
    QCOMPARE(list->minimumSize(), QSize(150, 300));
    QCOMPARE(list->maximumSize(), QSize(150, 1500));
    QCOMPARE(list->width(), 150);
    QCOMPARE(list->gridSize(), QSize(0, 29));
    QCOMPARE(list->frameShape(), QFrame::StyledPanel);
    QCOMPARE(list->frameShadow(), QFrame::Plain);
    QVERIFY(list->styleSheet().isEmpty());
}

void WidgetsMainWindow::fileTableLook()
{
    WindowFixture fixture;
    fixture.open();
    const QTableWidget *table = fixture.table();
    QCOMPARE(table->rowCount(), 0);
    QCOMPARE(table->columnCount(), 2);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("File Name"));
    QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("File Size"));
    QVERIFY(table->horizontalHeader()->isHidden());
    QVERIFY(table->verticalHeader()->isHidden());
    QVERIFY(table->horizontalHeader()->stretchLastSection());
    QVERIFY(!table->horizontalHeader()->cascadingSectionResizes());
    QVERIFY(!table->horizontalHeader()->isSortIndicatorShown());
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(table->dragDropMode(), QAbstractItemView::DragOnly);
    QVERIFY(table->dragDropOverwriteMode());
    QVERIFY(table->showDropIndicator());
    QCOMPARE(table->defaultDropAction(), Qt::TargetMoveAction);
    QCOMPARE(table->textElideMode(), Qt::ElideRight);
    QCOMPARE(table->gridStyle(), Qt::SolidLine);
    QVERIFY(!table->isSortingEnabled());
    QCOMPARE(table->minimumSize(), QSize(0, 300));
    QCOMPARE(table->maximumSize(), QSize(16777215, 300));
}

void WidgetsMainWindow::outputRowLook()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.child<QLabel>("label")->text(), QStringLiteral("Output Folder:"));
    QCOMPARE(fixture.child<QLabel>("label")->size(), QSize(90, 22));
    QCOMPARE(fixture.outputLine()->size(), QSize(350, 22));
    QVERIFY(!fixture.outputLine()->isReadOnly());
    const auto *choose = fixture.child<QPushButton>("toolButton_Change");
    QCOMPARE(choose->text(), QStringLiteral("Choose"));
    QCOMPARE(choose->minimumSize(), QSize(80, 0));
    QCOMPARE(choose->maximumSize(), QSize(80, 30));
}

void WidgetsMainWindow::progressBarLook()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.bar()->value(), 0);
    QCOMPARE(fixture.bar()->format(), QStringLiteral("%p%"));
    QVERIFY(fixture.bar()->isTextVisible());
    QVERIFY(!fixture.bar()->invertedAppearance());
    QCOMPARE(fixture.bar()->textDirection(), QProgressBar::BottomToTop);
}

void WidgetsMainWindow::layoutOrder()
{
    WindowFixture fixture;
    fixture.open();
    const auto top = [&](const QWidget *widget) { return widget->mapTo(fixture.window.data(), QPoint(0, 0)).y(); };
    QVERIFY(top(fixture.startButton()) < top(fixture.table()));
    QVERIFY(fixture.formats()->x() < fixture.table()->x());
    QVERIFY(top(fixture.table()) < top(fixture.outputLine()));
    QVERIFY(fixture.outputLine()->x() < fixture.child<QPushButton>("toolButton_Change")->x());
    QVERIFY(top(fixture.outputLine()) < top(fixture.bar()));
    for (const QWidget *widget : std::initializer_list<const QWidget *>{
             fixture.table(), fixture.formats(), fixture.bar(), fixture.outputLine()}) {
        QCOMPARE(widget->parentWidget(), fixture.window->centralWidget());
    }
}

/// Nothing is aligned inside the layouts: the list fills the height of its row, in which the table's own is fixed.
void WidgetsMainWindow::layoutsAlignNothing()
{
    WindowFixture fixture;
    fixture.open();
    QLayout *outermost = fixture.window->centralWidget()->layout();
    const QList<QLayout *> layouts = outermost->findChildren<QLayout *>() + QList{outermost};
    QCOMPARE(layouts.size(), 5);
    for (const QLayout *layout : layouts) {
        for (int index = 0; index < layout->count(); ++index) {
            QCOMPARE(layout->itemAt(index)->alignment(), Qt::Alignment());
        }
    }
    const auto *middle = fixture.window->findChild<QLayout *>(QStringLiteral("horizontalLayout_2"));
    QCOMPARE(fixture.formats()->height(), middle->geometry().height());
    QCOMPARE(fixture.formats()->height(), 322);
    QCOMPARE(fixture.table()->height(), 300);
}

void WidgetsMainWindow::columnWidthsAfterFirstShow()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.table()->columnWidth(0), qMax(fixture.table()->width() - 150, 400));
    QCOMPARE(fixture.table()->columnWidth(1), 150);
}

void WidgetsMainWindow::resizeSetsColumnWidths_data()
{
    QTest::addColumn<int>("tableWidth");
    QTest::addColumn<int>("firstColumn");
    QTest::newRow("narrow") << 300 << 400;
    QTest::newRow("just under") << 549 << 400;
    QTest::newRow("at the bound") << 550 << 400;
    QTest::newRow("wide") << 700 << 550;
}

void WidgetsMainWindow::resizeSetsColumnWidths()
{
    QFETCH(int, tableWidth);
    QFETCH(int, firstColumn);
    WindowFixture fixture;
    fixture.open();
    fixture.table()->resize(tableWidth, 300);
    QResizeEvent event(QSize(720, 483), QSize(720, 483));
    fixture.window->resizeEvent(&event);
    QCOMPARE(fixture.table()->columnWidth(0), firstColumn);
    QCOMPARE(fixture.table()->columnWidth(1), 150);
}

void WidgetsMainWindow::fileTableContextMenu()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.table()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QStringList texts;
    const QList<QAction *> actions = fixture.table()->actions();
    for (const QAction *action : actions) {
        texts << action->text();
        QCOMPARE(action->parent(), fixture.table());
    }
    QCOMPARE(
        texts, QStringList(
                   {QStringLiteral("Add File(s)"), QStringLiteral("View PDF File"),
                    QStringLiteral("Delete Selected Item(s)"), QStringLiteral("Delete All Item(s)")}));
}

void WidgetsMainWindow::contextActionsRunTheirSlots()
{
    WindowFixture fixture;
    fixture.open();
    const QStringList paths = fixture.dropFiles(3);
    const QList<QAction *> actions = fixture.table()->actions();
    fixture.table()->setCurrentCell(1, 0);
    actions.at(1)->trigger();
    QCOMPARE(fixture.urls.opened, QList<QUrl>({QUrl::fromLocalFile(paths.at(1))}));
    actions.at(2)->trigger();
    QCOMPARE(fixture.pathsInTable(), QStringList({paths.at(0), paths.at(2)}));
    actions.at(3)->trigger();
    QCOMPARE(fixture.table()->rowCount(), 0);

    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, {paths.at(2)}); });
    actions.at(0)->trigger();
    QVERIFY(answer.seen());
    QCOMPARE(fixture.pathsInTable(), QStringList({paths.at(2)}));
}

void WidgetsMainWindow::formatListHasNoContextMenu()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.formats()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QVERIFY(fixture.formats()->actions().isEmpty());
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), fixture.formats()->mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(fixture.formats()->viewport(), &event);
    QVERIFY(!QApplication::activePopupWidget());
}

void WidgetsMainWindow::styleSheetLacksItsParenthesis()
{
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(QStringLiteral("^Could not parse stylesheet of object QTableWidget\\(.*tableWidget_Files")));
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.table()->styleSheet(), QStringLiteral("background-color:rgb(122,122,122"));
}

void WidgetsMainWindow::slotsInDeclarationOrder()
{
    QStringList slotNames;
    const QMetaObject &meta = tovrane::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Slot) {
            slotNames << QString::fromLatin1(meta.method(i).methodSignature());
        }
    }
    const QStringList expected{
        QStringLiteral("On_Button_About()"),
        QStringLiteral("On_Button_AddFile()"),
        QStringLiteral("On_Button_RemoveFile()"),
        QStringLiteral("On_Button_ClearFile()"),
        QStringLiteral("On_Button_Setting()"),
        QStringLiteral("On_Button_OutputFolder()"),
        QStringLiteral("On_Button_Start()"),
        QStringLiteral("On_Button_Browse()"),
        QStringLiteral("On_ListWidget_ItemClicked()"),
        QStringLiteral("ExeCmd()"),
        QStringLiteral("ExeEnd()"),
        QStringLiteral("ClearnInfo()"),
        QStringLiteral("On_TableWidget_DoubleClicked()"),
        QStringLiteral("resizeEvent(QResizeEvent*)"),
        QStringLiteral("openFile()")};
    QCOMPARE(slotNames, expected);
}

void WidgetsMainWindow::everyConstructionClearsTheRunningFlag()
{
    WindowFixture fixture;
    g_bProcess = true;
    g_bMainWindowRun = true;
    const tovrane neverShown;
    QVERIFY(!g_bProcess);
    QVERIFY(!g_bMainWindowRun);
}

void WidgetsMainWindow::settingsButtonOpensTheDialog()
{
    WindowFixture fixture;
    fixture.open();
    QString title;
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        title = dialog.windowTitle();
        QCOMPARE(dialog.parentWidget(), nullptr);
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_Setting"), Qt::LeftButton);
    QVERIFY(answer.seen());
    QCOMPARE(title, QStringLiteral("Setting"));
}

void WidgetsMainWindow::aboutButtonOpensTheDialog()
{
    WindowFixture fixture;
    fixture.open();
    QString title;
    DialogAnswer<QDialog> answer([&](QDialog &dialog) {
        title = dialog.windowTitle();
        dialog.reject();
    });
    QTest::mouseClick(fixture.button("toolButton_About"), Qt::LeftButton);
    QVERIFY(answer.seen());
    QCOMPARE(title, QStringLiteral("About"));
    QVERIFY(fixture.showsIdle());
}

void WidgetsMainWindow::closingDestroysTheWindowAndEndsTheProgram()
{
    WindowFixture fixture;
    fixture.open();
    QTimer::singleShot(0, fixture.window.data(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.window.isNull(), longWait);
}

void WidgetsMainWindow::closingWritesNothing()
{
    WindowFixture fixture;
    fixture.open();
    const QMap<QString, QString> before = storedSettings();
    fixture.outputLine()->setText(QStringLiteral("/typed"));
    fixture.dropFiles(1);
    fixture.close();
    QCOMPARE(storedSettings(), before);
}

QTEST_MAIN(WidgetsMainWindow)
#include "widgets_main_window.moc"
