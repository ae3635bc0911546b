#include "formats/Rows.h"

#include "formats/Scalar.h"
#include "formats/Text.h"

namespace zyr {

void Rows::separate() {
    if (!row_.empty()) row_ += style_.separator;
}

template <class Integer>
void Rows::whole(Integer value) {
    if (!style_.isText) return appendAs(row_, value, style_.isSwapped);
    separate();
    row_ += std::to_string(value);
}

void Rows::real(double value) {
    if (style_.isText) separate();
    if (style_.isText && style_.isFloat) return appendNumber(row_, static_cast<float>(value));
    if (style_.isText) return appendNumber(row_, value);
    if (style_.isFloat) return appendAs(row_, static_cast<float>(value), style_.isSwapped);
    appendAs(row_, value, style_.isSwapped);
}

void Rows::vector(const ZyrVector3d& value) {
    real(value.x);
    real(value.y);
    real(value.z);
}

void Rows::byte(unsigned char value) {
    whole(value);
}

void Rows::integer(int value) {
    whole(value);
}

void Rows::word(std::uint32_t value) {
    whole(value);
}

void Rows::color(const ZyrColorArray& colors, int i) {
    for (int channel = 0; channel < (colors.Channel() == 4 ? 4 : 3); ++channel)
        byte(channelAt(colors, i, channel));
}

void Rows::end() {
    if (style_.isText) row_ += '\n';
    file_.put(row_);
    row_.clear();
}

unsigned char channelAt(const ZyrColorArray& colors, int i, int channel) {
    const int channels = colors.Channel();
    const unsigned char* pixel = colors.Data() + static_cast<std::ptrdiff_t>(i) * channels;
    if (channel == 3) return channels == 4 ? pixel[3] : static_cast<unsigned char>(255);
    return channels == 1 ? pixel[0] : pixel[2 - channel];
}

std::uint32_t packedColor(const ZyrColorArray& colors, int i) {
    const auto channel = [&](int c) { return std::uint32_t{channelAt(colors, i, c)}; };
    return channel(3) << 24 | channel(0) << 16 | channel(1) << 8 | channel(2);
}

}  // namespace zyr
