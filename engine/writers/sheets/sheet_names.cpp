// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_names.h"

#include "base/xml_text.h"
#include "document/page_walk.h"
#include "document/text.h"

#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype maxNameLength = 31; // UTF-16 units; longer names are rejected by Excel

QString firstHeading(const model::Page &page)
{
    QString heading;
    forEachBlock(page, [&](const model::Block &block) {
        const model::Paragraph *paragraph = block.paragraph();
        if (heading.isEmpty() && paragraph && paragraph->role == model::Role::Heading) {
            heading = model::plainText(*paragraph);
        }
    });
    return heading;
}

/// Returns the text without characters that Excel rejects in the names of sheets.
QString validCharacters(const QString &text)
{
    static const QString rejected = u"[]:*?/\\"_s;
    QString valid = xmlText(text);
    std::replace_if(
        valid.begin(), valid.end(), [](QChar c) { return rejected.contains(c) || !c.isPrint(); }, u' ');
    return valid.simplified();
}

/// Shortens the text to that many UTF-16 units, between two words if that leaves most of it.
QString shortened(QString text, qsizetype length)
{
    if (text.size() > length) {
        const qsizetype space = text.lastIndexOf(u' ', length);
        text.truncate(space > length / 2 ? space : length);
        if (text.back().isHighSurrogate()) {
            text.chop(1);
        }
    }
    return text.trimmed();
}

/// Returns the text without apostrophes at its ends, where names must not have them.
QString withoutOuterApostrophes(QString text)
{
    while (text.startsWith(u'\'')) {
        text.remove(0, 1);
    }
    while (text.endsWith(u'\'')) {
        text.chop(1);
    }
    return text.trimmed();
}

QString wantedName(const model::Page &page)
{
    constexpr qsizetype maxLabelLength = 12; // leaves room for some words of the heading
    const QString number = QString::number(page.number);
    const QString ownLabel = shortened(validCharacters(page.label), maxLabelLength);
    const QString label = ownLabel.isEmpty() ? number : ownLabel;
    const QString heading = validCharacters(firstHeading(page));
    const QString name = heading.isEmpty() ? u"Page "_s + label : label + u" - "_s + heading;
    return withoutOuterApostrophes(shortened(name, maxNameLength));
}

} // namespace

std::vector<QString> sheetNames(const std::vector<model::Page> &pages)
{
    std::vector<QString> names;
    QSet<QString> used;
    for (const model::Page &page : pages) {
        const QString wanted = wantedName(page);
        QString name = wanted;
        for (int count = 2; used.contains(name.toCaseFolded()); ++count) {
            const QString end = u" (%1)"_s.arg(count);
            name = shortened(wanted, maxNameLength - end.size()) + end;
        }
        used.insert(name.toCaseFolded());
        names.push_back(name);
    }
    return names;
}

} // namespace quorra::office
