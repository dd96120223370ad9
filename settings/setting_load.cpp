// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog: from the store to the controls.
#include "app/tovrane.h"
#include "settings/dialog_values.h"
#include "settings/engine_settings.h"
#include "settings/setting.h"
#include "settings/store.h"
#include "ui_setting.h"

#include <algorithm>

namespace {

/// Loads a pair of fields and the check box that enables them. The slot of the check box only reacts to clicks, so the
/// fields are enabled here.
void loadPair(
    QCheckBox *box, QLineEdit *first, QLineEdit *second, const QString &flag, const QString &firstValue,
    const QString &secondValue)
{
    const bool on = store::isOn(flag);
    box->setChecked(on);
    first->setEnabled(on);
    second->setEnabled(on);
    first->setText(dialogValues::sizeField(firstValue));
    second->setText(dialogValues::sizeField(secondValue));
}

} // namespace

bool Setting::LoadParaInfo()
{
    EngineSettings stored;
    QString formatIndex;
    { // read all keys before the window below resets the stored extension index
        const QSettings settings = store::open();
        stored = readEngineSettings(settings);
        formatIndex = store::text(settings, store::key::converterFormat, QLatin1String(""));
    }
    // Constructs a main window just for this conversion, on purpose: this also ends a batch run.
    const tovrane window;
    const QString extension = window.FormatNumbertoString(formatIndex.toInt());
    if (extension.isEmpty()) {
        return false;
    }
    const int formatRow = ui->comboBox_Format->findText(extension, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ui->comboBox_Format->setCurrentIndex(std::max(formatRow, 0)); // refills the colour depths
    ui->comboBox_WordMode->setCurrentIndex(dialogValues::wordModeRow(stored.wordMode, ui->comboBox_WordMode->count()));
    ui->lineEdit_TempName->setText(stored.tempName);
    ui->checkBox_SingleTempName->setChecked(store::isOn(stored.singleTempName));
    ui->lineEdit_FirstPage->setText(dialogValues::pageField(stored.firstPage));
    ui->lineEdit_LastPage->setText(dialogValues::pageField(stored.lastPage));
    loadPair(
        ui->checkBox_Resize, ui->lineEdit_Width, ui->lineEdit_Height, stored.resizePage, stored.width, stored.height);
    loadPair(
        ui->checkBox_ResetResolution, ui->lineEdit_ResX, ui->lineEdit_ResY, stored.resetResolution, stored.xRes,
        stored.yRes);
    ui->comboBox_BitCount->setCurrentIndex(
        dialogValues::colorDepthRow(stored.colorDepth, ui->comboBox_BitCount->count()));
    ui->comboBox_Compression->setCurrentIndex(
        dialogValues::compressionRow(stored.compression, ui->comboBox_Compression->count()));
    ui->checkBox_MultiPageTIFF->setChecked(store::isOn(stored.multiPageTiff));
    DynimicUpdateTIFFChoice(stored.outputKindRow == QLatin1String("8"));
    ui->lineEdit_UserPassword->setText(dialogValues::passwordText(stored.userPassword));
    ui->lineEdit_MasterPassword->setText(dialogValues::passwordText(stored.masterPassword));
    return true;
}
