#include "files/RegularFile.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "Outcome.h"

namespace zyr {
namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

[[noreturn]] void fail(const std::string& path) {
    throw FileTrouble(path + ": " + std::strerror(errno));
}

File openRegular(const std::string& path) {
    requireRegularFile(path);
    File file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (file == nullptr) fail(path);
    return file;
}

void requireMemory(std::uint64_t bytes) {
    const auto pages = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES));
    if (bytes / static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) >= pages) throw std::bad_alloc();
}

}  // namespace

void requireRegularFile(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        throw FileTrouble(path + ": no such file");
    if (error) throw FileTrouble(path + ": " + error.message());
    if (!std::filesystem::is_regular_file(status)) throw FileTrouble(path + ": not a regular file");
}

std::uint64_t fileSize(const std::string& path) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(path, error);
    if (error) throw FileTrouble(path + ": " + error.message());
    return bytes;
}

std::string descriptorPath(int file, const std::string& path) {
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (access(link.c_str(), F_OK) != 0)
        throw FileTrouble(path + ": can be read and written only where /proc is mounted");
    return link;
}

std::vector<unsigned char> readWhole(const std::string& path) {
    const File file = openRegular(path);
    requireMemory(fileSize(path));
    std::vector<unsigned char> bytes(fileSize(path));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get()) != 0) fail(path);
    return bytes;
}

void readPieces(const std::string& path, const std::function<void(std::string_view)>& take) {
    const File file = openRegular(path);
    requireMemory(fileSize(path));
    std::array<char, 1 << 16> piece;
    std::uint64_t whole = 0;
    for (std::size_t size = piece.size(); size == piece.size();) {
        size = std::fread(piece.data(), 1, piece.size(), file.get());
        if (std::ferror(file.get()) != 0) fail(path);
        // It may grow meanwhile.
        requireMemory(whole += size);
        take({piece.data(), size});
    }
}

}  // namespace zyr
