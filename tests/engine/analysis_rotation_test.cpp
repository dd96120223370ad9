// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_pages.h"
#include "office/office_fixture.h"
#include "page_maker.h"

#include "document/page_transform.h"
#include "document/rotation.h"
#include "odf/cell_places.h"
#include "word/word_placed.h"
#include "writers/slides/slide_grid.h"
#include "xml/xml_writer.h"

#include <QRegularExpression>
#include <QTest>

#include <random>

using namespace quorra;
using namespace quorra::model;

/// Pages whose text runs down, up or upside down: everything counts on the page as shown (see document.h).
class AnalysisRotationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsLieInTheirTables_data() { rotations(); }
    void cellsLieInTheirTables();
    void edgesLieOnTheirTable_data() { rotations(); }
    void edgesLieOnTheirTable();
    void scalingMovesEdgesWithTheirTable_data() { rotations(); }
    void scalingMovesEdgesWithTheirTable();
    void scalingKeepsIndentsAlongTheText_data() { rotations(); }
    void scalingKeepsIndentsAlongTheText();
    void xmlNestsItsBoxes_data() { rotations(); }
    void xmlNestsItsBoxes();
    void htmlAlignsCellsAsUpright_data() { rotations(); }
    void htmlAlignsCellsAsUpright();
    void wordIndentsCellsAsUpright_data() { rotations(); }
    void wordIndentsCellsAsUpright();
    void slidesDrawTheGridAroundItsTable_data() { rotations(); }
    void slidesDrawTheGridAroundItsTable();
    void inverseUndoesARotation();

private:
    static void rotations();
};

namespace {

constexpr double tolerance = 0.02; // XML holds hundredths of points

// A ruled table of random columns and rows under a few lines of prose, its texts at random places in their cells.
RawPage randomTable(unsigned seed)
{
    std::mt19937 engine(seed);
    const auto random = [&engine](int from, int to) {
        return from + static_cast<int>(engine() % static_cast<unsigned>(to - from + 1));
    };
    PageMaker page(1, 600, 800);
    page.lines(40, 60, prose(random(1, 4)));
    std::vector<double> xs{40.0 + random(0, 30)};
    std::vector<double> ys{150.0 + random(0, 30)};
    for (int columns = random(2, 5); columns > 0; --columns) {
        xs.push_back(xs.back() + random(60, 100));
    }
    for (int rows = random(2, 9); rows > 0; --rows) {
        ys.push_back(ys.back() + random(20, 60));
    }
    page.grid(xs, ys);
    for (std::size_t column = 0; column + 1 < xs.size(); ++column) {
        for (std::size_t row = 0; row + 1 < ys.size(); ++row) {
            const int down = random(11, static_cast<int>(ys[row + 1] - ys[row]) - 4);
            page.text(
                xs[column] + random(3, 20), ys[row] + down,
                QStringLiteral("%1%2").arg(QChar(u'a' + random(0, 25)), QString::number(random(0, 99))));
        }
    }
    return page.raw();
}

// The page as a viewer shows it when it is rotated clockwise.
RawPage rotated(RawPage page, int rotation)
{
    return rotatedUpright(std::move(page), (360 - rotation) % 360);
}

bool holds(const Box &outer, const Box &inner)
{
    return inner.left >= outer.left - tolerance && inner.top >= outer.top - tolerance &&
           inner.right <= outer.right + tolerance && inner.bottom <= outer.bottom + tolerance;
}

Box around(const std::vector<double> &xs, const std::vector<double> &ys)
{
    return {xs.front(), ys.front(), xs.back(), ys.back()};
}

QByteArray nearly(const Box &box)
{
    const auto rounded = [](double value) { return QByteArray::number(value, 'f', 2); };
    return rounded(box.left) + ' ' + rounded(box.top) + ' ' + rounded(box.right) + ' ' + rounded(box.bottom);
}

QStringList cellStyles(const QString &html)
{
    static const QRegularExpression cell(QStringLiteral("<t[dh][^>]*>"));
    QStringList found;
    for (auto match = cell.globalMatch(html); match.hasNext();) {
        found += match.next().captured();
    }
    return found;
}

Document scaled(Document document, double scaleX, double scaleY)
{
    for (Page &page : document.pages) {
        model::transformPage(
            page, document.styles, {scaleX, scaleY, 7, 11}, page.width * scaleX + 14, page.height * scaleY + 22);
    }
    return document;
}

} // namespace

void AnalysisRotationTest::rotations()
{
    QTest::addColumn<int>("rotation");
    QTest::addColumn<unsigned>("seed");
    for (const int rotation : {0, 90, 180, 270}) {
        for (unsigned seed = 0; seed < 12; ++seed) {
            QTest::addRow("%d, table %u", rotation, seed) << rotation << seed;
        }
    }
}

void AnalysisRotationTest::cellsLieInTheirTables()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const Document document = buildDocument({rotated(randomTable(seed), rotation)});
    const Table *table = firstTable(document);
    QVERIFY(table);
    QCOMPARE(table->rotation, rotation);
    QVERIFY(holds({0, 0, document.pages[0].width, document.pages[0].height}, table->box));
    for (const Cell &cell : table->cells) {
        QVERIFY2(holds(table->box, cell.box), nearly(cell.box));
        QVERIFY(!cell.paragraphs.empty());
        for (const Paragraph &paragraph : cell.paragraphs) {
            QVERIFY2(cell.box.contains(paragraph.box.centreX(), paragraph.box.centreY()), nearly(paragraph.box));
            QCOMPARE(paragraph.rotation, rotation);
        }
    }
}

void AnalysisRotationTest::edgesLieOnTheirTable()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const Document document = buildDocument({rotated(randomTable(seed), rotation)});
    const Table *table = firstTable(document);
    QVERIFY(table);
    const Page &page = document.pages.front();
    const PageRotation toPage = rotationToPage(table->rotation, page.width, page.height);
    QCOMPARE(nearly(toPage.box(around(table->columnEdges, table->rowEdges))), nearly(table->box));
    const Document upright = buildDocument({randomTable(seed)});
    QCOMPARE(table->columnEdges, firstTable(upright)->columnEdges);
    QCOMPARE(table->rowEdges, firstTable(upright)->rowEdges);
}

void AnalysisRotationTest::scalingMovesEdgesWithTheirTable()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const Document document = scaled(buildDocument({rotated(randomTable(seed), rotation)}), 2, 0.5);
    const Table *table = firstTable(document);
    QVERIFY(table);
    const Page &page = document.pages.front();
    const PageRotation toPage = rotationToPage(table->rotation, page.width, page.height);
    QCOMPARE(nearly(toPage.box(around(table->columnEdges, table->rowEdges))), nearly(table->box));
    for (const Cell &cell : table->cells) {
        const Box upright{
            table->columnEdges.at(static_cast<std::size_t>(cell.column)),
            table->rowEdges.at(static_cast<std::size_t>(cell.row)),
            table->columnEdges.at(static_cast<std::size_t>(cell.column) + static_cast<std::size_t>(cell.columnSpan)),
            table->rowEdges.at(static_cast<std::size_t>(cell.row) + static_cast<std::size_t>(cell.rowSpan))};
        QCOMPARE(nearly(toPage.box(upright)), nearly(cell.box));
    }
}

void AnalysisRotationTest::scalingKeepsIndentsAlongTheText()
{
    QFETCH(int, rotation);
    Page page;
    Paragraph paragraph;
    paragraph.rotation = rotation;
    paragraph.indentLeft = paragraph.indentRight = paragraph.firstLineIndent = 10;
    paragraph.spaceBefore = paragraph.lineDistance = 20;
    page.sections = {{{{0, 0, 600, 800}}, {{paragraph, 0}}}};
    Document made;
    made.pages.push_back(page);
    const Document document = scaled(std::move(made), 2, 3);
    const Paragraph &moved = *document.pages[0].sections[0].blocks[0].paragraph();
    const bool along = rotation % 180 == 0;
    QCOMPARE(moved.indentLeft, along ? 20.0 : 30.0);
    QCOMPARE(moved.indentRight, along ? 20.0 : 30.0);
    QCOMPARE(moved.firstLineIndent, along ? 20.0 : 30.0);
    QCOMPARE(moved.spaceBefore, along ? 60.0 : 40.0);
    QCOMPARE(moved.lineDistance, along ? 60.0 : 40.0);
}

void AnalysisRotationTest::xmlNestsItsBoxes()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writeXml(buffer, scaled(buildDocument({rotated(randomTable(seed), rotation)}), 1.5, 0.75));
    QXmlStreamReader reader(buffer.data());
    std::vector<Box> open;
    int cells = 0;
    int words = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        const auto value = [&reader](const char *name) {
            return reader.attributes().value(QLatin1String(name)).toDouble();
        };
        if (reader.isStartElement()) {
            const bool page = reader.name() == QLatin1String("page");
            const bool boxed = reader.attributes().hasAttribute(QLatin1String("left"));
            const Box box = page           ? Box{0, 0, value("width"), value("height")}
                            : boxed        ? Box{value("left"), value("top"), value("right"), value("bottom")}
                            : open.empty() ? Box{-1e9, -1e9, 1e9, 1e9}
                                           : open.back();
            // Type may reach out of its line's cell; it stays on the page.
            const bool text = reader.name() == QLatin1String("block");
            const Box &outer = open.empty() ? box : text ? open.at(1) : open.back();
            QVERIFY2(holds(outer, box), reader.name().toLatin1() + ' ' + nearly(box) + " in " + nearly(outer));
            open.push_back(box);
            cells += reader.name() == QLatin1String("cell") ? 1 : 0;
            words += reader.name() == QLatin1String("word") ? 1 : 0;
        } else if (reader.isEndElement()) {
            open.pop_back();
        }
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(cells >= 4);
    QVERIFY(words >= cells);
}

void AnalysisRotationTest::htmlAlignsCellsAsUpright()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const QStringList upright = cellStyles(html(buildDocument({randomTable(seed)})));
    QVERIFY(!upright.isEmpty());
    QCOMPARE(cellStyles(html(buildDocument({rotated(randomTable(seed), rotation)}))), upright);
}

void AnalysisRotationTest::wordIndentsCellsAsUpright()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const Document upright = buildDocument({randomTable(seed)});
    const Document other = buildDocument({rotated(randomTable(seed), rotation)});
    const Table wanted = *firstTable(upright);
    const Table found = uprightTable(*firstTable(other));
    QCOMPARE(found.rotation, 0);
    QCOMPARE(found.cells.size(), wanted.cells.size());
    for (std::size_t i = 0; i < found.cells.size(); ++i) {
        const auto a = office::placedInCell(found.cells[i]);
        const auto b = office::placedInCell(wanted.cells[i]);
        QCOMPARE(a.size(), b.size());
        for (std::size_t k = 0; k < a.size(); ++k) {
            QVERIFY(std::abs(a[k].paragraph.indentLeft - b[k].paragraph.indentLeft) < tolerance);
            QVERIFY(std::abs(a[k].paragraph.indentRight - b[k].paragraph.indentRight) < tolerance);
            QVERIFY(std::abs(a[k].paragraph.spaceBefore - b[k].paragraph.spaceBefore) < tolerance);
        }
    }
    // The writer is given the rotated table: the same styles in the same order, whatever their numbers.
    const auto word = [](const Document &document) {
        fixture::Pictures pictures;
        const QString odf = fixture::odf(
            office::OdfKind::Text, [&](office::OdfFile &file) { office::writeFramed(file, document, pictures); });
        static const QRegularExpression tables(
            QStringLiteral("<table:table .*</table:table>"), QRegularExpression::DotMatchesEverythingOption);
        return tables.match(odf).captured();
    };
    QVERIFY(!word(upright).isEmpty());
    QCOMPARE(
        word(other).count(QLatin1String("<table:table-cell ")),
        word(upright).count(QLatin1String("<table:table-cell ")));
}

void AnalysisRotationTest::slidesDrawTheGridAroundItsTable()
{
    QFETCH(int, rotation);
    QFETCH(unsigned, seed);
    const Document document = buildDocument({rotated(randomTable(seed), rotation)});
    const Page &page = document.pages.front();
    Table table = *firstTable(document);
    const PageRotation toPage = rotationToPage(table.rotation, page.width, page.height);
    Box grid;
    for (const Rule &rule : office::gridLines(table)) {
        grid = united(grid, toPage.box({rule.x1, rule.y1, rule.x2, rule.y2}));
    }
    QCOMPARE(nearly(grid), nearly(table.box));
}

void AnalysisRotationTest::inverseUndoesARotation()
{
    for (int quarters = 0; quarters < 4; ++quarters) {
        const PageRotation rotation{quarters, 600, 800};
        const Box box{10, 20, 110, 50};
        QCOMPARE(rotation.inverse().box(rotation.box(box)), box);
        QVERIFY(holds({0, 0, rotation.inverse().width, rotation.inverse().height}, rotation.box(box)));
    }
}

QTEST_APPLESS_MAIN(AnalysisRotationTest)
#include "analysis_rotation_test.moc"
