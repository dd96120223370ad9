// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/drawn_signs.h"

#include "figures/rectangles.h"
#include "text_lines/text_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorra::model {

namespace {

/// Lengths in points unless another unit is named.
struct Thresholds
{
    double minBox = 4.5;             ///< a smaller square is a bullet
    double maxBox = 16;              ///< a larger one is a field to write in
    double maxBoxRatio = 1.3;        ///< of the longer side to the shorter one
    double maxContact = 0.8;         ///< lines that are this close touch the box: it is a cell of a table
    double maxOverhang = 1.6;        ///< of the box: by which a tick may be larger than it
    double maxTextGap = 3;           ///< em between a box and the text that it belongs to
    int nearlyWhite = 240;           ///< least of red, green and blue of a colour that leaves a box empty
    double minDot = 1.2;             ///< a smaller dot is the point of a leader or a speck
    double maxDot = 7;               ///< a larger one is an icon, which keeps its look
    double maxDotSize = 0.75;        ///< em: a larger one is no bullet of this text
    double maxDotGap = 3.5;          ///< em between a bullet and its text
    double minTextBefore = 1.5;      ///< em: text that ends closer before a dot makes it a part of the line
    double sameDot = 1;              ///< difference of place and size between the bullets of a list
    std::size_t minDots = 2;         ///< of one list
    std::size_t maxCandidates = 400; ///< more are the points of a diagram
};
constexpr Thresholds thresholds;

bool isPale(Colour colour)
{
    const auto least = static_cast<Colour>(thresholds.nearlyWhite);
    return (colour >> 16U & 0xffU) >= least && (colour >> 8U & 0xffU) >= least && (colour & 0xffU) >= least;
}

bool isSquare(const Box &box, double least, double most)
{
    const double shorter = std::min(box.width(), box.height());
    const double longer = std::max(box.width(), box.height());
    return shorter >= least && longer <= most && longer <= thresholds.maxBoxRatio * shorter;
}

bool isMostlyIn(const Box &inner, const Box &box)
{
    return box.contains(inner.centreX(), inner.centreY()) && inner.width() <= thresholds.maxOverhang * box.width() &&
           inner.height() <= thresholds.maxOverhang * box.height();
}

Box boxOf(const Rule &rule)
{
    return {rule.x1, rule.y1, rule.x2, rule.y2};
}

/// The nearest words on the line of a sign.
struct Neighbours
{
    const RawWord *before = nullptr;
    const RawWord *after = nullptr;
};

Neighbours neighboursOf(const RawPage &page, const Box &sign)
{
    Neighbours found;
    for (const RawWord &word : page.words) {
        const Box body = bodyOf(word);
        const bool sameLine = word.rotation == 0 && body.top < sign.centreY() && sign.centreY() < word.box.bottom;
        if (sameLine && word.box.left >= sign.right - 1 && (!found.after || word.box.left < found.after->box.left)) {
            found.after = &word;
        } else if (
            sameLine && word.box.right <= sign.left + 1 &&
            (!found.before || word.box.right > found.before->box.right)) {
            found.before = &word;
        }
    }
    return found;
}

bool isWithin(const RawWord *word, double gap, double most)
{
    return word && gap <= most * word->style.size;
}

RawWord signWord(const QString &sign, const Box &box, const RawWord &beside)
{
    RawWord word = beside;
    word.text = sign;
    word.link.clear();
    word.spaceAfter = true;
    word.endsLine = true;
    word.style.bold = false;
    word.style.italic = false;
    word.box.left = box.left;
    word.box.right = box.right;
    return word;
}

/// A sign found, and the word beside it.
struct Sign
{
    RawWord word;
    const RawWord *beside = nullptr;
};

class SignFinder
{
public:
    explicit SignFinder(RawPage &page) : m_page(page) {}

    void findCheckBoxes();
    void findBullets();
    void insert();

private:
    std::optional<QString> checkBox(const Box &box) const;
    void dropCheckBox(const Box &box);
    void addBullets(const std::vector<Box> &dots, const QString &bullet);
    std::vector<Box> bulletsAmong(const std::vector<Box> &dots) const;

    RawPage &m_page;
    std::vector<Sign> m_signs;
    std::vector<std::size_t> m_ticks; // words that are in boxes
};

// The sign for a square, empty where it is something else.
std::optional<QString> SignFinder::checkBox(const Box &box) const
{
    bool marked = false;
    for (const Rule &rule : m_page.rules) {
        if (!isSideOf(rule, box) && touch(boxOf(rule), box, thresholds.maxContact)) {
            if (!isMostlyIn(boxOf(rule), box)) {
                return {};
            }
            marked = true;
        }
    }
    for (const Fill &fill : m_page.fills) {
        if (isMostlyIn(fill.box, box) && !isPale(fill.colour)) {
            const bool whole = fill.box.width() >= box.width() - 1 && fill.box.height() >= box.height() - 1;
            if (whole) { // the key of a diagram's colour
                return {};
            }
            marked = true;
        }
    }
    marked = marked || std::any_of(m_page.ink.begin(), m_page.ink.end(), [&box](const Ink &ink) {
                 return isMostlyIn(ink.box, box);
             });
    bool ticked = false;
    for (const RawWord &word : m_page.words) {
        if (box.contains(word.box.centreX(), word.box.centreY())) {
            const bool isMark = word.text.size() == 1 && !word.text.front().isDigit() &&
                                (!word.text.front().isLetter() || word.text.toLower() == QLatin1String("x"));
            if (!isMark) {
                return {};
            }
            marked = true;
            ticked = word.text.front() == QChar(0x2713) || word.text.front() == QChar(0x2714);
        }
    }
    return QString(QChar(ticked ? 0x2611 : marked ? 0x2612 : 0x2610));
}

// The lines and the marks of the box; its tick, where that is a word, goes when all boxes are found.
void SignFinder::dropCheckBox(const Box &box)
{
    const auto drop = [](auto &marks, const auto &belongs) {
        marks.erase(std::remove_if(marks.begin(), marks.end(), belongs), marks.end());
    };
    drop(m_page.rules, [&box](const Rule &rule) { return isSideOf(rule, box) || isMostlyIn(boxOf(rule), box); });
    drop(m_page.fills, [&box](const Fill &fill) { return isMostlyIn(fill.box, box); });
    drop(m_page.ink, [&box](const Ink &ink) { return isMostlyIn(ink.box, box); });
    for (std::size_t i = 0; i < m_page.words.size(); ++i) {
        if (box.contains(m_page.words[i].box.centreX(), m_page.words[i].box.centreY())) {
            m_ticks.push_back(i);
        }
    }
}

void SignFinder::findCheckBoxes()
{
    std::vector<Box> boxes = drawnRectangles(m_page.rules);
    boxes.erase(
        std::remove_if(
            boxes.begin(), boxes.end(),
            [](const Box &box) { return !isSquare(box, thresholds.minBox, thresholds.maxBox); }),
        boxes.end());
    if (boxes.size() > thresholds.maxCandidates) {
        return;
    }
    for (const Box &box : boxes) {
        const std::optional<QString> sign = checkBox(box);
        const Neighbours beside = neighboursOf(m_page, box);
        const RawWord *text = nullptr;
        if (beside.after && isWithin(beside.after, beside.after->box.left - box.right, thresholds.maxTextGap)) {
            text = beside.after;
        } else if (
            beside.before && isWithin(beside.before, box.left - beside.before->box.right, thresholds.maxTextGap)) {
            text = beside.before;
        }
        if (sign && text) {
            m_signs.push_back({signWord(*sign, box, *text), text});
            dropCheckBox(box);
        }
    }
}

// Those of the dots that precede text, one below the other.
std::vector<Box> SignFinder::bulletsAmong(const std::vector<Box> &dots) const
{
    std::vector<Box> bullets;
    for (const Box &dot : dots) {
        const Neighbours beside = neighboursOf(m_page, dot);
        if (beside.after && isWithin(beside.after, beside.after->box.left - dot.right, thresholds.maxDotGap) &&
            dot.height() <= thresholds.maxDotSize * beside.after->style.size &&
            !isWithin(
                beside.before, beside.before ? dot.left - beside.before->box.right : 0, thresholds.minTextBefore)) {
            bullets.push_back(dot);
        }
    }
    const auto alike = [](const Box &a, const Box &b) {
        return std::abs(a.left - b.left) <= thresholds.sameDot &&
               std::abs(a.width() - b.width()) <= thresholds.sameDot && std::abs(a.top - b.top) > a.height();
    };
    std::vector<Box> lists;
    for (const Box &dot : bullets) {
        const auto others =
            std::count_if(bullets.begin(), bullets.end(), [&](const Box &other) { return alike(dot, other); });
        if (static_cast<std::size_t>(others) + 1 >= thresholds.minDots) {
            lists.push_back(dot);
        }
    }
    return lists;
}

void SignFinder::addBullets(const std::vector<Box> &dots, const QString &bullet)
{
    if (dots.size() > thresholds.maxCandidates) {
        return;
    }
    for (const Box &dot : bulletsAmong(dots)) {
        const RawWord *text = neighboursOf(m_page, dot).after;
        m_signs.push_back({signWord(bullet, dot, *text), text});
        const auto isDot = [&dot](const auto &mark) { return mark.box == dot; };
        m_page.ink.erase(std::remove_if(m_page.ink.begin(), m_page.ink.end(), isDot), m_page.ink.end());
        m_page.fills.erase(std::remove_if(m_page.fills.begin(), m_page.fills.end(), isDot), m_page.fills.end());
    }
}

void SignFinder::findBullets()
{
    const auto isDot = [](const Box &box) { return isSquare(box, thresholds.minDot, thresholds.maxDot); };
    std::vector<Box> round;
    for (const Ink &ink : m_page.ink) {
        if (!ink.frame && isDot(ink.box)) {
            round.push_back(ink.box);
        }
    }
    std::vector<Box> square;
    for (const Fill &fill : m_page.fills) {
        if (isDot(fill.box) && !isPale(fill.colour)) {
            square.push_back(fill.box);
        }
    }
    addBullets(round, QStringLiteral("•"));
    addBullets(square, QStringLiteral("▪"));
}

// Puts each sign before its text, or behind it where it is at the end of a line.
void SignFinder::insert()
{
    if (m_signs.empty()) {
        return;
    }
    std::vector<RawWord> words;
    words.reserve(m_page.words.size() + m_signs.size());
    const auto add = [&](const RawWord *beside, bool before) {
        for (const Sign &sign : m_signs) {
            if (sign.beside == beside && (sign.word.box.left < beside->box.left) == before) {
                words.push_back(sign.word);
            }
        }
    };
    for (std::size_t i = 0; i < m_page.words.size(); ++i) {
        const RawWord &word = m_page.words[i];
        add(&word, true);
        if (std::find(m_ticks.begin(), m_ticks.end(), i) == m_ticks.end()) {
            words.push_back(word);
        }
        add(&word, false);
    }
    m_page.words = std::move(words);
}

} // namespace

RawPage withDrawnSigns(RawPage page)
{
    SignFinder finder(page);
    finder.findCheckBoxes();
    finder.findBullets();
    finder.insert();
    return page;
}

} // namespace quorra::model
