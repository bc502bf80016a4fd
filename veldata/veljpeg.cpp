#include <veldata/velcodec_p.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

#include <jerror.h>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>
#include <veldata/veloutput_p.h>

namespace {

/// An error manager that refuses at the first warning, too. The manager comes first: libjpeg knows
/// its address only.
struct Verdict
{
    jpeg_error_mgr manager;
    std::jmp_buf giveUp;
};

[[noreturn]] void refuse(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<Verdict*>(info->err)->giveUp, 1);
}

void onMessage(j_common_ptr info, int level)
{
    if (level < 0)
        refuse(info);
}

jpeg_error_mgr* initialise(Verdict& verdict)
{
    jpeg_std_error(&verdict.manager);
    verdict.manager.error_exit = refuse;
    verdict.manager.emit_message = onMessage;
    return &verdict.manager;
}

/// The value of a colour whose ink and black are kept inverted, as Adobe does.
unsigned char lightOf(int ink, int black)
{
    return static_cast<unsigned char>(black - ((255 - ink) * black >> 8));
}

class Reader
{
public:
    explicit Reader(VelInput const& input) noexcept : fileSize(input.size()), stream(input)
    {
        info.err = initialise(verdict);
        info.client_data = this;
        source.init_source = [](j_decompress_ptr) {};
        source.fill_input_buffer = [](j_decompress_ptr decoder) { return of(decoder).fill(); };
        source.skip_input_data = [](j_decompress_ptr decoder, long count) {
            of(decoder).skip(count);
        };
        source.resync_to_restart = jpeg_resync_to_restart;
        source.term_source = [](j_decompress_ptr) {};
        progress.progress_monitor = [](j_common_ptr decoder) {
            of(reinterpret_cast<j_decompress_ptr>(decoder)).onProgress();
        };
    }

    ~Reader()
    {
        info.progress = nullptr;
        jpeg_destroy_decompress(&info);
    }

    Reader(Reader const&) = delete;
    Reader& operator=(Reader const&) = delete;

    VelPixels* read() noexcept
    {
        if (decode())
            return pixels;
        VelPixels::release(pixels);
        return nullptr;
    }

private:
    static Reader& of(j_decompress_ptr decoder)
    {
        return *static_cast<Reader*>(decoder->client_data);
    }

    /// Everything below decode() runs inside libjpeg or between its calls, and holds no objects
    /// with destructors: refuse() jumps out of it.
    bool decode() noexcept
    {
        if (setjmp(verdict.giveUp))
            return false;
        jpeg_create_decompress(&info);
        info.progress = &progress;
        info.src = &source;
        jpeg_read_header(&info, TRUE);
        if (!isWithinLimits() || !chooseColours())
            return false;
        jpeg_start_decompress(&info);
        pixels = velcodec::newPixels(info.output_width, info.output_height,
                                     info.num_components == 1 ? 1 : 3, VEL_8U);
        if (!pixels)
            return false;
        if (info.out_color_space == JCS_CMYK)
            readInks();
        else
            readRows();
        jpeg_finish_decompress(&info);
        return true;
    }

    bool isWithinLimits() const noexcept
    {
        if (info.image_width > vellimits::side || info.image_height > vellimits::side)
            return false;
        std::uint64_t const valueCount = info.num_components == 1 ? 1 : 3;
        std::uint64_t blocks = 0;
        for (int i = 0; i < info.num_components; ++i) {
            jpeg_component_info const& component = info.comp_info[i];
            blocks += std::uint64_t{component.width_in_blocks} * component.height_in_blocks;
        }
        // A block takes at least one bit of the file. Keeps a small file from asking for gigabytes.
        if (blocks / 8 > fileSize ||
            valueCount * info.image_width * info.image_height > vellimits::pictureBytes)
            return false;
        return !jpeg_has_multiple_scans(const_cast<j_decompress_ptr>(&info)) ||
               blocks * sizeof(JBLOCK) <= vellimits::jpegCoefficientBytes;
    }

    /// False for a number of components that nobody knows the meaning of.
    bool chooseColours() noexcept
    {
        switch (info.num_components) {
        case 1:
            info.out_color_space = JCS_GRAYSCALE;
            return true;
        case 3:
            info.out_color_space = JCS_EXT_BGR;
            return true;
        case 4:
            info.out_color_space = JCS_CMYK;
            return true;
        default:
            return false;
        }
    }

    void readRows()
    {
        constexpr JDIMENSION rowsAtOnce = 16;
        JSAMPROW rows[rowsAtOnce];
        auto const rowBytes = static_cast<std::size_t>(pixels->geometry.rowBytes());
        while (info.output_scanline < info.output_height) {
            JDIMENSION const count =
                std::min(rowsAtOnce, info.output_height - info.output_scanline);
            for (JDIMENSION i = 0; i < count; ++i)
                rows[i] = pixels->data + (info.output_scanline + i) * rowBytes;
            jpeg_read_scanlines(&info, rows, count);
        }
    }

    void readInks()
    {
        JSAMPARRAY const row = info.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&info),
                                                      JPOOL_IMAGE, info.output_width * 4, 1);
        // Adobe's programs alone keep inks inverted, and say that they made the file.
        int const inversion = info.saw_Adobe_marker ? 0 : 255;
        unsigned char* to = pixels->data;
        while (info.output_scanline < info.output_height) {
            jpeg_read_scanlines(&info, row, 1);
            JSAMPLE const* inks = row[0];
            for (JDIMENSION x = 0; x < info.output_width; ++x, inks += 4, to += 3) {
                int const black = inks[3] ^ inversion;
                for (int i = 0; i < 3; ++i)
                    to[2 - i] = lightOf(inks[i] ^ inversion, black);
            }
        }
    }

    boolean fill()
    {
        source.bytes_in_buffer = stream.takeWindow(source.next_input_byte);
        idleBytes += source.bytes_in_buffer;
        if (source.bytes_in_buffer == 0 || idleBytes > vellimits::jpegIdleBytes)
            refuse(reinterpret_cast<j_common_ptr>(&info));
        return TRUE;
    }

    void skip(long count)
    {
        idleBytes = 0;
        auto const wanted = static_cast<std::size_t>(std::max(count, 0L));
        std::size_t const inWindow = std::min(wanted, source.bytes_in_buffer);
        source.next_input_byte += inWindow;
        source.bytes_in_buffer -= inWindow;
        if (wanted > inWindow)
            stream.skip(wanted - inWindow);
    }

    /// Called for every row of blocks of every scan where there are several, and for every row of
    /// pixels in any case.
    void onProgress()
    {
        idleBytes = 0;
        bool const isAbsorbingScans = !pixels && jpeg_has_multiple_scans(&info);
        if (isAbsorbingScans)
            countBlocks();
    }

    /// Scans may be almost empty, and still every one of them goes through all of its blocks.
    void countBlocks()
    {
        bool const isOnePlane = info.comps_in_scan == 1;
        auto const rows =
            static_cast<std::uint64_t>(isOnePlane ? info.cur_comp_info[0]->v_samp_factor : 1);
        blocksDone += rows * info.MCUs_per_row * static_cast<std::uint64_t>(info.blocks_in_MCU);
        std::uint64_t const bytesDone = stream.offset() - source.bytes_in_buffer;
        if (info.input_scan_number > vellimits::jpegScans ||
            blocksDone > vellimits::jpegFreeBlocks + vellimits::jpegBlocksPerByte * bytesDone)
            refuse(reinterpret_cast<j_common_ptr>(&info));
    }

    Verdict verdict = {};
    jpeg_decompress_struct info = {};
    jpeg_source_mgr source = {};
    jpeg_progress_mgr progress = {};
    std::uint64_t fileSize;
    VelInputStream stream;
    VelPixels* pixels = nullptr;
    std::uint64_t blocksDone = 0;
    std::uint64_t idleBytes = 0;
};

/// What libjpeg writes to.
struct Target
{
    jpeg_destination_mgr manager; ///< comes first: libjpeg knows its address only
    VelOutput* output;
    std::array<unsigned char, 4096> window;

    void restart() noexcept
    {
        manager.next_output_byte = window.data();
        manager.free_in_buffer = window.size();
    }
};

Target& targetOf(j_compress_ptr info) { return *reinterpret_cast<Target*>(info->dest); }

void writeWindow(j_compress_ptr info, std::size_t size)
{
    Target& target = targetOf(info);
    if (!target.output->write(target.window.data(), size))
        refuse(reinterpret_cast<j_common_ptr>(info));
    target.restart();
}

/// Holds no objects with destructors: refuse() jumps out of it.
bool encode(jpeg_compress_struct& info, Verdict& verdict, Target& target, VelPixels const& pixels,
            int quality)
{
    if (setjmp(verdict.giveUp))
        return false;
    VelGeometry const& geometry = pixels.geometry;
    jpeg_create_compress(&info);
    info.dest = &target.manager;
    info.image_width = static_cast<JDIMENSION>(geometry.width);
    info.image_height = static_cast<JDIMENSION>(geometry.height);
    info.input_components = geometry.channels;
    info.in_color_space = geometry.channels == 1 ? JCS_GRAYSCALE : JCS_EXT_BGR;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = pixels.data + info.next_scanline * rowBytes;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    return true;
}

} // namespace

VelPixels* velcodec::readJpeg(VelInput const& input) { return Reader(input).read(); }

bool velcodec::writeJpeg(VelPixels const& pixels, int effort, VelOutput& output)
{
    Verdict verdict = {};
    Target target = {};
    target.output = &output;
    target.restart();
    target.manager.init_destination = [](j_compress_ptr) {};
    target.manager.empty_output_buffer = [](j_compress_ptr info) -> boolean {
        writeWindow(info, targetOf(info).window.size());
        return TRUE;
    };
    target.manager.term_destination = [](j_compress_ptr info) {
        Target const& used = targetOf(info);
        writeWindow(info, used.window.size() - used.manager.free_in_buffer);
    };
    jpeg_compress_struct info = {};
    info.err = initialise(verdict);
    bool const done = encode(info, verdict, target, pixels, 100 - 5 * effort);
    jpeg_destroy_compress(&info);
    return done;
}
