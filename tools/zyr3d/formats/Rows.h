#pragma once

#include <string>

#include "files/SafeFile.h"
#include "formats/Scene.h"

namespace zyr {

/// Writes rows of values, as a line of text or as bytes.
class Rows {
public:
    struct Style {
        bool isText = true;
        bool isFloat = false;    ///< of real numbers, else doubles
        bool isSwapped = false;  ///< big-endian bytes
        char separator = ' ';
    };

    Rows(SafeFile& file, const Style& style) : file_(file), style_(style) {}

    void real(double value);
    void vector(const ZyrVector3d& value);
    void byte(unsigned char value);
    void integer(int value);
    void word(std::uint32_t value);
    /// Red, green, blue and, of four channels, alpha of element i.
    void color(const ZyrColorArray& colors, int i);
    void end();

private:
    template <class Integer>
    void whole(Integer value);
    void separate();

    SafeFile& file_;
    Style style_;
    std::string row_;
};

/// Red (0), green, blue or alpha (3) of element i, whatever the channels: grey is all three.
unsigned char channelAt(const ZyrColorArray& colors, int i, int channel);

/// 0xAARRGGBB.
std::uint32_t packedColor(const ZyrColorArray& colors, int i);

}  // namespace zyr
