// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/recognition_languages.h"

#include <QTest>

using namespace quorra;

/// Which recognition data a document is read with.
class RecognitionLanguagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chooses_data()
    {
        QTest::addColumn<QString>("stated");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("names");
        const auto row = [](const char *name, const char *stated, const char *locale, const char *names) {
            QTest::newRow(name) << QString::fromLatin1(stated) << QString::fromLatin1(locale)
                                << QString::fromLatin1(names);
        };
        row("nothing known", "", "", "eng");
        row("plain locale", "", "C.UTF-8", "eng");
        row("other plain locale", "", "POSIX", "eng");
        row("the file's", "de-AT", "fr_FR.UTF-8", "deu+eng");
        row("the user's", "", "fr_FR.UTF-8", "fra+eng");
        row("a modifier", "", "de_DE@euro", "deu+eng");
        row("English once", "en-GB", "de_DE.UTF-8", "eng");
        row("without data", "fi-FI", "de_DE.UTF-8", "eng");
        row("no language", "zz-ZZ-zz", "de_DE.UTF-8", "deu+eng");
        row("Norwegian", "nb-NO", "", "nor+eng");
        row("simplified characters", "zh-CN", "", "chi_sim+eng");
        row("traditional characters", "zh-TW", "", "chi_tra+eng");
        row("traditional by script", "zh-Hant", "", "chi_tra+eng");
        row("Serbian", "sr", "", "srp+eng");
        row("Serbian in Latin letters", "sr-Latn", "", "srp_latn+eng");
    }

    void chooses()
    {
        QFETCH(QString, stated);
        QFETCH(QString, locale);
        const std::vector<std::string> installed{"chi_sim", "chi_tra", "deu", "eng", "fra", "nor", "srp", "srp_latn"};
        QTEST(QString::fromStdString(recognitionLanguages(stated, locale, installed)), "names");
    }

    void namesOnlyWhatIsInstalled()
    {
        QCOMPARE(recognitionLanguages(QStringLiteral("de"), {}, {"deu"}), std::string("deu"));
        QCOMPARE(recognitionLanguages(QStringLiteral("de"), {}, {}), std::string());
    }
};

QTEST_APPLESS_MAIN(RecognitionLanguagesTest)
#include "recognition_languages_test.moc"
