// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the analysis and all writers on pages with random marks.
#include "every_writer.h"
#include "fuzz_support.h"
#include "random_pages.h"

#include "analysis/analysis.h"

#include <QDir>

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    fuzz::workInTemporaryFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const quorra::model::Document document = quorra::model::buildDocument(fuzz::pagesOf(data, size, fuzz::Marks::Wild));
    for (const fuzz::Output &output : fuzz::everyOutput(document, QDir::currentPath())) {
        fuzz::require(
            output.error.isEmpty(),
            qPrintable(QString::fromStdString(output.writer) + QStringLiteral(": ") + output.error));
    }
    return 0;
}
