// SPDX-License-Identifier: GPL-3.0-or-later
#include "ooxml/cell_margins.h"

#include <QString>
#include <QXmlStreamReader>

#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

std::optional<QByteArray> withCellMargins(const QByteArray &slide)
{
    if (!slide.contains("tcPr")) {
        return {};
    }
    const QString text = QString::fromUtf8(slide);
    std::vector<std::pair<qsizetype, QString>> additions; // at which place what is added
    QString margins;
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == "tc"_L1) {
            margins.clear();
        } else if (
            reader.name() == "bodyPr"_L1 && attributes.hasAttribute("tIns"_L1) && attributes.hasAttribute("bIns"_L1)) {
            margins = QStringLiteral(" marT=\"%1\" marB=\"%2\"")
                          .arg(attributes.value("tIns"_L1).toString(), attributes.value("bIns"_L1).toString());
        } else if (reader.name() == "tcPr"_L1 && !attributes.hasAttribute("marT"_L1) && !margins.isEmpty()) {
            const QString tag = u'<' + reader.qualifiedName().toString();
            const qsizetype at = text.lastIndexOf(tag, reader.characterOffset() - 1);
            additions.emplace_back(at + tag.size(), margins);
        }
    }
    if (reader.hasError() || additions.empty()) {
        return {};
    }
    QString result;
    qsizetype from = 0;
    for (const auto &[at, what] : additions) {
        result += QStringView(text).mid(from, at - from);
        result += what;
        from = at;
    }
    result += QStringView(text).mid(from);
    return result.toUtf8();
}

} // namespace quorra::office
