// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/character_texts.h"

#include <GlobalParams.h>

#include <QTest>

using namespace quorra;

/// What the names of glyphs and the places in fonts of signs stand for.
class CharacterTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { globalParams = std::make_unique<GlobalParams>(); }
    void cleanupTestCase() { globalParams.reset(); }
    void readsGlyphNames_data();
    void readsGlyphNames();
    void knowsFontsOfSigns_data();
    void knowsFontsOfSigns();
    void readsPlaces_data();
    void readsPlaces();
    void readsPrivateCodePoints_data();
    void readsPrivateCodePoints();
};

void CharacterTextsTest::readsGlyphNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<unsigned>("character");
    QTest::newRow("usual") << QByteArray("bullet") << 0x2022U;
    QTest::newRow("arrow") << QByteArray("arrowright") << 0x2192U;
    QTest::newRow("uni") << QByteArray("uni25A0") << 0x25a0U;
    QTest::newRow("u") << QByteArray("u1F600") << 0x1f600U;
    QTest::newRow("uni with few digits") << QByteArray("uni25A") << 0U;
    QTest::newRow("variant") << QByteArray("A.alt") << 0x41U;
    QTest::newRow("large bracket") << QByteArray("parenleftBig") << 0x28U;
    QTest::newRow("larger bracket") << QByteArray("bracketrightBigg") << 0x5dU;
    QTest::newRow("large sum") << QByteArray("summationdisplay") << 0x2211U;
    QTest::newRow("part of a bracket") << QByteArray("parenlefttp") << 0x239bU;
    QTest::newRow("number") << QByteArray("g37") << 0U;
    QTest::newRow("nothing") << QByteArray(".notdef") << 0U;
    QTest::newRow("empty") << QByteArray("") << 0U;
}

void CharacterTextsTest::readsGlyphNames()
{
    QFETCH(QByteArray, name);
    QFETCH(unsigned, character);
    QCOMPARE(characterOfGlyphName(name.constData()), character);
    QCOMPARE(characterOfGlyphName(nullptr), 0U);
}

void CharacterTextsTest::knowsFontsOfSigns_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("font");
    const auto row = [](const char *name, SymbolFont font) {
        QTest::newRow(name) << QByteArray(name) << static_cast<int>(font);
    };
    row("Symbol", SymbolFont::Symbol);
    row("ABCDEF+SymbolMT,Bold", SymbolFont::Symbol);
    row("Symbola", SymbolFont::None);
    row("Wingdings-Regular", SymbolFont::Wingdings);
    row("ABCDEF+Wingdings 2", SymbolFont::Wingdings2);
    row("Wingdings3", SymbolFont::Wingdings3);
    row("ZapfDingbats", SymbolFont::Dingbats);
    row("ITCZapfDingbats-Medium", SymbolFont::Dingbats);
    row("Webdings", SymbolFont::Unknown);
    row("Helvetica", SymbolFont::None);
    row("", SymbolFont::None);
}

void CharacterTextsTest::knowsFontsOfSigns()
{
    QFETCH(QByteArray, name);
    QFETCH(int, font);
    QCOMPARE(static_cast<int>(symbolFontOf(name.toStdString())), font);
}

void CharacterTextsTest::readsPlaces_data()
{
    QTest::addColumn<int>("font");
    QTest::addColumn<unsigned>("place");
    QTest::addColumn<unsigned>("character");
    const auto row = [](const char *name, SymbolFont font, unsigned place, char32_t character) {
        QTest::newRow(name) << static_cast<int>(font) << place << static_cast<unsigned>(character);
    };
    row("first Greek letter", SymbolFont::Symbol, 0x41, U'Α');
    row("last Greek letter", SymbolFont::Symbol, 0x7a, U'ζ');
    row("bullet", SymbolFont::Symbol, 0xb7, U'•');
    row("implication", SymbolFont::Symbol, 0xde, U'⇒');
    row("last part of a bracket", SymbolFont::Symbol, 0xfe, U'⎭');
    row("circle", SymbolFont::Wingdings, 0x6c, U'●');
    row("square", SymbolFont::Wingdings, 0xa7, U'▪');
    row("arrow", SymbolFont::Wingdings, 0xe0, U'→');
    row("tick", SymbolFont::Wingdings, 0xfc, U'✓');
    row("ticked box", SymbolFont::Wingdings2, 0x52, U'☑');
    row("arrow to the right", SymbolFont::Wingdings3, 0x67, U'→');
    row("dingbat", SymbolFont::Dingbats, 0x34, U'✔');
    row("arrow among dingbats", SymbolFont::Dingbats, 0xd4, U'➔');
    row("last dingbat", SymbolFont::Dingbats, 0xfe, U'➾');
    row("no place", SymbolFont::Dingbats, 0xf0, 0);
    row("beyond the font", SymbolFont::Symbol, 0x100, 0);
    row("no font of signs", SymbolFont::None, 0x6c, 0);
}

void CharacterTextsTest::readsPlaces()
{
    QFETCH(int, font);
    QFETCH(unsigned, place);
    QFETCH(unsigned, character);
    QCOMPARE(static_cast<unsigned>(symbolOf(static_cast<SymbolFont>(font), place)), character);
}

void CharacterTextsTest::readsPrivateCodePoints_data()
{
    QTest::addColumn<int>("font");
    QTest::addColumn<unsigned>("code");
    QTest::addColumn<unsigned>("character");
    const auto row = [](const char *name, SymbolFont font, unsigned code, char32_t character) {
        QTest::newRow(name) << static_cast<int>(font) << code << static_cast<unsigned>(character);
    };
    row("bullet of any font", SymbolFont::None, 0xf0b7, U'•');
    row("square of any font", SymbolFont::None, 0xf0a7, U'▪');
    row("letter of any font", SymbolFont::None, 0xf06c, 0);
    row("the same in a font of signs", SymbolFont::Wingdings, 0xf06c, U'●');
    row("Greek letter", SymbolFont::Symbol, 0xf061, U'α');
    row("part of a bracket", SymbolFont::None, 0xf8eb, U'⎛');
    row("last part of a bracket", SymbolFont::None, 0xf8fe, U'⎭');
    row("beyond the brackets", SymbolFont::None, 0xf8ff, 0);
    row("icon", SymbolFont::None, 0xe012, 0);
}

void CharacterTextsTest::readsPrivateCodePoints()
{
    QFETCH(int, font);
    QFETCH(unsigned, code);
    QFETCH(unsigned, character);
    QCOMPARE(static_cast<unsigned>(plainSymbol(static_cast<SymbolFont>(font), code)), character);
}

QTEST_GUILESS_MAIN(CharacterTextsTest)
#include "character_texts_test.moc"
