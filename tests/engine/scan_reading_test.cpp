// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/scanned_pages.h"
#include "pdf/page_reading.h"

#include <QTest>

#include <atomic>

using namespace quorra;

namespace {

struct Calls
{
    std::atomic<int> recognisers{0};
    std::atomic<int> pictures{0};
    std::atomic<int> width{0};
    int announced = 0;
};

/// Finds the same words in every picture.
class FakeRecogniser final : public ocr::Recogniser
{
public:
    explicit FakeRecogniser(Calls &calls) : m_calls(calls) { ++m_calls.recognisers; }

    model::RecognisedPicture
    recognise(const Raster &picture, double dotsPerInch, const ocr::RecognitionLimits &limits) override
    {
        ++m_calls.pictures;
        m_calls.width = picture.width;
        model::RecognisedPicture found;
        model::RecognisedWord word;
        word.text = QStringLiteral("recognised");
        word.box = {dotsPerInch, dotsPerInch, 2 * dotsPerInch, 1.2 * dotsPerInch}; // an inch from the edges
        word.baseline = 1.2 * dotsPerInch;
        word.size = dotsPerInch / 6;
        if (picture.depth == ColourDepth::Gray && limits.processorTime == std::chrono::seconds(7)) {
            found.words.push_back(word);
        }
        return found;
    }

private:
    Calls &m_calls;
};

ScanReading readingWith(Calls &calls)
{
    return {
        [&calls] { return std::make_unique<FakeRecogniser>(calls); },
        [&calls](int scans) {
            calls.announced += scans;
            return std::chrono::seconds(7);
        }};
}

/// The first page of a sample document, after scanned pages have been read.
model::RawPage pageOf(const char *name, Collect what, const ScanReading &reading)
{
    PdfFile file(std::string(QUORRA_SAMPLES) + "/" + name, {}, {});
    PdfFilePool pool(file);
    std::vector<model::RawPage> pages = collectPages(pool, 1, 1, what);
    readScannedPages(pages, pool, what, reading);
    return pages.front();
}

} // namespace

/// Which pages are passed to a recogniser, and what becomes of its words; with a recogniser that only pretends.
class ScanReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsScans_data()
    {
        QTest::addColumn<bool>("everything");
        QTest::newRow("for documents") << true;
        QTest::newRow("for plain text") << false;
    }

    void readsScans()
    {
        QFETCH(bool, everything);
        Calls calls;
        const model::RawPage page =
            pageOf("scanned.pdf", everything ? Collect::Everything : Collect::TextAndRules, readingWith(calls));
        QCOMPARE(calls.announced, 1);
        QCOMPARE(calls.pictures.load(), 1);
        QCOMPARE(calls.width.load(), 1654); // 595 points with the image's 200 dots per inch
        QCOMPARE(page.words.size(), std::size_t{1});
        const model::RawWord &word = page.words.front();
        QVERIFY(std::abs(word.box.left - 72) < 0.5 && std::abs(word.box.right - 144) < 0.5);
        QVERIFY(std::abs(word.style.size - 12) < 0.1);
        QVERIFY(word.hidden);
        const auto isWhole = [](const model::RawPicture &picture) { return !picture.part; };
        QCOMPARE(std::count_if(page.pictures.begin(), page.pictures.end(), isWhole), 1);
        QVERIFY(page.pictures.size() > 1); // what is not among the words are pictures
    }

    void leavesPagesWithTextAlone()
    {
        for (const char *name : {"report.pdf", "pictures.pdf", "right-to-left.pdf", "figures.pdf"}) {
            for (const Collect what : {Collect::Everything, Collect::TextAndRules}) {
                Calls calls;
                const model::RawPage page = pageOf(name, what, readingWith(calls));
                QCOMPARE(calls.announced, 0);
                QCOMPARE(calls.recognisers.load(), 0);
                QVERIFY(page.words.size() > 1);
            }
        }
    }

    void leavesScansAsTheyAreWithoutRecogniser()
    {
        Calls calls;
        ScanReading reading = readingWith(calls);
        reading.makeRecogniser = [] { return nullptr; };
        QVERIFY(pageOf("scanned.pdf", Collect::Everything, reading).words.empty());
    }

    void keepsThePageIfNothingIsRecognised()
    {
        Calls calls;
        ScanReading reading = readingWith(calls);
        reading.allowTime = [](int) { return std::chrono::seconds(1); }; // the recogniser finds nothing then
        const model::RawPage page = pageOf("scanned.pdf", Collect::TextAndRules, reading);
        QCOMPARE(calls.pictures.load(), 1);
        QVERIFY(page.words.empty() && page.pictures.empty());
    }
};

QTEST_APPLESS_MAIN(ScanReadingTest)
#include "scan_reading_test.moc"
