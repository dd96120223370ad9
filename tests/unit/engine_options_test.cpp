// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_options.h"

#include "option_model.h"
#include "random_source.h"
#include "settings/engine_settings.h"
#include "settings/store.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Indices of the fourteen fragments.
enum Fragment {
    TempName,
    SingleTempName,
    FirstPage,
    LastPage,
    Width,
    Height,
    XRes,
    YRes,
    Color,
    Compression,
    MultiPage,
    WordMode,
    UserPassword,
    OwnerPassword,
    FragmentCount
};

/// The option string with only one fragment.
QString only(Fragment place, const char *fragment)
{
    QStringList fragments(FragmentCount, QString());
    fragments[place] = QString::fromUtf8(fragment);
    return fragments.join(QLatin1Char(' '));
}

} // namespace

class EngineOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QDir::setCurrent(m_folder.path())); }
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }
    void nothingStored();
    void oneSettingAtATime_data();
    void oneSettingAtATime();
    void allSettingsAtOnce();
    void wordModes_data();
    void wordModes();
    void compressions_data();
    void compressions();
    void colorDepths_data();
    void colorDepths();
    void matchesTheModelThroughTheStore();

private:
    QTemporaryDir m_folder;
};

void EngineOptionsTest::nothingStored()
{
    QCOMPARE(
        engineOptions(readEngineSettings(store::open()), QStringLiteral(".doc")),
        QStringLiteral("           \"-wordmode\" \"0\"  "));
    QCOMPARE(engineOptions({}, QStringLiteral(".tif")), only(Compression, R"("-compress" "1")"));
    QCOMPARE(engineOptions({}, QStringLiteral(".png")), QStringLiteral("             "));
    QCOMPARE(engineOptions({}, QString()), QStringLiteral("             "));
}

void EngineOptionsTest::oneSettingAtATime_data()
{
    using Member = QString EngineSettings::*;
    QTest::addColumn<EngineSettings>("settings");
    QTest::addColumn<QString>("options");
    const auto row = [](const char *name, const QList<std::pair<Member, const char *>> &values, Fragment place,
                        const char *text) {
        EngineSettings settings;
        for (const auto &[member, value] : values) {
            settings.*member = QString::fromUtf8(value);
        }
        QTest::addRow("%s", name) << settings << only(place, text);
    };
    const Member first = &EngineSettings::firstPage;
    row("first page", {{first, "7"}}, FirstPage, R"("-f" "7")");
    row("first page 0", {{first, "0"}}, FirstPage, "");
    row("first page below 0", {{first, "-3"}}, FirstPage, "");
    row("first page no number", {{first, "abc"}}, FirstPage, "");
    row("first page empty", {{first, ""}}, FirstPage, "");
    row("first page with zeros", {{first, "007"}}, FirstPage, R"("-f" "7")");
    row("first page with plus", {{first, "+7"}}, FirstPage, R"("-f" "7")");
    row("first page not whole", {{first, "7.5"}}, FirstPage, "");
    row("first page too big", {{first, "2147483648"}}, FirstPage, "");
    row("last page", {{&EngineSettings::lastPage, "12"}}, LastPage, R"("-l" "12")");
    const Member resize = &EngineSettings::resizePage;
    const Member width = &EngineSettings::width;
    row("width off", {{resize, "0"}, {width, "800"}}, Width, "");
    row("width on", {{resize, "1"}, {width, "800"}}, Width, R"("-width" "800")");
    row("width on by another word", {{resize, "true"}, {width, "800"}}, Width, "");
    row("width 0", {{resize, "1"}, {width, "0"}}, Width, "");
    row("width with zeros", {{resize, "1"}, {width, "0800"}}, Width, R"("-width" "800")");
    row("height", {{resize, "1"}, {&EngineSettings::height, "600"}}, Height, R"("-height" "600")");
    const Member resample = &EngineSettings::resetResolution;
    row("resolution off", {{resample, "0"}, {&EngineSettings::xRes, "72"}}, XRes, "");
    row("horizontal", {{resample, "1"}, {&EngineSettings::xRes, "72"}}, XRes, R"("-xres" "72")");
    row("vertical", {{resample, "1"}, {&EngineSettings::yRes, "300"}}, YRes, R"("-yres" "300")");
    row("resize does not switch resolution", {{resize, "1"}, {&EngineSettings::xRes, "72"}}, XRes, "");
    row("template", {{&EngineSettings::tempName, " a%03d "}}, TempName, R"("-tempname" " a%03d ")");
    row("template of spaces", {{&EngineSettings::tempName, " "}}, TempName, R"("-tempname" " ")");
    row("template with a quote", {{&EngineSettings::tempName, "a\"b"}}, TempName, R"("-tempname" "a"b")");
    row("single template", {{&EngineSettings::singleTempName, "1"}}, SingleTempName, R"("-tempname1")");
    row("single template 2", {{&EngineSettings::singleTempName, "2"}}, SingleTempName, "");
    row("user password", {{&EngineSettings::userPassword, " ab "}}, UserPassword, R"("-upw" " ab ")");
    row("user password of spaces", {{&EngineSettings::userPassword, "   "}}, UserPassword, "");
    row("owner password", {{&EngineSettings::masterPassword, "ä\"x"}}, OwnerPassword, R"("-opw" "ä"x")");
    row("kind of output", {{&EngineSettings::outputKindRow, "8"}}, OwnerPassword, "");
    row("multi-page but no TIFF", {{&EngineSettings::multiPageTiff, "1"}}, MultiPage, "");
}

void EngineOptionsTest::oneSettingAtATime()
{
    QFETCH(const EngineSettings, settings);
    QTEST(engineOptions(settings, QStringLiteral(".png")), "options");
}

void EngineOptionsTest::allSettingsAtOnce()
{
    const QString one = QStringLiteral("1");
    EngineSettings settings;
    settings.wordMode = 2;
    settings.tempName = QStringLiteral("n%03d");
    settings.singleTempName = settings.resizePage = settings.resetResolution = settings.multiPageTiff = one;
    settings.firstPage = QStringLiteral("2");
    settings.lastPage = QStringLiteral("3");
    settings.width = QStringLiteral("4");
    settings.height = QStringLiteral("5");
    settings.xRes = QStringLiteral("6");
    settings.yRes = QStringLiteral("7");
    settings.colorDepth = settings.compression = one;
    settings.userPassword = QStringLiteral("u");
    settings.masterPassword = QStringLiteral("o");
    const QString start = QStringLiteral(
        R"("-tempname" "n%03d" "-tempname1" "-f" "2" "-l" "3" "-width" "4" "-height" "5" "-xres" "6" "-yres" "7" "-gray" )");
    const QString end = QStringLiteral(R"( "-upw" "u" "-opw" "o")");
    QCOMPARE(
        engineOptions(settings, QStringLiteral(".tif")),
        start + QStringLiteral(R"("-compress" "3" "-multipage" )") + end);
    QCOMPARE(
        engineOptions(settings, QStringLiteral(".tiff")),
        start + QStringLiteral(R"("-compress" "3" "-multipage" )") + end);
    for (const char *word : {".doc", ".docx", ".rtf"}) {
        QCOMPARE(
            engineOptions(settings, QString::fromLatin1(word)), start + QStringLiteral(R"(  "-wordmode" "3")") + end);
    }
    for (const char *other :
         {"", ".DOC", ".TIF", ".xls", ".pptx", ".html", ".xml", ".ps", ".eps", ".txt", ".jpg", "doc"}) {
        QCOMPARE(engineOptions(settings, QString::fromLatin1(other)), start + QStringLiteral("  ") + end);
    }
}

void EngineOptionsTest::wordModes_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("written");
    const QList<std::pair<int, const char *>> modes{{0, "0"}, {1, "1"}, {2, "3"}, {3, "4"},
                                                    {4, "2"}, {5, "0"}, {9, "0"}, {-1, "0"}};
    for (const auto &[stored, written] : modes) {
        QTest::addRow("%d", stored) << stored << QString::fromLatin1(written);
    }
}

void EngineOptionsTest::wordModes()
{
    QFETCH(const int, stored);
    QFETCH(const QString, written);
    EngineSettings settings;
    settings.wordMode = stored;
    const QString expected = only(WordMode, qPrintable(QStringLiteral(R"("-wordmode" "%1")").arg(written)));
    QCOMPARE(engineOptions(settings, QStringLiteral(".docx")), expected);
}

void EngineOptionsTest::compressions_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("code");
    const QList<std::pair<const char *, const char *>> codes{
        {"0", "1"}, {"1", "3"}, {"2", "88884"}, {"3", "4"}, {"4", "5"},   {"5", "32773"}, {"6", ""},
        {"7", ""},  {"8", ""},  {"-1", ""},     {"", "1"},  {"abc", "1"}, {"04", "5"}};
    for (const auto &[stored, code] : codes) {
        QTest::addRow("'%s'", stored) << QString::fromLatin1(stored) << QString::fromLatin1(code);
    }
}

void EngineOptionsTest::compressions()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, code);
    EngineSettings settings;
    settings.compression = stored;
    const QString fragment = code.isEmpty() ? QString() : QStringLiteral(R"("-compress" "%1")").arg(code);
    QCOMPARE(engineOptions(settings, QStringLiteral(".tif")), only(Compression, qPrintable(fragment)));
    QCOMPARE(engineOptions(settings, QStringLiteral(".png")), only(Compression, ""));
}

void EngineOptionsTest::colorDepths_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("fragment");
    const QList<std::pair<const char *, const char *>> depths{
        {"0", R"("-mono")"}, {"1", R"("-gray")"},   {"2", ""},          {"3", ""},
        {"-1", ""},          {"abc", R"("-mono")"}, {"", R"("-mono")"}, {"01", R"("-gray")"}};
    for (const auto &[stored, fragment] : depths) {
        QTest::addRow("'%s'", stored) << QString::fromLatin1(stored) << QString::fromLatin1(fragment);
    }
}

void EngineOptionsTest::colorDepths()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, fragment);
    EngineSettings settings;
    settings.colorDepth = stored;
    QCOMPARE(engineOptions(settings, QStringLiteral(".png")), only(Color, qPrintable(fragment)));
    QCOMPARE(engineOptions(settings, QStringLiteral(".pnm")), only(Color, qPrintable(fragment)));
    QCOMPARE(engineOptions(settings, QStringLiteral(".pbm")), only(Color, R"("-mono")"));
    QCOMPARE(engineOptions(settings, QStringLiteral(".pgm")), only(Color, R"("-gray")"));
    QCOMPARE(engineOptions(settings, QStringLiteral(".ppm")), only(Color, ""));
}

void EngineOptionsTest::matchesTheModelThroughTheStore()
{
    const QStringList extensions =
        QStringLiteral(".doc .docx .rtf .xls .pptx .html .xml .ps .txt .tiff .tif .jpg .png .ppm .pbm .pgm .pnm .DOC")
            .split(QLatin1Char(' ')) +
        QStringList{QString()};
    RandomSource random;
    QSettings settings(QStringLiteral("random.ini"), QSettings::IniFormat); // written once, at its end
    const int rounds = randomRounds(5000);
    for (int round = 0; round < rounds; ++round) {
        const StoredTexts stored = randomStoredTexts(random);
        settings.clear();
        for (auto entry = stored.cbegin(); entry != stored.cend(); ++entry) {
            settings.setValue(QStringLiteral("SettingInfo/") + entry.key(), entry.value());
        }
        const QString extension = random.pick(extensions);
        const QString options = engineOptions(readEngineSettings(settings), extension);
        if (options != modelOptions(stored, extension)) {
            qInfo() << "round" << round << stored << extension;
        }
        QCOMPARE(options, modelOptions(stored, extension));
    }
}

QTEST_GUILESS_MAIN(EngineOptionsTest)
#include "engine_options_test.moc"
