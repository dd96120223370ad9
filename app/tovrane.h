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

/// The main window: the list of files, the kind of output, the output folder and the batch run over the list.
/// Its sources are split by subject: construction and toolbar, format list and output folder, file list (app/), option
/// string and batch run (conversion/).
class tovrane : public QMainWindow
{
    Q_OBJECT

public:
    /// Builds the window in its initial state. Every construction, shown or not, ends a batch run after its current
    /// file and re-selects the saved kind of output, which stores that kind's default extension.
    explicit tovrane(QWidget *parent = nullptr);
    ~tovrane() override;

    /// Output extension index to extension and back, see extensionOfIndex() and indexOfExtension().
    [[nodiscard]] QString FormatNumbertoString(int index) const;
    [[nodiscard]] int FormatStringtoNumber(const QString &extension) const;

    /// The extension, with its dot, that the settings name now; empty when their number names none.
    [[nodiscard]] QString GetOutputFormat() const;

    /// Builds the engine option string from the settings as they are now.
    QString GetSetParameter();

    /// Stops the engine, if one was ever started, and puts the window back into the idle state.
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
    void On_Button_Browse(); ///< no control is connected to it
    void On_ListWidget_ItemClicked();
    bool ExeCmd(); ///< false only when there is no engine to start
    void ExeEnd();
    void ClearnInfo(); ///< nothing calls it
    void On_TableWidget_DoubleClicked();
    void resizeEvent(QResizeEvent *event) override; ///< a slot as well as the handler, on purpose
    void openFile();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    QString m_strParameter;    ///< the engine option string last built
    QString m_strOutputFormat; ///< the output extension last read
    std::unique_ptr<Ui_tovrane> ui;
    QPointer<QProcess> m_pProcess; ///< the engine's process for the newest file; null once it has been released
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
