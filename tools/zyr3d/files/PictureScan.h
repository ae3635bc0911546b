#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zyr {

struct PictureFault {
    std::uint64_t at;
    std::string why;
};

/// What the frame of a picture's bytes shows to be wrong, before or besides its decoding, which is
/// lenient: the first bytes, the chunks of a PNG with their checksums, the end mark of a JPEG, the
/// sizes of a BMP, the place of a TIFF's first directory. Bytes behind the end are a fault, but not
/// of a TIFF, which may have gaps.
std::optional<PictureFault> scanPicture(const std::vector<unsigned char>& bytes);

/// Of these, what decoders take for a whole picture: a JPEG that is cut short, whose missing rows
/// would be what memory held, and bytes of another kind than the four.
std::optional<PictureFault> scanUntold(const std::vector<unsigned char>& bytes);

}  // namespace zyr
