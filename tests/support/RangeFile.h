#pragma once

#include <array>
#include <string>
#include <vector>

#include "Zyr3DFileIO.h"
#include "support/PlainLzf.h"
#include "support/RangeImages.h"

/// Range-image files byte by byte, and the values of the golden ones.
namespace test {

/// Resolution x, y, z, offset x, y, z, as in a file's head.
using FileCalibration = std::array<double, 6>;

constexpr FileCalibration kGoldenCalibration = {0.5, 0.25, 0.01, -1.5, 2.5, 100.125};

/// A range-image file in its parts, each of which a test may spoil.
struct RangeFile {
    std::int32_t version = 1;
    std::int32_t type = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    FileCalibration calibration = kGoldenCalibration;
    std::int32_t channels = 1;
    Bytes valueStream;
    Bytes colorStream;

    Bytes head() const {
        Bytes bytes;
        for (const std::int32_t number : {version, type, width, height}) put(bytes, number);
        for (const double number : calibration) put(bytes, number);
        put(bytes, channels);
        return bytes;
    }
    Bytes bytes() const {
        Bytes bytes = head();
        for (const Bytes& stream : {valueStream, colorStream}) {
            put(bytes, static_cast<std::int32_t>(stream.size()));
            bytes = joined(bytes, stream);
        }
        return bytes;
    }
};

/// The parts of a whole file.
inline RangeFile parts(const Bytes& bytes) {
    RangeFile file;
    file.version = valueAt<std::int32_t>(bytes, 0);
    file.type = valueAt<std::int32_t>(bytes, 4);
    file.width = valueAt<std::int32_t>(bytes, 8);
    file.height = valueAt<std::int32_t>(bytes, 12);
    for (std::size_t i = 0; i < 6; ++i) file.calibration[i] = valueAt<double>(bytes, 16 + 8 * i);
    file.channels = valueAt<std::int32_t>(bytes, 64);
    const auto stream = [&](std::size_t offset) {
        const auto size = static_cast<std::size_t>(valueAt<std::int32_t>(bytes, offset));
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(offset + 4);
        return Bytes(first, first + static_cast<std::ptrdiff_t>(size));
    };
    file.valueStream = stream(68);
    file.colorStream = stream(72 + file.valueStream.size());
    return file;
}

/// What Zyr3DFileIO works on. The numbers start as none that a load sets.
struct Stores {
    cv::Mat values;
    cv::Mat colors;
    double minValue = -11, maxValue = -12;
    double resolutionX = -1, resolutionY = -2, resolutionZ = -3;
    double offsetX = -4, offsetY = -5, offsetZ = -6;

    FileCalibration calibration() const {
        return {resolutionX, resolutionY, resolutionZ, offsetX, offsetY, offsetZ};
    }
    void setCalibration(const FileCalibration& numbers) {
        resolutionX = numbers[0];
        resolutionY = numbers[1];
        resolutionZ = numbers[2];
        offsetX = numbers[3];
        offsetY = numbers[4];
        offsetZ = numbers[5];
    }
    bool save(const char* path, bool withColors) {
        return Zyr3DFileIO::SaveRangeImage(values, colors, path, minValue, maxValue, resolutionX,
                                           resolutionY, resolutionZ, offsetX, offsetY, offsetZ,
                                           withColors);
    }
    bool load(const char* path, bool withColors) {
        return Zyr3DFileIO::LoadRangeImage(values, colors, path, minValue, maxValue, resolutionX,
                                           resolutionY, resolutionZ, offsetX, offsetY, offsetZ,
                                           withColors);
    }
};

/// The value block of the golden files, by type.
inline Bytes goldenRangeValues(int type) {
    switch (type) {
        case 0:
            return {0, 1, 127, 128, 254, 255};
        case 1:
            return bytesOf(std::vector<signed char>{-128, -1, 0, 1, 126, 127});
        case 2:
            return bytesOf(std::vector<std::uint16_t>{0, 1, 255, 256, 65534, 65535});
        case 3:
            return bytesOf(std::vector<std::int16_t>{-32768, -1, 0, 1, 256, 32767});
        case 4:
            return bytesOf(std::vector<std::int32_t>{-2147483647 - 1, -1, 0, 1, 65536, 2147483647});
        case 5:
            return bytesOf(
                std::vector<float>{0.0F, -0.0F, 1.5F, -2.25F, 1e-45F, 3.4028234663852886e+38F});
        default:
            return bytesOf(std::vector<double>{0.0, -0.0, 1.5, -2.25, 5e-324, 1e300});
    }
}

/// The colour block of the golden files, by channels.
inline Bytes goldenRangeColors(int channels) {
    Bytes bytes;
    for (int i = 0; i < 6 * channels; ++i) bytes.push_back(static_cast<unsigned char>(10 * i + 3));
    return bytes;
}

struct GoldenRange {
    const char* name;
    int type;
    int channels;  ///< in the head
    bool hasColors;

    std::string path() const { return std::string(ZYR_GOLDEN_DIR "/rangeimage/") + name + ".zrt"; }
    /// The image that the file was written from.
    Stores stores() const {
        Stores stores;
        stores.values = matOf(2, 3, type, goldenRangeValues(type));
        if (hasColors || channels != 1)
            stores.colors = matOf(2, 3, CV_8UC(channels), goldenRangeColors(channels));
        stores.setCalibration(kGoldenCalibration);
        return stores;
    }
};

/// For the names of parameterised tests.
inline void PrintTo(const GoldenRange& golden, std::ostream* out) {
    *out << golden.name;
}

inline const std::vector<GoldenRange>& goldenRanges() {
    static const std::vector<GoldenRange> goldens = {
        {"type0", 0, 1, false},
        {"type1", 1, 1, false},
        {"type2", 2, 1, false},
        {"type3", 3, 1, false},
        {"type4", 4, 1, false},
        {"type5", 5, 1, false},
        {"type6", 6, 1, false},
        {"type2_grey", 2, 1, true},
        {"type2_bgr", 2, 3, true},
        {"type2_bgra", 2, 4, true},
        {"type2_bgr_left_out", 2, 3, false},
    };
    return goldens;
}

}  // namespace test
