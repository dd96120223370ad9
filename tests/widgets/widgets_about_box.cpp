// SPDX-License-Identifier: GPL-3.0-or-later
// The About box.
#include "about/about.h"
#include "widget_helpers.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFragment>
#include <QtTest>

namespace {

const QTextBrowser *browserOf(const about &dialog)
{
    return dialog.findChild<QTextBrowser *>(QStringLiteral("textBrowser"));
}

/// Where the text says `needle`, in viewport coordinates of the browser.
QPoint placeOf(const QTextBrowser &browser, const QString &needle)
{
    QTextCursor cursor = browser.document()->find(needle);
    cursor.setPosition(cursor.selectionStart() + int(needle.size()) / 2);
    return browser.cursorRect(cursor).center();
}

} // namespace

class WidgetsAboutBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void isFixedInSize();
    void titleFlagsAndIcon();
    void widgetsAtTheirPlaces();
    void paragraphs();
    void characterFormats();
    void everythingFitsWithoutScrolling();
    void linksOpenOutside_data();
    void linksOpenOutside();
    void noContextMenu();
    void okAccepts();
    void escapeRejects();
    void slotOrder();
};

void WidgetsAboutBox::isFixedInSize()
{
    about dialog;
    dialog.show();
    QCOMPARE(dialog.size(), QSize(320, 251));
    dialog.resize(400, 400);
    QCOMPARE(dialog.size(), QSize(320, 251));
}

void WidgetsAboutBox::titleFlagsAndIcon()
{
    about dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About"));
    QCOMPARE(dialog.objectName(), QStringLiteral("about"));
    QVERIFY(dialog.isWindow());
    QVERIFY(dialog.windowFlags() & Qt::WindowTitleHint);
    QVERIFY(!(dialog.windowFlags() & (Qt::WindowContextHelpButtonHint | Qt::WindowStaysOnTopHint)));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.palette().brush(QPalette::Window).textureImage().size(), QSize(320, 251));
}

void WidgetsAboutBox::widgetsAtTheirPlaces()
{
    const about dialog;
    const auto *label = dialog.findChild<QLabel *>(QStringLiteral("label"));
    QCOMPARE(label->geometry(), QRect(50, 10, 201, 60));
    QVERIFY(label->text().isEmpty());
    QCOMPARE(
        label->styleSheet(),
        QStringLiteral("background-image:url(\":/MyImage/Image/Top.png\");\nborder:0px solid #000000;"));
    const auto *button = dialog.findChild<QPushButton *>(QStringLiteral("pushButton_OK"));
    QCOMPARE(button->geometry(), QRect(120, 210, 75, 23));
    QCOMPARE(button->text(), QStringLiteral("OK"));
    QCOMPARE(browserOf(dialog)->geometry(), QRect(0, 70, 321, 121));
    QCOMPARE(
        browserOf(dialog)->styleSheet(),
        QStringLiteral("border-left:0px solid #000000;\nborder-top:1px solid #000000;\nborder-right:0px solid "
                       "#000000;\nborder-bottom:1px solid #000000;"));
    QVERIFY(browserOf(dialog)->openExternalLinks());
}

void WidgetsAboutBox::paragraphs()
{
    const about dialog;
    QCOMPARE(
        browserOf(dialog)->toPlainText(),
        QStringLiteral("\nQuorra Converter (Version 2.0)\nCopyright (C) 2026 Marbeck\nWeb Site: "
                       "https://marbeck.example\nEmail: support@marbeck.example"));
    for (QTextBlock block = browserOf(dialog)->document()->begin(); block.isValid(); block = block.next()) {
        QCOMPARE(block.blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        QCOMPARE(block.blockFormat().topMargin() + block.blockFormat().bottomMargin(), 0.0);
    }
}

void WidgetsAboutBox::characterFormats()
{
    const about dialog;
    int links = 0;
    int paragraph = 0;
    for (QTextBlock block = browserOf(dialog)->document()->begin(); block.isValid(); block = block.next()) {
        ++paragraph;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (format.isAnchor()) {
                ++links;
                QCOMPARE(format.foreground().color(), QColor(0x00, 0x00, 0xff));
                QVERIFY(format.fontUnderline());
                continue;
            }
            QCOMPARE(format.foreground().color(), QColor(0x00, 0x00, 0x7f));
            QCOMPARE(format.fontPointSize(), 12.0);
            QCOMPARE(
                format.verticalAlignment(),
                paragraph <= 3 ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript);
        }
    }
    QCOMPARE(paragraph, 5);
    QCOMPARE(links, 2);
}

void WidgetsAboutBox::everythingFitsWithoutScrolling()
{
    about dialog;
    dialog.show();
    QVERIFY(!browserOf(dialog)->verticalScrollBar()->isVisible());
    QVERIFY(!browserOf(dialog)->horizontalScrollBar()->isVisible());
    QCOMPARE(browserOf(dialog)->verticalScrollBar()->maximum(), 0);
    QVERIFY(browserOf(dialog)->document()->size().height() <= browserOf(dialog)->viewport()->height());
}

void WidgetsAboutBox::linksOpenOutside_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QUrl>("url");
    QTest::newRow("home page") << QStringLiteral("https://marbeck.example")
                               << QUrl(QStringLiteral("https://marbeck.example"));
    QTest::newRow("mail") << QStringLiteral("support@marbeck.example")
                          << QUrl(QStringLiteral("mailto:support@marbeck.example"));
}

void WidgetsAboutBox::linksOpenOutside()
{
    QFETCH(QString, text);
    QFETCH(QUrl, url);
    UrlRecorder urls;
    about dialog;
    dialog.show();
    const QString before = browserOf(dialog)->toHtml();
    QTest::mouseClick(browserOf(dialog)->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(*browserOf(dialog), text));
    QCOMPARE(urls.opened, QList<QUrl>({url}));
    QCOMPARE(browserOf(dialog)->toHtml(), before);
}

void WidgetsAboutBox::noContextMenu()
{
    about dialog;
    dialog.show();
    QCOMPARE(browserOf(dialog)->contextMenuPolicy(), Qt::NoContextMenu);
    const QPoint place(100, 60);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, browserOf(dialog)->mapToGlobal(place));
    QApplication::sendEvent(browserOf(dialog)->viewport(), &event);
    QVERIFY(!QApplication::activePopupWidget());
}

void WidgetsAboutBox::okAccepts()
{
    about dialog;
    ModalAnswer answer(ModalAnswer::isA<about>(), [](QWidget *box) {
        QTest::mouseClick(box->findChild<QPushButton *>(QStringLiteral("pushButton_OK")), Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answer.seen());
}

void WidgetsAboutBox::escapeRejects()
{
    about dialog;
    ModalAnswer answer(ModalAnswer::isA<about>(), [](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(answer.seen());
}

void WidgetsAboutBox::slotOrder()
{
    const QMetaObject &meta = about::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("On_Button_Ok()"));
}

QTEST_MAIN(WidgetsAboutBox)
#include "widgets_about_box.moc"
