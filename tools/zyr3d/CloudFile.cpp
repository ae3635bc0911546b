#include "CloudFile.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "Outcome.h"
#include "Zyr3DInner.h"

namespace zyr {
namespace {

/// A compressed body starts with three words: colour channels, compressed and raw size.
std::uint64_t compressedBodySize(const std::string& path, std::uint64_t start) {
    std::array<std::uint32_t, 3> words{};
    std::array<char, sizeof words> bytes{};
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(start));
    file.read(bytes.data(), bytes.size());
    std::memcpy(words.data(), bytes.data(), bytes.size());
    return sizeof words + words[1];
}

std::uint64_t bodySize(const std::string& path, const CloudHeader& header) {
    if (header.body == "ascii") return 0;
    if (header.body == "binary")
        return header.recordSize() * static_cast<std::uint64_t>(header.points);
    return compressedBodySize(path, header.bodyStart);
}

}  // namespace

bool isCloudPath(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    return suffix == "zpt" || suffix == "ZPT";
}

std::uint64_t fileSize(const std::string& path) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(path, error);
    if (error) throw FileTrouble(path + ": " + error.message());
    return bytes;
}

CloudFile loadCloudFile(const std::string& path) {
    if (!isCloudPath(path)) throw FileTrouble(path + ": not a .zpt file by its suffix");
    CloudFile file;
    file.header = scanHeader(path);
    file.bytes = fileSize(path);
    file.bodyHeld = file.bytes - std::min(file.bytes, file.header.bodyStart);
    file.bodySize = bodySize(path, file.header);
    if (!file.cloud.Load(path.c_str(), true, true))
        throw FileTrouble(path + ": refused: its header is incomplete or its body does not fit it");
    return file;
}

}  // namespace zyr
