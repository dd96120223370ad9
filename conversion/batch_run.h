// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// State of the batch run that belongs to the process, not to one window.

extern bool g_bProcess;       ///< true while a run is active; each construction of a main window clears it
extern bool g_bMainWindowRun; ///< cleared by each main window, read by nobody; kept

/// The file expected from the current row, and the first of its page-numbered files. Nobody reads them; kept.
extern QString strOutputFileExist1;
extern QString strOutputFileExist2;
