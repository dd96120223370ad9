// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QString>

#include <memory>

class QDragEnterEvent;
class QDropEvent;
class QProcess;
class QResizeEvent;
class Ui_tovrane;

/// The main window: the list of files, the output kind, the output folder and the batch run. Its source files are split
/// by subject: construction and toolbar, format list and output folder, file list (app/), option string and batch run
/// (conversion/).
class tovrane : public QMainWindow
{
    Q_OBJECT

public:
    /// Constructs the window in its initial state. Every construction, even if the window is never shown, ends a batch
    /// run after its current file and selects the saved output kind, which stores the default extension of that kind.
    explicit tovrane(QWidget *parent = nullptr);
    ~tovrane() override;

    /// Convert between output extension index and extension, see extensionOfIndex() and indexOfExtension().
    [[nodiscard]] QString FormatNumbertoString(int index) const;
    [[nodiscard]] int FormatStringtoNumber(const QString &extension) const;

    /// Returns the extension, with its dot, from the current settings; empty if its index is invalid.
    [[nodiscard]] QString GetOutputFormat() const;

    /// Builds the engine option string from the current settings.
    QString GetSetParameter();

    /// Stops the engine, if one has been started, and returns the window to the idle state.
    void KillProcess();

    void InitAllChoice();
    void DymicUpdateStartButtonIconText(bool running);
    void DymicUpdateOutputLineText(bool running);

public Q_SLOTS:
    void On_Button_About();
    void On_Button_AddFile();
    void On_Button_RemoveFile();
    void On_Button_ClearFile();
    void On_Button_Setting();
    void On_Button_OutputFolder();
    bool On_Button_Start();
    void On_Button_Browse(); ///< not connected to any control
    void On_ListWidget_ItemClicked();
    bool ExeCmd(); ///< false only if there is no engine
    void ExeEnd();
    void ClearnInfo(); ///< never called
    void On_TableWidget_DoubleClicked();
    void resizeEvent(QResizeEvent *event) override; ///< also a slot, on purpose
    void openFile();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    QString m_strParameter;    ///< the most recent engine option string
    QString m_strOutputFormat; ///< the most recent output extension
    std::unique_ptr<Ui_tovrane> ui;
    QPointer<QProcess> m_pProcess; ///< the engine process for the most recent file; null after it has been released
    qint32 m_nCurrentRow = 0;      ///< the row being converted

private:
    void placeOnScreen();
    void connectWidgets();
    void addTableActions();
    void fillFormatList();
    void showSelectedRow(int selected);
    void restoreOutputFolder();
    void warnAboutOutputFolder();
    void startEngine(const QString &command);
    [[nodiscard]] QString inputPathOfRow(int row) const;
};
