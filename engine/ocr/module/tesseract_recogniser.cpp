// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/tesseract_recogniser.h"

#include "module/drawings.h"
#include "module/page_words.h"
#include "module/plausible_words.h"
#include "module/preparation.h"

#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <mutex>

/// Of the OpenMP library, if Tesseract was built with it.
extern "C" __attribute__((weak)) void omp_set_max_active_levels(int count); // NOLINT(readability-identifier-naming)

namespace quorra::ocr {

namespace {

/// Mean confidence below which a page may be upside down: what is read of such a page is below half.
constexpr double doubtfulConfidence = 0.75;

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

/// Sets or inverts the pixels of boxes, which are given in pixels of the picture reduced by `reduction`.
void change(PIX *gray, const std::vector<Box> &boxes, int reduction, int operation)
{
    for (const Box &box : boxes) {
        pixRasterop(
            gray, static_cast<int>(box.left) * reduction, static_cast<int>(box.top) * reduction,
            static_cast<int>(box.width()) * reduction, static_cast<int>(box.height()) * reduction, operation, nullptr,
            0, 0);
    }
}

/// The edges of the boxes, where inverting leaves a thin dark line.
std::vector<Box> rims(const std::vector<Box> &boxes)
{
    constexpr double width = 2;
    std::vector<Box> found;
    for (const Box &box : boxes) {
        const Box outer = expanded(box, width);
        found.push_back({outer.left, outer.top, outer.right, box.top + width});
        found.push_back({outer.left, box.bottom - width, outer.right, outer.bottom});
        found.push_back({outer.left, outer.top, box.left + width, outer.bottom});
        found.push_back({box.right - width, outer.top, outer.right, outer.bottom});
    }
    return found;
}

/// The gray picture without photographs, and with dark text on what were dark boxes.
PixPtr textOnly(PIX *gray, const std::vector<Box> &photographs, const std::vector<Box> &darkOnes, int reduction)
{
    if (photographs.empty() && darkOnes.empty()) {
        return checked(pixClone(gray));
    }
    PixPtr text = checked(pixCopy(nullptr, gray));
    change(text.get(), photographs, reduction, PIX_SET);
    change(text.get(), darkOnes, reduction, PIX_NOT(PIX_DST));
    change(text.get(), rims(darkOnes), reduction, PIX_SET);
    return text;
}

/// Moves everything from the prepared picture to the one that was given.
void moveToGiven(model::RecognisedPicture &page, const PageFrame &frame)
{
    for (model::RecognisedWord &word : page.words) {
        word.box = frame.onGiven(word.box);
        word.baseline = frame.baselineOnGiven(word.baseline);
        word.size /= frame.scale;
        word.rotation = frame.rotation;
    }
    for (model::Rule &rule : page.rules) {
        const Box line = frame.onGiven({rule.x1, rule.y1, rule.x2, rule.y2});
        rule.x1 = line.left;
        rule.y1 = line.top;
        rule.x2 = line.right;
        rule.y2 = line.bottom;
        rule.width /= frame.scale;
    }
    for (Box &figure : page.figures) {
        figure = frame.onGiven(figure);
    }
    for (model::Fill &fill : page.fills) {
        fill.box = frame.onGiven(fill.box);
    }
    page.skew = frame.skew;
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
        // Pages are read in parallel: Tesseract's own threads would only wait for one another. omp_set_num_threads()
        // does not prevent them, because Tesseract states a number of threads. Applies to the calling thread.
        if (omp_set_max_active_levels != nullptr) {
            omp_set_max_active_levels(0);
        }
        const std::chrono::nanoseconds end = threadTime() + limits.processorTime;
        PreparedPicture page = prepared(picture, dotsPerInch);
        if (!page.gray) {
            return {};
        }
        model::RecognisedPicture found = readPage(page, end);
        if (found.complete && meanConfidence(found.words) < doubtfulConfidence) {
            turnUpsideDown(page);
            model::RecognisedPicture other = readPage(page, end);
            if (meanConfidence(other.words) > meanConfidence(found.words)) {
                found = std::move(other);
            } else {
                turnUpsideDown(page);
            }
        }
        moveToGiven(found, page.frame);
        return found;
    }

private:
    /// Reads a picture that is upright. All positions are those of the reduced picture.
    model::RecognisedPicture readPage(const PreparedPicture &page, std::chrono::nanoseconds end)
    {
        model::RecognisedPicture found;
        const double resolution = page.dotsPerInch / page.reduction;
        found.rules = straightLines(page.dark.get(), resolution);
        found.figures = photographs(page.dark.get(), page.small.get(), resolution);
        const std::vector<Box> darkOnes = darkBoxes(page.dark.get(), resolution, found.figures);
        const PixPtr text = textOnly(page.gray.get(), found.figures, darkOnes, page.reduction);
        recogniseText(text.get(), page.dotsPerInch, end, found);
        for (model::RecognisedWord &word : found.words) {
            word.box = {
                word.box.left / page.reduction, word.box.top / page.reduction, word.box.right / page.reduction,
                word.box.bottom / page.reduction};
            word.baseline /= page.reduction;
            word.size /= page.reduction;
        }
        keepPlausible(found.words, found.rules, found.figures);
        std::vector<Box> others = found.figures;
        others.insert(others.end(), darkOnes.begin(), darkOnes.end());
        const std::vector<Box> drawings = lineDrawings(page.dark.get(), resolution, found.rules, others, found.words);
        for (const Box &box : darkOnes) {
            found.fills.push_back({box, black, true});
        }
        found.figures.insert(found.figures.end(), drawings.begin(), drawings.end());
        keepPlausible(found.words, found.rules, found.figures);
        evenSizes(found.words);
        const auto isOnFigure = [&](const model::Rule &rule) {
            return std::any_of(found.figures.begin(), found.figures.end(), [&](const Box &figure) {
                const Box around = expanded(figure, 2);
                return around.contains(rule.x1, rule.y1) && around.contains(rule.x2, rule.y2);
            });
        };
        found.rules.erase(std::remove_if(found.rules.begin(), found.rules.end(), isOnFigure), found.rules.end());
        return found;
    }

    void recogniseText(PIX *text, double dotsPerInch, std::chrono::nanoseconds end, model::RecognisedPicture &found)
    {
        m_api.SetPageSegMode(tesseract::PSM_AUTO);
        m_api.SetImage(text);
        m_api.SetSourceResolution(static_cast<int>(std::lround(dotsPerInch)));
        tesseract::ETEXT_DESC monitor;
        monitor.cancel = isOver;
        monitor.cancel_this = &end;
        found.complete = m_api.Recognize(&monitor) == 0 && !isOver(&end, 0);
        found.words = pageWords(m_api);
        m_api.Clear();
    }

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
