// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/image/picture_writer.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <exception>

#include <jpeglib.h>

namespace quorra {

namespace {

constexpr int Quality = 90;
constexpr UINT8 DotsPerInch = 1;

/// The library's destination manager with a way back to the file. The manager must come first.
struct Destination
{
    jpeg_destination_mgr manager{};
    OutputFile *file = nullptr;
    std::exception_ptr failure;
    std::array<JOCTET, 64 * 1024> buffer{};

    static Destination &of(j_compress_ptr jpeg) { return *reinterpret_cast<Destination *>(jpeg->dest); }

    void rewind()
    {
        manager.next_output_byte = buffer.data();
        manager.free_in_buffer = buffer.size();
    }

    /// The library must not see our exceptions: they wait until it has returned.
    void write(std::size_t size)
    {
        if (failure)
            return;
        try {
            file->write({reinterpret_cast<const char *>(buffer.data()), size});
        } catch (...) {
            failure = std::current_exception();
        }
    }
};

[[noreturn]] void fail(j_common_ptr)
{
    throw Failure(ExitStatus::CannotWrite, "cannot write a JPEG picture of this size");
}

void ignore(j_common_ptr) {}

class JpegWriter : public PictureWriter
{
public:
    JpegWriter(OutputFile &file, const PictureInfo &info)
    {
        m_destination.file = &file;
        m_jpeg.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = fail;
        m_errors.output_message = ignore;
        jpeg_create_compress(&m_jpeg);
        setDestination();
        const bool colour = info.depth == ColourDepth::Colour;
        m_jpeg.image_width = static_cast<JDIMENSION>(info.size.width);
        m_jpeg.image_height = static_cast<JDIMENSION>(info.size.height);
        m_jpeg.input_components = colour ? 3 : 1;
        m_jpeg.in_color_space = colour ? JCS_RGB : JCS_GRAYSCALE;
        jpeg_set_defaults(&m_jpeg);
        jpeg_set_quality(&m_jpeg, Quality, TRUE);
        // Coloured text suffers when colours are stored at half the resolution.
        m_jpeg.comp_info[0].h_samp_factor = 1;
        m_jpeg.comp_info[0].v_samp_factor = 1;
        m_jpeg.optimize_coding = TRUE;
        m_jpeg.density_unit = DotsPerInch;
        m_jpeg.X_density = static_cast<UINT16>(std::lround(info.size.xtag));
        m_jpeg.Y_density = static_cast<UINT16>(std::lround(info.size.ytag));
        jpeg_start_compress(&m_jpeg, TRUE);
    }

    ~JpegWriter() override { jpeg_destroy_compress(&m_jpeg); }

    void addRows(const Raster &rows) override
    {
        for (int y = 0; y < rows.rows; ++y) {
            JSAMPROW row = const_cast<JSAMPROW>(rows.row(y));
            jpeg_write_scanlines(&m_jpeg, &row, 1);
        }
        rethrow();
    }

    void finish() override
    {
        jpeg_finish_compress(&m_jpeg);
        rethrow();
    }

private:
    void setDestination()
    {
        m_destination.manager.init_destination = [](j_compress_ptr jpeg) { Destination::of(jpeg).rewind(); };
        m_destination.manager.empty_output_buffer = [](j_compress_ptr jpeg) -> boolean {
            Destination &destination = Destination::of(jpeg);
            destination.write(destination.buffer.size());
            destination.rewind();
            return TRUE;
        };
        m_destination.manager.term_destination = [](j_compress_ptr jpeg) {
            Destination &destination = Destination::of(jpeg);
            destination.write(destination.buffer.size() - destination.manager.free_in_buffer);
        };
        m_jpeg.dest = &m_destination.manager;
    }

    void rethrow()
    {
        if (m_destination.failure)
            std::rethrow_exception(m_destination.failure);
    }

    jpeg_compress_struct m_jpeg{};
    jpeg_error_mgr m_errors{};
    Destination m_destination;
};

} // namespace

std::unique_ptr<PictureWriter> makeJpegWriter(OutputFile &file, const PictureInfo &info)
{
    return std::make_unique<JpegWriter>(file, info);
}

} // namespace quorra
