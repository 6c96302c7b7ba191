#include "textures/blp_jpeg.h"

// libjpeg's header needs these two before it.
#include <cstddef>
#include <cstdio>
//
#include <jerror.h>
#include <jpeglib.h>

#include <array>
#include <csetjmp>
#include <new>
#include <string>
#include <vector>

#include "textures/texture_bytes.h"

namespace corvane {

namespace {

// A picture in passes has about ten. Each of them takes as long as the whole picture.
constexpr int kMostPasses = 100;

// No data says more with a byte: of 64 pixels and the channel with the most of them it holds one
// bit at least, and that channel may have a quarter of the others' pixels.
constexpr std::uint64_t kMostPixelsOfAByte = 2048;

// libjpeg with data in two pieces. Its functions leave by longjmp where they fail, so that nothing
// with a destructor may live between run() and them.
class Decompressor {
public:
    explicit Decompressor(const JpegPieces& pieces) : pieces_{pieces.header, pieces.data} {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = [](j_common_ptr info) { selfOf(info).leave(); };
        errors_.output_message = [](j_common_ptr /*info*/) {};  // not to the terminal
        info_.client_data = this;
        run([this] {
            jpeg_create_decompress(&info_);
            info_.client_data = this;
            setUp();
        });
    }
    ~Decompressor() { jpeg_destroy_decompress(&info_); }
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;

    const jpeg_decompress_struct& info() const { return info_; }

    void readHeader() {
        run([this] {
            jpeg_read_header(&info_, TRUE);
            headerRead_ = true;
            info_.out_color_space = colourSpace();
        });
    }

    void start() {
        run([this] { jpeg_start_decompress(&info_); });
    }

    /// The next row, one byte a component.
    void readRow(std::uint8_t* row) {
        run([this, &row] { jpeg_read_scanlines(&info_, &row, 1); });
        if (ranDry_ && errors_.num_warnings > 0) failCutOff();
    }

private:
    template <typename Info>
    static Decompressor& selfOf(Info info) {
        return *static_cast<Decompressor*>(info->client_data);
    }

    [[noreturn]] void leave() { std::longjmp(failed_, 1); }

    template <typename Calls>
    void run(Calls calls) {
        if (setjmp(failed_) == 0) {
            calls();
            return;
        }
        fail();
    }

    // What made libjpeg leave.
    [[noreturn]] void fail() {
        if (cutOff_) failCutOff();
        if (errors_.msg_code == JERR_OUT_OF_MEMORY) throw std::bad_alloc();
        if (tooManyPasses_) throw TextureError("has a JPEG picture in too many passes");
        std::array<char, JMSG_LENGTH_MAX> reason{};
        errors_.format_message(reinterpret_cast<j_common_ptr>(&info_), reason.data());
        throw TextureError("has JPEG data that cannot be read (" + std::string(reason.data()) +
                           ")");
    }

    void setUp() {
        source_.init_source = [](j_decompress_ptr /*info*/) {};
        source_.term_source = [](j_decompress_ptr /*info*/) {};
        source_.resync_to_restart = jpeg_resync_to_restart;
        source_.fill_input_buffer = [](j_decompress_ptr info) { return selfOf(info).fill(); };
        source_.skip_input_data = [](j_decompress_ptr info, long count) {
            selfOf(info).skip(count);
        };
        info_.src = &source_;
        progress_.progress_monitor = [](j_common_ptr info) { selfOf(info).countPasses(); };
        info_.progress = &progress_;
    }

    // The components as they are stored, whatever libjpeg takes them for.
    J_COLOR_SPACE colourSpace() const {
        switch (info_.num_components) {
            case 1:
                return JCS_GRAYSCALE;
            case 3:
                return JCS_RGB;
            default:
                return JCS_CMYK;
        }
    }

    boolean fill() {
        while (next_ < pieces_.size()) {
            const std::string_view piece = pieces_[next_++];
            if (piece.empty()) continue;
            source_.next_input_byte = reinterpret_cast<const JOCTET*>(piece.data());
            source_.bytes_in_buffer = piece.size();
            return TRUE;
        }
        // Without its later passes a picture is only blurred, and nobody sees what it lacks. One
        // that comes in one pass may lack the mark of its end and nothing else.
        ranDry_ = true;
        if (!headerRead_ || jpeg_has_multiple_scans(&info_) == TRUE) {
            cutOff_ = true;
            leave();
        }
        static constexpr std::array<JOCTET, 2> kEndMark = {0xFF, JPEG_EOI};
        source_.next_input_byte = kEndMark.data();
        source_.bytes_in_buffer = kEndMark.size();
        return TRUE;
    }

    void skip(long count) {
        if (count <= 0) return;
        auto left = static_cast<std::size_t>(count);
        while (left > source_.bytes_in_buffer) {
            left -= source_.bytes_in_buffer;
            fill();
        }
        source_.next_input_byte += left;
        source_.bytes_in_buffer -= left;
    }

    void countPasses() {
        if (info_.input_scan_number <= kMostPasses) return;
        tooManyPasses_ = true;
        leave();
    }

    std::array<std::string_view, 2> pieces_;
    std::size_t next_ = 0;  // the first piece that was not begun
    jpeg_decompress_struct info_{};
    jpeg_error_mgr errors_{};
    jpeg_source_mgr source_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf failed_{};
    bool headerRead_ = false;
    bool ranDry_ = false;
    bool cutOff_ = false;
    bool tooManyPasses_ = false;
};

std::uint32_t pixelOfComponents(const std::uint8_t* components, int count, Alpha alpha) {
    if (count == 1) return pixelOf(components[0], components[0], components[0], kOpaque);
    return pixelOf(components[2], components[1], components[0],
                   count == 4 && alpha == Alpha::Own ? components[3] : kOpaque);
}

}  // namespace

Texture decodeBlpJpeg(const JpegPieces& pieces, Alpha alpha, std::size_t mostPixels) {
    Decompressor jpeg(pieces);
    jpeg.readHeader();
    const int components = jpeg.info().num_components;
    if (components != 1 && components != 3 && components != 4) {
        throw TextureError("has a JPEG picture of " + std::to_string(components) + " components");
    }
    const TextureSize size = {.width = jpeg.info().image_width, .height = jpeg.info().image_height};
    checkSize(size, mostPixels);
    if (size.pixels() > pieces.data.size() * kMostPixelsOfAByte) failCutOff();
    jpeg.start();
    std::vector<std::uint8_t> row(std::size_t{size.width} * static_cast<std::size_t>(components));
    Texture texture = textureOfSize(size);
    std::uint32_t* to = texture.pixels.get();
    for (std::uint32_t y = 0; y < size.height; ++y) {
        jpeg.readRow(row.data());
        for (std::uint32_t x = 0; x < size.width; ++x) {
            *to++ = pixelOfComponents(&row[std::size_t{x} * static_cast<std::size_t>(components)],
                                      components, alpha);
        }
    }
    return texture;
}

}  // namespace corvane
