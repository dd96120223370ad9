// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/tesseract_recogniser.h"

#include "module/page_words.h"
#include "module/preparation.h"

#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

#include <cmath>
#include <ctime>
#include <mutex>

/// Of the OpenMP library, if Tesseract was built with it.
extern "C" __attribute__((weak)) void omp_set_num_threads(int count); // NOLINT(readability-identifier-naming)

namespace quorra::ocr {

namespace {

std::chrono::nanoseconds threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

bool isOver(void *end, int /*words*/)
{
    return threadTime() >= *static_cast<const std::chrono::nanoseconds *>(end);
}

class TesseractRecogniser final : public Recogniser
{
public:
    /// Loads the data; returns false if that is not possible.
    bool load(const std::string &dataFolder, const std::string &languages)
    {
        // Libraries that print would spoil the engine's standard error.
        const std::vector<std::string> names = {"debug_file"};
        const std::vector<std::string> values = {"/dev/null"};
        m_api.SetVariable(names[0].c_str(), values[0].c_str());
        return m_api.Init(
                   dataFolder.c_str(), languages.c_str(), tesseract::OEM_LSTM_ONLY, nullptr, 0, &names, &values,
                   false) == 0;
    }

    model::RecognisedPicture
    recognise(const Raster &picture, double dotsPerInch, const RecognitionLimits &limits) override
    {
        model::RecognisedPicture found;
        if (omp_set_num_threads != nullptr) {
            omp_set_num_threads(1); // pages are read in parallel; applies to the calling thread
        }
        const PreparedPicture page = prepared(picture, dotsPerInch);
        if (!page.gray) {
            return found;
        }
        m_api.SetPageSegMode(tesseract::PSM_AUTO);
        m_api.SetImage(page.gray.get());
        m_api.SetSourceResolution(static_cast<int>(std::lround(page.dotsPerInch)));
        std::chrono::nanoseconds end = threadTime() + limits.processorTime;
        tesseract::ETEXT_DESC monitor;
        monitor.cancel = isOver;
        monitor.cancel_this = &end;
        found.complete = m_api.Recognize(&monitor) == 0 && !isOver(&end, 0);
        found.words = pageWords(m_api);
        for (model::RecognisedWord &word : found.words) {
            word.box = page.frame.onGiven(word.box);
            word.baseline = page.frame.baselineOnGiven(word.baseline);
            word.size /= page.frame.scale;
            word.rotation = page.frame.rotation;
        }
        found.skew = page.frame.skew;
        m_api.Clear();
        return found;
    }

private:
    tesseract::TessBaseAPI m_api;
};

} // namespace

Recogniser *makeTesseractRecogniser(const std::string &dataFolder, const std::string &languages)
{
    static std::mutex loading; // Tesseract sets its global variables while it loads
    const std::lock_guard<std::mutex> lock(loading);
    setMsgSeverity(L_SEVERITY_NONE);
    auto recogniser = std::make_unique<TesseractRecogniser>();
    return recogniser->load(dataFolder, languages) ? recogniser.release() : nullptr;
}

} // namespace quorra::ocr
