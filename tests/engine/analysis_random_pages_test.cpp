// SPDX-License-Identifier: GPL-3.0-or-later
#include "every_writer.h"
#include "random_pages.h"

#include "analysis/analysis.h"
#include "text/text_writer.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <ctime>
#include <random>

using namespace quorra;

/// The whole analysis and every writer on pages that are made by chance; the same ones in every run.
class AnalysisRandomPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWriterTakesAnyPage_data();
    void everyWriterTakesAnyPage();
    void saneWordsAllComeToTheText_data() { seeds(200); }
    void saneWordsAllComeToTheText();
    void manyMarksTakeLittleTime_data();
    void manyMarksTakeLittleTime();

private:
    static void seeds(int count);

    QTemporaryDir m_folder;
};

namespace {

std::vector<std::uint8_t> randomBytes(int seed, std::size_t size)
{
    std::mt19937 engine(static_cast<std::mt19937::result_type>(seed));
    std::vector<std::uint8_t> bytes(size);
    std::generate(bytes.begin(), bytes.end(), [&engine] { return static_cast<std::uint8_t>(engine()); });
    return bytes;
}

// Sorted: a multiset that is shown well when two differ.
QStringList wordsOf(const QString &text)
{
    static const QRegularExpression spaces(QStringLiteral("\\s+"));
    QStringList words = text.split(spaces, Qt::SkipEmptyParts);
    words.sort();
    return words;
}

QString difference(const QStringList &wanted, const QStringList &found)
{
    const auto without = [](const QStringList &all, const QStringList &others) {
        QStringList rest;
        std::set_difference(all.begin(), all.end(), others.begin(), others.end(), std::back_inserter(rest));
        return rest.join(QLatin1Char(' '));
    };
    return QStringLiteral("lost: %1; new: %2").arg(without(wanted, found), without(found, wanted));
}

#if defined(__SANITIZE_ADDRESS__)
constexpr int sanitizerFactor = 10;
#else
constexpr int sanitizerFactor = 1;
#endif

double secondsSince(std::clock_t begin)
{
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

// Marks of one kind on a page of 100 columns, a word for every fourth of them where the kind asks for words.
model::RawPage crowdedPage(const QString &kind, int count)
{
    constexpr int columns = 100;
    constexpr double step = 6;
    model::RawPage page;
    for (int i = 0; i < count; ++i) {
        const double x = 5 + step * (i % columns);
        const int row = i / columns;
        const double y = 5 + 0.9 * step * row;
        model::RawWord word;
        word.text = QStringLiteral("w%1").arg(i % columns);
        word.style.size = 4;
        word.box = {x, y, x + 4, y + 4};
        word.baseline = y + 3;
        if (kind == QStringLiteral("words on one spot")) {
            word.box = {100, 100, 104, 104};
            word.baseline = 103;
        }
        if (kind.startsWith(QStringLiteral("words")) || (kind.contains(QStringLiteral("words")) && i % 4 == 0)) {
            page.words.push_back(word);
        }
        if (kind.startsWith(QStringLiteral("rules"))) {
            page.rules.push_back({x, y, x + 40, y, 0.5, black});
        } else if (kind.startsWith(QStringLiteral("fills"))) {
            page.fills.push_back({{x, y, x + 5, y + 5}, 0xeeeeee});
        } else if (kind.startsWith(QStringLiteral("ink"))) {
            page.ink.push_back({{x, y, x + 5, y + 5}, false});
        } else if (kind.startsWith(QStringLiteral("pictures"))) {
            page.pictures.push_back({{x, y, x + 5, y + 5}});
        } else if (kind.endsWith(QStringLiteral("grid"))) {
            page.rules.push_back({x, y, x + step, y, 0.5, black});
            page.rules.push_back({x, y, x, y + step, 0.5, black});
        }
    }
    return page;
}

} // namespace

void AnalysisRandomPagesTest::seeds(int count)
{
    QTest::addColumn<int>("seed");
    for (int seed = 0; seed < count; ++seed) {
        QTest::addRow("%d", seed) << seed;
    }
}

void AnalysisRandomPagesTest::everyWriterTakesAnyPage_data()
{
    seeds(100);
}

void AnalysisRandomPagesTest::everyWriterTakesAnyPage()
{
    QFETCH(int, seed);
    const std::vector<std::uint8_t> bytes = randomBytes(seed, 40 + 10 * static_cast<std::size_t>(seed % 30));
    const model::Document document = model::buildDocument(fuzz::pagesOf(bytes.data(), bytes.size(), fuzz::Marks::Wild));
    for (const fuzz::Output &output : fuzz::everyOutput(document, m_folder.path())) {
        QVERIFY2(output.error.isEmpty(), (output.writer + ": " + output.error.toStdString()).c_str());
        QVERIFY2(!output.bytes.isEmpty(), output.writer.c_str());
    }
}

void AnalysisRandomPagesTest::saneWordsAllComeToTheText()
{
    QFETCH(int, seed);
    const std::vector<std::uint8_t> bytes = randomBytes(seed, 40 + 10 * static_cast<std::size_t>(seed % 30));
    const std::vector<model::RawPage> pages = fuzz::pagesOf(bytes.data(), bytes.size(), fuzz::Marks::Sane);
    QStringList wanted;
    for (const model::RawPage &page : pages) {
        for (const model::RawWord &word : page.words) {
            wanted += word.text;
        }
    }
    wanted.sort();
    QString text;
    for (const model::Page &page : model::buildDocument(pages).pages) {
        text += pageAsText(page);
    }
    const QStringList found = wordsOf(text);
    QVERIFY2(found == wanted, qPrintable(difference(wanted, found)));
}

void AnalysisRandomPagesTest::manyMarksTakeLittleTime_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind :
         {"words", "words on one spot", "rules", "rules and words", "fills and words", "ink and words",
          "pictures and words", "short words in a ruled grid"}) {
        QTest::newRow(kind) << kind;
    }
}

// Processor time, since the machine may be busy. Drawn maps hold this many marks on one page.
void AnalysisRandomPagesTest::manyMarksTakeLittleTime()
{
    constexpr int count = 20000;
    constexpr double mostSeconds = 10 * sanitizerFactor;
    QFETCH(QString, kind);
    const std::clock_t begin = std::clock();
    const model::Document document = model::buildDocument({crowdedPage(kind, count)});
    const double analysed = secondsSince(begin);
    const std::vector<fuzz::Output> outputs = fuzz::everyOutput(document, m_folder.path());
    const double all = secondsSince(begin);
    QVERIFY(kind == QStringLiteral("rules") || outputs.front().bytes.count('w') >= count / 4);
    QVERIFY2(
        all <= mostSeconds, qPrintable(QStringLiteral("%1 s, %2 s of it for the analysis").arg(all).arg(analysed)));
}

QTEST_APPLESS_MAIN(AnalysisRandomPagesTest)
#include "analysis_random_pages_test.moc"
