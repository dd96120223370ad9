// SPDX-License-Identifier: GPL-3.0-or-later
#include "random_pages.h"

#include <array>
#include <limits>

namespace fuzz {

using namespace quorra;
using namespace quorra::model;

namespace {

constexpr std::size_t mostPages = 4;
constexpr std::size_t mostMarks = 3000; // in all: enough to see quadratic time, few enough for many runs
constexpr double width = 612;
constexpr double height = 792;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::array wildLengths = {
    0.0,      -0.0,     -1.0,   -700.0,  1e-300,       -1e-9,     0.001,
    14400.0,  -14400.0, 1e7,    -1e7,    2147483648.0, -1e15,     1e18,
    -1e100,   1e300,    -1e300, 1.7e308, infinity,     -infinity, std::numeric_limits<double>::quiet_NaN(),
    611.9999, 792.0001, 1e5};

// Texts that the analysis looks for, and texts that should not occur.
const std::array<QString, 40> &texts()
{
    static const std::array<QString, 40> all = {
        QStringLiteral("alpha"),
        QStringLiteral("Beta"),
        QStringLiteral("inter-"),
        QStringLiteral("preted"),
        QStringLiteral("1."),
        QStringLiteral("(a)"),
        QStringLiteral("iv."),
        QStringLiteral("\u2022"),
        QStringLiteral("12.5"),
        QStringLiteral("1,505"),
        QStringLiteral("$ 7"),
        QStringLiteral("-3.5%"),
        QStringLiteral("2020-01-31"),
        QStringLiteral("31/12/2020"),
        QStringLiteral("Table"),
        QStringLiteral("Figure"),
        QStringLiteral("end."),
        QStringLiteral("......"),
        QStringLiteral(". . ."),
        QStringLiteral("x"),
        QStringLiteral("\u05e9\u05dc\u05d5\u05dd"),
        QStringLiteral("\u0642\u0644\u0645"),
        QStringLiteral("\u65e5\u672c"),
        QStringLiteral("{"),
        QStringLiteral("    if"),
        QStringLiteral("\u2013"),
        QStringLiteral("\u00ad"),
        QStringLiteral("<b>&amp;"),
        QStringLiteral("]]>"),
        QStringLiteral("\"'"),
        QString(),
        QString(QChar(0)),
        QString(QChar(0xd800)),
        QString(QChar(0xdc00)) + QChar(0xd800),
        QString(QChar(0xffff)),
        QString(QChar(0x0b)),
        QStringLiteral("\n"),
        QStringLiteral("\t"),
        QStringLiteral(" "),
        QString(300, QLatin1Char('W'))};
    return all;
}

class PageReader
{
public:
    PageReader(const std::uint8_t *data, std::size_t size, Marks marks)
        : m_data(data)
        , m_size(size)
        , m_wild(marks == Marks::Wild)
        , m_pages(1)
    {}

    std::vector<RawPage> read()
    {
        while (m_at < m_size && m_marks < mostMarks) {
            readInstruction();
        }
        return std::move(m_pages);
    }

private:
    std::uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }
    RawPage &page() { return m_pages.back(); }

    double length(double whole)
    {
        constexpr std::uint8_t ordinary = 208; // below this value a byte is a place on the page
        const std::uint8_t value = byte();
        if (!m_wild) {
            return whole * value / 256;
        }
        return value < ordinary ? whole * value / ordinary : wildLengths.at((value - ordinary) % wildLengths.size());
    }

    Box box()
    {
        Box box{length(width), length(height), length(width), length(height)};
        if (!m_wild) {
            box = {
                std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right) + 1,
                std::max(box.top, box.bottom) + 1};
        }
        return box;
    }

    void readInstruction()
    {
        switch (byte() % 14) {
        case 0:
        case 1:
        case 2:
            addWord(length(width), length(height));
            break;
        case 3:
            addLine();
            break;
        case 4:
            addRule({length(width), 0, length(width), 0, 1, black}, true);
            break;
        case 5:
            addRule({0, length(height), 0, length(height), 1, black}, false);
            break;
        case 6:
            add(page().fills, Fill{box(), static_cast<Colour>(byte() * 0x010203U)});
            break;
        case 7:
            add(page().pictures, RawPicture{box()});
            break;
        case 8:
            add(page().ink, Ink{box(), byte() % 4 == 0});
            break;
        case 9:
            addGrid();
            break;
        case 10:
            repeatLastMark();
            break;
        case 11:
            setStyle();
            break;
        case 12:
            m_rotation = m_wild ? byte() % 4 * 90 : 0;
            break;
        default:
            addPage();
            break;
        }
    }

    template <typename Mark>
    void add(std::vector<Mark> &marks, const Mark &mark)
    {
        marks.push_back(mark);
        ++m_marks;
        m_last = &marks == static_cast<void *>(&page().words)   ? Last::Word
                 : &marks == static_cast<void *>(&page().rules) ? Last::Rule
                 : &marks == static_cast<void *>(&page().fills) ? Last::Fill
                 : &marks == static_cast<void *>(&page().ink)   ? Last::Ink
                                                                : Last::Picture;
    }

    void addRule(Rule rule, bool horizontal)
    {
        (horizontal ? rule.y1 : rule.x1) = horizontal ? length(height) : length(width);
        rule.y2 = horizontal ? rule.y1 : rule.y2;
        rule.x2 = horizontal ? rule.x2 : rule.x1;
        rule.width = m_wild ? length(4) : 0.5;
        if (!m_wild && rule.x1 + rule.y1 > rule.x2 + rule.y2) {
            std::swap(rule.x1, rule.x2);
            std::swap(rule.y1, rule.y2);
        }
        add(page().rules, rule);
    }

    double addWord(double x, double y)
    {
        RawWord word;
        const std::uint8_t chosen = byte();
        word.text = m_wild ? texts().at(chosen % texts().size()) : QStringLiteral("w%1").arg(m_word++);
        word.style = m_style;
        word.link = m_link;
        word.rotation = m_rotation;
        const double along = 0.5 * m_style.size * static_cast<double>(word.text.size());
        const bool horizontal = m_rotation % 180 == 0;
        word.box = {x, y, x + (horizontal ? along : m_style.size), y + (horizontal ? m_style.size : along)};
        word.baseline = horizontal ? y + 0.8 * m_style.size : x + 0.8 * m_style.size;
        if (m_wild && chosen >= 240) {
            word.box = box();
            word.baseline = length(height);
        }
        word.spaceAfter = !m_wild || chosen % 8 != 7;
        word.endsLine = chosen % 4 == 0;
        add(page().words, word);
        return word.box.right;
    }

    void addLine()
    {
        double x = length(width);
        const double y = length(height);
        for (int words = byte() % 12; words > 0; --words) {
            x = addWord(x, y) + 0.25 * m_style.size;
        }
    }

    void addGrid()
    {
        const Box around = box();
        const int columns = 1 + byte() % 12;
        const int rows = 1 + byte() % 40;
        for (int i = 0; i <= columns; ++i) {
            const double x = around.left + around.width() * i / columns;
            add(page().rules, Rule{x, around.top, x, around.bottom, 0.5, black});
        }
        for (int i = 0; i <= rows; ++i) {
            const double y = around.top + around.height() * i / rows;
            add(page().rules, Rule{around.left, y, around.right, y, 0.5, black});
        }
    }

    static void shift(Box &box, double x, double y)
    {
        box = {box.left + x, box.top + y, box.right + x, box.bottom + y};
    }
    void shiftMark(RawWord &word, double x, double y)
    {
        shift(word.box, x, y);
        word.baseline += word.rotation % 180 == 0 ? y : x;
        if (!m_wild) {
            word.text = QStringLiteral("w%1").arg(m_word++);
        }
    }
    static void shiftMark(Rule &rule, double x, double y)
    {
        rule = {rule.x1 + x, rule.y1 + y, rule.x2 + x, rule.y2 + y, rule.width, rule.colour};
    }
    template <typename Mark>
    static void shiftMark(Mark &mark, double x, double y)
    {
        shift(mark.box, x, y);
    }

    template <typename Mark>
    void repeat(std::vector<Mark> &marks)
    {
        const int times = m_wild ? byte() * 4 : byte() % 16;
        double x = (byte() - 128) / 4.0;
        double y = (byte() - 128) / 4.0;
        if (!m_wild) { // beside or below one another, like text
            x = x < 0 ? 0 : 6 * m_style.size;
            y = x > 0 ? 0 : 1.2 * m_style.size;
        }
        for (int i = 0; i < times && m_marks < mostMarks && !marks.empty(); ++i) {
            Mark next = marks.back();
            shiftMark(next, x, y);
            add(marks, next);
        }
    }

    void repeatLastMark()
    {
        switch (m_last) {
        case Last::Word:
            return repeat(page().words);
        case Last::Rule:
            return repeat(page().rules);
        case Last::Fill:
            return repeat(page().fills);
        case Last::Picture:
            return repeat(page().pictures);
        case Last::Ink:
            return repeat(page().ink);
        }
    }

    void setStyle()
    {
        static const std::array<QString, 6> families = {
            QStringLiteral("Times New Roman"),
            QStringLiteral("Arial"),
            QStringLiteral("Courier New"),
            QStringLiteral("CMR10"),
            QString(),
            QStringLiteral("a\"'<\\&") + QChar(0xd800)};
        const std::uint8_t random = byte();
        m_style.family = families.at(random % (m_wild ? 6 : 4));
        m_style.fixedPitch = random % 6 == 2;
        m_style.bold = random & 64;
        m_style.italic = random & 128;
        m_style.size = m_wild ? length(40) : 6 + byte() % 24;
        static const std::array<QString, 4> links = {
            QString(), QStringLiteral("https://example.org/?a=1&b=\"2\""), QStringLiteral("#page=2"),
            QStringLiteral("#page=99999999999")};
        m_link = links.at(random / 6 % 4);
        m_style.colour = random * 0x010307U;
    }

    void addPage()
    {
        if (m_pages.size() < mostPages) {
            m_pages.emplace_back();
            page().number = static_cast<int>(m_pages.size());
        }
        if (m_wild && byte() % 4 == 0) {
            page().width = length(width);
            page().height = length(height);
        }
    }

    enum class Last { Word, Rule, Fill, Picture, Ink };

    const std::uint8_t *m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
    bool m_wild;
    std::vector<RawPage> m_pages;
    std::size_t m_marks = 0;
    int m_word = 0;
    Style m_style;
    QString m_link;
    int m_rotation = 0;
    Last m_last = Last::Word;
};

} // namespace

std::vector<RawPage> pagesOf(const std::uint8_t *data, std::size_t size, Marks marks)
{
    return PageReader(data, size, marks).read();
}

} // namespace fuzz
