// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/xml_element.h"

#include <QTest>

#include <optional>
#include <utility>

using quorra::XmlElement;

namespace {

/// Elements that end themselves.
class XmlElementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nestsAsTheScopesDo();
    void endsEarlyWhenReset();
    void writesTheTextBehindItsEnd();
    void endsOnceWhenMoved();
};

void XmlElementTest::nestsAsTheScopesDo()
{
    QString text;
    QXmlStreamWriter xml(&text);
    {
        const XmlElement outer(xml, QStringLiteral("a"));
        xml.writeAttribute(QStringLiteral("n"), QStringLiteral("1"));
        const XmlElement inner(xml, QStringLiteral("b"));
        xml.writeCharacters(QStringLiteral("x"));
    }
    QCOMPARE(text, QStringLiteral("<a n=\"1\"><b>x</b></a>"));
}

void XmlElementTest::endsEarlyWhenReset()
{
    QString text;
    QXmlStreamWriter xml(&text);
    {
        const XmlElement outer(xml, QStringLiteral("a"));
        std::optional<XmlElement> inner(std::in_place, xml, QStringLiteral("b"));
        inner.reset();
        xml.writeCharacters(QStringLiteral("x"));
    }
    QCOMPARE(text, QStringLiteral("<a><b/>x</a>"));
}

void XmlElementTest::writesTheTextBehindItsEnd()
{
    QString text;
    QXmlStreamWriter xml(&text);
    {
        const XmlElement outer(xml, QStringLiteral("a"));
        const XmlElement inner(xml, QStringLiteral("b"), QStringLiteral("|"));
    }
    QCOMPARE(text, QStringLiteral("<a><b/>|</a>"));
}

XmlElement begun(QXmlStreamWriter &xml)
{
    XmlElement element(xml, QStringLiteral("b"), QStringLiteral("|"));
    XmlElement moved(std::move(element));
    return moved;
}

void XmlElementTest::endsOnceWhenMoved()
{
    QString text;
    QXmlStreamWriter xml(&text);
    {
        const XmlElement outer(xml, QStringLiteral("a"));
        {
            const XmlElement inner = begun(xml);
            xml.writeCharacters(QStringLiteral("x"));
        }
        xml.writeCharacters(QStringLiteral("y"));
    }
    QCOMPARE(text, QStringLiteral("<a><b>x</b>|y</a>"));
}

} // namespace

QTEST_MAIN(XmlElementTest)

#include "xml_element_test.moc"
