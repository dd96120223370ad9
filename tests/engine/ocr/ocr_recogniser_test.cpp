// SPDX-License-Identifier: GPL-3.0-or-later
// The module as the engine uses it: what it reads, that hostile pictures end soon, that it is not missed.
#include "drawn_page.h"
#include "ocr/recogniser.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>

using namespace quorra;

namespace {

constexpr double resolution = 150;

class ChangedVariable
{
public:
    ChangedVariable(const char *name, const QByteArray &value) : m_name(name), m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ChangedVariable()
    {
        if (m_before.isNull()) {
            qunsetenv(m_name);
        } else {
            qputenv(m_name, m_before);
        }
    }
    ChangedVariable(const ChangedVariable &) = delete;
    ChangedVariable &operator=(const ChangedVariable &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

QImage noise(int width, int height)
{
    QImage page = whitePage(width, height);
    QRandomGenerator source(3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            page.scanLine(y)[x] = static_cast<uchar>(source.bounded(2) * 255);
        }
    }
    return page;
}

} // namespace

class OcrRecogniserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void startsNoThreads();
    void readsWords();
    void keepsToTheTime();
    void hostilePicturesEndSoon_data();
    void hostilePicturesEndSoon();
    void needsData();
    void listsLanguages();

private:
    std::unique_ptr<ocr::Recogniser> m_recogniser;
};

void OcrRecogniserTest::initTestCase()
{
    ocr::setModuleFolder(QUORRA_MODULE_FOLDER);
    m_recogniser = ocr::makeRecogniser("eng");
}

// Must be the first to recognise: threads of OpenMP remain.
void OcrRecogniserTest::startsNoThreads()
{
    const QDir threads(QStringLiteral("/proc/self/task"));
    if (!m_recogniser || !threads.exists()) {
        QSKIP("not run: no recognition data or no /proc");
    }
    const auto before = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    QVERIFY(!m_recogniser->recognise(rasterOf(textPage()), resolution).words.empty());
    QCOMPARE(threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), before);
}

void OcrRecogniserTest::readsWords()
{
    if (!m_recogniser) {
        QSKIP("not run: no recognition data");
    }
    const QImage page = skewedPage(textPage(), 2);
    const model::RecognisedPicture found = m_recogniser->recognise(rasterOf(page), resolution);
    QVERIFY(found.complete);
    QVERIFY(std::abs(found.skew - 2) < 0.2);
    QVERIFY(found.words.size() > 80);
    const model::RecognisedWord &first = found.words.front();
    QCOMPARE(first.line, 1);
    QVERIFY(first.confidence > 0.8);
    QVERIFY(std::abs(first.size - 24) < 4);
    QVERIFY(std::abs(first.box.left - 200) < 5);
    QVERIFY(std::abs(first.baseline - 200) < 5);
    QVERIFY(first.box.top < first.baseline && first.box.bottom > first.baseline - 3);
    // All words of a line have one baseline, although the page was skewed.
    for (const model::RecognisedWord &word : found.words) {
        QVERIFY(word.line != 1 || std::abs(word.baseline - first.baseline) < 4);
    }
}

void OcrRecogniserTest::keepsToTheTime()
{
    if (!m_recogniser) {
        QSKIP("not run: no recognition data");
    }
    const QImage page = textPage(1000, 2000);
    const model::RecognisedPicture found =
        m_recogniser->recognise(rasterOf(page), resolution, {std::chrono::milliseconds(1)});
    QVERIFY(!found.complete);
}

void OcrRecogniserTest::hostilePicturesEndSoon_data()
{
    QTest::addColumn<QImage>("page");
    QTest::newRow("no pixels") << QImage();
    QTest::newRow("one pixel") << whitePage(1, 1);
    QTest::newRow("a line of pixels") << whitePage(3000, 1);
    QTest::newRow("white") << whitePage(1700, 2200);
    QImage black = whitePage(1700, 2200);
    black.fill(Qt::black);
    QTest::newRow("black") << black;
    QTest::newRow("noise") << noise(1700, 2200);
    QTest::newRow("small noise") << noise(64, 64);
    QTest::newRow("long") << noise(20000, 40);
}

void OcrRecogniserTest::hostilePicturesEndSoon()
{
    QFETCH(const QImage, page);
    if (!m_recogniser) {
        QSKIP("not run: no recognition data");
    }
    constexpr double mostSeconds = 20;
    const double start = threadSeconds();
    const model::RecognisedPicture found = m_recogniser->recognise(rasterOf(page), resolution);
    QVERIFY(threadSeconds() - start < mostSeconds);
    QVERIFY(found.words.size() < 5);
}

void OcrRecogniserTest::needsData()
{
    const QTemporaryDir empty;
    const ChangedVariable data("TESSDATA_PREFIX", empty.path().toLocal8Bit());
    QVERIFY(ocr::installedLanguages().empty());
    QVERIFY(!ocr::makeRecogniser("eng"));
    QFile damaged(empty.filePath(QStringLiteral("eng.traineddata")));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no data") > 0);
    damaged.close();
    QVERIFY(!ocr::makeRecogniser("eng"));
    QVERIFY(!ocr::makeRecogniser("../eng+/etc/passwd+"));
}

void OcrRecogniserTest::listsLanguages()
{
    const QTemporaryDir folder;
    const ChangedVariable data("TESSDATA_PREFIX", folder.path().toLocal8Bit());
    for (const char *name : {"fra.traineddata", "deu.traineddata", "osd.traineddata", "pdf.ttf"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(ocr::installedLanguages(), (std::vector<std::string>{"deu", "fra"}));
}

QTEST_MAIN(OcrRecogniserTest)
#include "ocr_recogniser_test.moc"
