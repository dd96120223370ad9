// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/structure.h"

#include "pdf_file_handles.h"
#include "text_string.h"

#include <Catalog.h>
#include <Object.h>
#include <XRef.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

namespace quorra {

using model::Tag;
using model::TagRole;

namespace {

struct Limits
{
    std::size_t tags = 1'000'000;     ///< a book of a thousand pages has about a hundred thousand
    std::size_t contents = 2'000'000; ///< pieces of content
    std::size_t tagsPerPage = 20'000; ///< of the whole file; a page full of small table cells has two thousand
    std::size_t depth = 128;          ///< real trees have about twenty levels
    int roleSteps = 16;               ///< from a role of the file's own to a standard one
    int span = 1'000;                 ///< rows or columns of a cell
    qsizetype alternative = 5'000;    ///< characters
    qsizetype language = 35;          ///< characters of a language tag
};

constexpr Limits limits;

struct RoleName
{
    std::string_view name;
    TagRole role;
    int level = 0;
};

// Those of PDF 1.7 and 2.0 that say something; all others are groups.
constexpr std::array<RoleName, 44> roleNames = {{
    {"P", TagRole::Paragraph},      {"Title", TagRole::Paragraph},
    {"BlockQuote", TagRole::Group}, {"H", TagRole::Heading},
    {"H1", TagRole::Heading, 1},    {"H2", TagRole::Heading, 2},
    {"H3", TagRole::Heading, 3},    {"H4", TagRole::Heading, 4},
    {"H5", TagRole::Heading, 5},    {"H6", TagRole::Heading, 6},
    {"H7", TagRole::Heading, 7},    {"H8", TagRole::Heading, 8},
    {"H9", TagRole::Heading, 9},    {"L", TagRole::List},
    {"LI", TagRole::ListItem},      {"Lbl", TagRole::ListLabel},
    {"LBody", TagRole::ListBody},   {"Table", TagRole::Table},
    {"THead", TagRole::RowGroup},   {"TBody", TagRole::RowGroup},
    {"TFoot", TagRole::RowGroup},   {"TR", TagRole::Row},
    {"TH", TagRole::HeadCell},      {"TD", TagRole::DataCell},
    {"Caption", TagRole::Caption},  {"Note", TagRole::Note},
    {"FENote", TagRole::Note},      {"Figure", TagRole::Figure},
    {"Formula", TagRole::Formula},  {"TOCI", TagRole::ContentsEntry},
    {"Code", TagRole::Code},        {"Span", TagRole::Inline},
    {"Quote", TagRole::Inline},     {"Reference", TagRole::Inline},
    {"Link", TagRole::Inline},      {"Em", TagRole::Inline},
    {"Strong", TagRole::Inline},    {"Sub", TagRole::Inline},
    {"Annot", TagRole::Inline},     {"Ruby", TagRole::Inline},
    {"Warichu", TagRole::Inline},   {"BibEntry", TagRole::Inline},
    {"Form", TagRole::Inline},      {"Artifact", TagRole::Artifact},
}};

const RoleName *findRole(std::string_view name)
{
    const auto found =
        std::find_if(roleNames.begin(), roleNames.end(), [name](const RoleName &each) { return each.name == name; });
    return found == roleNames.end() ? nullptr : &*found;
}

int spanOf(const Object &attributes, const char *key, int before)
{
    const Object value = attributes.dictLookup(key);
    return value.isInt() ? std::clamp(value.getInt(), 1, limits.span) : before;
}

} // namespace

std::uint64_t Structure::key(int stream, int id)
{
    constexpr unsigned half = 32;
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(stream)) << half | static_cast<std::uint32_t>(id);
}

int Structure::contentOf(int page, int form, int id) const
{
    const auto &streams = form == 0 ? m_ofPages : m_ofForms;
    const auto found = streams.find(key(form == 0 ? page : form, id));
    return found == streams.end() ? -1 : found->second;
}

QString Structure::alternativeOf(int content) const
{
    int tag = content < 0 ? -1 : static_cast<int>(tree.contents[static_cast<std::size_t>(content)]);
    while (tag >= 0 && tree.tags[static_cast<std::size_t>(tag)].alternative.isEmpty()) {
        tag = tree.tags[static_cast<std::size_t>(tag)].parent;
    }
    return tag < 0 ? QString() : tree.tags[static_cast<std::size_t>(tag)].alternative;
}

/// Walks the tree with a stack of its own, so that no file can exhaust the program's. The PDF library's own reader of
/// structure trees is recursive, and drops elements whose names it does not know with all that is in them.
class StructureReader
{
public:
    StructureReader(PDFDoc &doc, int firstPage, int pageCount) : m_doc(doc)
    {
        for (int page = firstPage; page < firstPage + pageCount; ++page) {
            if (const Ref *ref = doc.getCatalog()->getPageRef(page)) {
                m_pages.emplace(ref->num, page);
            }
        }
        m_mostTags = std::min(limits.tags, limits.tagsPerPage * static_cast<std::size_t>(doc.getNumPages()));
    }

    /// The tree, empty if it is not sound.
    Structure read()
    {
        const Object catalog = m_doc.getXRef()->getCatalog();
        const Object root = catalog.isDict() ? catalog.dictLookup("StructTreeRoot") : Object(objNull);
        if (!root.isDict()) {
            return {};
        }
        m_roleMap = root.dictLookup("RoleMap");
        m_classMap = root.dictLookup("ClassMap");
        m_open.push_back({root.dictLookup("K"), root.dictLookupNF("K").copy(), 0, -1, 0});
        while (!m_open.empty()) {
            if (!step()) {
                return {};
            }
        }
        return std::move(m_structure);
    }

private:
    /// The children of an element that are being read.
    struct Children
    {
        Object all;    ///< an array, or the only child
        Object single; ///< the only child as in the file, a reference perhaps
        int next = 0;
        int tag = -1; ///< the element
        int page = 0; ///< of the element's content, unless it says otherwise; 0 for one outside of the range
    };

    /// Reads the next child of the innermost element. Returns false when the tree is not sound.
    bool step()
    {
        Children &children = m_open.back();
        const bool several = children.all.isArray();
        if (children.next >= (several ? children.all.arrayGetLength() : 1)) {
            m_open.pop_back();
            return true;
        }
        const int at = children.next++;
        const Object &named = several ? children.all.arrayGetNF(at) : children.single;
        const Object child = several ? children.all.arrayGet(at) : children.all.copy();
        if (child.isInt()) {
            return addContent(children.tag, children.page, 0, child.getInt());
        }
        if (!child.isDict()) {
            return true; // a child that is missing
        }
        const Object type = child.dictLookup("Type");
        if (type.isName("OBJR")) {
            return true;
        }
        if (type.isName("MCR") || (child.dictLookupNF("S").isNull() && child.dictLookup("MCID").isInt())) {
            return addReference(children, child);
        }
        if (named.isRef() && !m_seen.insert(named.getRef().num).second) {
            return false; // an element inside itself, or in two places
        }
        return addTag(children, child);
    }

    bool addReference(const Children &children, const Object &reference)
    {
        const Object id = reference.dictLookup("MCID");
        const Object &stream = reference.dictLookupNF("Stm");
        return !id.isInt() || addContent(
                                  children.tag, pageOf(reference, children.page),
                                  stream.isRef() ? stream.getRef().num : 0, id.getInt());
    }

    bool addContent(int tag, int page, int form, int id)
    {
        if (tag < 0 || (page == 0 && form == 0)) {
            return true;
        }
        auto &streams = form == 0 ? m_structure.m_ofPages : m_structure.m_ofForms;
        const int place = static_cast<int>(m_structure.tree.contents.size());
        if (streams.emplace(Structure::key(form == 0 ? page : form, id), place).second) {
            m_structure.tree.contents.push_back(static_cast<std::size_t>(tag));
        } // else two elements claim it: it belongs to the first
        return m_structure.tree.contents.size() < limits.contents;
    }

    bool addTag(const Children &parent, const Object &element)
    {
        if (m_structure.tree.tags.size() >= m_mostTags || m_open.size() >= limits.depth) {
            return false;
        }
        Tag tag;
        tag.parent = parent.tag;
        setRole(tag, element);
        if (tag.role == TagRole::HeadCell || tag.role == TagRole::DataCell) {
            setSpans(tag, element);
        } else if (tag.role == TagRole::Figure || tag.role == TagRole::Formula) {
            tag.alternative = textString(element.dictLookup("Alt")).simplified().left(limits.alternative);
        }
        if (const Object language = element.dictLookup("Lang"); language.isString()) {
            tag.language = languageTag(textString(language).left(limits.language));
        }
        const int place = static_cast<int>(m_structure.tree.tags.size());
        const int page = pageOf(element, parent.page);
        m_structure.tree.tags.push_back(std::move(tag));
        Object children = element.dictLookup("K");
        if (!children.isNull()) {
            m_open.push_back({std::move(children), element.dictLookupNF("K").copy(), 0, place, page});
        }
        return true;
    }

    int pageOf(const Object &element, int inherited) const
    {
        const Object &page = element.dictLookupNF("Pg");
        if (!page.isRef()) {
            return inherited;
        }
        const auto found = m_pages.find(page.getRef().num);
        return found == m_pages.end() ? 0 : found->second;
    }

    void setRole(Tag &tag, const Object &element)
    {
        const Object type = element.dictLookup("S");
        if (!type.isName()) {
            return;
        }
        const std::string name = type.getName();
        auto known = m_roles.find(name);
        if (known == m_roles.end()) {
            known = m_roles.emplace(name, roleOf(name)).first;
        }
        tag.role = known->second.role;
        tag.level = known->second.level;
        tag.head = known->second.name == "THead";
    }

    RoleName roleOf(std::string name) const
    {
        for (int step = 0; step < limits.roleSteps; ++step) {
            if (const RoleName *role = findRole(name)) {
                return *role;
            }
            const Object next = m_roleMap.isDict() ? m_roleMap.dictLookup(name.c_str()) : Object(objNull);
            if (!next.isName()) {
                break;
            }
            name = next.getName();
        }
        return {"", TagRole::Group};
    }

    void setSpans(Tag &tag, const Object &element) const
    {
        const auto take = [&tag](const Object &attributes) {
            if (attributes.isDict()) {
                tag.rowSpan = spanOf(attributes, "RowSpan", tag.rowSpan);
                tag.columnSpan = spanOf(attributes, "ColSpan", tag.columnSpan);
            }
        };
        const auto takeAll = [&take](const Object &attributes) { // one, or several with revision numbers
            take(attributes);
            for (int i = 0; attributes.isArray() && i < attributes.arrayGetLength(); ++i) {
                take(attributes.arrayGet(i));
            }
        };
        const Object names = element.dictLookup("C");
        for (int i = 0; m_classMap.isDict() && i < (names.isArray() ? names.arrayGetLength() : 1); ++i) {
            const Object name = names.isArray() ? names.arrayGet(i) : names.copy();
            if (name.isName()) {
                takeAll(m_classMap.dictLookup(name.getName()));
            }
        }
        takeAll(element.dictLookup("A"));
    }

    PDFDoc &m_doc;
    std::unordered_map<int, int> m_pages; ///< page numbers by object number
    std::size_t m_mostTags = 0;
    Object m_roleMap;
    Object m_classMap;
    std::map<std::string, RoleName> m_roles;
    std::unordered_set<int> m_seen;
    std::vector<Children> m_open;
    Structure m_structure;
};

Structure readStructure(PdfFile &file, int firstPage, int pageCount)
{
    return StructureReader(*file.handles().doc, firstPage, pageCount).read();
}

} // namespace quorra
