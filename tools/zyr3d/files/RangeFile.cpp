#include "files/RangeFile.h"

#include <cstring>

#include "Outcome.h"
#include "files/LzfStream.h"
#include "files/RegularFile.h"

namespace zyr {
namespace {

constexpr std::size_t kHeadSize = 68;
constexpr int kTypes = 7;

class Parser {
public:
    Parser(const std::string& path, const std::vector<unsigned char>& bytes)
        : path_(path), bytes_(bytes) {}

    RangeFile parse(const HeadCheck& check) {
        if (bytes_.empty()) fail(0, "the file is empty");
        if (bytes_[0] == 0xFF) fail(0, "a first byte of 255 marks what is no range image");
        readHead();
        check(file_);
        readValues();
        readColors();
        file_.end = at_;
        return file_;
    }

private:
    [[noreturn]] void fail(std::size_t at, const std::string& why) const {
        throw Fault(path_, at, why);
    }

    template <class T>
    void read(T& value, const char* name) {
        if (bytes_.size() - at_ < sizeof value) fail(at_, std::string("cut short: no ") + name);
        std::memcpy(&value, bytes_.data() + at_, sizeof value);
        at_ += sizeof value;
    }

    void readHead() {
        read(file_.version, "version");
        read(file_.type, "type");
        read(file_.width, "width");
        read(file_.height, "height");
        read(file_.resolutionX, "resolution X");
        read(file_.resolutionY, "resolution Y");
        read(file_.resolutionZ, "resolution Z");
        read(file_.offsetX, "offset X");
        read(file_.offsetY, "offset Y");
        read(file_.offsetZ, "offset Z");
        read(file_.channels, "channel count");
    }

    /// The size of a block, whose bytes are there.
    std::size_t readSize(const char* name) {
        std::int32_t size = 0;
        read(size, (std::string("size of the ") + name).c_str());
        if (size < 0)
            fail(at_ - sizeof size, std::string("the size of the ") + name + " is negative");
        const std::size_t left = bytes_.size() - at_;
        if (static_cast<std::size_t>(size) > left)
            fail(bytes_.size(), "cut short: " + std::to_string(left) + " of " +
                                    std::to_string(size) + " bytes of the " + name + " are there");
        return static_cast<std::size_t>(size);
    }

    void readValues() {
        const std::size_t size = readSize("value block");
        if (file_.type >= 0 && file_.type < kTypes) file_.values = decode(size, file_.type);
        at_ += size;
    }

    void readColors() {
        const std::size_t size = readSize("colour block");
        if (size == 0) return;
        if (file_.channels != 1 && file_.channels != 3 && file_.channels != 4)
            fail(kHeadSize - sizeof file_.channels, "colours of other than 1, 3 or 4 channels");
        file_.colors = decode(size, CV_8UC(file_.channels));
        at_ += size;
    }

    cv::Mat decode(std::size_t size, int type) const {
        if (file_.width < 1) fail(8, "a width below 1");
        if (file_.height < 1) fail(12, "a height below 1");
        const auto pixelBytes = static_cast<std::size_t>(CV_ELEM_SIZE(type));
        const auto pixels =
            static_cast<std::size_t>(file_.width) * static_cast<std::size_t>(file_.height);
        if (pixels > size * kLzfMostExpansion / pixelBytes)
            fail(at_ - sizeof(std::int32_t), "the block is too small for the image's pixels");
        cv::Mat grid(file_.height, file_.width, type);
        const LzfWalk end = decodeLzf(bytes_.data() + at_, size, grid.data, pixels * pixelBytes);
        if (!end.fault.empty()) fail(at_ + end.at, end.fault);
        if (end.produced < pixels * pixelBytes)
            fail(at_ + end.at, "the stream gives " + std::to_string(end.produced) + " of " +
                                   std::to_string(pixels * pixelBytes) + " bytes");
        return grid;
    }

    const std::string& path_;
    const std::vector<unsigned char>& bytes_;
    std::size_t at_ = 0;
    RangeFile file_;
};

}  // namespace

RangeFile loadRangeFile(const std::string& path) {
    return parseRangeFile(path, readWhole(path), [](const RangeFile&) {});
}

RangeFile parseRangeFile(const std::string& path, const std::vector<unsigned char>& bytes,
                         const HeadCheck& check) {
    return Parser(path, bytes).parse(check);
}

}  // namespace zyr
