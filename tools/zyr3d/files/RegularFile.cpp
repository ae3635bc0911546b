#include "files/RegularFile.h"

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

std::vector<unsigned char> readWhole(const std::string& path) {
    const File file = openRegular(path);
    std::vector<unsigned char> bytes(fileSize(path));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get()) != 0) fail(path);
    return bytes;
}

void readPieces(const std::string& path, const std::function<void(std::string_view)>& take) {
    const File file = openRegular(path);
    std::array<char, 1 << 16> piece;
    for (std::size_t size = piece.size(); size == piece.size();) {
        size = std::fread(piece.data(), 1, piece.size(), file.get());
        if (std::ferror(file.get()) != 0) fail(path);
        take({piece.data(), size});
    }
}

}  // namespace zyr
