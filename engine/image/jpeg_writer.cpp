// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "image/picture_writer.h"

#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <exception>

#include <jpeglib.h>

namespace quorra {

namespace {

constexpr UINT8 dotsPerInch = 1;

/// The library's error manager with the jump target for failures. The manager must be the first member: the library
/// passes its address.
struct Errors
{
    jpeg_error_mgr manager{};
    std::jmp_buf escape{};
};

[[noreturn]] void leave(j_common_ptr jpeg)
{
    std::longjmp(reinterpret_cast<Errors *>(jpeg->err)->escape, 1);
}

/// The library's destination manager with a pointer to the sink. The manager must be the first member.
struct Destination
{
    jpeg_destination_mgr manager{};
    ByteSink sink;
    std::exception_ptr failure;
    std::array<JOCTET, 64 * 1024> buffer{};

    static Destination &of(j_compress_ptr jpeg) { return *reinterpret_cast<Destination *>(jpeg->dest); }

    void rewind()
    {
        manager.next_output_byte = buffer.data();
        manager.free_in_buffer = buffer.size();
    }

    /// Returns false on failure and keeps the exception: it must not pass through the library's frames.
    bool write(std::size_t size)
    {
        try {
            sink({reinterpret_cast<const char *>(buffer.data()), size});
            return true;
        } catch (...) {
            failure = std::current_exception();
            return false;
        }
    }
};

/// Frees the library's memory, even if the constructor of the writer fails.
struct Compressor : jpeg_compress_struct
{
    Compressor() : jpeg_compress_struct{} {}
    ~Compressor() { jpeg_destroy_compress(this); }
    Compressor(const Compressor &) = delete;
    Compressor &operator=(const Compressor &) = delete;
};

class JpegWriter : public PictureWriter
{
public:
    JpegWriter(ByteSink sink, const PictureInfo &info, const JpegSettings &settings)
    {
        m_destination.sink = std::move(sink);
        m_jpeg.err = jpeg_std_error(&m_errors.manager);
        m_errors.manager.error_exit = leave;
        m_errors.manager.output_message = [](j_common_ptr) {};
        guarded([&] { start(info, settings); });
    }

    void addRows(const Raster &rows) override
    {
        guarded([&] {
            for (int y = 0; y < rows.rows; ++y) {
                JSAMPROW row = const_cast<JSAMPROW>(rows.row(y));
                jpeg_write_scanlines(&m_jpeg, &row, 1);
            }
        });
    }

    void finish() override
    {
        guarded([&] { jpeg_finish_compress(&m_jpeg); });
    }

private:
    /// Calls the library. On failure it jumps back here, over frames without destructors, and the failure is thrown.
    template <typename Calls>
    void guarded(const Calls &calls)
    {
        if (setjmp(m_errors.escape) == 0) {
            calls();
            return;
        }
        if (m_destination.failure) {
            std::rethrow_exception(m_destination.failure);
        }
        throw Failure(ExitStatus::CannotWrite, "cannot write a JPEG picture of this size");
    }

    void start(const PictureInfo &info, const JpegSettings &settings)
    {
        jpeg_create_compress(&m_jpeg);
        setDestination();
        const bool colour = info.depth == ColourDepth::Colour;
        m_jpeg.image_width = static_cast<JDIMENSION>(info.size.width);
        m_jpeg.image_height = static_cast<JDIMENSION>(info.size.height);
        m_jpeg.input_components = colour ? 3 : 1;
        m_jpeg.in_color_space = colour ? JCS_RGB : JCS_GRAYSCALE;
        jpeg_set_defaults(&m_jpeg);
        jpeg_set_quality(&m_jpeg, settings.quality, TRUE);
        if (settings.fullColour) {
            m_jpeg.comp_info[0].h_samp_factor = 1;
            m_jpeg.comp_info[0].v_samp_factor = 1;
        }
        m_jpeg.optimize_coding = settings.ownTables ? TRUE : FALSE;
        if (info.size.xtag > 0 && info.size.ytag > 0) {
            m_jpeg.density_unit = dotsPerInch;
            m_jpeg.X_density = static_cast<UINT16>(std::lround(info.size.xtag));
            m_jpeg.Y_density = static_cast<UINT16>(std::lround(info.size.ytag));
        }
        jpeg_start_compress(&m_jpeg, TRUE);
    }

    void setDestination()
    {
        m_destination.manager.init_destination = [](j_compress_ptr jpeg) { Destination::of(jpeg).rewind(); };
        m_destination.manager.empty_output_buffer = [](j_compress_ptr jpeg) -> boolean {
            Destination &destination = Destination::of(jpeg);
            if (!destination.write(destination.buffer.size())) {
                leave(reinterpret_cast<j_common_ptr>(jpeg));
            }
            destination.rewind();
            return TRUE;
        };
        m_destination.manager.term_destination = [](j_compress_ptr jpeg) {
            Destination &destination = Destination::of(jpeg);
            if (!destination.write(destination.buffer.size() - destination.manager.free_in_buffer)) {
                leave(reinterpret_cast<j_common_ptr>(jpeg));
            }
        };
        m_jpeg.dest = &m_destination.manager;
    }

    Errors m_errors;
    Destination m_destination;
    Compressor m_jpeg;
};

} // namespace

std::unique_ptr<PictureWriter> makeJpegWriter(ByteSink sink, const PictureInfo &info, const JpegSettings &settings)
{
    return std::make_unique<JpegWriter>(std::move(sink), info, settings);
}

} // namespace quorra
