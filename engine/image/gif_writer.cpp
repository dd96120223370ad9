// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "image/picture_writer.h"
#include "palette.h"

#include <gif_lib.h>

#include <exception>
#include <new>

namespace quorra {

namespace {

constexpr int channelBits = 8;

/// Buffers the whole picture until its palette can be computed.
class GifWriter : public PictureWriter
{
public:
    GifWriter(OutputFile &file, const PictureInfo &info) : m_file(file), m_info(info)
    {
        const std::size_t perPixel = info.depth == ColourDepth::Colour ? 3 : 1;
        m_pixels.reserve(
            perPixel * static_cast<std::size_t>(info.size.width) * static_cast<std::size_t>(info.size.height));
    }

    void addRows(const Raster &rows) override
    {
        for (int y = 0; y < rows.rows; ++y) {
            const std::uint8_t *const source = rows.row(y);
            if (rows.depth == ColourDepth::Mono) {
                for (int x = 0; x < rows.width; ++x) {
                    m_pixels.push_back(source[x / 8] >> (7 - x % 8) & 1);
                }
            } else {
                m_pixels.insert(m_pixels.end(), source, source + rowBytes(rows.depth, rows.width));
            }
        }
    }

    void finish() override
    {
        IndexedPicture picture = indexed();
        int error = 0;
        GifFileType *const gif = EGifOpen(this, &GifWriter::take, &error);
        if (!gif) {
            throw std::bad_alloc();
        }
        const bool done = write(gif, picture);
        const bool closed = EGifCloseFile(gif, &error) == GIF_OK;
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        if (!done || !closed) {
            throw Failure(ExitStatus::CannotWrite, "cannot write a GIF picture of this size");
        }
    }

private:
    IndexedPicture indexed()
    {
        if (m_info.depth == ColourDepth::Colour) {
            return withPalette(m_pixels, m_info.size.width, m_info.size.height);
        }
        // The palette contains every gray level.
        IndexedPicture picture;
        const int levels = m_info.depth == ColourDepth::Gray ? 256 : 2;
        for (int i = 0; i < levels; ++i) {
            const auto level = static_cast<std::uint8_t>(i * 255 / (levels - 1));
            picture.palette.push_back({level, level, level});
        }
        picture.pixels = std::move(m_pixels);
        return picture;
    }

    bool write(GifFileType *gif, IndexedPicture &picture) const
    {
        int entries = 2;
        while (entries < static_cast<int>(picture.palette.size())) {
            entries *= 2;
        }
        ColorMapObject *const map = GifMakeMapObject(entries, nullptr);
        if (!map) {
            return false;
        }
        for (std::size_t i = 0; i < picture.palette.size(); ++i) {
            map->Colors[i] = {picture.palette[i][0], picture.palette[i][1], picture.palette[i][2]};
        }
        const int width = m_info.size.width;
        const int height = m_info.size.height;
        bool good = EGifPutScreenDesc(gif, width, height, channelBits, 0, map) == GIF_OK &&
                    EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr) == GIF_OK;
        GifFreeMapObject(map);
        for (int y = 0; good && y < height; ++y) {
            good = EGifPutLine(gif, picture.pixels.data() + static_cast<std::size_t>(y) * width, width) == GIF_OK;
        }
        return good;
    }

    /// Called by the library: exceptions must not pass through its frames, so they are rethrown when it has returned.
    static int take(GifFileType *gif, const GifByteType *bytes, int size)
    {
        auto *const self = static_cast<GifWriter *>(gif->UserData);
        try {
            if (!self->m_failure) {
                self->m_file.write({reinterpret_cast<const char *>(bytes), static_cast<std::size_t>(size)});
            }
            return size;
        } catch (...) {
            self->m_failure = std::current_exception();
            return 0;
        }
    }

    OutputFile &m_file;
    PictureInfo m_info;
    std::vector<std::uint8_t> m_pixels;
    std::exception_ptr m_failure;
};

} // namespace

std::unique_ptr<PictureWriter> makeGifWriter(OutputFile &file, const PictureInfo &info)
{
    return std::make_unique<GifWriter>(file, info);
}

} // namespace quorra
