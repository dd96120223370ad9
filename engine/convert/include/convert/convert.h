// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "pdf/document.h"
#include "platform/time_allowance.h"

#include <string_view>

namespace quorra {

/// One conversion: the pages firstPage to lastPage (from 1, both included, both in the document) of an opened document.
struct Job
{
    const Options &options;
    Document &document;
    int firstPage;
    int lastPage;

    int pageCount() const { return lastPage - firstPage + 1; }
};

// Each writes its files and throws Failure.
void convertToText(const Job &job);
void convertToHtml(const Job &job);
void convertToXml(const Job &job);
void convertToImages(const Job &job);
void convertToPostScript(const Job &job);
void convertToWord(const Job &job);
void convertToSlides(const Job &job);
void convertToSheets(const Job &job);

using Converter = void (*)(const Job &);

/// The function that writes files with this extension (lower case, with its dot); null for an unknown one.
Converter converterFor(std::string_view extension);

/// Pixels that the options' resolution asks for to one at the default resolution.
double finerThanUsual(const Options &options);

/// The processor time that the job may take when it asks for so many pixels to one at the default resolution.
TimeAllowance timeAllowed(const Job &job, double finer);

/// Holds this process to that time from now on.
void limitTime(const Job &job, double finer);

/// Opens the input, works out the page range and converts. Throws Failure.
void convert(const Options &options);

} // namespace quorra
