#include "files/RegularFile.h"

#include <filesystem>

#include "Outcome.h"

namespace zyr {

void requireRegularFile(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) throw FileTrouble(path + ": no such file");
    if (!std::filesystem::is_regular_file(path, error))
        throw FileTrouble(path + ": not a regular file");
}

std::uint64_t fileSize(const std::string& path) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(path, error);
    if (error) throw FileTrouble(path + ": " + error.message());
    return bytes;
}

}  // namespace zyr
