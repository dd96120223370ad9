// SPDX-License-Identifier: GPL-3.0-or-later
// The list of output kinds: what selecting a row stores, shows and rebuilds.
#include "window_fixture.h"

#include <QApplication>
#include <QImage>
#include <QtTest>

namespace {

struct Kind
{
    const char *text;
    const char *extension;
    int index;
};

constexpr Kind kinds[] = {
    {"PDF to Word", ".doc", 0},  {"PDF to Excel", ".xls", 5}, {"PDF to PPT", ".pptx", 4},
    {"PDF to HTML", ".html", 8}, {"PDF to XML", ".xml", 10},  {"PDF to PostScript", ".ps", 11},
    {"PDF to EPS", ".eps", 12},  {"PDF to Text", ".txt", 7},  {"PDF to Image", ".tiff", 13},
};

QString rowStored()
{
    return storedSetting(QStringLiteral("ListWidgetCurrtentItemRow"));
}

QString extensionStored()
{
    return storedSetting(QStringLiteral("ConverterFormat"));
}

QImage iconOf(const QListWidgetItem *item, int size)
{
    return item->icon().pixmap(QSize(size, size)).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage image(const char *name)
{
    return QImage(QStringLiteral(":/MyImage/Image/%1.png").arg(QLatin1String(name)))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

class WidgetsFormatList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void kind_data();
    void kind();
    void startsOnWordWithoutSettings();
    void savedRowOutsideTheListStartsOnWord_data();
    void savedRowOutsideTheListStartsOnWord();
    void savedRowIsSelectedAgain();
    void startResetsTheExtension();
    void clickOnTheCurrentRowResetsTheExtension();
    void currentRowLooksDifferent();
    void selectionKeepsOtherSettings();
    void noCurrentRowTakesWordExtension();
    void duringARunOnlyTheHighlightMoves();
    void transientWindowSelectsTheSavedRow();
};

void WidgetsFormatList::kind_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(kinds)); ++row) {
        QTest::newRow(kinds[row].text) << row;
    }
}

void WidgetsFormatList::kind()
{
    QFETCH(int, row);
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.formats()->count(), 9);
    QCOMPARE(fixture.formats()->item(row)->text(), QLatin1String(kinds[row].text));
    const QRect place = fixture.formats()->visualItemRect(fixture.formats()->item(row));
    QTest::mouseClick(fixture.formats()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(fixture.formats()->currentRow(), row);
    QCOMPARE(rowStored(), QString::number(row));
    QCOMPARE(extensionStored(), QString::number(kinds[row].index));
    QCOMPARE(fixture.window->GetOutputFormat(), QLatin1String(kinds[row].extension));
}

void WidgetsFormatList::startsOnWordWithoutSettings()
{
    WindowFixture fixture;
    QVERIFY(storedSettings().isEmpty());
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), 0);
    const QMap<QString, QString> expected{
        {QStringLiteral("ConverterFormat"), QStringLiteral("0")},
        {QStringLiteral("ListWidgetCurrtentItemRow"), QStringLiteral("0")}};
    QCOMPARE(storedSettings(), expected);
    QCOMPARE(
        fileContent(fixture.folder.filePath(QStringLiteral("settingquorra.ini"))),
        QByteArray("[SettingInfo]\nConverterFormat=0\nListWidgetCurrtentItemRow=0\n"));
}

void WidgetsFormatList::savedRowOutsideTheListStartsOnWord_data()
{
    QTest::addColumn<QString>("stored");
    for (const char *stored : {"-1", "9", "abc", "", "2147483648", "1.5"}) {
        QTest::newRow(stored) << QString::fromLatin1(stored);
    }
}

void WidgetsFormatList::savedRowOutsideTheListStartsOnWord()
{
    QFETCH(QString, stored);
    WindowFixture fixture;
    storeSetting(QStringLiteral("ListWidgetCurrtentItemRow"), stored);
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), 0);
    QCOMPARE(rowStored(), QStringLiteral("0"));
    QCOMPARE(extensionStored(), QStringLiteral("0"));
}

void WidgetsFormatList::savedRowIsSelectedAgain()
{
    WindowFixture fixture;
    storeSetting(QStringLiteral("ListWidgetCurrtentItemRow"), QStringLiteral("8"));
    fixture.open();
    QCOMPARE(fixture.formats()->currentRow(), 8);
    QCOMPARE(extensionStored(), QStringLiteral("13"));
}

void WidgetsFormatList::startResetsTheExtension()
{
    WindowFixture fixture;
    storeSettings(
        {{QStringLiteral("ListWidgetCurrtentItemRow"), QStringLiteral("0")},
         {QStringLiteral("ConverterFormat"), QStringLiteral("1")}});
    fixture.open();
    QCOMPARE(extensionStored(), QStringLiteral("0"));
}

void WidgetsFormatList::clickOnTheCurrentRowResetsTheExtension()
{
    WindowFixture fixture;
    fixture.open();
    fixture.selectFormat(8);
    storeSetting(QStringLiteral("ConverterFormat"), QStringLiteral("20"));
    const QRect place = fixture.formats()->visualItemRect(fixture.formats()->item(8));
    QTest::mouseClick(fixture.formats()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(extensionStored(), QStringLiteral("13"));
}

void WidgetsFormatList::currentRowLooksDifferent()
{
    WindowFixture fixture;
    fixture.open();
    for (const int current : {0, 4, 8, 3}) {
        fixture.selectFormat(current);
        for (int row = 0; row < 9; ++row) {
            const QListWidgetItem *item = fixture.formats()->item(row);
            const bool isCurrent = row == current;
            QCOMPARE(item->sizeHint(), isCurrent ? QSize(100, 32) : QSize(100, 22));
            QCOMPARE(iconOf(item, isCurrent ? 48 : 16), image(isCurrent ? "listwidget2" : "listwidget1"));
        }
    }
}

void WidgetsFormatList::selectionKeepsOtherSettings()
{
    WindowFixture fixture;
    const QMap<QString, QString> others{
        {QStringLiteral("FirstPage"), QStringLiteral("7")},
        {QStringLiteral("UserPassword"), QStringLiteral(" a b ")},
        {QStringLiteral("OutputFolder"), QStringLiteral("/x")}};
    storeSettings(others);
    fixture.open();
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
    }
    QMap<QString, QString> stored = storedSettings();
    QCOMPARE(stored.take(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("8"));
    QCOMPARE(stored.take(QStringLiteral("ConverterFormat")), QStringLiteral("13"));
    QCOMPARE(stored, others);
}

void WidgetsFormatList::noCurrentRowTakesWordExtension()
{
    WindowFixture fixture;
    fixture.open();
    fixture.selectFormat(5);
    fixture.formats()->setCurrentRow(-1);
    QCOMPARE(rowStored(), QStringLiteral("-1"));
    QCOMPARE(extensionStored(), QStringLiteral("0"));
}

void WidgetsFormatList::duringARunOnlyTheHighlightMoves()
{
    WindowFixture fixture;
    fixture.folder.plan({QStringLiteral("wait")});
    fixture.open();
    fixture.selectFormat(2);
    fixture.dropFiles(1);
    fixture.press();
    QVERIFY(g_bProcess);
    const QMap<QString, QString> before = storedSettings();
    const QRect place = fixture.formats()->visualItemRect(fixture.formats()->item(8));
    QTest::mouseClick(fixture.formats()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(fixture.formats()->currentRow(), 8);
    QCOMPARE(storedSettings(), before);
    QCOMPARE(fixture.formats()->item(2)->sizeHint(), QSize(100, 32));
    QCOMPARE(fixture.formats()->item(8)->sizeHint(), QSize(100, 22));
    fixture.press();
    QVERIFY(fixture.showsIdle());
    QCOMPARE(storedSettings(), before);
}

void WidgetsFormatList::transientWindowSelectsTheSavedRow()
{
    WindowFixture fixture;
    fixture.open();
    fixture.selectFormat(3);
    storeSetting(QStringLiteral("ConverterFormat"), QStringLiteral("9"));
    {
        const tovrane neverShown;
        QCOMPARE(neverShown.findChild<QListWidget *>(QStringLiteral("listWidget_Format"))->currentRow(), 3);
    }
    QCOMPARE(rowStored(), QStringLiteral("3"));
    QCOMPARE(extensionStored(), QStringLiteral("8"));
    QCOMPARE(fixture.formats()->currentRow(), 3);
}

QTEST_MAIN(WidgetsFormatList)
#include "widgets_format_list.moc"
