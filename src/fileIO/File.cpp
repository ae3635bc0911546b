#include "fileIO/File.h"

namespace zyr {

File openFile(const char* path, const char* mode) {
    return File(path == nullptr ? nullptr : std::fopen(path, mode));
}

bool writeAll(std::FILE* file, const void* bytes, std::size_t size) {
    return std::fwrite(bytes, 1, size, file) == size;
}

bool closeFile(File& file) {
    return std::fclose(file.release()) == 0;
}

std::uint64_t remainingBytes(std::FILE* file) {
    const off_t here = ftello(file);
    if (here < 0 || fseeko(file, 0, SEEK_END) != 0) return 0;
    const off_t end = ftello(file);
    if (fseeko(file, here, SEEK_SET) != 0 || end < here) return 0;
    return static_cast<std::uint64_t>(end - here);
}

bool isAlwaysAllowed(std::uint64_t elementBytes) {
    constexpr std::uint64_t kAlwaysAllowed = 64 << 20;
    return elementBytes <= kAlwaysAllowed;
}

bool isBacked(std::uint64_t elementBytes, std::uint64_t neededBytes, std::uint64_t presentBytes) {
    return isAlwaysAllowed(elementBytes) || neededBytes <= presentBytes;
}

}  // namespace zyr
