#pragma once

#include "Harness.h"
#include "support/RangeFile.h"

/// What must hold of any range-image file, whatever its bytes.
namespace fuzz {

inline Bytes calibrationBytes(const test::Stores& stores) {
    Bytes bytes;
    for (const double number : stores.calibration()) test::put(bytes, number);
    return bytes;
}

inline bool loadRange(test::Stores& stores, const char* path, bool withColors) {
    const bool isLoaded = stores.load(path, withColors);
    test::closeLeftOpen();
    return isLoaded;
}

inline void checkRefusedRange(const test::Stores& stores) {
    require(stores.values.empty() && stores.colors.empty(), "a refusal leaves the stores");
    require(stores.calibration() == test::FileCalibration{1, 1, -3, -4, -5, 0},
            "and the numbers, save three");
}

/// The stream decodes to exactly the store's bytes.
inline void checkGrid(const cv::Mat& grid, const Bytes& file, std::size_t sizeAt) {
    const auto size = static_cast<std::size_t>(test::valueAt<std::int32_t>(file, sizeAt));
    const auto first = file.begin() + static_cast<std::ptrdiff_t>(sizeAt + 4);
    const Bytes stream(first, first + static_cast<std::ptrdiff_t>(size));
    require(test::bytesOf(grid) == test::plainDecode(stream, grid.total() * grid.elemSize()),
            "a grid holds what its stream gives");
    require(grid.cols == test::valueAt<std::int32_t>(file, 8) &&
                grid.rows == test::valueAt<std::int32_t>(file, 12),
            "a grid has the stated size");
}

inline void checkRangeRoundTrip(test::Stores& stores) {
    static InputFile file;
    require(stores.save(file.path(), true), "an image that was read is written");
    test::Stores again;
    require(loadRange(again, file.path(), true), "what was written is read");
    require(test::bytesOf(again.values) == test::bytesOf(stores.values), "values come back");
    require(test::bytesOf(again.colors) == test::bytesOf(stores.colors), "colours come back");
    require(calibrationBytes(again) == calibrationBytes(stores), "the calibration comes back");
}

inline void checkRange(const InputFile& file, const Bytes& input, bool withColors) {
    test::Stores stores;
    if (!loadRange(stores, file.path(), withColors)) {
        checkRefusedRange(stores);
        return;
    }
    require(input.size() >= 72 && input[0] != 0xFF, "a head is there");
    require(calibrationBytes(stores) == Bytes(input.begin() + 16, input.begin() + 64),
            "the calibration is the head's");
    require(stores.minValue == -11 && stores.maxValue == -12, "the value range stays");
    const auto valueBytes = static_cast<std::size_t>(test::valueAt<std::int32_t>(input, 68));
    if (!stores.values.empty()) checkGrid(stores.values, input, 68);
    if (!stores.colors.empty()) checkGrid(stores.colors, input, 72 + valueBytes);
    require(stores.values.empty() == (input[4] > 6 || test::valueAt<std::uint32_t>(input, 4) > 6),
            "values are there when the type is known");
    if (!stores.values.empty()) checkRangeRoundTrip(stores);
}

}  // namespace fuzz
