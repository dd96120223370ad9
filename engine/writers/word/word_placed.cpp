// SPDX-License-Identifier: GPL-3.0-or-later
#include "word/word_placed.h"

#include "document/page_walk.h"
#include "odf/exact_lines.h"
#include "odf/placed_page.h"
#include "page_layout.h"
#include "page_marks.h"

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

// Whether text is underlined or struck through.
bool hasDrawnLines(const model::Paragraph &paragraph)
{
    return std::any_of(paragraph.lines.begin(), paragraph.lines.end(), [](const model::Line &line) {
        return std::any_of(line.words.begin(), line.words.end(), [](const model::Word &word) {
            return word.style->underlined || word.style->struckThrough;
        });
    });
}

bool hasBackground(const model::Page &page)
{
    bool has = page.recognised || page.background || !page.rules.empty() || !page.fills.empty();
    forEachBlock(page, [&](const model::Block &block) { has = has || block.figure() || block.table(); });
    forEachParagraph(page, [&](const model::Paragraph &paragraph) { has = has || hasDrawnLines(paragraph); });
    return has;
}

/// Writes each page as an empty paragraph with the frames of the page.
template <typename PageWriter>
void writePages(OdfFile &file, const model::Document &document, const PageWriter &writePage)
{
    const model::ListPlan lists = model::planLists(document);
    const Sink sink{file.body(), file.styles(), nullptr, &lists};
    MasterPages masters({file.masters(), file.styles()});
    const std::vector<Margins> margins = pageMargins(document);
    const std::vector<OutlineBookmark> bookmarks = outlineBookmarks(document);
    QString before;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const model::Page &page = document.pages[i];
        const QString master = masters.name(page, margins[i]);
        ParagraphPlace place;
        place.breakBefore = master == before;
        place.masterPage = master == before ? QString() : master;
        place.marks = pageMarks(page);
        for (const OutlineBookmark &bookmark : bookmarks) {
            if (bookmark.page == page.number) {
                place.marks.bookmarks.push_back(bookmark.name);
            }
        }
        for (const model::Comment &comment : page.comments) {
            place.marks.comments.push_back(&comment);
        }
        before = master;
        {
            const XmlElement holder = beginAnchorParagraph(sink, place);
            writePage(sink, page);
        }
        // LibreOffice writes the break of the next page at the end of the previous paragraph, before its frames. Hence
        // a paragraph without frames.
        writeAnchorParagraph(sink, {});
    }
}

} // namespace

void writeFramed(OdfFile &file, const model::Document &document, model::PictureSource &pictures)
{
    writePages(file, document, [&](const Sink &sink, const model::Page &page) {
        writePlacedPage(sink, page, pictures, FrameAnchor::Page);
    });
}

void writeExact(OdfFile &file, const model::Document &document, model::PictureSource &pictures)
{
    writePages(file, document, [&](const Sink &sink, const model::Page &page) {
        const FrameAnchor place = page.recognised ? FrameAnchor::Page : FrameAnchor::Behind;
        const auto writeText = [&] {
            forEachParagraph(page, [&](const model::Paragraph &paragraph) {
                writeExactLines(sink, paragraph, page.width, FrameAnchor::Page);
            });
        };
        if (page.recognised) { // a scan hides its text, as in the file
            writeText();
        }
        if (page.scanned) {
            writePictures(sink, page, pictures, FrameAnchor::Behind);
        } else if (hasBackground(page)) {
            writePicture(sink, pictures.background(page.number), {0, 0, page.width, page.height}, place);
        }
        if (!page.recognised) {
            writeText();
        }
    });
}

} // namespace quorra::office
