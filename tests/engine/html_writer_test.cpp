// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_pages.h"

#include "base/xml_text.h"

#include <QTest>
#include <QXmlStreamReader>

using namespace quorra;
using namespace quorra::model;

namespace {

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
        page.raw().pictures.push_back({{60, 300, 160, 400}});
        page.raw().pictures.push_back({{110, 420, 210, 500}});
        const QString text = html(page.build());
        QCOMPARE(text.count(QStringLiteral("<div class=\"picture\"")), 1);
        QCOMPARE(text.count(QStringLiteral("<div class=\"picture middle\"")), 1);
        QCOMPARE(errorOf(text), QString());
        QVERIFY(text.startsWith(QStringLiteral("<!DOCTYPE html>")));
        QVERIFY(text.contains(QStringLiteral("<title>Title &amp; more</title>")));
        QVERIFY(text.contains(QStringLiteral("Title &amp; more</h1>")));
        QVERIFY2(
            text.contains(
                QStringLiteral("<ul><li>an entry<ul><li>a deeper one</li></ul>\n</li>\n<li>the next</li></ul>")),
            qPrintable(bodyOf(text)));
        QCOMPARE(text.count(QStringLiteral("<tr>")), 2);
        QCOMPARE(text.count(QStringLiteral("<td")), 4);
        QVERIFY(text.contains(QStringLiteral("src=\"data:image/png;base64,MA==\"")));
    }

    void showsWordsOfDrawingsOnce()
    {
        PageMaker page;
        for (int i = 0; i < 6; ++i) { // slanted lines
            page.raw().ink.push_back({{60.0 + 20 * i, 300, 80.0 + 20 * i, 400}, false});
        }
        page.text(80, 340, QStringLiteral("wheel"));
        const QString text = html(page.build());
        QCOMPARE(text.count(QStringLiteral("wheel")), 1);
        QVERIFY2(text.contains(QStringLiteral("font-size:10pt\">wheel</span></div>")), qPrintable(bodyOf(text)));
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

    void namesTheLanguageOfAScript_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("language");
        QTest::newRow("kana") << QString::fromUtf8("これは日本語の文書です") << QStringLiteral("ja");
        QTest::newRow("han") << QString::fromUtf8("这是一个中文文件") << QStringLiteral("zh");
        QTest::newRow("hangul") << QString::fromUtf8("한국어 문서") << QStringLiteral("ko");
        QTest::newRow("hebrew") << QString::fromUtf8("עולם שלום") << QStringLiteral("he");
        QTest::newRow("a few letters") << QString::fromUtf8("The sign 日 means day and sun") << QStringLiteral("und");
        QTest::newRow("latin") << QStringLiteral("Many languages are written so") << QStringLiteral("und");
    }

    void namesTheLanguageOfAScript()
    {
        QFETCH(QString, text);
        QFETCH(QString, language);
        PageMaker page;
        page.text(60, 100, text);
        const QString attribute = QStringLiteral(" lang=\"%1\"").arg(language);
        const QString written = html(page.build());
        QVERIFY2(written.contains(attribute), qPrintable(written.left(200)));
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
