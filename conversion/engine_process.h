// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QProcess;

/// A process object for one run of the engine, not yet started. Its output goes to the null device on two separate
/// channels, so that it cannot pile up in memory. The object has no parent; it releases itself after the process has
/// finished or has failed to start, and is never destroyed while the process runs: that would kill it.
[[nodiscard]] QProcess *makeEngineProcess();
