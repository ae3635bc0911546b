#include "files/TextHeaderFile.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace zyr {
namespace {

/// A compressed body starts with words: so many channel counts, then compressed and raw size.
std::uint64_t compressedBodySize(const Snapshot& whole, std::uint64_t start,
                                 std::size_t channelCounts) {
    std::vector<std::uint32_t> words(channelCounts + 2);
    const std::size_t size = words.size() * sizeof words[0];
    const std::vector<unsigned char> bytes = whole.bytes(start, size);
    if (bytes.size() == size) std::memcpy(words.data(), bytes.data(), size);
    return size + words[channelCounts];
}

/// All but the size of the body.
TextHeaderFile scanFile(const Snapshot& whole) {
    TextHeaderFile file;
    file.header = scanHeader(whole.path(), whole.bytes(0, kMostHeader));
    file.bytes = whole.size();
    file.bodyHeld = file.bytes - std::min(file.bytes, file.header.bodyStart);
    return file;
}

}  // namespace

TextHeaderFile scanCloudFile(const Snapshot& whole) {
    TextHeaderFile file = scanFile(whole);
    const CloudHeader& header = file.header;
    if (header.body == "binary")
        file.bodySize = header.recordSize() * static_cast<std::uint64_t>(header.points);
    if (header.body == "binary_compressed")
        file.bodySize = compressedBodySize(whole, header.bodyStart, 1);
    return file;
}

TextHeaderFile scanMeshFile(const Snapshot& whole) {
    TextHeaderFile file = scanFile(whole);
    // The body of a mesh is compressed even where it says "binary".
    if (file.header.body != "ascii")
        file.bodySize = compressedBodySize(whole, file.header.bodyStart, 2);
    return file;
}

}  // namespace zyr
