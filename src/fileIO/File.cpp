#include "fileIO/File.h"

#include <algorithm>

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

std::vector<Byte> readUpTo(std::FILE* file, std::uint64_t size) {
    constexpr std::uint64_t kFirstStep = 1 << 20;
    std::vector<Byte> bytes;
    while (bytes.size() < size) {
        const std::size_t had = bytes.size();
        const std::uint64_t step = std::max<std::uint64_t>(kFirstStep, had);
        bytes.resize(had + static_cast<std::size_t>(std::min(step, size - had)));
        const std::size_t got = std::fread(bytes.data() + had, 1, bytes.size() - had, file);
        if (had + got < bytes.size()) {
            bytes.resize(had + got);
            break;
        }
    }
    return bytes;
}

std::uint64_t remainingBytes(std::FILE* file) {
    const off_t here = ftello(file);
    if (here < 0 || fseeko(file, 0, SEEK_END) != 0) return 0;
    const off_t end = ftello(file);
    if (fseeko(file, here, SEEK_SET) != 0 || end < here) return 0;
    return static_cast<std::uint64_t>(end - here);
}

bool isBacked(std::uint64_t elementBytes, std::uint64_t neededBytes, std::uint64_t presentBytes) {
    constexpr std::uint64_t kAlwaysAllowed = 64 << 20;
    return elementBytes <= kAlwaysAllowed || neededBytes <= presentBytes;
}

}  // namespace zyr
