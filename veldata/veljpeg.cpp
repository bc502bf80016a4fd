#include <veldata/velcodec_p.h>

#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

namespace {

/// More scans than any encoder makes; a small file can ask for very many.
constexpr int maxScans = 500;

/// An error manager that refuses at the first warning. The manager comes first: libjpeg knows its
/// address only.
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

void onProgress(j_common_ptr info)
{
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > maxScans)
        refuse(info);
}

/// Whether the file can hold every block that its header announces: a block of 64 values takes at
/// least one bit. Keeps a small file from asking for gigabytes.
bool isPlausible(jpeg_decompress_struct const& info, std::size_t fileSize)
{
    std::int64_t blocks = 0;
    for (int i = 0; i < info.num_components; ++i) {
        jpeg_component_info const& component = info.comp_info[i];
        blocks += std::int64_t{component.width_in_blocks} * component.height_in_blocks;
    }
    return blocks / 8 <= static_cast<std::int64_t>(fileSize);
}

/// Asks for the colours that OpenCV asks for; false for a number of components it does not know.
bool chooseColours(jpeg_decompress_struct& info)
{
    switch (info.num_components) {
    case 1:
        info.out_color_space = JCS_GRAYSCALE;
        return true;
    case 3:
        info.out_color_space = JCS_RGB;
        return true;
    case 4:
        info.out_color_space = JCS_CMYK;
        return true;
    default:
        return false;
    }
}

/// Decodes everything into one row, over and over. Holds no objects with destructors: refuse()
/// jumps out of it.
bool readsToTheEnd(jpeg_decompress_struct& info, Verdict& verdict, unsigned char const* data,
                   std::size_t size)
{
    if (setjmp(verdict.giveUp))
        return false;
    jpeg_create_decompress(&info);
    jpeg_progress_mgr progress = {};
    progress.progress_monitor = onProgress;
    info.progress = &progress;
    jpeg_mem_src(&info, data, static_cast<unsigned long>(size));
    jpeg_read_header(&info, TRUE);
    if (!velcodec::isDecodableSize(info.image_width, info.image_height) ||
        !isPlausible(info, size) || !chooseColours(info))
        return false;
    jpeg_start_decompress(&info);
    JSAMPARRAY const row = info.mem->alloc_sarray(
        reinterpret_cast<j_common_ptr>(&info), JPOOL_IMAGE,
        info.output_width * static_cast<JDIMENSION>(info.output_components), 1);
    while (info.output_scanline < info.output_height)
        jpeg_read_scanlines(&info, row, 1);
    jpeg_finish_decompress(&info);
    return true;
}

} // namespace

bool velcodec::prepareJpeg(Bytes& bytes)
{
    Verdict verdict = {};
    jpeg_decompress_struct info = {};
    info.err = jpeg_std_error(&verdict.manager);
    verdict.manager.error_exit = refuse;
    verdict.manager.emit_message = onMessage;
    bool const clean = readsToTheEnd(info, verdict, bytes.data(), bytes.size());
    info.progress = nullptr;
    jpeg_destroy_decompress(&info);
    return clean;
}
