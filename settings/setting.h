// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class Ui_Setting;

/// The modal dialog in which the conversion options are edited. It learns the kind of output from the settings store,
/// fills its controls from there and writes everything back on "Apply"; nothing else is kept between two openings.
class Setting : public QDialog
{
    Q_OBJECT

public:
    explicit Setting(QWidget *parent = nullptr);
    ~Setting() override;

    /// Puts every control but the passwords into its default state for the current kind of output.
    void Init();

    /// Copies the store into the controls. False, with the controls left as Init() set them, when the stored extension
    /// index names no extension.
    bool LoadParaInfo();

    /// Copies the controls into the store.
    void SaveParaInfo();

    /// Enables or disables the two controls that only TIFF output uses.
    void DynimicUpdateTIFFChoice(bool on);

public Q_SLOTS:
    void On_Button_Apply_Click();
    void On_Button_Cancle_Click();
    void On_Button_Reset_Click();
    void On_CheckBox_ResizePage_Checked_Change();
    void On_CheckBox_ResetResolution_Checked_Change();
    void setColorBit();

protected:
    std::unique_ptr<Ui_Setting> ui;

private:
    void connectWidgets();
    void applyOutputKind();
    void disableUselessControls();
};
