// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/run_state.h"
#include "app/tovrane.h"
#include "program_folder.h"
#include "settings_file.h"
#include "widget_helpers.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMetaObject>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>

constexpr int longWait = 60000; ///< ms; a bound for a loaded machine, never reached in a passing test

/// The window, with its state accessible to tests.
class OpenWindow : public tovrane
{
public:
    using tovrane::m_nCurrentRow;
    using tovrane::m_pProcess;
    using tovrane::m_strOutputFormat;
    using tovrane::m_strParameter;
};

/// A main window in a separate program folder. Widgets are found by their object names rather than through members of
/// the class.
class WindowFixture
{
public:
    explicit WindowFixture(ProgramFolder::Engine engine = ProgramFolder::WithEngine);
    ~WindowFixture();

    /// Creates and shows the window, which reads the existing settings file.
    void open();
    /// Closes the window and waits until it is destroyed.
    void close();

    template <class Widget>
    Widget *child(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }
    QTableWidget *table() const { return child<QTableWidget>("tableWidget_Files"); }
    QListWidget *formats() const { return child<QListWidget>("listWidget_Format"); }
    QLineEdit *outputLine() const { return child<QLineEdit>("lineEdit_OutputPath"); }
    QProgressBar *bar() const { return child<QProgressBar>("progressBar"); }
    QToolButton *button(const char *name) const { return child<QToolButton>(name); }
    QToolButton *startButton() const { return button("toolButton_Start"); }

    /// Calls a slot of the window by its name, public or not.
    void call(const char *slot) const;
    /// Presses the Start/Stop button.
    void press() const;
    void selectFormat(int row) const { formats()->setCurrentRow(row); }
    /// Adds the files by a drop, which works in every state.
    void drop(const QStringList &paths) const;
    /// Creates PDF files (in/1.pdf ...) and drops them; returns their paths.
    QStringList dropFiles(int count) const;
    /// Opens the window and starts a run over a number of files; returns when the first engine is running. The engines
    /// wait until they are released unless the plan says otherwise.
    QStringList beginRun(int files, const QString &plan = QStringLiteral("wait write"));
    /// Presses Start and waits until the window is idle again.
    void runToTheEnd() const;
    void waitForIdle() const;
    void waitForRuns(int count) const;  ///< engines started
    void waitForEnded(int count) const; ///< engines that have ended by themselves
    void waitForCounter(int row) const; ///< ends that the window has taken notice of since the run began
    void waitForDeath(qint64 engine) const;
    /// Opens the settings dialog from the toolbar and closes it with "Cancel" or "Apply".
    void visitSettings(const char *closingButton = "pushButton_Cancle") const;

    QStringList pathsInTable() const;
    QString sizeText(int row) const; ///< a null string without an item

    /// The state of the run as shown by the window.
    bool showsIdle() const;
    bool showsRunning() const;

    ProgramFolder folder;
    UrlRecorder urls;
    QString outputFolder; ///< exists; what open() puts into the output line
    QPointer<OpenWindow> window;
};
