// SPDX-License-Identifier: GPL-3.0-or-later
#include "model_pages.h"

#include "engine/writers/html_writer.h"
#include "engine/writers/xml_text.h"

#include <QBuffer>
#include <QTest>
#include <QXmlStreamReader>

using namespace quorra;
using namespace quorra::model;

namespace {

class OnePixel : public PictureSource
{
public:
    EncodedPicture encode(int page, const Box &, PictureKind) override
    {
        return {QByteArray::number(page), "image/png", 1, 1};
    }
    EncodedPicture background(int) override { return {}; }
};

QString html(Document document, bool xhtml = false)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    OnePixel pictures;
    joinContinuations(document, true);
    writeHtml(buffer, document, pictures, {xhtml, QStringLiteral("a < b")});
    return QString::fromUtf8(buffer.data());
}

QString errorOf(const QString &xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
    }
    return reader.errorString();
}

} // namespace

class HtmlWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesStructure()
    {
        PageMaker page;
        page.bold(60, 60, QStringLiteral("Title & more"), 20);
        page.lines(60, 100, prose(4));
        page.text(70, 160, QStringLiteral("•"));
        page.text(84, 160, QStringLiteral("an entry"));
        page.text(84, 176, QStringLiteral("◦"));
        page.text(98, 176, QStringLiteral("a deeper one"));
        page.text(70, 192, QStringLiteral("•"));
        page.text(84, 192, QStringLiteral("the next"));
        page.grid({60, 160, 260}, {220, 240, 260});
        page.text(70, 234, QStringLiteral("cell"));
        page.text(170, 254, QStringLiteral("other"));
        page.raw().pictures.push_back({{60, 300, 160, 400}, PictureKind::Image});
        const QString text = html(page.build());
        QCOMPARE(errorOf(text), QString());
        QVERIFY(text.startsWith(QStringLiteral("<!DOCTYPE html>")));
        QVERIFY(text.contains(QStringLiteral("<title>a &lt; b</title>")));
        QVERIFY(text.contains(QStringLiteral("Title &amp; more</span></h1>")));
        QVERIFY(
            text.contains(QStringLiteral("<ul><li>an entry<ul><li>a deeper one</li></ul></li><li>the next</li></ul>")));
        QCOMPARE(text.count(QStringLiteral("<tr>")), 2);
        QCOMPARE(text.count(QStringLiteral("<td")), 4);
        QVERIFY(text.contains(QStringLiteral("src=\"data:image/png;base64,MQ==\"")));
    }

    void writesLooksAndLinks()
    {
        PageMaker page;
        double x = page.text(60, 100, QStringLiteral("This is plain text, then"));
        Style style = page.raw().words.front().style;
        style.bold = true;
        style.italic = true;
        style.colour = 0xff0000;
        style.link = QStringLiteral("#page=3");
        x = page.styled(x, 100, QStringLiteral("red"), style);
        page.text(x, 100, QStringLiteral("and more plain text up to the end."));
        const QString text = html(page.build());
        QVERIFY2(
            text.contains(QStringLiteral(
                "<a href=\"#page-3\"><span style=\"color:#ff0000\"><b><i>red </i></b></span></a>and more")),
            qPrintable(text));
    }

    void writesXhtml()
    {
        PageMaker page;
        page.lines(60, 100, prose(4));
        const QString text = html(page.build(), true);
        QCOMPARE(errorOf(text), QString());
        QVERIFY(text.startsWith(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>")));
        QVERIFY(text.contains(QStringLiteral("xmlns=\"http://www.w3.org/1999/xhtml\"")));
    }

    void marksRightToLeft()
    {
        PageMaker page;
        page.text(100, 100, QString::fromUtf8("עולם שלום"));
        QVERIFY(html(page.build()).contains(QStringLiteral("dir=\"rtl\"")));
    }

    void emptyDocumentIsValid() { QCOMPARE(errorOf(html(buildDocument({RawPage()}))), QString()); }

    void dropsWhatXmlForbids()
    {
        QCOMPARE(xmlText(QString::fromUtf8("a\tb")), QString::fromUtf8("a\tb"));
        QCOMPARE(
            xmlText(QStringLiteral("a") + QChar(1) + QChar(0xffff) + QChar(0xd800) + QStringLiteral("b")),
            QStringLiteral("ab"));
        QCOMPARE(xmlText(QString::fromUtf8("😀")), QString::fromUtf8("😀"));
    }
};

QTEST_APPLESS_MAIN(HtmlWriterTest)
#include "html_writer_test.moc"
