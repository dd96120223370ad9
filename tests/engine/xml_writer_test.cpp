// SPDX-License-Identifier: GPL-3.0-or-later
// The attributes of the XML format, which programs read: see docs/xml-format.md.
#include "document_maker.h"
#include "html_pages.h"

#include "xml/xml_writer.h"

#include <QBuffer>
#include <QTest>

using namespace quorra;
using namespace quorra::model;

namespace {

QString xmlOf(const Document &document, PictureSource *pictures = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writeXml(buffer, document, pictures);
    return QString::fromUtf8(buffer.data());
}

} // namespace

class XmlWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statesVersionAndUnit()
    {
        DocumentMaker maker;
        maker.document().facts.title = QStringLiteral("A & B");
        QVERIFY(xmlOf(maker.document())
                    .contains(QStringLiteral("<document version=\"1\" unit=\"pt\" title=\"A &amp; B\">")));
    }

    void writesListItems()
    {
        DocumentMaker maker;
        Paragraph item = maker.paragraph(QStringLiteral("b) text"));
        item.role = Role::ListItem;
        ListItem mark;
        mark.mark = QStringLiteral("b)");
        mark.ordered = true;
        mark.level = 1;
        item.listItem = mark;
        maker.add({item, 0});
        QVERIFY(xmlOf(maker.document())
                    .contains(QStringLiteral("role=\"listitem\" level=\"2\" mark=\"b)\" ordered=\"yes\">")));
    }

    void writesEntriesOfContents()
    {
        DocumentMaker maker;
        Paragraph entry = maker.paragraph(QStringLiteral("Cables iv"));
        entry.contentsEntry = ContentsEntry{1, QStringLiteral("iv"), QStringLiteral("#page=6")};
        maker.add({entry, 0});
        QVERIFY(xmlOf(maker.document())
                    .contains(QStringLiteral(" role=\"body\" contents=\"2\" page=\"iv\" target=\"#page=6\">")));
    }

    void writesLanguages()
    {
        DocumentMaker maker;
        Paragraph foreign = maker.paragraph(QStringLiteral("ord"));
        foreign.language = QStringLiteral("sv-SE");
        maker.add({foreign, 0});
        QVERIFY(xmlOf(maker.document()).contains(QStringLiteral(" language=\"sv-SE\"")));
    }

    void writesNotes()
    {
        DocumentMaker maker;
        Paragraph text = maker.paragraph(QStringLiteral("Text 1"));
        text.lines[0].words[1].note = NoteId(2);
        text.lines[0].words[1].shift = BaselineShift::Superscript;
        maker.add({text, 0});
        Paragraph note = maker.paragraph(QStringLiteral("1 Note"));
        note.role = Role::Footnote;
        note.note = NoteId(2);
        maker.add({note, 0});
        const QString xml = xmlOf(maker.document());
        QVERIFY2(xml.contains(QStringLiteral(" shift=\"superscript\" note=\"3\">1</word>")), qPrintable(xml));
        QVERIFY2(xml.contains(QStringLiteral(" role=\"footnote\" note=\"3\">")), qPrintable(xml));
    }

    void writesHowSureRecognitionIs()
    {
        DocumentMaker maker;
        Paragraph text = maker.paragraph(QStringLiteral("One Two three"));
        std::vector<Word> &words = text.lines[0].words;
        words[0].confidence = 0.914;
        words[1].confidence = 0.8;
        words[1].separator = Separator::None;
        words[2].confidence = 0.5;
        maker.add({text, 0});
        QVERIFY(!xmlOf(maker.document()).contains(QStringLiteral("recognised")));
        maker.document().pages[0].recognised = true;
        const QString xml = xmlOf(maker.document());
        QVERIFY2(xml.contains(QStringLiteral(" recognised=\"yes\"")), qPrintable(xml));
        QVERIFY2(xml.contains(QStringLiteral(" confidence=\"0.91\">One</word>")), qPrintable(xml));
        QVERIFY2(xml.contains(QStringLiteral(" confidence=\"0.5\">Twothree</word>")), qPrintable(xml));
    }

    void writesPicturesWithTheirCaptions()
    {
        DocumentMaker maker;
        Figure figure;
        figure.box = {60, 100, 160, 200};
        figure.id = FigureId(1);
        maker.add({figure, 0});
        Paragraph caption = maker.paragraph(QStringLiteral("Figure 1"));
        caption.role = Role::Caption;
        caption.captionOf = figure.id;
        maker.add({caption, 0});
        OnePixel pictures;
        const QString xml = xmlOf(maker.document(), &pictures);
        QVERIFY2(xml.contains(QStringLiteral(" id=\"2\" source=\"data:image/png;base64,MQ==\"/>")), qPrintable(xml));
        QVERIFY2(xml.contains(QStringLiteral(" role=\"caption\" captionof=\"2\">")), qPrintable(xml));
        QVERIFY(!xmlOf(maker.document()).contains(QStringLiteral("source=")));
    }

    void writesHeadsAndBackgroundsOfTables()
    {
        Table table;
        table.columnEdges = {60, 160};
        table.rowEdges = {100, 120, 140};
        table.headerRows = 1;
        Cell head;
        head.background = 0xc0ffee;
        Cell body;
        body.row = 1;
        table.cells = {head, body};
        DocumentMaker maker;
        maker.add({table, 0});
        const QString xml = xmlOf(maker.document());
        QCOMPARE(xml.count(QStringLiteral("header=\"yes\"")), 1);
        QVERIFY2(xml.contains(QStringLiteral("header=\"yes\" background=\"#c0ffee\"/>")), qPrintable(xml));
    }

    void saysWhereHeadersAre()
    {
        DocumentMaker maker;
        Paragraph edge = maker.paragraph(QStringLiteral("Title"));
        edge.role = Role::PageHeader;
        edge.alignment = Alignment::Centre;
        maker.page().header = {edge};
        maker.page().footer = {edge};
        const QString xml = xmlOf(maker.document());
        for (const char *place : {"header", "footer"}) {
            QCOMPARE(
                xml.count(QStringLiteral("role=\"runninghead\" place=\"%1\" alignment=\"centre\">")
                              .arg(QLatin1String(place))),
                1);
        }
    }
};

QTEST_APPLESS_MAIN(XmlWriterTest)
#include "xml_writer_test.moc"
