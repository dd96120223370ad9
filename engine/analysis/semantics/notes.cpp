// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/notes.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "semantics/cut_word.h"

#include <algorithm>
#include <set>
#include <vector>

namespace quorra::model {

namespace {

using notes::thresholds;

bool isSign(QChar c)
{
    static const QString signs = QStringLiteral("*†‡∗§¶");
    return signs.contains(c);
}

bool isNumber(const QString &text)
{
    return !text.isEmpty() && text.size() <= thresholds.maxDigits &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

bool areSigns(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isSign);
}

/// Returns the mark with which the paragraph begins if it can be a note, otherwise an empty text.
QString markOf(const Paragraph &paragraph, double bodySize)
{
    const std::vector<Word> &words = paragraph.lines.front().words;
    const Word &first = words.front();
    if (paragraph.rotation != 0 || words.size() < 2 || paragraph.role == Role::Heading) {
        return {};
    }
    const bool raised = first.shift == BaselineShift::Superscript;
    const bool small = meanFontSize(paragraph) < thresholds.maxSmallSize * bodySize;
    return areSigns(first.text) || (isNumber(first.text) && (raised || small)) ? first.text : QString();
}

/// The paragraphs at the feet of the page's columns that begin with a mark, in reading order.
std::vector<Paragraph *> notesAtFeet(Page &page, double bodySize)
{
    std::vector<Paragraph *> found;
    for (Section &section : page.sections) {
        const auto before = static_cast<std::ptrdiff_t>(found.size());
        for (std::size_t end = section.blocks.size(); end > 0;) {
            const int column = section.blocks[end - 1].column;
            bool isFoot = true;
            for (; end > 0 && section.blocks[end - 1].column == column; --end) {
                Paragraph *paragraph = section.blocks[end - 1].paragraph();
                const bool hasMark = paragraph && !markOf(*paragraph, bodySize).isEmpty();
                isFoot =
                    isFoot && paragraph && (hasMark || meanFontSize(*paragraph) < thresholds.maxSmallSize * bodySize);
                if (isFoot && hasMark) {
                    found.push_back(paragraph);
                }
            }
        }
        std::reverse(found.begin() + before, found.end());
    }
    return found;
}

/// A place in the text that a note belongs to.
struct Reference
{
    Line *line = nullptr;
    std::size_t word = 0;
    QString mark;
};

void addReferences(std::vector<Reference> &references, Paragraph &paragraph)
{
    for (Line &line : paragraph.lines) {
        for (std::size_t i = 0; i < line.words.size(); ++i) {
            const Word &word = line.words[i];
            const bool first = &line == &paragraph.lines.front() && i == 0;
            if (first || word.leader) {
                continue;
            }
            qsizetype letters = word.text.size();
            while (letters > 0 && isSign(word.text.at(letters - 1))) {
                --letters;
            }
            if (letters < word.text.size()) {
                references.push_back({&line, i, word.text.mid(letters)});
            } else if (word.shift == BaselineShift::Superscript && isNumber(word.text)) {
                references.push_back({&line, i, word.text});
            }
        }
    }
}

std::vector<Reference> referencesOf(Page &page, const std::vector<Paragraph *> &notes)
{
    const std::set<const Paragraph *> without(notes.begin(), notes.end());
    std::vector<Reference> references;
    const auto add = [&](Paragraph &paragraph) {
        if (without.count(&paragraph) == 0) {
            addReferences(references, paragraph);
        }
    };
    forEachBlock(page, [&](Block &block) {
        if (Paragraph *paragraph = block.paragraph()) {
            add(*paragraph);
        } else if (Table *table = block.table()) {
            for (Cell &cell : table->cells) {
                std::for_each(cell.paragraphs.begin(), cell.paragraphs.end(), add);
            }
        }
    });
    return references;
}

void linkNotes(Page &page, double bodySize, std::size_t &count)
{
    const std::vector<Paragraph *> candidates = notesAtFeet(page, bodySize);
    if (candidates.empty()) {
        return;
    }
    std::vector<Reference> references = referencesOf(page, candidates);
    for (Paragraph *note : candidates) {
        const QString mark = markOf(*note, bodySize);
        const auto found = std::find_if(references.begin(), references.end(), [&mark](const Reference &reference) {
            return reference.mark == mark;
        });
        if (found == references.end()) {
            continue;
        }
        const std::size_t before = found->line->words.size();
        const std::size_t word = areSigns(mark) ? cutWordEnd(*found->line, found->word, mark.size()) : found->word;
        found->line->words[word].note = note->note = NoteId{count++};
        note->role = Role::Footnote;
        note->listItem.reset();
        for (Reference &reference : references) { // the words after a sign that was cut off move on
            const bool moves = reference.line == found->line && reference.word > found->word;
            reference.word += moves ? found->line->words.size() - before : 0;
        }
        references.erase(found);
    }
}

} // namespace

void linkNotes(Document &document, double bodySize)
{
    std::size_t count = 0;
    for (Page &page : document.pages) {
        linkNotes(page, bodySize, count);
    }
}

} // namespace quorra::model
