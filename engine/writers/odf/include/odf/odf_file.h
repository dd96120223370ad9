// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <QBuffer>
#include <QFile>
#include <QString>
#include <QXmlStreamWriter>

namespace quorra::office {

enum class OdfKind { Text, Presentation, Spreadsheet };

/// A flat ODF file in the making. Styles must stand before the text that uses them, but are known only after it: the
/// text goes to a file beside the final one first, so that long documents and their pictures do not fill the memory.
class OdfFile
{
public:
    /// Begins the file at this path; path + ".body" is used meanwhile. Throws Failure(CannotWrite).
    OdfFile(OdfKind kind, const QString &path);

    /// The inside of office:text, office:presentation or office:spreadsheet.
    QXmlStreamWriter &body() { return m_body; }

    /// The inside of office:master-styles.
    QXmlStreamWriter &masters() { return m_masters; }

    StyleTable &styles() { return m_styles; }

    /// Puts the file together. Throws Failure(CannotWrite).
    void finish();

private:
    void writeHead(QXmlStreamWriter &xml) const;
    void writeDocument(QXmlStreamWriter &xml, QFile &file);

    OdfKind m_kind;
    QString m_path;
    QFile m_bodyFile;
    QBuffer m_masterBuffer;
    QXmlStreamWriter m_body;
    QXmlStreamWriter m_masters;
    StyleTable m_styles;
};

} // namespace quorra::office
