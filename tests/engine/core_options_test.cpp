// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "cli/options.h"
#include "cli/page_range.h"
#include "pdf/passwords.h"

#include <QTest>

#include <algorithm>
#include <functional>

using namespace quorra;

namespace {

using Check = std::function<bool(const Options &)>;

std::vector<std::string> split(const QString &line)
{
    std::vector<std::string> arguments;
    for (const QString &word : line.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        arguments.push_back(word == QLatin1String("''") ? std::string() : word.toStdString());
    }
    return arguments;
}

std::optional<ExitStatus> failureOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Failure &failure) {
        return failure.status();
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(Check)

class CoreOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void failureShowsNoArgument();
    void resolutionOfEachAxis();
    void extension_data();
    void extension();
    void range_data();
    void range();
    void passwordPairs();
    void latin1();
    void helpNamesOptionsAndExtensions();
};

void CoreOptionsTest::accepted_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Check>("check");
    const auto row = [](const char *line, const Check &check) {
        QTest::newRow(line) << QString::fromLatin1(line) << check;
    };
    row("", [](const Options &o) {
        return !o.firstPage && !o.lastPage && !o.width && !o.height && !o.xres && !o.yres && !o.compression &&
               !o.multipage && !o.htmlFormat && !o.tempNameForSingle && o.tempName.empty() && o.userPassword.empty() &&
               o.ownerPassword.empty() && o.recogniseText && o.recognitionLanguages.empty() &&
               o.colourDepth == ColourDepth::Colour && o.wordMode == WordMode::Combine;
    });
    row("-f 7", [](const Options &o) { return o.firstPage == 7 && !o.lastPage; });
    row("-l 0012", [](const Options &o) { return o.lastPage == 12; });
    row("-f 2147483647", [](const Options &o) { return o.firstPage == 2147483647; });
    row("-width 800", [](const Options &o) { return o.width == 800 && !o.height; });
    row("-height 600", [](const Options &o) { return o.height == 600 && !o.width; });
    row("-xres 204 -yres 98", [](const Options &o) { return o.xres == 204 && o.yres == 98; });
    row("-mono", [](const Options &o) { return o.colourDepth == ColourDepth::Mono; });
    row("-gray", [](const Options &o) { return o.colourDepth == ColourDepth::Gray; });
    row("-compress 1", [](const Options &o) { return o.compression == Compression::None; });
    row("-compress 3", [](const Options &o) { return o.compression == Compression::Group3OneD; });
    row("-compress 4", [](const Options &o) { return o.compression == Compression::Group4; });
    row("-compress 5", [](const Options &o) { return o.compression == Compression::Lzw; });
    row("-compress 32773", [](const Options &o) { return o.compression == Compression::PackBits; });
    row("-compress 88882", [](const Options &o) { return o.compression == Compression::ClassFLow; });
    row("-compress 88883", [](const Options &o) { return o.compression == Compression::ClassFFine; });
    row("-compress 88884", [](const Options &o) { return o.compression == Compression::Group3TwoD; });
    row("-multipage", [](const Options &o) { return o.multipage; });
    row("-wordmode 0", [](const Options &o) { return o.wordMode == WordMode::Combine; });
    row("-wordmode 1", [](const Options &o) { return o.wordMode == WordMode::FlowWithBoxes; });
    row("-wordmode 2", [](const Options &o) { return o.wordMode == WordMode::Exact; });
    row("-wordmode 3", [](const Options &o) { return o.wordMode == WordMode::FlowWithoutBoxes; });
    row("-wordmode 4", [](const Options &o) { return o.wordMode == WordMode::Continuous; });
    row("-htmlformat", [](const Options &o) { return o.htmlFormat; });
    row("-noocr", [](const Options &o) { return !o.recogniseText; });
    row("-ocrlang chi_sim+eng", [](const Options &o) {
        return o.recognitionLanguages == std::vector<std::string>{"chi_sim", "eng"};
    });
    row("-tempname p%04d -tempname1", [](const Options &o) { return o.tempName == "p%04d" && o.tempNameForSingle; });
    row("-upw one -opw two", [](const Options &o) { return o.userPassword == "one" && o.ownerPassword == "two"; });
    row("-upw -call", [](const Options &o) { return o.userPassword == "-call"; });
    row("-upw -mono",
        [](const Options &o) { return o.userPassword == "-mono" && o.colourDepth == ColourDepth::Colour; });
    row("-f 2 -f 3", [](const Options &o) { return o.firstPage == 3; });
}

void CoreOptionsTest::accepted()
{
    QFETCH(QString, line);
    QFETCH(Check, check);
    const Options options = parseOptions(split(line + QStringLiteral(" -call -in out.png")));
    QCOMPARE(options.inputPath, std::string("-in"));
    QCOMPARE(options.outputPath, std::string("out.png"));
    QVERIFY(check(options));
}

void CoreOptionsTest::refused_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line :
         {"",
          "-call",
          "-call a",
          "a b",
          "-call a b c",
          "-f 1 a b",
          "-f -call a b",
          "-f 0 -call a b",
          "-f -3 -call a b",
          "-f abc -call a b",
          "-f 1x -call a b",
          "-f +1 -call a b",
          "-f '' -call a b",
          "-f 2147483648 -call a b",
          "-l 0 -call a b",
          "-width 0 -call a b",
          "-height 1.5 -call a b",
          "-xres 0 -call a b",
          "-yres -1 -call a b",
          "-compress 2 -call a b",
          "-compress 88885 -call a b",
          "-compress x -call a b",
          "-wordmode 5 -call a b",
          "-ocrlang -call a b",
          "-ocrlang deu+ -call a b",
          "-ocrlang +deu -call a b",
          "-ocrlang deu++eng -call a b",
          "-ocrlang deu,eng -call a b",
          "-ocrlang ../deu -call a b",
          "-wordmode -1 -call a b",
          "-Mono -call a b",
          "mono -call a b",
          "-colour -call a b",
          "-call -call a b",
          "stray -f 1 -call a b"}) {
        QTest::newRow(line) << QString::fromLatin1(line);
    }
}

void CoreOptionsTest::refused()
{
    QFETCH(QString, line);
    QCOMPARE(failureOf([&] { parseOptions(split(line)); }), std::optional(ExitStatus::Usage));
}

void CoreOptionsTest::failureShowsNoArgument()
{
    // A password that contains a quote arrives in pieces, which must not be printed.
    try {
        parseOptions({"-upw", "first", "secret", "-call", "a", "b"});
        QFAIL("accepted");
    } catch (const Failure &failure) {
        QVERIFY(std::string(failure.what()).find("secret") == std::string::npos);
    }
}

void CoreOptionsTest::resolutionOfEachAxis()
{
    Options options;
    QCOMPARE(options.horizontalResolution(150), 150);
    QCOMPARE(options.verticalResolution(150), 150);
    options.yres = 98;
    QCOMPARE(options.horizontalResolution(150), 98);
    options.xres = 204;
    QCOMPARE(options.horizontalResolution(150), 204);
    QCOMPARE(options.verticalResolution(150), 98);
    options.yres.reset();
    QCOMPARE(options.verticalResolution(150), 204);
}

void CoreOptionsTest::extension_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("extension");
    const auto row = [](const char *path, const char *extension) {
        QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(extension);
    };
    row("/out/a.png", ".png");
    row("/out/a.PNG", ".png");
    row("/out/a.b.TiFf", ".tiff");
    row("/out.dir/a", "");
    row("a.", ".");
    row(".png", ".png");
    row("", "");
    row("/out.png/", "");
}

void CoreOptionsTest::extension()
{
    QFETCH(QString, path);
    QFETCH(QString, extension);
    QCOMPARE(QString::fromStdString(outputExtension(path.toStdString())), extension);
}

void CoreOptionsTest::range_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("expectedFirst");
    QTest::addColumn<int>("expectedLast");
    // 0 is an absent option; an expected 0 means that the value is rejected.
    QTest::newRow("all") << 0 << 0 << 9 << 1 << 9;
    QTest::newRow("from") << 4 << 0 << 9 << 4 << 9;
    QTest::newRow("to") << 0 << 4 << 9 << 1 << 4;
    QTest::newRow("one") << 4 << 4 << 9 << 4 << 4;
    QTest::newRow("last past the end") << 4 << 99 << 9 << 4 << 9;
    QTest::newRow("first past the end") << 10 << 0 << 9 << 0 << 0;
    QTest::newRow("both past the end") << 10 << 12 << 9 << 0 << 0;
    QTest::newRow("reversed") << 5 << 4 << 9 << 0 << 0;
}

void CoreOptionsTest::range()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, pages);
    QFETCH(int, expectedFirst);
    QFETCH(int, expectedLast);
    Options options;
    if (first > 0) {
        options.firstPage = first;
    }
    if (last > 0) {
        options.lastPage = last;
    }
    if (expectedFirst == 0) {
        QCOMPARE(failureOf([&] { pageRange(options, pages); }), std::optional(ExitStatus::Usage));
        return;
    }
    const PageRange range = pageRange(options, pages);
    QCOMPARE(range.first, expectedFirst);
    QCOMPARE(range.last, expectedLast);
}

void CoreOptionsTest::passwordPairs()
{
    const std::vector<PasswordPair> none = {{"", ""}};
    const std::vector<PasswordPair> userOnly = {{"u", ""}, {"", "u"}};
    const std::vector<PasswordPair> same = {{"x", "x"}};
    QCOMPARE(passwordsToTry("", ""), none);
    const std::vector<PasswordPair> ascii = passwordsToTry("u", "");
    QCOMPARE(ascii, userOnly);
    QCOMPARE(passwordsToTry("x", "x"), same);
    const std::vector<PasswordPair> accented = passwordsToTry("\xC3\xA4", "");
    QCOMPARE(accented.size(), std::size_t{4});
    QCOMPARE(accented[2], (PasswordPair{"\xE4", ""}));
    QCOMPARE(accented[3], (PasswordPair{"", "\xE4"}));
}

void CoreOptionsTest::latin1()
{
    QCOMPARE(latin1FromUtf8("abc"), std::string("abc"));
    QCOMPARE(latin1FromUtf8("\xC3\xBC"), std::string("\xFC"));
    QCOMPARE(latin1FromUtf8("\xE2\x82\xAC"), std::string());
    QCOMPARE(latin1FromUtf8("a\xC3"), std::string());
    QCOMPARE(latin1FromUtf8("\xC3z"), std::string());
    QCOMPARE(latin1FromUtf8("\xFF"), std::string());
}

void CoreOptionsTest::helpNamesOptionsAndExtensions()
{
    const QString text = QString::fromStdString(helpText({".txt", ".png"}));
    QVERIFY(text.endsWith(QLatin1Char('\n')));
    const QStringList lines = text.split(QLatin1Char('\n'));
    const auto begins = [&lines](const QString &beginning) {
        return std::count_if(
            lines.begin(), lines.end(), [&](const QString &line) { return line.startsWith(beginning); });
    };
    for (const char *option :
         {"-f N", "-l N", "-upw P", "-opw P", "-width W", "-height H", "-xres X", "-yres Y", "-mono", "-gray",
          "-compress C", "-multipage", "-wordmode M", "-tempname T", "-tempname1", "-htmlformat", "-ocrlang L",
          "-noocr"}) {
        QVERIFY2(begins(QStringLiteral("  %1 ").arg(QLatin1String(option))) == 1, option);
    }
    QVERIFY(lines.contains(QStringLiteral("  .txt .png")));
    QVERIFY(lines.contains(QStringLiteral("Pages:")));
    for (const QString &line : lines) {
        QVERIFY2(line.size() <= 100, qPrintable(line));
    }
}

QTEST_APPLESS_MAIN(CoreOptionsTest)
#include "core_options_test.moc"
