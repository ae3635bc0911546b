#include "formats/Scalar.h"

#include <algorithm>
#include <array>

namespace zyr {
namespace {

double signedValue(const char* bytes, std::size_t size) {
    switch (size) {
        case 1:
            return loadAs<std::int8_t>(bytes);
        case 2:
            return loadAs<std::int16_t>(bytes);
        case 4:
            return loadAs<std::int32_t>(bytes);
        default:
            return static_cast<double>(loadAs<std::int64_t>(bytes));
    }
}

double unsignedValue(const char* bytes, std::size_t size) {
    switch (size) {
        case 1:
            return loadAs<std::uint8_t>(bytes);
        case 2:
            return loadAs<std::uint16_t>(bytes);
        case 4:
            return loadAs<std::uint32_t>(bytes);
        default:
            return static_cast<double>(loadAs<std::uint64_t>(bytes));
    }
}

}  // namespace

bool Scalar::isKnown() const {
    if (kind == 'F') return size == 4 || size == 8;
    return (kind == 'I' || kind == 'U') && (size == 1 || size == 2 || size == 4 || size == 8);
}

std::string Scalar::name() const {
    const char* word = kind == 'F' ? "float" : kind == 'I' ? "int" : "uint";
    return word + std::to_string(8 * size);
}

double loadScalar(const Scalar& scalar, const char* bytes, bool isSwapped) {
    std::array<char, 8> raw{};
    std::copy_n(bytes, scalar.size, raw.begin());
    if (isSwapped)
        std::reverse(raw.begin(), raw.begin() + static_cast<std::ptrdiff_t>(scalar.size));
    if (scalar.kind == 'I') return signedValue(raw.data(), scalar.size);
    if (scalar.kind == 'U') return unsignedValue(raw.data(), scalar.size);
    if (scalar.size == 4) return static_cast<double>(loadAs<float>(raw.data()));
    return loadAs<double>(raw.data());
}

}  // namespace zyr
