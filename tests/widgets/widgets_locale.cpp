// SPDX-License-Identifier: GPL-3.0-or-later
// Texts and arguments do not change under a German locale, in which numbers have a decimal comma.
#include "window_fixture.h"

#include <QApplication>
#include <QFileDialog>
#include <QLocale>
#include <QProcess>
#include <QtTest>

#include <clocale>
#include <cstdio>

class WidgetsLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnUnexpectedWarnings(); }

    void localeIsInForce();
    void sizeTexts_data();
    void sizeTexts();
    void textsOfTheWindow();
    void argumentsOfTheEngine();
};

void WidgetsLocale::localeIsInForce()
{
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    QCOMPARE(QByteArray(text), QByteArray("1,5"));
    QCOMPARE(QLocale().decimalPoint(), QStringLiteral(","));
}

void WidgetsLocale::sizeTexts_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("dropped");
    QTest::newRow("2048") << qint64(2048) << QStringLiteral("2.048       KB") << QStringLiteral("         2,048 KB");
    QTest::newRow("2 to the 20") << qint64(1048576) << QStringLiteral("1048.576    KB")
                                 << QStringLiteral("      1048,576 KB");
    QTest::newRow("5 million") << qint64(5000000) << QStringLiteral("5000.000    KB")
                               << QStringLiteral("         5,000 MB");
}

void WidgetsLocale::sizeTexts()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, added);
    QFETCH(QString, dropped);
    WindowFixture fixture;
    fixture.open();
    const QString path = fixture.folder.makePdf(QStringLiteral("sized.pdf"), bytes);
    DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, {path}); });
    QTest::mouseClick(fixture.button("toolButton_AddFile"), Qt::LeftButton);
    fixture.drop({path});
    QCOMPARE(fixture.sizeText(0), added);
    QCOMPARE(fixture.sizeText(1), dropped);
}

void WidgetsLocale::textsOfTheWindow()
{
    WindowFixture fixture;
    fixture.open();
    QCOMPARE(fixture.startButton()->text(), QStringLiteral("Start"));
    QCOMPARE(fixture.bar()->text(), QStringLiteral("0%"));
    QCOMPARE(storedSetting(QStringLiteral("ListWidgetCurrtentItemRow")), QStringLiteral("0"));
}

void WidgetsLocale::argumentsOfTheEngine()
{
    WindowFixture fixture;
    fixture.open();
    storeSettings(
        {{QStringLiteral("ResizePage"), QStringLiteral("1")},
         {QStringLiteral("Width"), QStringLiteral("9999")},
         {QStringLiteral("LastPage"), QStringLiteral("1234")}});
    fixture.dropFiles(1);
    fixture.runToTheEnd();
    QCOMPARE(fixture.folder.runs().value(0).arguments.mid(0, 4), QByteArrayList({"-l", "1234", "-width", "9999"}));
}

/// Builds the locale, which the system may not have, in a separate folder and activates it.
static bool useGermanLocale(const QString &folder)
{
    const QString name = QStringLiteral("de_DE.UTF-8");
    QProcess::execute(
        QStringLiteral("localedef"), {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                                      QStringLiteral("UTF-8"), folder + QLatin1Char('/') + name});
    qputenv("LOCPATH", QFile::encodeName(folder));
    qputenv("LC_ALL", name.toLatin1());
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    return std::setlocale(LC_ALL, name.toLatin1().constData()) != nullptr;
}

int main(int argc, char **argv)
{
    const QTemporaryDir locales;
    if (!useGermanLocale(locales.path())) {
        std::fprintf(stderr, "the locale de_DE could not be built; is the package 'locales' installed?\n");
        return 1;
    }
    const QApplication application(argc, argv);
    WidgetsLocale test;
    return QTest::qExec(&test, argc, argv);
}
#include "widgets_locale.moc"
