// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"

#include "base/units.h"
#include "image/picture_writer.h"

#include <png.h>

#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

namespace quorra {

namespace {

// Measured with pages of text and scans at 150 dpi: unfiltered rows at this compression level take a quarter to a tenth
// of the time of the library's defaults, and for text they are smaller than filtered rows.
constexpr int packerLevel = 3;
constexpr int packerBuffer = 64 * 1024;

png_uint_32 perMetre(double perInch)
{
    return static_cast<png_uint_32>(std::lround(perInch * inchesPerMetre));
}

/// Frees the library's memory, even if the constructor of the writer fails.
struct Handles
{
    png_structp png = nullptr;
    png_infop info = nullptr;

    Handles() = default;
    ~Handles() { png_destroy_write_struct(&png, &info); }
    Handles(const Handles &) = delete;
    Handles &operator=(const Handles &) = delete;
};

class PngWriter : public PictureWriter
{
public:
    PngWriter(ByteSink sink, const PictureInfo &info) : m_sink(std::move(sink))
    {
        m_handles.png = png_create_write_struct(
            PNG_LIBPNG_VER_STRING, this, &PngWriter::leave, [](png_structp, png_const_charp) {});
        m_handles.info = m_handles.png ? png_create_info_struct(m_handles.png) : nullptr;
        if (!m_handles.info) {
            throw std::bad_alloc();
        }
        guarded([&] { start(info); });
    }

    void addRows(const Raster &rows) override
    {
        guarded([&] {
            for (int y = 0; y < rows.rows; ++y) {
                png_write_row(m_handles.png, rows.row(y));
            }
        });
    }

    void finish() override
    {
        guarded([&] { png_write_end(m_handles.png, nullptr); });
    }

private:
    /// Calls the library. On failure it jumps back here, over frames without destructors, and the failure is thrown.
    template <typename Calls>
    void guarded(const Calls &calls)
    {
        if (setjmp(png_jmpbuf(m_handles.png)) == 0) {
            calls();
            return;
        }
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        throw Failure(ExitStatus::CannotWrite, std::string("cannot write a PNG picture: ") + m_message.data());
    }

    void start(const PictureInfo &info)
    {
        const png_structp png = m_handles.png;
        png_set_write_fn(png, this, &PngWriter::take, nullptr);
        const bool mono = info.depth == ColourDepth::Mono;
        const bool colour = info.depth == ColourDepth::Colour;
        png_set_IHDR(
            png, m_handles.info, static_cast<png_uint_32>(info.size.width), static_cast<png_uint_32>(info.size.height),
            mono ? 1 : 8, colour ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
            PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (info.size.xtag > 0 && info.size.ytag > 0) {
            png_set_pHYs(png, m_handles.info, perMetre(info.size.xtag), perMetre(info.size.ytag), PNG_RESOLUTION_METER);
        }
        png_set_compression_level(png, packerLevel);
        png_set_compression_buffer_size(png, packerBuffer);
        png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        png_write_info(png, m_handles.info);
    }

    /// Called by the library.
    [[noreturn]] static void leave(png_structp png, png_const_charp message)
    {
        auto *const self = static_cast<PngWriter *>(png_get_error_ptr(png));
        std::snprintf(self->m_message.data(), self->m_message.size(), "%s", message);
        png_longjmp(png, 1);
    }

    /// Called by the library: exceptions must not pass through its frames.
    static void take(png_structp png, png_bytep bytes, std::size_t size)
    {
        auto *const self = static_cast<PngWriter *>(png_get_io_ptr(png));
        try {
            self->m_sink({reinterpret_cast<const char *>(bytes), size});
            return;
        } catch (...) {
            self->m_failure = std::current_exception();
        }
        png_error(png, "");
    }

    ByteSink m_sink;
    std::exception_ptr m_failure;
    std::array<char, 128> m_message{};
    Handles m_handles;
};

} // namespace

std::unique_ptr<PictureWriter> makePngWriter(ByteSink sink, const PictureInfo &info)
{
    return std::make_unique<PngWriter>(std::move(sink), info);
}

} // namespace quorra
