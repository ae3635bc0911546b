#include "files/TextHeaderFile.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "files/RegularFile.h"

namespace zyr {
namespace {

/// A compressed body starts with words: so many channel counts, then compressed and raw size.
std::uint64_t compressedBodySize(const std::string& path, std::uint64_t start,
                                 std::size_t channelCounts) {
    std::vector<std::uint32_t> words(channelCounts + 2);
    const std::size_t size = words.size() * sizeof words[0];
    const std::vector<unsigned char> bytes = readStart(path, start + size);
    if (bytes.size() == start + size) std::memcpy(words.data(), bytes.data() + start, size);
    return size + words[channelCounts];
}

/// All but the size of the body.
TextHeaderFile scanFile(const std::string& path) {
    requireReadable(path);
    TextHeaderFile file;
    file.header = scanHeader(path);
    file.bytes = fileSize(path);
    file.bodyHeld = file.bytes - std::min(file.bytes, file.header.bodyStart);
    return file;
}

}  // namespace

TextHeaderFile scanCloudFile(const std::string& path) {
    TextHeaderFile file = scanFile(path);
    const CloudHeader& header = file.header;
    if (header.body == "binary")
        file.bodySize = header.recordSize() * static_cast<std::uint64_t>(header.points);
    if (header.body == "binary_compressed")
        file.bodySize = compressedBodySize(path, header.bodyStart, 1);
    return file;
}

TextHeaderFile scanMeshFile(const std::string& path) {
    TextHeaderFile file = scanFile(path);
    // The body of a mesh is compressed even where it says "binary".
    if (file.header.body != "ascii")
        file.bodySize = compressedBodySize(path, file.header.bodyStart, 2);
    return file;
}

}  // namespace zyr
