// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// State of the batch run that belongs to the process rather than to a window. It is in app/, although conversion/
// controls the run, so that app/ does not depend on conversion/.

extern bool g_bProcess;       ///< true while a run is active; each construction of a main window clears it
extern bool g_bMainWindowRun; ///< cleared by each main window, never read; kept on purpose

/// The file expected from the current row, and the first of its page-numbered files. Never read; kept on purpose.
extern QString strOutputFileExist1;
extern QString strOutputFileExist2;
