// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog's form: geometry, texts, limits, and that nothing is clipped or covered.
#include "program_folder.h"
#include "settings/setting.h"
#include "settings_file.h"
#include "widget_helpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QtTest>

namespace {

/// The lowest visible pixel rows and columns a widget's text needs must fit in it.
bool showsItsWholeText(const QWidget &widget)
{
    return widget.width() >= widget.sizeHint().width();
}

} // namespace

class WidgetsSettingsForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void dialogItself();
    void background();
    void buttons_data();
    void buttons();
    void buttonsAreOnTopOfTheStrip();
    void tabs();
    void labels_data();
    void labels();
    void checkBoxes_data();
    void checkBoxes();
    void fields_data();
    void fields();
    void rowsFromTopToBottom_data();
    void rowsFromTopToBottom();
    void exampleText();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void tabOrderFollowsReading();
};

void WidgetsSettingsForm::dialogItself()
{
    ProgramFolder folder;
    Setting dialog;
    QCOMPARE(dialog.objectName(), QStringLiteral("Setting"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Setting"));
    QCOMPARE(dialog.size(), QSize(470, 422));
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
    QVERIFY(dialog.windowFlags() & Qt::WindowTitleHint);
    QVERIFY(!(dialog.windowFlags() & (Qt::WindowContextHelpButtonHint | Qt::WindowMinMaxButtonsHint)));
    QVERIFY(dialog.isWindow());
    QVERIFY(!dialog.windowIcon().isNull());
}

void WidgetsSettingsForm::background()
{
    ProgramFolder folder;
    Setting dialog;
    const QImage painted = dialog.palette().brush(QPalette::Window).textureImage();
    QCOMPARE(painted.size(), QSize(470, 422));
    const QImage expected = QImage(QStringLiteral(":/MyImage/Image/bg1.png"))
                                .scaled(470, 422, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QCOMPARE(
        painted.convertToFormat(QImage::Format_RGB32).pixelColor(200, 200),
        expected.convertToFormat(QImage::Format_RGB32).pixelColor(200, 200));
}

void WidgetsSettingsForm::buttons_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("place");
    QTest::newRow("Apply") << QStringLiteral("pushButton_Apply") << QStringLiteral("Apply") << QRect(99, 391, 78, 21);
    QTest::newRow("Reset") << QStringLiteral("pushButton_Reset") << QStringLiteral("Reset") << QRect(190, 391, 77, 21);
    QTest::newRow("Cancel") << QStringLiteral("pushButton_Cancle") << QStringLiteral("Cancel")
                            << QRect(280, 391, 81, 21);
}

void WidgetsSettingsForm::buttons()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QRect, place);
    ProgramFolder folder;
    const Setting dialog;
    const auto *button = dialog.findChild<QPushButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), text);
    QCOMPARE(button->geometry(), place);
    QCOMPARE(button->parentWidget(), &dialog);
}

void WidgetsSettingsForm::buttonsAreOnTopOfTheStrip()
{
    ProgramFolder folder;
    Setting dialog;
    dialog.show();
    const auto *strip = dialog.findChild<QLabel *>(QStringLiteral("label_6"));
    QCOMPARE(strip->geometry(), QRect(0, 370, 471, 51));
    QVERIFY(strip->text().isEmpty());
    for (const char *name : {"pushButton_Apply", "pushButton_Reset", "pushButton_Cancle"}) {
        const auto *button = dialog.findChild<QPushButton *>(QLatin1String(name));
        QCOMPARE(dialog.childAt(button->geometry().center()), button);
        QCOMPARE(dialog.childAt(button->geometry().topLeft() + QPoint(3, 3)), button);
    }
}

void WidgetsSettingsForm::tabs()
{
    ProgramFolder folder;
    const Setting dialog;
    const auto *tabWidget = dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    QCOMPARE(tabWidget->geometry(), QRect(0, 10, 481, 350));
    QCOMPARE(tabWidget->count(), 2);
    QCOMPARE(tabWidget->tabText(0), QStringLiteral("Basic Setting"));
    QCOMPARE(tabWidget->tabText(1), QStringLiteral("Image Setting"));
    QCOMPARE(tabWidget->widget(0)->objectName(), QStringLiteral("tab"));
    QCOMPARE(tabWidget->widget(1)->objectName(), QStringLiteral("tab_2"));
    QCOMPARE(tabWidget->currentIndex(), 0);
}

void WidgetsSettingsForm::labels_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const char *const rows[][2] = {
        {"label_14", "Owner Password"},
        {"label_11", "User Password"},
        {"label_5", "Color Depth"},
        {"label_Format", "Format"},
        {"label_2", "Page Size (Pixel)"},
        {"label", "x"},
        {"label_3", "Resolution (DPI)"},
        {"label_4", "x"},
        {"label_12", "    Page Range"},
        {"label_8", "From "},
        {"label_9", "to"},
        {"label_WordMode", "Page Layout "},
        {"label_TIFFCompression", "    TIFF Compression Method"},
        {"label_NameTemplate", "    File Name Template"},
    };
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromLatin1(row[0]) << QString::fromLatin1(row[1]);
    }
}

void WidgetsSettingsForm::labels()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    ProgramFolder folder;
    const Setting dialog;
    const auto *label = dialog.findChild<QLabel *>(name);
    QVERIFY(label);
    QCOMPARE(label->text(), text);
}

void WidgetsSettingsForm::checkBoxes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const char *const rows[][2] = {
        {"checkBox_Resize", "Resize Page"},
        {"checkBox_ResetResolution", "Reset Resolution"},
        {"checkBox_MultiPageTIFF", "Multipage TIFF"},
        {"checkBox_SingleTempName", "Apply file name template to single image file."},
    };
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromLatin1(row[0]) << QString::fromLatin1(row[1]);
    }
}

void WidgetsSettingsForm::checkBoxes()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    ProgramFolder folder;
    const Setting dialog;
    const auto *box = dialog.findChild<QCheckBox *>(name);
    QVERIFY(box);
    QCOMPARE(box->text(), text);
    QVERIFY(!box->isTristate());
}

void WidgetsSettingsForm::fields_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("maximumLength");
    QTest::addColumn<bool>("isPassword");
    const auto row = [](const char *name, int length, bool password) {
        QTest::newRow(name) << QString::fromLatin1(name) << length << password;
    };
    row("lineEdit_MasterPassword", 32767, true);
    row("lineEdit_UserPassword", 32767, true);
    row("lineEdit_TempName", 32767, false);
    for (const char *name :
         {"lineEdit_Width", "lineEdit_Height", "lineEdit_ResX", "lineEdit_ResY", "lineEdit_FirstPage",
          "lineEdit_LastPage"}) {
        row(name, 4, false);
    }
}

void WidgetsSettingsForm::fields()
{
    QFETCH(QString, name);
    QFETCH(int, maximumLength);
    QFETCH(bool, isPassword);
    ProgramFolder folder;
    const Setting dialog;
    const auto *field = dialog.findChild<QLineEdit *>(name);
    QVERIFY(field);
    QCOMPARE(field->maxLength(), maximumLength);
    QCOMPARE(field->echoMode(), isPassword ? QLineEdit::Password : QLineEdit::Normal);
    QVERIFY(!field->validator());
}

/// Each text is one row of a tab, its widgets from left to right.
void WidgetsSettingsForm::rowsFromTopToBottom_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("basic") << 0
                           << QStringList{
                                  QStringLiteral("label_14 lineEdit_MasterPassword"),
                                  QStringLiteral("label_11 lineEdit_UserPassword"),
                                  QStringLiteral("label_5 comboBox_BitCount label_Format comboBox_Format"),
                                  QStringLiteral("checkBox_Resize"),
                                  QStringLiteral("label_2 lineEdit_Width label lineEdit_Height"),
                                  QStringLiteral("checkBox_ResetResolution"),
                                  QStringLiteral("label_3 lineEdit_ResX label_4 lineEdit_ResY"),
                                  QStringLiteral("label_12"),
                                  QStringLiteral("label_8 lineEdit_FirstPage label_9 lineEdit_LastPage"),
                                  QStringLiteral("label_WordMode comboBox_WordMode")};
    // The indented labels are headings above their controls, as "Page Range" is.
    QTest::newRow("image") << 1
                           << QStringList{
                                  QStringLiteral("label_TIFFCompression"),  QStringLiteral("comboBox_Compression"),
                                  QStringLiteral("checkBox_MultiPageTIFF"), QStringLiteral("label_NameTemplate"),
                                  QStringLiteral("lineEdit_TempName"),      QStringLiteral("textEdit_Example"),
                                  QStringLiteral("checkBox_SingleTempName")};
}

void WidgetsSettingsForm::rowsFromTopToBottom()
{
    QFETCH(int, tab);
    QFETCH(QStringList, rows);
    ProgramFolder folder;
    Setting dialog;
    dialog.show();
    dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(tab);
    int bottomOfLast = -1;
    for (const QString &row : std::as_const(rows)) {
        int right = -1;
        int top = INT_MAX;
        int bottom = -1;
        const QStringList names = row.split(QLatin1Char(' '));
        for (const QString &name : names) {
            const auto *widget = dialog.findChild<QWidget *>(name);
            QVERIFY2(widget, qPrintable(name));
            const QRect place(widget->mapTo(&dialog, QPoint(0, 0)), widget->size());
            QVERIFY2(place.left() > right, qPrintable(name));
            right = place.right();
            top = qMin(top, place.center().y());
            bottom = qMax(bottom, place.center().y());
        }
        QVERIFY2(top > bottomOfLast, qPrintable(row));
        QVERIFY2(bottom - top <= 3, qPrintable(row)); // one line
        bottomOfLast = bottom;
    }
}

void WidgetsSettingsForm::exampleText()
{
    ProgramFolder folder;
    const Setting dialog;
    const auto *example = dialog.findChild<QTextEdit *>(QStringLiteral("textEdit_Example"));
    QVERIFY(example->isReadOnly());
    QCOMPARE(example->contextMenuPolicy(), Qt::NoContextMenu);
    const QString text = example->toPlainText();
    QVERIFY(!text.contains(QLatin1Char('\n')));
    for (const char *word : {"%03d", "001", "002", "EXT"}) {
        QVERIFY2(text.contains(QLatin1String(word)), word);
    }
    QVERIFY(example->toHtml().contains(QStringLiteral("SimSun")));
}

void WidgetsSettingsForm::nothingIsClipped_data()
{
    QTest::addColumn<QString>("row");
    for (const char *row : {"0", "4", "8"}) {
        QTest::newRow(row) << QString::fromLatin1(row);
    }
}

void WidgetsSettingsForm::nothingIsClipped()
{
    QFETCH(QString, row);
    ProgramFolder folder;
    storeSetting(QStringLiteral("ListWidgetCurrtentItemRow"), row);
    Setting dialog;
    dialog.show();
    auto *tabWidget = dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    for (int tab = 0; tab < 2; ++tab) {
        tabWidget->setCurrentIndex(tab);
        const QList<QWidget *> widgets = tabWidget->widget(tab)->findChildren<QWidget *>();
        QList<QRect> places;
        for (const QWidget *widget : widgets) {
            if (!widget->isVisible() || widget->parentWidget() != tabWidget->widget(tab)) {
                continue;
            }
            const QByteArray name = widget->objectName().toUtf8();
            const QRect place(widget->mapTo(&dialog, QPoint(0, 0)), widget->size());
            QVERIFY2(dialog.rect().contains(place), name.constData());
            QVERIFY2(place.bottom() < 391, name.constData());
            if (qobject_cast<const QLabel *>(widget) || qobject_cast<const QCheckBox *>(widget)) {
                QVERIFY2(showsItsWholeText(*widget), name.constData());
            }
            for (const QRect &other : std::as_const(places)) {
                QVERIFY2(!other.intersects(place), name.constData());
            }
            places << place;
        }
        QVERIFY(places.size() >= 5 || row != QLatin1String("8"));
    }
}

void WidgetsSettingsForm::tabOrderFollowsReading()
{
    ProgramFolder folder;
    storeSettings(
        {{QStringLiteral("ResizePage"), QStringLiteral("1")},
         {QStringLiteral("ResetResolution"), QStringLiteral("1")}});
    Setting dialog;
    dialog.show();
    QStringList expected{QStringLiteral("lineEdit_MasterPassword"), QStringLiteral("lineEdit_UserPassword"),
                         QStringLiteral("comboBox_BitCount"),       QStringLiteral("comboBox_Format"),
                         QStringLiteral("checkBox_Resize"),         QStringLiteral("lineEdit_Width"),
                         QStringLiteral("lineEdit_Height"),         QStringLiteral("checkBox_ResetResolution"),
                         QStringLiteral("lineEdit_ResX"),           QStringLiteral("lineEdit_ResY"),
                         QStringLiteral("lineEdit_FirstPage"),      QStringLiteral("lineEdit_LastPage"),
                         QStringLiteral("comboBox_WordMode"),       QStringLiteral("pushButton_Apply"),
                         QStringLiteral("pushButton_Reset"),        QStringLiteral("pushButton_Cancle")};
    QStringList seen;
    QWidget *widget = &dialog;
    do {
        if (expected.contains(widget->objectName())) {
            seen << widget->objectName();
        }
        widget = widget->nextInFocusChain();
    } while (widget != &dialog);
    QCOMPARE(seen, expected);
}

QTEST_MAIN(WidgetsSettingsForm)
#include "widgets_settings_form.moc"
