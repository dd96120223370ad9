// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/drawn_characters.h"

#include <GfxState.h>
#include <Page.h>

#include <QTest>

#include <memory>

using namespace quorra;

namespace {

constexpr double em = 10;
constexpr Colour red = 0xff0000;
constexpr int invisible = 3;

} // namespace

/// What DrawnCharacters finds out about characters that are drawn twice, without paint, or are covered.
class DrawnCharactersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsTextThatIsDrawnOnce();
    void dropsARepetitionNearby();
    void keepsARepetitionFartherAway();
    void keepsAnotherCharacterInThePlace();
    void keepsARepetitionOfAnotherSize();
    void takesTheColourDrawnLast();
    void findsInvisibleText();
    void seesTextThatIsPaintedTheSecondTime();
    void findsCoveredText();
    void seesTextThatIsDrawnAgainOnTheCover();
    void leavesTextPartlyCovered();
    void forgetsThePage();

private:
    /// Draws the letters of a word with half an em each; returns how many of them are new.
    int draw(double x, const char *word, double y = 100)
    {
        int added = 0;
        for (const char *letter = word; *letter != '\0'; ++letter, x += em / 2) {
            const Unicode c = static_cast<unsigned char>(*letter);
            added += m_characters.add(m_state.get(), x, y, 1, &c, 1) ? 1 : 0;
        }
        return added;
    }

    DrawnCharacters::Appearance appearance()
    {
        m_characters.finish();
        return m_characters.appearanceOf(0, 4, m_body, black);
    }

    void setSize(double size) { m_state->setFont(nullptr, size); }

    void setColour(double r, double g, double b)
    {
        GfxColor colour{};
        colour.c[0] = dblToCol(r);
        colour.c[1] = dblToCol(g);
        colour.c[2] = dblToCol(b);
        m_state->setFillColor(&colour);
    }

    const Box m_body{20, 92, 40, 100}; // of a word of four letters at x = 20
    DrawnCharacters m_characters;
    std::unique_ptr<GfxState> m_state;
};

void DrawnCharactersTest::init()
{
    const PDFRectangle page(0, 0, 600, 800);
    m_state = std::make_unique<GfxState>(72, 72, &page, 0, true);
    m_state->setFillColorSpace(new GfxDeviceRGBColorSpace()); // the state owns it
    setColour(0, 0, 0);
    setSize(em);
    m_characters = {};
    m_characters.clear();
}

void DrawnCharactersTest::keepsTextThatIsDrawnOnce()
{
    QCOMPARE(draw(20, "seem"), 4);
    const auto seen = appearance();
    QVERIFY(!seen.invisible && !seen.covered && !seen.overprinted && !seen.colour);
    QVERIFY(!m_characters.hasInvisible());
}

void DrawnCharactersTest::dropsARepetitionNearby()
{
    draw(20, "seem");
    QCOMPARE(draw(20 + 0.09 * em, "seem"), 0);
    QVERIFY(appearance().overprinted);
}

void DrawnCharactersTest::keepsARepetitionFartherAway()
{
    draw(20, "seem");
    QCOMPARE(draw(20 + 0.11 * em, "seem"), 4);
    QVERIFY(!appearance().overprinted);
}

void DrawnCharactersTest::keepsAnotherCharacterInThePlace()
{
    draw(20, "seem");
    QCOMPARE(draw(20, "____"), 4);
}

void DrawnCharactersTest::keepsARepetitionOfAnotherSize()
{
    draw(20, "seem");
    setSize(1.2 * em);
    QCOMPARE(draw(20, "s"), 1);
}

void DrawnCharactersTest::takesTheColourDrawnLast()
{
    draw(20, "seem");
    setColour(1, 0, 0);
    QCOMPARE(draw(20.5, "seem"), 0);
    const auto seen = appearance();
    QCOMPARE(seen.colour, std::optional<Colour>(red));
    QVERIFY(!seen.overprinted); // a shadow makes nothing bold
}

void DrawnCharactersTest::findsInvisibleText()
{
    m_state->setRender(invisible);
    QCOMPARE(draw(20, "seem"), 4);
    QVERIFY(m_characters.hasInvisible());
    QVERIFY(appearance().invisible);
}

void DrawnCharactersTest::seesTextThatIsPaintedTheSecondTime()
{
    m_state->setRender(invisible);
    draw(20, "seem");
    m_state->setRender(0);
    QCOMPARE(draw(20, "seem"), 0);
    QVERIFY(!appearance().invisible);
}

void DrawnCharactersTest::findsCoveredText()
{
    draw(20, "seem");
    m_characters.cover({10, 80, 60, 110}, DrawnCharacters::Cover::Image);
    QVERIFY(appearance().covered);
    QVERIFY(appearance().underImage);
}

void DrawnCharactersTest::seesTextThatIsDrawnAgainOnTheCover()
{
    draw(20, "seem");
    m_characters.cover({10, 80, 60, 110}, DrawnCharacters::Cover::Fill);
    draw(20, "seem");
    const auto seen = appearance();
    QVERIFY(!seen.covered);
    QVERIFY(!seen.overprinted); // one of the two is not seen
}

void DrawnCharactersTest::leavesTextPartlyCovered()
{
    draw(20, "seem");
    m_characters.cover({23, 80, 60, 110}, DrawnCharacters::Cover::Fill);
    QVERIFY(!appearance().covered);
}

void DrawnCharactersTest::forgetsThePage()
{
    draw(20, "seem");
    m_characters.clear();
    QCOMPARE(draw(20, "seem"), 4);
    QVERIFY(!appearance().overprinted);
}

QTEST_GUILESS_MAIN(DrawnCharactersTest)
#include "drawn_characters_test.moc"
