// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"
#include "convert/convert.h"
#include "document/faint_text.h"
#include "document/page_transform.h"
#include "libreoffice/libreoffice.h"
#include "odf/common_fonts.h"
#include "ooxml/cell_margins.h"
#include "ooxml/frozen_rows.h"
#include "ooxml/package_parts.h"
#include "page_size.h"
#include "pdf/region_renderer.h"
#include "picture_rules.h"
#include "platform/limits.h"
#include "platform/output_file.h"
#include "platform/temp_folder.h"
#include "read_document.h"
#include "sheets/sheets_writer.h"
#include "slides/slides_writer.h"
#include "word/word_flow.h"
#include "word/word_placed.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>

namespace quorra {

namespace {

using namespace office;

/// LibreOffice also gets the remaining time of this process: pages with many words take most of their time there.
std::chrono::milliseconds helperTime(const Job &job)
{
    return timeAllowed(job, finerThanUsual(job.options)).helper + limits::processorTimeLeft();
}

/// Adds to exported slides what LibreOffice leaves out.
void correctSlides(const std::string &path)
{
    changeParts(path, [](const QString &name, const QByteArray &content) {
        return name.startsWith(u"ppt/slides/slide") ? withCellMargins(content) : std::nullopt;
    });
}

/// Freezes the first rows of exported sheets; `headRows` has their number for each sheet.
void freezeHeads(const std::string &path, const std::vector<int> &headRows)
{
    std::map<QString, int> rowsOfPart;
    int number = 0;
    for (const int rows : headRows) {
        rowsOfPart.emplace(QStringLiteral("xl/worksheets/sheet%1.xml").arg(++number), rows);
    }
    changeParts(path, [&rowsOfPart](const QString &name, const QByteArray &content) {
        const auto found = rowsOfPart.find(name);
        return found != rowsOfPart.end() ? withFrozenRows(content, found->second) : std::nullopt;
    });
}

/// Returns the form of flowing text as the file format needs it.
FlowForm formFor(const FlowForm &form, const std::string &extension)
{
    return extension == ".doc" ? forOldWord(form) : extension == ".rtf" ? forRichText(form) : form;
}

/// Reads and analyses the pages, has write(file, document, pictures) create a flat ODF file, exports it, and has
/// correct(path) change the exported file.
template <typename Writer, typename Correction>
void convertThroughOffice(
    const Job &job, OdfKind kind, Component component, model::DrawingWords words, const Writer &write,
    const Correction &correct)
{
    // First detect what fails at once: an output folder that is not writable, or missing LibreOffice.
    OutputFile output(job.options.outputPath);
    const std::string program =
        findOffice(officeCandidates(std::getenv("QUORRA_SOFFICE"), std::getenv("PATH")), component);
    const TempFolder &folder = *job.folder;
    const std::string source = folder.path() + "/document.xml";
    {
        PdfFilePool pool(job.file);
        model::Document document = readDocument(job, pool, Collect::Everything);
        const Options &options = job.options;
        PagePictureSource pictures(job.file, document, embeddedQuality(options), words);
        fitToOptions(document, options);
        reduceColours(document, options.colourDepth);
        OdfFile file(kind, QString::fromStdString(source));
        file.describe(document);
        write(file, document, pictures);
        file.finish();
    }
    const std::string made =
        exportFile(folder, program, source, outputExtension(job.options.outputPath), job.pageCount(), helperTime(job));
    correct(made);
    output.writeFile(made);
    output.commit();
}

} // namespace

void convertToWord(const Job &job)
{
    const WordMode mode = job.options.wordMode;
    const bool inFrames = mode == WordMode::FlowWithBoxes || mode == WordMode::Exact;
    const model::DrawingWords words = inFrames ? model::DrawingWords::Apart : model::DrawingWords::InPicture;
    const std::string extension = outputExtension(job.options.outputPath);
    convertThroughOffice(
        job, OdfKind::Text, Component::Writer, words,
        [mode, extension](OdfFile &file, model::Document &document, model::PictureSource &pictures) {
            const auto flow = [&](const FlowForm &form) {
                model::darkenFaintText(document, form.pages);
                replaceRareFonts(document);
                file.styles().setWidthScales(characterScales(document));
                writeFlow(file, document, pictures, formFor(form, extension));
            };
            switch (mode) {
            case WordMode::Combine:
                model::joinContinuations(document, false);
                flow(flowForms::inColumns);
                break;
            case WordMode::FlowWithBoxes:
                writeFramed(file, document, pictures);
                break;
            case WordMode::Exact:
                writeExact(file, document, pictures);
                break;
            case WordMode::FlowWithoutBoxes:
                flow(flowForms::inOneColumn);
                break;
            case WordMode::Continuous:
                model::joinContinuations(document, true);
                flow(flowForms::continuous);
                break;
            }
        },
        [](const std::string &) {});
}

void convertToSlides(const Job &job)
{
    convertThroughOffice(
        job, OdfKind::Presentation, Component::Impress, model::DrawingWords::Apart,
        [](OdfFile &file, model::Document &document, model::PictureSource &pictures) {
            unifyPages(document);
            writeSlides(file, document, pictures);
        },
        [&job](const std::string &path) {
            if (outputExtension(job.options.outputPath) == ".pptx") {
                correctSlides(path);
            }
        });
}

void convertToSheets(const Job &job)
{
    std::vector<int> headRows;
    convertThroughOffice(
        job, OdfKind::Spreadsheet, Component::Calc, model::DrawingWords::InPicture,
        [&headRows](OdfFile &file, model::Document &document, model::PictureSource &pictures) {
            model::darkenFaintText(document, false);
            headRows = writeSheets(file, document, pictures);
        },
        [&](const std::string &path) {
            if (outputExtension(job.options.outputPath) == ".xlsx") {
                freezeHeads(path, headRows);
            }
        });
}

} // namespace quorra
