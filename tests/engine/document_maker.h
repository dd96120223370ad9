// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <utility>

/// A document of pages with one section each, made by hand.
class DocumentMaker
{
public:
    DocumentMaker() { addPage(); }

    void addPage()
    {
        quorra::model::Page page;
        page.number = static_cast<int>(m_document.pages.size()) + 1;
        quorra::model::Section section;
        section.columns = {{60, 60, 540, 740}};
        page.sections.push_back(section);
        m_document.pages.push_back(page);
    }

    quorra::model::Paragraph paragraph(const QString &text)
    {
        quorra::model::Line line;
        line.box = {60, m_bottom, 300, m_bottom + 10};
        double left = line.box.left;
        for (const QString &part : text.split(QLatin1Char(' '))) {
            quorra::model::Word word;
            word.text = part;
            word.box = {left, m_bottom, left + 20, m_bottom + 10};
            word.style = m_document.styles.add({});
            line.words.push_back(word);
            left += 23;
        }
        m_bottom += 20;
        quorra::model::Paragraph result;
        result.box = line.box;
        result.lines = {line};
        return result;
    }

    void add(quorra::model::Block block) { m_document.pages.back().sections.back().blocks.push_back(std::move(block)); }

    void heading(const QString &text, int level)
    {
        quorra::model::Paragraph heading = paragraph(text);
        heading.role = quorra::model::Role::Heading;
        heading.headingLevel = level;
        add({heading, 0});
    }

    quorra::model::Page &page() { return m_document.pages.back(); }
    quorra::model::Document &document() { return m_document; }
    const quorra::model::Document &document() const { return m_document; }

private:
    quorra::model::Document m_document;
    double m_bottom = 60;
};
