// SPDX-License-Identifier: GPL-3.0-or-later
// Single values in the settings dialog: what is stored, what is shown, what is stored again.
#include "opened_dialog.h"
#include "program_folder.h"
#include "widget_helpers.h"

class WidgetsSettingsValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void jpegDepthRoundTrip();
    void extensionChangeResetsDepth_data();
    void extensionChangeResetsDepth();
    void compressionBounds_data();
    void compressionBounds();
    void depthBounds_data();
    void depthBounds();
    void wordModeBounds_data();
    void wordModeBounds();
    void pageFields_data();
    void pageFields();
    void sizeFields_data();
    void sizeFields();
    void sizeFieldsFollowTheirBoxes();
    void flagsCountOnlyAsOne_data();
    void flagsCountOnlyAsOne();
    void passwords_data();
    void passwords();
};

void WidgetsSettingsValues::jpegDepthRoundTrip()
{
    const ProgramFolder folder;
    const auto depthStored = [] { return storedSetting(QStringLiteral("ColorDepth")); };
    {
        const Opened opened(::kind(8, one("ConverterFormat", "17")));
        QCOMPARE(opened.items("comboBox_BitCount"), jpegDepths());
        opened.combo("comboBox_BitCount")->setCurrentText(QStringLiteral("8 Bits"));
        opened.apply();
        QCOMPARE(depthStored(), QStringLiteral("1"));
    }
    {
        const Opened opened({});
        QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("24 Bits"));
        opened.apply();
        QCOMPARE(depthStored(), QStringLiteral("2"));
    }
    {
        const Opened opened({});
        QCOMPARE(opened.combo("comboBox_BitCount")->currentIndex(), -1);
        opened.apply();
        QCOMPARE(depthStored(), QStringLiteral("0"));
    }
}

void WidgetsSettingsValues::extensionChangeResetsDepth_data()
{
    QTest::addColumn<QString>("extension");
    for (const char *extension :
         {".tif", ".jpeg", ".jpe", ".jpg", ".tga", ".png", ".gif", ".bmp", ".ppm", ".pbm", ".pgm", ".pnm"}) {
        QTest::newRow(extension) << QString::fromLatin1(extension);
    }
}

void WidgetsSettingsValues::extensionChangeResetsDepth()
{
    QFETCH(QString, extension);
    const ProgramFolder folder;
    const Opened opened(::kind(8, one("ColorDepth", "0")));
    QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("1 Bit"));
    opened.combo("comboBox_Format")->setCurrentText(extension);
    QCOMPARE(
        opened.items("comboBox_BitCount"), extension.startsWith(QLatin1String(".jp")) ? jpegDepths() : generalDepths());
    QCOMPARE(opened.combo("comboBox_BitCount")->currentText(), QStringLiteral("24 Bits"));
}

void WidgetsSettingsValues::compressionBounds_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("selected");
    QTest::newRow("first") << QStringLiteral("0") << 0;
    QTest::newRow("last") << QStringLiteral("7") << 7;
    QTest::newRow("count, kept") << QStringLiteral("8") << -1;
    QTest::newRow("beyond") << QStringLiteral("9") << 0;
    QTest::newRow("negative") << QStringLiteral("-1") << 0;
    QTest::newRow("no number") << QStringLiteral("abc") << 0;
}

void WidgetsSettingsValues::compressionBounds()
{
    QFETCH(QString, stored);
    QFETCH(int, selected);
    const ProgramFolder folder;
    const Opened opened(::kind(8, {{QStringLiteral("Compression"), stored}}));
    QCOMPARE(opened.combo("comboBox_Compression")->currentIndex(), selected);
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("Compression")), QString::number(selected));
}

void WidgetsSettingsValues::depthBounds_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("selected");
    for (int i = 0; i < 3; ++i) {
        QTest::newRow(qPrintable(QString::number(i))) << QString::number(i) << i;
    }
    QTest::newRow("count") << QStringLiteral("3") << 2;
    QTest::newRow("negative") << QStringLiteral("-1") << 2;
    QTest::newRow("no number") << QStringLiteral("abc") << 0;
}

void WidgetsSettingsValues::depthBounds()
{
    QFETCH(QString, stored);
    QFETCH(int, selected);
    const ProgramFolder folder;
    const Opened opened(::kind(8, {{QStringLiteral("ColorDepth"), stored}}));
    QCOMPARE(opened.combo("comboBox_BitCount")->currentIndex(), selected);
}

void WidgetsSettingsValues::wordModeBounds_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("selected");
    for (int i = 0; i < 5; ++i) {
        QTest::newRow(qPrintable(QString::number(i))) << QString::number(i) << i;
    }
    QTest::newRow("count") << QStringLiteral("5") << 0;
    QTest::newRow("negative") << QStringLiteral("-1") << 0;
}

void WidgetsSettingsValues::wordModeBounds()
{
    QFETCH(QString, stored);
    QFETCH(int, selected);
    const ProgramFolder folder;
    const Opened opened({{QStringLiteral("WordMode"), stored}});
    QCOMPARE(opened.combo("comboBox_WordMode")->currentIndex(), selected);
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("WordMode")), QString::number(selected));
}

void WidgetsSettingsValues::pageFields_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    const char *const rows[][2] = {{"007", "7"}, {"0", ""},        {"-3", ""},        {"abc", ""},
                                   {"", ""},     {"9999", "9999"}, {"12345", "1234"}, {"+5", "5"}};
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromLatin1(row[0]) << QString::fromLatin1(row[1]);
    }
}

void WidgetsSettingsValues::pageFields()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    const ProgramFolder folder;
    const Opened opened({{QStringLiteral("FirstPage"), stored}, {QStringLiteral("LastPage"), stored}});
    QCOMPARE(opened.line("lineEdit_FirstPage")->text(), shown);
    QCOMPARE(opened.line("lineEdit_LastPage")->text(), shown);
    opened.apply();
    QCOMPARE(storedSetting(QStringLiteral("FirstPage")), shown);
}

void WidgetsSettingsValues::sizeFields_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("saved");
    const char *const rows[][3] = {{"0800", "0800", "800"}, {"0", "", "0"}, {"-3", "", "0"},
                                   {"abc", "", "0"},        {"", "", "0"},  {"9", "9", "9"}};
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromLatin1(row[0]) << QString::fromLatin1(row[1])
                              << QString::fromLatin1(row[2]);
    }
}

void WidgetsSettingsValues::sizeFields()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(QString, saved);
    const std::pair<const char *, const char *> names[] = {
        {"Width", "lineEdit_Width"},
        {"Height", "lineEdit_Height"},
        {"XRes", "lineEdit_ResX"},
        {"YRes", "lineEdit_ResY"}};
    const ProgramFolder folder;
    Values values;
    for (const auto &[key, field] : names) {
        values.insert(QLatin1String(key), stored);
    }
    const Opened opened(values);
    for (const auto &[key, field] : names) {
        QCOMPARE(opened.line(field)->text(), shown);
    }
    opened.apply();
    for (const auto &[key, field] : names) {
        QCOMPARE(storedSetting(QLatin1String(key)), saved);
    }
}

void WidgetsSettingsValues::sizeFieldsFollowTheirBoxes()
{
    const ProgramFolder folder;
    const Opened opened({});
    for (int time = 0; time < 2; ++time) {
        const bool on = time == 0;
        QTest::mouseClick(opened.check("checkBox_Resize"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        QCOMPARE(opened.check("checkBox_Resize")->isChecked(), on);
        QCOMPARE(opened.isEnabled("lineEdit_Width"), on);
        QCOMPARE(opened.isEnabled("lineEdit_Height"), on);
        QVERIFY(!opened.isEnabled("lineEdit_ResX"));
    }
    opened.check("checkBox_ResetResolution")->click();
    QVERIFY(opened.isEnabled("lineEdit_ResX") && opened.isEnabled("lineEdit_ResY"));
    QVERIFY(!opened.isEnabled("lineEdit_Width"));
    // Only clicks count, not a change by the program.
    opened.check("checkBox_Resize")->setChecked(true);
    QVERIFY(!opened.isEnabled("lineEdit_Width"));
}

void WidgetsSettingsValues::flagsCountOnlyAsOne_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("on");
    for (const char *stored : {"1", "0", "true", "01", " 1", "", "2"}) {
        QTest::newRow(stored) << QString::fromLatin1(stored) << (qstrcmp(stored, "1") == 0);
    }
}

void WidgetsSettingsValues::flagsCountOnlyAsOne()
{
    QFETCH(QString, stored);
    QFETCH(bool, on);
    const ProgramFolder folder;
    const Opened opened(::kind(
        8, {{QStringLiteral("ResizePage"), stored},
            {QStringLiteral("ResetResolution"), stored},
            {QStringLiteral("MultiPageTIFF"), stored},
            {QStringLiteral("AppSignalTempName"), stored}}));
    for (const char *name :
         {"checkBox_Resize", "checkBox_ResetResolution", "checkBox_MultiPageTIFF", "checkBox_SingleTempName"}) {
        QCOMPARE(opened.check(name)->isChecked(), on);
    }
    for (const char *name : {"lineEdit_Width", "lineEdit_Height", "lineEdit_ResX", "lineEdit_ResY"}) {
        QCOMPARE(opened.isEnabled(name), on);
    }
}

void WidgetsSettingsValues::passwords_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    const char *const rows[][2] = {
        {"   ", ""}, {"", ""}, {" a ", " a "}, {"pass;word,=\\", "pass;word,=\\"}, {"pässwörd ☃", "pässwörd ☃"},
        {"\"", "\""}};
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromUtf8(row[0]) << QString::fromUtf8(row[1]);
    }
}

void WidgetsSettingsValues::passwords()
{
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    const ProgramFolder folder;
    {
        const Opened opened({});
        opened.line("lineEdit_UserPassword")->setText(typed);
        opened.line("lineEdit_MasterPassword")->setText(typed);
        opened.apply();
    }
    QCOMPARE(storedSetting(QStringLiteral("UserPassword")), saved);
    QCOMPARE(storedSetting(QStringLiteral("MasterPassword")), saved);
    QVERIFY(storedSettings().contains(QStringLiteral("UserPassword")));
    const Opened opened({{QStringLiteral("MasterPassword"), typed}});
    QCOMPARE(opened.line("lineEdit_UserPassword")->text(), saved);
    QCOMPARE(opened.line("lineEdit_MasterPassword")->text(), saved);
}

QTEST_MAIN(WidgetsSettingsValues)
#include "widgets_settings_values.moc"
