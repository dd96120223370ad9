// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "odf/common_fonts.h"
#include "odf/font_widths.h"
#include "word/word_flow.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// The replacement of rare fonts, and characters narrower than in the font of the output.
class OfficeCommonFontsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rareFontsGiveWay_data();
    void rareFontsGiveWay();
    void narrowTextIsNarrowed_data();
    void narrowTextIsNarrowed();
    void allTextHasItsWidth();
};

namespace {

constexpr QLatin1String words("several plain words");

model::Style styleOf(const QString &family, bool serif = true)
{
    model::Style style = fixture::style();
    style.family = family;
    style.serif = serif;
    return style;
}

/// A document of one paragraph, whose words are `scale` times as wide as in the common font.
model::Document documentOf(const QString &text, const model::Style &style, double scale = 1)
{
    model::Document document;
    const model::StyleRef shared = document.styles.add(style);
    model::Paragraph paragraph = fixture::paragraph(text, {72, 72, 300, 84}, style);
    for (model::Word &word : paragraph.lines[0].words) {
        word.style = shared;
        word.box.right = word.box.left + scale * textWidth(word.text, style).value_or(word.box.width());
    }
    document.pages = {fixture::page()};
    document.pages[0].sections[0].blocks = {fixture::block(paragraph)};
    return document;
}

QString familyIn(const model::Document &document)
{
    return document.pages[0].sections[0].blocks[0].paragraph()->lines[0].words[0].style->family;
}

} // namespace

void OfficeCommonFontsTest::rareFontsGiveWay_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("serif");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("rare serif") << "Foundry Old Style" << true << QString(words) << "Times New Roman";
    QTest::newRow("rare sans serif") << "Foundry Grotesque" << false << QString(words) << "Arial";
    QTest::newRow("widespread") << "Georgia" << true << QString(words) << "Georgia";
    QTest::newRow("of known widths") << "Helvetica" << false << QString(words) << "Helvetica";
    QTest::newRow("none") << "" << false << QString(words) << "";
    QTest::newRow("signs") << "Foundry Signs" << false << QStringLiteral("\u2708\u2709 \u270c") << "Foundry Signs";
}

void OfficeCommonFontsTest::rareFontsGiveWay()
{
    QFETCH(QString, family);
    QFETCH(bool, serif);
    QFETCH(QString, text);
    model::Document document = documentOf(text, styleOf(family, serif));
    replaceRareFonts(document);
    QTEST(familyIn(document), "expected");
}

void OfficeCommonFontsTest::narrowTextIsNarrowed_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<double>("onPage");
    QTest::addColumn<double>("expected"); // 0 for none
    QTest::newRow("as wide") << "Arial" << 1.0 << 0.0;
    QTest::newRow("wider") << "Arial" << 1.2 << 0.0;
    QTest::newRow("hardly narrower") << "Arial" << 0.986 << 0.0;
    QTest::newRow("narrower") << "Arial" << 0.93 << 0.93;
    QTest::newRow("much narrower") << "Arial" << 0.5 << 0.7;
    QTest::newRow("in a font of unknown widths") << "Verdana" << 0.8 << 0.0;
}

void OfficeCommonFontsTest::narrowTextIsNarrowed()
{
    QFETCH(QString, family);
    QFETCH(double, onPage);
    QFETCH(double, expected);
    const model::Style style = styleOf(family, false);
    const WidthScales scales = characterScales(documentOf(QString(words), style, onPage));
    const auto found = scales.find(sizedFont(style));
    QCOMPARE(found == scales.end() ? 0 : found->second, expected);
}

// Text without the attribute would take that of its named style.
void OfficeCommonFontsTest::allTextHasItsWidth()
{
    model::Document document = documentOf(QString(words), styleOf(QStringLiteral("Arial"), false), 0.9);
    document.pages[0].sections[0].blocks.push_back(
        fixture::block(fixture::paragraph(QString(words), {72, 100, 300, 112}, styleOf(QStringLiteral("Georgia")))));
    fixture::Pictures pictures;
    const auto write = [&](const WidthScales &scales) {
        return fixture::odf(OdfKind::Text, [&](OdfFile &file) {
            file.styles().setWidthScales(scales);
            writeFlow(file, document, pictures, flowForms::inColumns);
        });
    };
    const QString narrowed = write(characterScales(document));
    QVERIFY(narrowed.contains(QLatin1String("style:text-scale=\"90%\"")));
    QVERIFY(narrowed.contains(QLatin1String("style:text-scale=\"100%\"")));
    QVERIFY(!write({}).contains(QLatin1String("style:text-scale")));
}

QTEST_APPLESS_MAIN(OfficeCommonFontsTest)
#include "office_common_fonts_test.moc"
