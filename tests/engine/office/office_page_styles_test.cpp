// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "document/page_number.h"
#include "word/word_flow.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace quorra;
using namespace quorra::office;

namespace {

/// A footer with these words at the right edge, of which the number is the page's and the last one, if there are
/// three, the number of pages.
model::Paragraph footerOf(const QString &text, double right = 540)
{
    const double width = 5 * static_cast<double>(text.size());
    model::Paragraph footer = fixture::paragraph(text, {right - width, 750, right, 762});
    bool hasNumber = false;
    for (model::Word &word : footer.lines.front().words) {
        if (model::readPageNumber(word.text)) {
            word.field = hasNumber ? model::PageField::Count : model::PageField::Number;
            hasNumber = true;
        }
    }
    return footer;
}

model::Document documentWith(const QStringList &footers)
{
    std::vector<model::Page> pages;
    for (const QString &text : footers) {
        model::Page page = fixture::page();
        page.number = static_cast<int>(pages.size()) + 1;
        page.sections[0].blocks = {fixture::block(fixture::paragraph(u"body"_s, {72, 72, 300, 84}))};
        if (!text.isEmpty()) {
            page.footer = {footerOf(text)};
        }
        pages.push_back(page);
    }
    return fixture::document(std::move(pages));
}

QString flow(const model::Document &document, const FlowForm &form = flowForms::inColumns)
{
    fixture::Pictures pictures;
    return fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeFlow(file, document, pictures, form); });
}

qsizetype mastersIn(const QString &text)
{
    return text.count("<style:master-page "_L1);
}

} // namespace

/// Which pages of flowing text share headers and footers, and how their numbers count.
class OfficePageStylesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberedPagesShareTheirFooter()
    {
        const QString text = flow(documentWith({u"Page 9 of 3"_s, u"Page 10 of 3"_s, u"Page 11 of 3"_s}));
        QCOMPARE(mastersIn(text), 1);
        QCOMPARE(text.count("<text:page-number "_L1), 1);
        QCOMPARE(text.count("<text:page-count "_L1), 1);
        QVERIFY(text.contains("select-page=\"current\">9</text:page-number>"_L1));
        QCOMPARE(text.count("style:page-number=\"9\""_L1), 1); // of the first page, from which the others count
        QCOMPARE(text.count("fo:break-before=\"page\""_L1), 1);
    }

    void otherTextIsAnotherFooter()
    {
        QCOMPARE(mastersIn(flow(documentWith({u"North 1"_s, u"North 2"_s, u"South 3"_s, u"South 4"_s}))), 2);
    }

    void pagesWithoutFooterAreOthers() { QCOMPARE(mastersIn(flow(documentWith({{}, u"Page 2"_s, u"Page 3"_s}))), 2); }

    void leftAndRightPagesTakeTurns()
    {
        const model::Document document = documentWith({u"North 1"_s, u"2 South"_s, u"North 3"_s, u"4 South"_s});
        const QString text = flow(document);
        QCOMPARE(mastersIn(text), 1);
        QVERIFY(text.section("<style:footer>"_L1, 1).section("</style:footer>"_L1, 0, 0).contains("North"_L1));
        QVERIFY(
            text.section("<style:footer-left>"_L1, 1).section("</style:footer-left>"_L1, 0, 0).contains("South"_L1));
        QCOMPARE(mastersIn(flow(document, forRichText(flowForms::inColumns))), 2);
    }

    void romanNumbersComeFirst()
    {
        const model::Document document = documentWith({u"Log ii"_s, u"Log iii"_s, u"Log 1"_s, u"Log 2"_s});
        const QString text = flow(document);
        QCOMPARE(mastersIn(text), 2);
        QVERIFY(text.contains("style:num-format=\"i\" text:select-page=\"current\">ii<"_L1));
        QCOMPARE(text.count("style:page-number=\"2\""_L1), 1);
        QCOMPARE(text.count("style:page-number=\"1\""_L1), 1);
    }

    void numbersThatBeginAnewAreTextInRichText()
    {
        const QString text =
            flow(documentWith({u"Log 1"_s, u"Log 7"_s, u"Log 8"_s}), forRichText(flowForms::inColumns));
        QCOMPARE(text.count("<text:page-number "_L1), 1);
        QVERIFY(!text.contains("style:page-number="_L1));
        QVERIFY(text.contains("Log 7"_L1) && text.contains("Log 8"_L1));
    }

    void otherSizesAreOthers()
    {
        model::Document document = documentWith({u"Log 1"_s, u"Log 2"_s, u"Log 3"_s});
        document.pages[1].width = 842;
        QCOMPARE(mastersIn(flow(document)), 2);
    }

    void placesTellFooters()
    {
        model::Document document = documentWith({u"Log 1"_s, u"Log 2"_s});
        document.pages[1].footer = {footerOf(u"Log 2"_s, 300)};
        QCOMPARE(mastersIn(flow(document)), 2);
    }
};

QTEST_APPLESS_MAIN(OfficePageStylesTest)
#include "office_page_styles_test.moc"
