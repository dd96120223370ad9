// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/convert.h"

#include "engine/cli/failure.h"
#include "engine/cli/page_range.h"
#include "engine/platform/output_file.h"
#include "engine/platform/part_file.h"

#include <algorithm>
#include <array>

namespace quorra {

namespace {

struct Row
{
    std::string_view extension;
    Converter converter;
};

constexpr std::array<Row, 26> Rows = {{
    {".txt", convertToText},       {".html", convertToHtml},   {".htm", convertToHtml},    {".xml", convertToXml},
    {".doc", convertToWord},       {".docx", convertToWord},   {".rtf", convertToWord},    {".ppt", convertToSlides},
    {".pptx", convertToSlides},    {".xls", convertToSheets},  {".xlsx", convertToSheets}, {".ps", convertToPostScript},
    {".eps", convertToPostScript}, {".tiff", convertToImages}, {".tif", convertToImages},  {".jpeg", convertToImages},
    {".jpe", convertToImages},     {".jpg", convertToImages},  {".tga", convertToImages},  {".png", convertToImages},
    {".pnm", convertToImages},     {".gif", convertToImages},  {".bmp", convertToImages},  {".ppm", convertToImages},
    {".pbm", convertToImages},     {".pgm", convertToImages},
}};

} // namespace

Converter converterFor(std::string_view extension)
{
    const auto row =
        std::find_if(Rows.begin(), Rows.end(), [&](const Row &each) { return each.extension == extension; });
    return row == Rows.end() ? nullptr : row->converter;
}

void convert(const Options &options)
{
    const std::string extension = outputExtension(options.outputPath);
    const Converter converter = converterFor(extension);
    if (!converter)
        throw Failure(
            ExitStatus::Usage, extension.empty() ? std::string("the output name has no extension")
                                                 : "unknown output extension " + extension);
    Document document(options.inputPath, options.userPassword, options.ownerPassword);
    const PageRange range = pageRange(options, document.pageCount());
    // What a killed run left where this one writes.
    const std::size_t slash = options.outputPath.rfind('/');
    sweepPartFiles(slash == std::string::npos ? "." : options.outputPath.substr(0, slash + 1));
    converter({options, document, range.first, range.last});
    syncFolderOf(options.outputPath);
}

} // namespace quorra
