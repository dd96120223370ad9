// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/roles.h"

#include "document/text.h"
#include "semantics/headings.h"
#include "semantics/lists.h"
#include "semantics/notes.h"

#include <QRegularExpression>

namespace quorra::model {

namespace {

using roles::thresholds;

template <typename Use>
void forEachBodyParagraph(Document &document, Use use)
{
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            for (Block &block : section.blocks) {
                if (Paragraph *paragraph = block.paragraph()) {
                    use(page, *paragraph);
                }
            }
        }
    }
}

bool isCaption(const QString &text)
{
    static const QRegularExpression caption(
        QStringLiteral("^(?:Figure|Fig\\.|Table|Tab\\.|Abbildung|Abb\\.|Tabelle|Tableau|Tabla|Figura|Listing|図|表)\\s*"
                       "[A-Z]?\\.?\\d+[a-z]?(?:\\.\\d+)*\\s*([.:–—|)])?"));
    const QRegularExpressionMatch match = caption.match(text);
    return match.hasMatch() && (text.size() < thresholds.maxCaption || !match.captured(1).isEmpty());
}

bool isFootnote(const Page &page, const Paragraph &paragraph, double body)
{
    if (paragraph.box.top <= thresholds.minFootnoteTop * page.height ||
        meanFontSize(paragraph) >= notes::thresholds.maxSmallSize * body) {
        return false;
    }
    const QString text = plainText(paragraph).trimmed();
    return !text.isEmpty() && (text.front().isDigit() || QStringLiteral("*†‡∗§¹²³").contains(text.front()));
}

} // namespace

void assignRoles(Document &document)
{
    const double body = bodySizeOf(document);
    forEachBodyParagraph(document, [](const Page &, Paragraph &paragraph) {
        if (paragraph.role == Role::Body && isCaption(plainText(paragraph).trimmed())) {
            paragraph.role = Role::Caption;
        }
    });
    findHeadings(document);
    forEachBodyParagraph(document, [&](const Page &page, Paragraph &paragraph) {
        if (paragraph.role == Role::Body && isFootnote(page, paragraph, body)) {
            paragraph.role = Role::Footnote;
        }
    });
    linkNotes(document, body);
    assignListLevels(document);
}

} // namespace quorra::model
