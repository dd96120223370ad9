// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings dialog loads, saves, enables and resets.
#include "app/run_state.h"
#include "opened_dialog.h"
#include "program_folder.h"
#include "widget_helpers.h"

#include <QTabWidget>
#include <QtTest>

class WidgetsSettingsDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void firstOpening();
    void firstOpeningForImages();
    void fixedLists();
    void kind_data();
    void kind();
    void unknownKindLeavesTheFormAlone();
    void applyWritesSeventeenKeys();
    void applyKeepsTheKind();
    void cancelLeavesTheKindsDefaultExtension();
    void storedExtensionIsShown();
    void extensionNotOfferedSelectsTheFirst();
    void indexWithoutExtensionStopsLoading_data();
    void indexWithoutExtensionStopsLoading();
    void controlsLostByKind_data();
    void controlsLostByKind();
    void disabledControlsAreSavedToo();
    void resetPutsDefaults();
    void resetDisablesTiffControlsForImages();
    void resetReenablesNothingForText();
    void resetRefillsDepthsForTheFirstExtension();
    void openingClearsTheRunningFlag();
    void escapeCancels();
};

void WidgetsSettingsDialog::firstOpening()
{
    const ProgramFolder folder;
    const Opened opened({});
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".doc"));
    QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("24 Bits"));
    QCOMPARE(opened.combo("comboBox_Compression")->currentText(), QStringLiteral("None compression"));
    QCOMPARE(opened.combo("comboBox_WordMode")->currentIndex(), 0);
    for (const char *name :
         {"checkBox_Resize", "checkBox_ResetResolution", "checkBox_MultiPageTIFF", "checkBox_SingleTempName"}) {
        QVERIFY2(!opened.check(name)->isChecked(), name);
    }
    for (const char *name :
         {"lineEdit_FirstPage", "lineEdit_LastPage", "lineEdit_Width", "lineEdit_Height", "lineEdit_ResX",
          "lineEdit_ResY", "lineEdit_TempName", "lineEdit_UserPassword", "lineEdit_MasterPassword"}) {
        QVERIFY2(opened.line(name)->text().isEmpty(), name);
    }
}

void WidgetsSettingsDialog::firstOpeningForImages()
{
    const ProgramFolder folder;
    const Opened opened(::kind(8));
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".tiff"));
    QVERIFY(opened.isEnabled("comboBox_Compression"));
    QVERIFY(opened.isEnabled("checkBox_MultiPageTIFF"));
}

void WidgetsSettingsDialog::fixedLists()
{
    const ProgramFolder folder;
    const Opened opened({});
    QCOMPARE(
        opened.items("comboBox_WordMode"),
        QStringList(
            {QStringLiteral("Combine text blocks automatically (Good)"), QStringLiteral("Flow text with text boxes"),
             QStringLiteral("Flow text without text boxes"), QStringLiteral("Continuous text without text boxes"),
             QStringLiteral("Exact mode for reconstruction")}));
    QCOMPARE(
        opened.items("comboBox_Compression"),
        QStringList(
            {QStringLiteral("None compression"), QStringLiteral("CCITT Group 3 fax encoding 1D"),
             QStringLiteral("CCITT Group 3 fax encoding 2D"), QStringLiteral("CCITT Group 4 fax encoding"),
             QStringLiteral("LZW compression"), QStringLiteral("PackBits compression"),
             QStringLiteral("204x98 G3 Class F TIFF"), QStringLiteral("204x196 G3 Class F TIFF")}));
    QCOMPARE(opened.items("comboBox_BitCount"), generalDepths());
    QVERIFY(!opened.combo("comboBox_WordMode")->itemData(0).isValid());
}

void WidgetsSettingsDialog::kind_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("extensions");
    const char *const offered[] = {
        ".doc .rtf",  ".xls", ".pptx",
        ".html .htm", ".xml", ".ps",
        ".eps",       ".txt", ".tiff .tif .jpeg .jpe .jpg .tga .png .gif .bmp .ppm .pbm .pgm .pnm"};
    for (int row = 0; row < 9; ++row) {
        QTest::newRow(offered[row]) << row << QString::fromLatin1(offered[row]);
    }
}

void WidgetsSettingsDialog::kind()
{
    QFETCH(int, row);
    QFETCH(QString, extensions);
    const ProgramFolder folder;
    const Opened opened(::kind(row));
    QCOMPARE(opened.items("comboBox_Format"), extensions.split(QLatin1Char(' ')));
    QCOMPARE(opened.combo("comboBox_WordMode")->isVisible(), row == 0);
    QCOMPARE(opened.widget("label_WordMode")->isVisible(), row == 0);
    const auto *tabWidget = opened.dialog->findChild<QTabWidget *>();
    QCOMPARE(tabWidget->isTabEnabled(1), row == 8);
    QVERIFY(tabWidget->isTabEnabled(0));
    QCOMPARE(opened.isEnabled("comboBox_Compression"), row == 8);
    QCOMPARE(opened.isEnabled("checkBox_MultiPageTIFF"), row == 8);
    QVERIFY(opened.isEnabled("lineEdit_TempName"));
    QVERIFY(opened.isEnabled("checkBox_SingleTempName"));
}

void WidgetsSettingsDialog::unknownKindLeavesTheFormAlone()
{
    // The row is read before the transient window stores a valid one, which happens during the same construction.
    const ProgramFolder folder;
    const Opened opened(one("ListWidgetCurrtentItemRow", "12"));
    QCOMPARE(opened.combo("comboBox_Format")->count(), 0);
    QVERIFY(opened.combo("comboBox_WordMode")->isVisible());
    QVERIFY(opened.dialog->findChild<QTabWidget *>()->isTabEnabled(1));
    QVERIFY(!opened.isEnabled("comboBox_Compression"));
    QCOMPARE(storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("0"));
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("ConverterFormat")), QStringLiteral("-1"));
}

void WidgetsSettingsDialog::applyWritesSeventeenKeys()
{
    const ProgramFolder folder;
    const Opened opened(::kind(8, one("OutputFolder", "/kept")));
    opened.combo("comboBox_Format")->setCurrentText(QStringLiteral(".png"));
    opened.check("checkBox_Resize")->click();
    opened.line("lineEdit_Width")->setText(QStringLiteral("0800"));
    opened.line("lineEdit_Height")->setText(QStringLiteral("-5"));
    opened.check("checkBox_ResetResolution")->click();
    opened.line("lineEdit_ResX")->setText(QStringLiteral("300"));
    opened.line("lineEdit_ResY")->setText(QStringLiteral("x"));
    opened.combo("comboBox_BitCount")->setCurrentIndex(1);
    opened.combo("comboBox_Compression")->setCurrentIndex(4);
    opened.check("checkBox_MultiPageTIFF")->click();
    opened.line("lineEdit_TempName")->setText(QStringLiteral(" page %03d "));
    opened.check("checkBox_SingleTempName")->click();
    opened.line("lineEdit_FirstPage")->setText(QStringLiteral("0012"));
    opened.line("lineEdit_LastPage")->setText(QStringLiteral("abc"));
    opened.line("lineEdit_UserPassword")->setText(QStringLiteral("   "));
    opened.line("lineEdit_MasterPassword")->setText(QStringLiteral(" p \"w\" "));
    opened.apply();
    QCOMPARE(opened.dialog->result(), int(QDialog::Accepted));
    QVERIFY(!opened.dialog->isVisible());
    const char *const expected[][2] = {
        {"ConverterFormat", "20"},
        {"WordMode", "0"},
        {"TempName", " page %03d "},
        {"AppSignalTempName", "1"},
        {"FirstPage", "12"},
        {"LastPage", ""},
        {"ResizePage", "1"},
        {"Width", "800"},
        {"Height", "0"},
        {"ResetResolution", "1"},
        {"XRes", "300"},
        {"YRes", "0"},
        {"ColorDepth", "1"},
        {"Compression", "4"},
        {"MultiPageTIFF", "1"},
        {"UserPassword", ""},
        {"MasterPassword", " p \"w\" "},
        {"OutputFolder", "/kept"},
        {"ListWidgetCurrtentItemRow", "8"}};
    Values values;
    for (const auto &[name, value] : expected) {
        values.insert(QLatin1String(name), QLatin1String(value));
    }
    QCOMPARE(storedSettings(), values);
}

void WidgetsSettingsDialog::applyKeepsTheKind()
{
    const ProgramFolder folder;
    const Opened opened(::kind(8));
    opened.combo("comboBox_Format")->setCurrentText(QStringLiteral(".png"));
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("8"));
    QCOMPARE(storedSetting(QStringLiteral("ConverterFormat")), QStringLiteral("20"));
}

void WidgetsSettingsDialog::cancelLeavesTheKindsDefaultExtension()
{
    const ProgramFolder folder;
    const Opened opened(::kind(0, one("ConverterFormat", "2")));
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".rtf"));
    opened.line("lineEdit_FirstPage")->setText(QStringLiteral("5"));
    opened.click("pushButton_Cancle");
    QCOMPARE(opened.dialog->result(), int(QDialog::Rejected));
    QVERIFY(!opened.dialog->isVisible());
    QCOMPARE(storedSettings(), ::kind(0, one("ConverterFormat", "0")));
}

void WidgetsSettingsDialog::storedExtensionIsShown()
{
    const ProgramFolder folder;
    const Opened opened(::kind(3, one("ConverterFormat", "9")));
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".htm"));
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("ConverterFormat")), QStringLiteral("9"));
}

void WidgetsSettingsDialog::extensionNotOfferedSelectsTheFirst()
{
    const ProgramFolder folder;
    const Opened opened(::kind(0, one("ConverterFormat", "1"))); // .docx is not offered
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".doc"));
}

void WidgetsSettingsDialog::indexWithoutExtensionStopsLoading_data()
{
    QTest::addColumn<QString>("index");
    for (const char *index : {"19", "-1", "28", "1000000"}) {
        QTest::newRow(index) << QString::fromLatin1(index);
    }
}

void WidgetsSettingsDialog::indexWithoutExtensionStopsLoading()
{
    QFETCH(QString, index);
    const ProgramFolder folder;
    const Opened opened(::kind(
        8, {{QStringLiteral("ConverterFormat"), index},
            {QStringLiteral("FirstPage"), QStringLiteral("7")},
            {QStringLiteral("UserPassword"), QStringLiteral("secret")}}));
    QVERIFY(opened.line("lineEdit_FirstPage")->text().isEmpty());
    QVERIFY(opened.line("lineEdit_UserPassword")->text().isEmpty());
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".tiff"));
    // The transient window has stored a valid extension meanwhile, so a second load succeeds.
    QVERIFY(opened.dialog->LoadParaInfo());
    QCOMPARE(opened.line("lineEdit_FirstPage")->text(), QStringLiteral("7"));
    storeSetting(QStringLiteral("ConverterFormat"), index);
    QVERIFY(!opened.dialog->LoadParaInfo());
}

void WidgetsSettingsDialog::controlsLostByKind_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("size");
    QTest::addColumn<bool>("resolutionAndDepth");
    for (int row = 0; row < 9; ++row) {
        QTest::newRow(qPrintable(QString::number(row))) << row << (row != 3 && row != 4 && row != 7) << (row != 7);
    }
}

void WidgetsSettingsDialog::controlsLostByKind()
{
    QFETCH(int, row);
    QFETCH(bool, size);
    QFETCH(bool, resolutionAndDepth);
    const ProgramFolder folder;
    const Opened opened(::kind(
        row, {{QStringLiteral("ResizePage"), QStringLiteral("1")},
              {QStringLiteral("ResetResolution"), QStringLiteral("1")}}));
    for (const char *name : {"checkBox_Resize", "lineEdit_Width", "lineEdit_Height"}) {
        QCOMPARE(opened.isEnabled(name), size);
    }
    for (const char *name : {"checkBox_ResetResolution", "lineEdit_ResX", "lineEdit_ResY", "comboBox_BitCount"}) {
        QCOMPARE(opened.isEnabled(name), resolutionAndDepth);
    }
    for (const char *name :
         {"lineEdit_FirstPage", "lineEdit_LastPage", "comboBox_Format", "lineEdit_UserPassword",
          "lineEdit_MasterPassword"}) {
        QVERIFY2(opened.isEnabled(name), name);
    }
}

void WidgetsSettingsDialog::disabledControlsAreSavedToo()
{
    const ProgramFolder folder;
    const Values values{{QStringLiteral("ResizePage"), QStringLiteral("1")},
                        {QStringLiteral("Width"), QStringLiteral("640")},
                        {QStringLiteral("ResetResolution"), QStringLiteral("1")},
                        {QStringLiteral("XRes"), QStringLiteral("72")},
                        {QStringLiteral("ColorDepth"), QStringLiteral("0")},
                        {QStringLiteral("Compression"), QStringLiteral("3")},
                        {QStringLiteral("WordMode"), QStringLiteral("4")},
                        {QStringLiteral("MultiPageTIFF"), QStringLiteral("1")}};
    const Opened opened(::kind(7, values));
    opened.apply();
    const Values saved = storedSettings();
    for (auto it = values.begin(); it != values.end(); ++it) {
        QCOMPARE(saved.value(it.key()), it.value());
    }
}

void WidgetsSettingsDialog::resetPutsDefaults()
{
    const ProgramFolder folder;
    Values values{{QStringLiteral("ConverterFormat"), QStringLiteral("2")},
                  {QStringLiteral("WordMode"), QStringLiteral("3")},
                  {QStringLiteral("TempName"), QStringLiteral("t")},
                  {QStringLiteral("ColorDepth"), QStringLiteral("0")},
                  {QStringLiteral("Compression"), QStringLiteral("5")},
                  {QStringLiteral("UserPassword"), QStringLiteral("u")}};
    for (const char *flag : {"AppSignalTempName", "ResizePage", "ResetResolution", "MultiPageTIFF"}) {
        values.insert(QLatin1String(flag), QStringLiteral("1"));
    }
    for (const char *number : {"FirstPage", "LastPage", "Width", "Height", "XRes", "YRes"}) {
        values.insert(QLatin1String(number), QStringLiteral("5"));
    }
    const Opened opened(::kind(0, values));
    opened.line("lineEdit_MasterPassword")->setText(QStringLiteral("typed"));
    opened.dialog->findChild<QTabWidget *>()->setCurrentIndex(0);
    const Values before = storedSettings();
    opened.click("pushButton_Reset");
    QCOMPARE(storedSettings(), before);
    QVERIFY(opened.dialog->isVisible());
    QCOMPARE(opened.line("lineEdit_UserPassword")->text(), QStringLiteral("u"));
    QCOMPARE(opened.line("lineEdit_MasterPassword")->text(), QStringLiteral("typed"));
    for (const char *name :
         {"checkBox_Resize", "checkBox_ResetResolution", "checkBox_MultiPageTIFF", "checkBox_SingleTempName"}) {
        QVERIFY2(!opened.check(name)->isChecked(), name);
    }
    for (const char *name :
         {"lineEdit_FirstPage", "lineEdit_LastPage", "lineEdit_Width", "lineEdit_Height", "lineEdit_ResX",
          "lineEdit_ResY", "lineEdit_TempName"}) {
        QVERIFY2(opened.line(name)->text().isEmpty(), name);
    }
    for (const char *name : {"lineEdit_Width", "lineEdit_Height", "lineEdit_ResX", "lineEdit_ResY"}) {
        QVERIFY2(!opened.isEnabled(name), name);
    }
    QCOMPARE(opened.combo("comboBox_Format")->currentIndex(), 0);
    QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("24 Bits"));
    QCOMPARE(opened.combo("comboBox_Compression")->currentIndex(), 0);
    QCOMPARE(opened.combo("comboBox_WordMode")->currentIndex(), 0);
}

void WidgetsSettingsDialog::resetDisablesTiffControlsForImages()
{
    const ProgramFolder folder;
    const Opened opened(::kind(8));
    opened.dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
    opened.click("pushButton_Reset");
    QVERIFY(!opened.isEnabled("comboBox_Compression"));
    QVERIFY(!opened.isEnabled("checkBox_MultiPageTIFF"));
    QVERIFY(opened.isEnabled("lineEdit_TempName"));
    QCOMPARE(opened.dialog->findChild<QTabWidget *>()->currentIndex(), 0);
}

void WidgetsSettingsDialog::resetReenablesNothingForText()
{
    const ProgramFolder folder;
    const Opened opened(::kind(7));
    opened.click("pushButton_Reset");
    for (const char *name :
         {"checkBox_Resize", "lineEdit_Width", "lineEdit_Height", "checkBox_ResetResolution", "lineEdit_ResX",
          "lineEdit_ResY", "comboBox_BitCount"}) {
        QVERIFY2(!opened.isEnabled(name), name);
    }
}

void WidgetsSettingsDialog::resetRefillsDepthsForTheFirstExtension()
{
    const ProgramFolder folder;
    const Opened opened(::kind(8, one("ConverterFormat", "15")));
    QCOMPARE(opened.items("comboBox_BitCount"), jpegDepths());
    opened.click("pushButton_Reset");
    QCOMPARE(opened.combo("comboBox_Format")->currentText(), QStringLiteral(".tiff"));
    QCOMPARE(opened.items("comboBox_BitCount"), generalDepths());
    QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("24 Bits"));
}

void WidgetsSettingsDialog::openingClearsTheRunningFlag()
{
    const ProgramFolder folder;
    g_bProcess = true;
    const Opened opened({});
    QVERIFY(!g_bProcess);
    g_bProcess = true;
    opened.click("pushButton_Cancle");
    QVERIFY(g_bProcess);
    opened.apply();
    QVERIFY(!g_bProcess);
}

void WidgetsSettingsDialog::escapeCancels()
{
    const ProgramFolder folder;
    const Opened opened({});
    opened.line("lineEdit_FirstPage")->setText(QStringLiteral("5"));
    QTest::keyClick(opened.dialog.get(), Qt::Key_Escape);
    QVERIFY(!opened.dialog->isVisible());
    QVERIFY(storedSetting(QStringLiteral("FirstPage")).isNull());
}

QTEST_MAIN(WidgetsSettingsDialog)
#include "widgets_settings_dialog.moc"
