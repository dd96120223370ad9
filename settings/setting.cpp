// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/setting.h"

#include "app/output_kinds.h"
#include "app/window_background.h"
#include "settings/dialog_values.h"
#include "settings/store.h"
#include "ui_setting.h"

namespace {

void refill(QComboBox *box, const QStringList &texts, int row)
{
    box->clear();
    box->addItems(texts);
    box->setCurrentIndex(row);
}

QStringList untranslated(std::span<const QLatin1String> texts)
{
    return {texts.begin(), texts.end()};
}

QStringList translated(std::span<const QLatin1String> texts)
{
    QStringList result;
    for (const QLatin1String text : texts) {
        result.append(Setting::tr(text.data()));
    }
    return result;
}

QString storedKindRow()
{
    return store::text(store::open(), store::key::outputKindRow, QLatin1String("0"));
}

} // namespace

Setting::Setting(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui_Setting>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::WindowTitleHint);
    setWindowTitle(tr("Setting"));
    setFixedSize(470, 422);
    paintBackground(this);
    Init();
    connectWidgets(); // after Init(), so that filling the format box does not change the colour depth
    LoadParaInfo();
    disableUselessControls();
}

Setting::~Setting() = default;

void Setting::connectWidgets()
{
    connect(ui->checkBox_Resize, &QCheckBox::clicked, this, &Setting::On_CheckBox_ResizePage_Checked_Change);
    connect(
        ui->checkBox_ResetResolution, &QCheckBox::clicked, this, &Setting::On_CheckBox_ResetResolution_Checked_Change);
    connect(ui->pushButton_Apply, &QPushButton::clicked, this, &Setting::On_Button_Apply_Click);
    connect(ui->pushButton_Cancle, &QPushButton::clicked, this, &Setting::On_Button_Cancle_Click);
    connect(ui->pushButton_Reset, &QPushButton::clicked, this, &Setting::On_Button_Reset_Click);
    connect(ui->comboBox_Format, &QComboBox::currentIndexChanged, this, &Setting::setColorBit);
}

/// Does not change the passwords and the state of the TIFF controls, on purpose: Reset keeps them.
void Setting::Init()
{
    ui->textEdit_Example->setContextMenuPolicy(Qt::NoContextMenu);
    ui->checkBox_Resize->setChecked(false);
    for (QLineEdit *field : {ui->lineEdit_Width, ui->lineEdit_Height}) {
        field->clear();
        field->setEnabled(false);
    }
    ui->checkBox_ResetResolution->setChecked(false);
    for (QLineEdit *field : {ui->lineEdit_ResX, ui->lineEdit_ResY}) {
        field->clear();
        field->setEnabled(false);
    }
    ui->checkBox_MultiPageTIFF->setChecked(false);
    refill(
        ui->comboBox_BitCount, translated(dialogValues::colorDepthTexts(QString())),
        dialogValues::fullColorRow(QString()));
    refill(ui->comboBox_Compression, translated(dialogValues::compressionTexts()), 0);
    ui->lineEdit_TempName->clear();
    ui->checkBox_SingleTempName->setChecked(false);
    ui->lineEdit_FirstPage->clear();
    ui->lineEdit_LastPage->clear();
    refill(ui->comboBox_WordMode, translated(dialogValues::wordModeTexts()), 0);
    applyOutputKind();
}

void Setting::applyOutputKind()
{
    const OutputKind *kind = outputKindOfStoredRow(storedKindRow());
    ui->tabWidget->setCurrentIndex(0);
    ui->comboBox_Format->clear();
    if (kind == nullptr) {
        return;
    }
    refill(ui->comboBox_Format, untranslated(kind->offeredExtensions), 0);
    ui->label_WordMode->setVisible(kind->hasWordMode);
    ui->comboBox_WordMode->setVisible(kind->hasWordMode);
    if (!kind->hasImageTab) {
        ui->tabWidget->setTabEnabled(1, false);
    }
}

/// Called when the dialog opens, but not by Reset.
void Setting::disableUselessControls()
{
    const OutputKind *kind = outputKindOfStoredRow(storedKindRow());
    const DisabledControls disabled = kind == nullptr ? DisabledControls::None : kind->disabled;
    if (disabled == DisabledControls::PageSizeResolutionAndColor) {
        ui->checkBox_ResetResolution->setEnabled(false);
        ui->lineEdit_ResX->setEnabled(false);
        ui->lineEdit_ResY->setEnabled(false);
        ui->comboBox_BitCount->setEnabled(false);
    }
    if (disabled != DisabledControls::None) {
        ui->lineEdit_Height->setEnabled(false);
        ui->lineEdit_Width->setEnabled(false);
        ui->checkBox_Resize->setEnabled(false);
    }
}

void Setting::On_Button_Apply_Click()
{
    SaveParaInfo();
    accept();
}

void Setting::On_Button_Cancle_Click()
{
    reject();
}

void Setting::On_Button_Reset_Click()
{
    Init();
    // No kind has this row, so that the TIFF controls are always disabled, on purpose.
    DynimicUpdateTIFFChoice(storedKindRow() == QLatin1String("9"));
}

void Setting::On_CheckBox_ResizePage_Checked_Change()
{
    const bool on = ui->checkBox_Resize->isChecked();
    ui->lineEdit_Width->setEnabled(on);
    ui->lineEdit_Height->setEnabled(on);
}

void Setting::On_CheckBox_ResetResolution_Checked_Change()
{
    const bool on = ui->checkBox_ResetResolution->isChecked();
    ui->lineEdit_ResX->setEnabled(on);
    ui->lineEdit_ResY->setEnabled(on);
}

void Setting::setColorBit()
{
    const QString extension = ui->comboBox_Format->currentText();
    refill(
        ui->comboBox_BitCount, translated(dialogValues::colorDepthTexts(extension)),
        dialogValues::fullColorRow(extension));
}

void Setting::DynimicUpdateTIFFChoice(bool on)
{
    ui->comboBox_Compression->setEnabled(on);
    ui->checkBox_MultiPageTIFF->setEnabled(on);
}
