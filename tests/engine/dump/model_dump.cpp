// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the document that the engine builds from a PDF file. A developer tool, not installed.
//
//   model_dump FILE.pdf [-page N] [-upw PASSWORD] [--raw] [--ignore-tags]
//
// --raw prints the pages as read instead of the document built from them.
// --ignore-tags builds the document as if the file had no structure tree.
#include "document_dump.h"
#include "raw_dump.h"

#include "analysis/analysis.h"
#include "analysis/headings.h"
#include "analysis/languages.h"
#include "base/failure.h"
#include "cli/options.h"
#include "pdf/file_facts.h"
#include "pdf/page_reading.h"
#include "platform/limits.h"
#include "platform/worker_pool.h"

#include <QHashSeed>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace quorra;

struct Request
{
    Options options;
    int page = 0; ///< 0 for all
    bool raw = false;
    bool ignoreTags = false;
};

Request parse(const std::vector<std::string> &arguments)
{
    const Failure usage(
        ExitStatus::Usage, "usage: model_dump FILE.pdf [-page N] [-upw PASSWORD] [--raw] [--ignore-tags]");
    Request request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string &argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--raw") {
            request.raw = true;
        } else if (argument == "--ignore-tags") {
            request.ignoreTags = true;
        } else if (argument == "-upw" && hasValue) {
            request.options.userPassword = arguments[++i];
        } else if (argument == "-page" && hasValue) {
            request.page = std::atoi(arguments[++i].c_str());
            if (request.page < 1) {
                throw usage;
            }
        } else if (request.options.inputPath.empty() && argument.rfind('-', 0) != 0) {
            request.options.inputPath = argument;
        } else {
            throw usage;
        }
    }
    if (request.options.inputPath.empty()) {
        throw usage;
    }
    return request;
}

void show(const Request &request)
{
    PdfFile file(request.options.inputPath, request.options.userPassword, request.options.ownerPassword);
    const int count = file.pageCount();
    if (request.page > count) {
        throw Failure(ExitStatus::Usage, "the file has " + std::to_string(count) + " pages");
    }
    PdfFilePool pool(file);
    const int first = request.page == 0 ? 1 : request.page;
    const int wanted = request.page == 0 ? count : 1;
    Structure structure;
    if (!request.ignoreTags) {
        structure = readStructure(file, first, wanted);
    }
    std::vector<model::RawPage> pages = collectPages(pool, first, wanted, Collect::Everything, &structure);
    if (request.raw) {
        for (const model::RawPage &page : pages) {
            test::dumpRaw(page, std::cout);
        }
        return;
    }
    model::Document found = model::buildDocument(std::move(pages), forEachPage, structure.tree);
    found.facts = readFileFacts(file);
    useOutline(found);
    findLanguages(found);
    test::dump(found, std::cout);
}

} // namespace

int main(int argc, char **argv)
{
    QHashSeed::setDeterministicGlobalSeed(); // as the engine does
    quorra::limits::apply();
    try {
        show(parse({argv + 1, argv + (argc > 0 ? argc : 1)}));
    } catch (const quorra::Failure &failure) {
        std::cerr << "model_dump: " << failure.what() << '\n';
        return static_cast<int>(failure.status());
    } catch (const std::exception &error) {
        std::cerr << "model_dump: " << error.what() << '\n';
        return static_cast<int>(ExitStatus::CannotOpen);
    }
    return 0;
}
