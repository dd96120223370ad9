// SPDX-License-Identifier: GPL-3.0-or-later
#include "ooxml/frozen_rows.h"

#include <QString>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

std::optional<QByteArray> withFrozenRows(const QByteArray &sheet, int rows)
{
    if (rows <= 0) {
        return {};
    }
    const QString text = QString::fromUtf8(sheet);
    QXmlStreamReader reader(text);
    bool inView = false;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (inView && reader.name() == "selection"_L1) {
            // The part that scrolls contains the selected cell.
            const qsizetype end = reader.characterOffset();
            const qsizetype begin = text.lastIndexOf(u'<', end - 1);
            const QString pane =
                QStringLiteral("<pane ySplit=\"%1\" topLeftCell=\"A%2\" activePane=\"bottomLeft\" state=\"frozen\"/>")
                    .arg(rows)
                    .arg(rows + 1);
            const QString selection =
                text.mid(begin, end - begin).replace("pane=\"topLeft\""_L1, "pane=\"bottomLeft\""_L1);
            return (text.left(begin) + pane + selection + text.mid(end)).toUtf8();
        }
        if (inView) {
            return {};
        }
        inView = reader.name() == "sheetView"_L1;
    }
    return {};
}

} // namespace quorra::office
