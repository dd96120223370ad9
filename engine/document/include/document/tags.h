// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <vector>

// The structure tree of a tagged PDF file as plain data: which part of the text is a heading, a paragraph, a list, a
// table. A file can say anything here; engine/analysis/tags decides what is used.
namespace quorra::model {

enum class TagRole {
    Group,         ///< holds other elements and says nothing itself: document, section, division, unknown ones
    Inline,        ///< a part of a paragraph: a span, link, reference
    Artifact,      ///< no content of the document
    Heading,       ///< see Tag::level
    Paragraph,     ///< also titles and quotations
    List,          ///< holds list items
    ListItem,      ///< holds a label and a body
    ListLabel,     ///< the mark of a list item
    ListBody,      ///< the text of a list item
    Table,         ///< holds rows
    RowGroup,      ///< the head, body or foot of a table
    Row,           ///< holds cells
    HeadCell,      ///< of a table
    DataCell,      ///< of a table
    Caption,       ///< of a table or figure
    Note,          ///< a footnote or endnote
    Figure,        ///< see Tag::alternative
    Formula,       ///< likewise
    ContentsEntry, ///< of a table of contents
    Code,          ///< a listing, or a word of one in a paragraph
};

/// An element of the structure tree.
struct Tag
{
    TagRole role = TagRole::Group;
    int parent = -1;     ///< its place in TagTree::tags, which is before its own; -1 for the outermost elements
    int level = 0;       ///< of a heading, from 1; 0 if the file does not state it
    int rowSpan = 1;     ///< of a cell
    int columnSpan = 1;  ///< of a cell
    bool head = false;   ///< of a group of rows: the head of its table
    QString alternative; ///< what is read aloud in place of a figure or formula
    QString language;    ///< a language tag; empty for that of the parent
};

/// The elements of a file, and the pieces of page content that belong to them.
struct TagTree
{
    std::vector<Tag> tags;             ///< outer elements before inner ones, in reading order
    std::vector<std::size_t> contents; ///< for each piece of content, in reading order, the place of its tag in `tags`

    bool isEmpty() const { return contents.empty(); }
};

/// A paragraph as the tags of a file describe it.
struct TaggedParagraph
{
    TagRole role = TagRole::Paragraph; ///< Heading, Paragraph, ListItem, Caption, Note, ContentsEntry or Code
    int level = 0;                     ///< of a heading, from 1; of a list item, 0 for the outermost list
    std::size_t number = 0;            ///< its place among the paragraphs of the file, in reading order
    int table = -1;                    ///< the table that it is in; -1 for none
    int cell = -1;                     ///< of that table
    bool headingsTagged = false;       ///< the file has tags for headings: what has another one is none
    bool listsTagged = false;          ///< likewise for list items
    QString language;                  ///< a language tag; empty for that of the file
};

} // namespace quorra::model
