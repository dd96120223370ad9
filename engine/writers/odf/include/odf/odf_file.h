// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_styles.h"

#include <QBuffer>
#include <QFile>
#include <QString>
#include <QXmlStreamWriter>

#include <utility>
#include <vector>

namespace quorra::office {

enum class OdfKind { Text, Presentation, Spreadsheet };

/// A flat ODF file that is being written. Styles precede the text in the file, but are known only when the text has
/// been written. Therefore the text is first written to a second file, which keeps long documents and pictures out of
/// memory.
class OdfFile
{
public:
    /// Creates the file at this path, and a temporary one at path + ".body". Throws Failure(CannotWrite).
    OdfFile(OdfKind kind, const QString &path);

    /// Writes the content of office:text, office:presentation or office:spreadsheet.
    QXmlStreamWriter &body() { return m_body; }

    /// Writes the content of office:master-styles.
    QXmlStreamWriter &masters() { return m_masters; }

    StyleTable &styles() { return m_styles; }

    /// Adds a style with a name of its own, to which master pages and other parts refer.
    void define(Element style) { m_namedStyles.push_back(std::move(style)); }

    /// Sets the metadata of the file (title, author, subject, keywords) and the language of its text to those of the
    /// document.
    void describe(const model::Document &document);

    /// Assembles the file. Throws Failure(CannotWrite).
    void finish();

private:
    void writeMetadata(QXmlStreamWriter &xml) const;
    void writeStyles(QXmlStreamWriter &xml) const;
    void writeDocument(QXmlStreamWriter &xml, QFile &file);

    OdfKind m_kind;
    QString m_path;
    QFile m_bodyFile;
    QBuffer m_masterBuffer;
    QXmlStreamWriter m_body;
    QXmlStreamWriter m_masters;
    StyleTable m_styles;
    std::vector<Element> m_namedStyles;
    std::vector<Element> m_metadata;
    QString m_language; ///< a language tag; empty if it is not known
};

} // namespace quorra::office
