// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <cstddef>
#include <cstdint>

// Shared by the fuzz targets. Each target defines LLVMFuzzerTestOneInput(), which is called by libFuzzer or
// replay_main.cpp.

namespace fuzz {

/// If `holds` is false, reports the violated rule as a finding and aborts.
void require(bool holds, const char *rule);

/// Creates an empty folder for this process, removed at exit, and makes it the current directory.
void workInTemporaryFolder();

/// Writes the bytes to the settings file of the current directory. Each call uses a new folder, because Qt does not
/// detect that a file has changed if its size and time are the same.
void writeSettingsFile(const QByteArray &bytes);

/// Creates an application with offscreen rendering at the first call.
void startApplication();

/// Splits the input at NUL bytes, which paths and arguments cannot contain, into exactly `count` fields: missing ones
/// are empty, the last one contains the rest.
QByteArrayList fields(const std::uint8_t *data, std::size_t size, int count);

/// The whole input.
QByteArray bytes(const std::uint8_t *data, std::size_t size);

} // namespace fuzz
