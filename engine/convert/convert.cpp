// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/convert.h"

#include "base/failure.h"
#include "cli/page_range.h"
#include "guard_rules.h"
#include "libreoffice/libreoffice.h"
#include "ocr/recogniser.h"
#include "picture_rules.h"
#include "platform/limits.h"
#include "platform/output_file.h"
#include "platform/page_time.h"
#include "platform/part_file.h"
#include "platform/temp_folder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <optional>

namespace quorra {

namespace {

struct Row
{
    std::string_view extension;
    Converter converter;
};

constexpr std::array<Row, 26> rows = {{
    {".txt", convertToText},       {".html", convertToHtml},   {".htm", convertToHtml},    {".xml", convertToXml},
    {".doc", convertToWord},       {".docx", convertToWord},   {".rtf", convertToWord},    {".ppt", convertToSlides},
    {".pptx", convertToSlides},    {".xls", convertToSheets},  {".xlsx", convertToSheets}, {".ps", convertToPostScript},
    {".eps", convertToPostScript}, {".tiff", convertToImages}, {".tif", convertToImages},  {".jpeg", convertToImages},
    {".jpe", convertToImages},     {".jpg", convertToImages},  {".tga", convertToImages},  {".png", convertToImages},
    {".pnm", convertToImages},     {".gif", convertToImages},  {".bmp", convertToImages},  {".ppm", convertToImages},
    {".pbm", convertToImages},     {".pgm", convertToImages},
}};

bool exportsThroughOffice(Converter converter)
{
    constexpr std::array<Converter, 3> converters = {convertToWord, convertToSlides, convertToSheets};
    return std::find(converters.begin(), converters.end(), converter) != converters.end();
}

/// Throws Failure for a language that the user asked for and that cannot be recognised.
void checkLanguages(const std::vector<std::string> &languages)
{
    const std::vector<std::string> installed =
        languages.empty() ? std::vector<std::string>() : ocr::installedLanguages();
    for (const std::string &language : languages) {
        if (std::find(installed.begin(), installed.end(), language) == installed.end()) {
            std::string line = "no recognition data for language " + language + "; installed are";
            for (const std::string &each : installed) {
                line += ' ' + each;
            }
            throw Failure(ExitStatus::Usage, installed.empty() ? line + " none" : line);
        }
    }
}

} // namespace

Converter converterFor(std::string_view extension)
{
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Row &each) { return each.extension == extension; });
    return row == rows.end() ? nullptr : row->converter;
}

std::vector<std::string_view> outputExtensions()
{
    std::vector<std::string_view> extensions;
    std::transform(
        rows.begin(), rows.end(), std::back_inserter(extensions), [](const Row &row) { return row.extension; });
    return extensions;
}

std::string versionText()
{
    return "Qtminw " QUORRA_VERSION "\npoppler " + pdfLibraryVersion() + '\n';
}

TimeAllowance timeAllowed(const Job &job, double finer, int scans)
{
    const double share = static_cast<double>(job.pageCount()) / job.file.pageCount();
    const auto bytes = static_cast<std::uint64_t>(share * static_cast<double>(job.file.fileBytes()));
    return timeAllowance({job.pageCount(), bytes, finer, scans}, timeFactor(std::getenv("QUORRA_TIME_FACTOR")));
}

TimeAllowance limitTime(const Job &job, double finer, int scans)
{
    TimeAllowance allowed = timeAllowed(job, finer, scans);
    allowPageTime(allowed.page);
    limits::allowProcessorTime(allowed.run);
    return allowed;
}

double finerThanUsual(const Options &options)
{
    const double across = options.horizontalResolution(pictureResolution);
    const double down = options.verticalResolution(pictureResolution);
    return across * down / (pictureResolution * pictureResolution);
}

void convert(const Options &options)
{
    const std::string extension = outputExtension(options.outputPath);
    const Converter converter = converterFor(extension);
    if (!converter) {
        throw Failure(
            ExitStatus::Usage, extension.empty() ? std::string("the output name has no extension")
                                                 : "unknown output extension " + extension);
    }
    checkLanguages(options.recognitionLanguages);
    std::optional<TempFolder> folder;
    if (exportsThroughOffice(converter)) {
        office::sweepSockets();
        folder.emplace();
    }
    guards::lockIn(
        guardRules(options, folder ? folder->path() : std::string()),
        folder ? guards::Programs::ByFileRules : guards::Programs::None);
    PdfFile file(options.inputPath, options.userPassword, options.ownerPassword);
    const PageRange range = pageRange(options, file.pageCount());
    // Remove part files left by killed runs.
    sweepPartFiles(folderOf(options.outputPath));
    const Job job{options, file, range.first, range.last, folder ? &*folder : nullptr};
    limitTime(job, finerThanUsual(options));
    converter(job);
    syncFolderOf(options.outputPath);
}

} // namespace quorra
