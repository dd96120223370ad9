// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <cstddef>
#include <cstdint>

// What the fuzz targets share. Each target defines LLVMFuzzerTestOneInput(), which is called either by the fuzzing
// engine or by replay_main.cpp.

namespace fuzz {

/// Ends the program, naming the broken rule, when `holds` is false: a finding.
void require(bool holds, const char *rule);

/// Makes a new empty folder, one of its own per process and removed at the end, the current directory.
void workInTemporaryFolder();

/// Makes the bytes the settings file of the current directory. The folder changes with each call, since the toolkit
/// believes a file of the same size, changed within a tick of the clock, to be the one it has read before.
void writeSettingsFile(const QByteArray &bytes);

/// A widget application that draws offscreen, made at the first call.
void startApplication();

/// The input cut at its NUL bytes, which no path and no argument can hold, into exactly `count` fields: missing ones
/// are empty, the last one keeps the rest.
QByteArrayList fields(const std::uint8_t *data, std::size_t size, int count);

/// All of the input as bytes.
QByteArray bytes(const std::uint8_t *data, std::size_t size);

} // namespace fuzz
