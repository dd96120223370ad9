// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QProcess;

/// Creates a process object for one run of the engine, without starting it. Both output channels are redirected to the
/// null device, so that output does not accumulate in memory. The object has no parent; it deletes itself after the
/// process has finished or failed to start, and is never destroyed while the process is running, which would kill it.
[[nodiscard]] QProcess *makeEngineProcess();
