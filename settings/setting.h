// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class Ui_Setting;

/// The modal dialog for the conversion options. It reads the output kind and the contents of its controls from the
/// settings store and writes everything back on "Apply"; it has no other persistent state.
class Setting : public QDialog
{
    Q_OBJECT

public:
    explicit Setting(QWidget *parent = nullptr);
    ~Setting() override;

    /// Sets all controls except the passwords to the defaults for the current output kind.
    void Init();

    /// Loads the controls from the store. Returns false and keeps the state set by Init() if the stored extension index
    /// is invalid.
    bool LoadParaInfo();

    /// Saves the controls to the store.
    void SaveParaInfo();

    /// Enables or disables the two controls that only apply to TIFF output.
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
