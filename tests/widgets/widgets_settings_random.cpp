// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog with random stored values, compared with a simple model.
#include "dialog_model.h"
#include "program_folder.h"
#include "random_source.h"
#include "settings/setting.h"
#include "settings_file.h"
#include "widget_helpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

DialogModel::Values randomValues(RandomSource &random)
{
    const QStringList flags{QStringLiteral("1"),    QStringLiteral("1"), QStringLiteral("0"),
                            QStringLiteral("true"), QStringLiteral(""),  QStringLiteral("11")};
    const QStringList oddNumbers{QStringLiteral(""),    QStringLiteral("abc"),  QStringLiteral("007"),
                                 QStringLiteral("+3"),  QStringLiteral(" 5"),   QStringLiteral("0x10"),
                                 QStringLiteral("1e3"), QStringLiteral("1.5"),  QStringLiteral("12345"),
                                 QStringLiteral("-0"),  QStringLiteral("0800"), QStringLiteral("2147483647"),
                                 QStringLiteral("٣"),   QStringLiteral("5 5")};
    const auto number = [&](int from, int below) {
        return random.oneIn(4) ? random.pick(oddNumbers) : QString::number(from + random.below(below - from));
    };
    DialogModel::Values values;
    const auto put = [&](const char *key, const QString &text) {
        if (!random.oneIn(6)) {
            values.insert(QLatin1String(key), text);
        }
    };
    put("ListWidgetCurrtentItemRow", random.oneIn(2) ? QStringLiteral("8") : number(-1, 10));
    put("ConverterFormat", number(-1, 29));
    put("WordMode", number(-2, 7));
    for (const char *key : {"FirstPage", "LastPage", "Width", "Height", "XRes", "YRes"}) {
        put(key, number(-2, 10000));
    }
    for (const char *key : {"ResizePage", "ResetResolution", "MultiPageTIFF", "AppSignalTempName"}) {
        put(key, random.pick(flags));
    }
    put("ColorDepth", number(-2, 5));
    put("Compression", number(-2, 11));
    for (const char *key : {"TempName", "UserPassword", "MasterPassword", "OutputFolder", "InputFolder"}) {
        put(key, random.oneIn(5) ? QStringLiteral("   ") : random.text(40));
    }
    return values;
}

/// What the controls show and allow, as one comparable list.
QStringList shown(const Setting &dialog)
{
    const auto combo = [&](const char *name) {
        const auto *box = dialog.findChild<QComboBox *>(QLatin1String(name));
        QStringList texts{QString::number(box->currentIndex())};
        for (int i = 0; i < box->count(); ++i) {
            texts << box->itemText(i);
        }
        return texts.join(QLatin1Char('|'));
    };
    const auto line = [&](const char *name) { return dialog.findChild<QLineEdit *>(QLatin1String(name))->text(); };
    const auto check = [&](const char *name) {
        return QString::number(dialog.findChild<QCheckBox *>(QLatin1String(name))->isChecked());
    };
    const auto enabled = [&](const char *name) {
        const auto *widget = dialog.findChild<QWidget *>(QLatin1String(name));
        return QString::number(widget->isEnabledTo(widget->parentWidget()));
    };
    return {
        combo("comboBox_Format"),
        combo("comboBox_BitCount"),
        QString::number(dialog.findChild<QComboBox *>(QStringLiteral("comboBox_WordMode"))->currentIndex()),
        QString::number(dialog.findChild<QComboBox *>(QStringLiteral("comboBox_Compression"))->currentIndex()),
        line("lineEdit_FirstPage"),
        line("lineEdit_LastPage"),
        line("lineEdit_Width"),
        line("lineEdit_Height"),
        line("lineEdit_ResX"),
        line("lineEdit_ResY"),
        line("lineEdit_TempName"),
        line("lineEdit_UserPassword"),
        line("lineEdit_MasterPassword"),
        check("checkBox_Resize"),
        check("checkBox_ResetResolution"),
        check("checkBox_MultiPageTIFF"),
        check("checkBox_SingleTempName"),
        enabled("lineEdit_Width"),
        enabled("lineEdit_Height"),
        enabled("lineEdit_ResX"),
        enabled("lineEdit_ResY"),
        enabled("comboBox_BitCount"),
        enabled("checkBox_Resize"),
        enabled("checkBox_ResetResolution"),
        enabled("comboBox_Compression"),
        enabled("checkBox_MultiPageTIFF")};
}

QStringList shown(const DialogModel &model)
{
    const auto combo = [](int current, const QStringList &items) {
        return (QStringList{QString::number(current)} + items).join(QLatin1Char('|'));
    };
    const auto flag = [](bool on) { return QString::number(on); };
    return {
        combo(model.format, model.formats),
        combo(model.depth, model.depths),
        QString::number(model.wordMode),
        QString::number(model.compression),
        model.firstPage,
        model.lastPage,
        model.width,
        model.height,
        model.xRes,
        model.yRes,
        model.tempName,
        model.userPassword,
        model.masterPassword,
        flag(model.resize),
        flag(model.resolution),
        flag(model.multiPage),
        flag(model.singleName),
        flag(model.sizeEnabled),
        flag(model.sizeEnabled),
        flag(model.resolutionEnabled),
        flag(model.resolutionEnabled),
        flag(model.depthEnabled),
        flag(model.resizeBoxEnabled),
        flag(model.resolutionBoxEnabled),
        flag(model.tiffEnabled),
        flag(model.tiffEnabled)};
}

} // namespace

class WidgetsSettingsRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }
    void loadsAndSavesAsTheModel();

private:
    RandomSource m_random;
};

void WidgetsSettingsRandom::loadsAndSavesAsTheModel()
{
    const ProgramFolder folder;
    const int rounds = randomRounds(250);
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(folder.filePath(QStringLiteral("settingquorra.ini")));
        const DialogModel::Values values = randomValues(m_random);
        storeSettings(values);
        DialogModel model(values);
        Setting dialog;
        QCOMPARE(shown(dialog), shown(model));
        if (m_random.oneIn(4)) {
            dialog.findChild<QPushButton *>(QStringLiteral("pushButton_Reset"))->click();
            model.reset();
            QCOMPARE(shown(dialog), shown(model));
        }
        if (!model.formats.isEmpty() && m_random.oneIn(3)) {
            const int chosen = m_random.below(int(model.formats.size()));
            dialog.findChild<QComboBox *>(QStringLiteral("comboBox_Format"))->setCurrentIndex(chosen);
            model.chooseFormat(chosen);
            QCOMPARE(shown(dialog), shown(model));
        }
        dialog.findChild<QPushButton *>(QStringLiteral("pushButton_Apply"))->click();
        QCOMPARE(storedSettings(), model.stored());
    }
}

QTEST_MAIN(WidgetsSettingsRandom)
#include "widgets_settings_random.moc"
