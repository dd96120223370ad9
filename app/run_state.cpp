// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/run_state.h"

bool g_bProcess = false;
bool g_bMainWindowRun = false;
QString strOutputFileExist1; // clazy:exclude=non-pod-global-static
QString strOutputFileExist2; // clazy:exclude=non-pod-global-static
