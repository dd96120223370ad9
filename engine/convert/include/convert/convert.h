// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "pdf/pdf_file.h"
#include "platform/time_allowance.h"

#include <string>
#include <string_view>
#include <vector>

namespace quorra {

class TempFolder;

/// A conversion of the pages `firstPage` to `lastPage` (numbered from 1, inclusive, both in the file) of an open
/// file.
struct Job
{
    const Options &options;
    PdfFile &file;
    int firstPage;
    int lastPage;
    const TempFolder *folder = nullptr; ///< for the source of LibreOffice and what it makes; null for other formats

    int pageCount() const { return lastPage - firstPage + 1; }
};

/// Each of these functions writes its output files. Throws Failure.
void convertToText(const Job &job);
void convertToHtml(const Job &job);
void convertToXml(const Job &job);
void convertToImages(const Job &job);
void convertToPostScript(const Job &job);
void convertToWord(const Job &job);
void convertToSlides(const Job &job);
void convertToSheets(const Job &job);

using Converter = void (*)(const Job &);

/// Returns the function that writes files with this extension (lower case, with its dot); null if it is unknown.
Converter converterFor(std::string_view extension);

/// Returns the extensions of all formats, in lower case and with their dots.
std::vector<std::string_view> outputExtensions();

/// Returns the text of --version, whole lines: the versions of the engine and of the PDF library.
std::string versionText();

/// Returns the number of pixels at the requested resolution, relative to the default resolution.
double finerThanUsual(const Options &options);

/// Returns the processor time limits of the job; `finer` is the number of pixels relative to the default resolution,
/// `scans` the number of pages whose text has to be recognised.
TimeAllowance timeAllowed(const Job &job, double finer, int scans = 0);

/// Applies these limits to this process, and returns them.
TimeAllowance limitTime(const Job &job, double finer, int scans = 0);

/// Opens the input, determines the page range and converts. Throws Failure. Before it opens the input, it restricts the
/// process to what the conversion needs (see platform/guards.h); the process cannot do another one with other files.
void convert(const Options &options);

} // namespace quorra
