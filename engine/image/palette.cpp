// SPDX-License-Identifier: GPL-3.0-or-later
#include "palette.h"

#include <libimagequant.h>

#include <memory>
#include <new>
#include <optional>
#include <unordered_map>

namespace quorra {

namespace {

constexpr std::size_t mostColours = 256;
constexpr int fastButGood = 7;

std::optional<IndexedPicture> exactly(const std::vector<std::uint8_t> &rgb)
{
    IndexedPicture picture;
    picture.pixels.reserve(rgb.size() / 3);
    std::unordered_map<std::uint32_t, std::uint8_t> known;
    std::uint32_t previous = ~0U;
    std::uint8_t index = 0;
    for (std::size_t i = 0; i + 2 < rgb.size(); i += 3) {
        const std::uint32_t colour = std::uint32_t{rgb[i]} << 16 | std::uint32_t{rgb[i + 1]} << 8 | rgb[i + 2];
        if (colour != previous) {
            const auto [entry, isNew] = known.try_emplace(colour, static_cast<std::uint8_t>(picture.palette.size()));
            if (isNew && picture.palette.size() == mostColours) {
                return {};
            }
            if (isNew) {
                picture.palette.push_back({rgb[i], rgb[i + 1], rgb[i + 2]});
            }
            index = entry->second;
            previous = colour;
        }
        picture.pixels.push_back(index);
    }
    return picture;
}

struct Source
{
    const std::uint8_t *rgb;
};

void fillRow(liq_color *row, int y, int width, void *source)
{
    const std::uint8_t *pixel = static_cast<const Source *>(source)->rgb + std::size_t{3} * width * y;
    for (int x = 0; x < width; ++x, pixel += 3) {
        row[x] = {pixel[0], pixel[1], pixel[2], 255};
    }
}

template <typename Object>
using Handle = std::unique_ptr<Object, void (*)(Object *)>;

} // namespace

IndexedPicture withPalette(const std::vector<std::uint8_t> &rgb, int width, int height)
{
    if (std::optional<IndexedPicture> exact = exactly(rgb)) {
        return std::move(*exact);
    }
    Source source{rgb.data()};
    const Handle<liq_attr> settings(liq_attr_create(), liq_attr_destroy);
    if (!settings) {
        throw std::bad_alloc();
    }
    liq_set_speed(settings.get(), fastButGood);
    const Handle<liq_image> image(
        liq_image_create_custom(settings.get(), fillRow, &source, width, height, 0), liq_image_destroy);
    liq_result *made = nullptr;
    if (!image || liq_image_quantize(image.get(), settings.get(), &made) != LIQ_OK) {
        throw std::bad_alloc();
    }
    const Handle<liq_result> result(made, liq_result_destroy);
    IndexedPicture picture;
    picture.pixels.resize(rgb.size() / 3);
    if (liq_write_remapped_image(made, image.get(), picture.pixels.data(), picture.pixels.size()) != LIQ_OK) {
        throw std::bad_alloc();
    }
    const liq_palette *const palette = liq_get_palette(made);
    for (unsigned i = 0; i < palette->count; ++i) {
        picture.palette.push_back({palette->entries[i].r, palette->entries[i].g, palette->entries[i].b});
    }
    return picture;
}

} // namespace quorra
