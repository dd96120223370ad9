// SPDX-License-Identifier: GPL-3.0-or-later
// A developer tool that reads a picture of a page (PGM or PPM, 8 bits) and prints its words, one line of the picture
// per line:
//
//   read_picture [--boxes] MODULE_FOLDER FILE DPI [LANGUAGES]
//
// DPI 0: unknown. --boxes prints one word per line with box, baseline, type size and confidence, then rules and
// figures. Exit status 77: no recognition data.
#include "ocr/recogniser.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace quorra;

struct Picture
{
    std::vector<std::uint8_t> pixels;
    Raster raster;
};

bool readPicture(const std::string &path, Picture &picture)
{
    std::ifstream file(path, std::ios::binary);
    std::string magic;
    int width = 0;
    int rows = 0;
    int most = 0;
    if (!(file >> magic >> width >> rows >> most) || (magic != "P5" && magic != "P6") || most != 255 || width < 0 ||
        rows < 0) {
        return false;
    }
    file.get();
    const ColourDepth depth = magic == "P5" ? ColourDepth::Gray : ColourDepth::Colour;
    picture.pixels.resize(rowBytes(depth, width) * static_cast<std::size_t>(rows));
    file.read(reinterpret_cast<char *>(picture.pixels.data()), static_cast<std::streamsize>(picture.pixels.size()));
    picture.raster = {width, rows, depth, rowBytes(depth, width), picture.pixels.data(), {}};
    return !file.fail();
}

void printBox(const char *kind, const Box &box)
{
    std::printf("%s %.1f %.1f %.1f %.1f", kind, box.left, box.top, box.right, box.bottom);
}

void printBoxes(const model::RecognisedPicture &found)
{
    std::printf("skew %.2f\n", found.skew);
    for (const model::RecognisedWord &word : found.words) {
        printBox("word", word.box);
        std::printf(
            " baseline %.1f rotation %d size %.1f confidence %.2f%s%s line %d %s\n", word.baseline, word.rotation,
            word.size, word.confidence, word.bold ? " bold" : "", word.fixedPitch ? " fixed" : "", word.line,
            word.text.toUtf8().constData());
    }
    for (const model::Rule &rule : found.rules) {
        printBox("rule", {rule.x1, rule.y1, rule.x2, rule.y2});
        std::printf(" width %.1f\n", rule.width);
    }
    for (const Box &figure : found.figures) {
        printBox("figure", figure);
        std::printf("\n");
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool boxes = !arguments.empty() && arguments[0] == "--boxes";
    if (boxes) {
        arguments.erase(arguments.begin());
    }
    Picture picture;
    if (arguments.size() < 3 || !readPicture(arguments[1], picture)) {
        std::fprintf(stderr, "usage: read_picture [--boxes] MODULE_FOLDER FILE DPI [LANGUAGES]\n");
        return 2;
    }
    ocr::setModuleFolder(arguments[0]);
    const auto recogniser = ocr::makeRecogniser(arguments.size() > 3 ? arguments[3] : "eng");
    if (!recogniser) {
        std::fprintf(stderr, "read_picture: not run: no recognition data\n");
        return 77;
    }
    const model::RecognisedPicture found =
        recogniser->recognise(picture.raster, std::strtod(arguments[2].c_str(), nullptr));
    if (boxes) {
        printBoxes(found);
        return 0;
    }
    for (const model::RecognisedWord &word : found.words) {
        std::printf("%s%s", word.text.toUtf8().constData(), word.endsLine ? "\n" : " ");
    }
    return 0;
}
