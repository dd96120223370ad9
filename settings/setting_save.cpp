// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog: from the controls to the store.
#include "app/tovrane.h"
#include "settings/dialog_values.h"
#include "settings/setting.h"
#include "settings/store.h"
#include "ui_setting.h"

#include <array>
#include <utility>

/// Disabled and hidden controls are saved like all others.
void Setting::SaveParaInfo()
{
    store::Writer settings;
    const QString extension = ui->comboBox_Format->currentText();
    // Constructed before anything is written, because this resets the stored extension index, which is then
    // overwritten.
    const tovrane window;
    const auto flag = [](const QCheckBox *box) { return store::flagText(box->isChecked()); };
    const auto row = [](const QComboBox *box) { return QString::number(box->currentIndex()); };
    const auto page = [](const QLineEdit *field) { return dialogValues::storedPage(field->text()); };
    const auto size = [](const QLineEdit *field) { return dialogValues::storedSize(field->text()); };
    const auto password = [](const QLineEdit *field) { return dialogValues::passwordText(field->text()); };
    const std::array values{
        std::pair{store::key::converterFormat, QString::number(window.FormatStringtoNumber(extension))},
        std::pair{store::key::wordMode, row(ui->comboBox_WordMode)},
        std::pair{store::key::tempName, ui->lineEdit_TempName->text()},
        std::pair{store::key::singleTempName, flag(ui->checkBox_SingleTempName)},
        std::pair{store::key::firstPage, page(ui->lineEdit_FirstPage)},
        std::pair{store::key::lastPage, page(ui->lineEdit_LastPage)},
        std::pair{store::key::resizePage, flag(ui->checkBox_Resize)},
        std::pair{store::key::width, size(ui->lineEdit_Width)},
        std::pair{store::key::height, size(ui->lineEdit_Height)},
        std::pair{store::key::resetResolution, flag(ui->checkBox_ResetResolution)},
        std::pair{store::key::xRes, size(ui->lineEdit_ResX)},
        std::pair{store::key::yRes, size(ui->lineEdit_ResY)},
        std::pair{
            store::key::colorDepth, dialogValues::storedColorDepth(ui->comboBox_BitCount->currentIndex(), extension)},
        std::pair{store::key::compression, row(ui->comboBox_Compression)},
        std::pair{store::key::multiPageTiff, flag(ui->checkBox_MultiPageTIFF)},
        std::pair{store::key::userPassword, password(ui->lineEdit_UserPassword)},
        std::pair{store::key::masterPassword, password(ui->lineEdit_MasterPassword)},
    };
    for (const auto &[key, value] : values) {
        settings.set(key, value);
    }
}
