#pragma once

#include <string>

namespace zyr {

/// While any of them lives, the picture codecs print no notes of their own about broken pictures;
/// we report in one line ourselves. Threads may have their own at once.
class QuietCodecs {
public:
    QuietCodecs();
    ~QuietCodecs();
    QuietCodecs(const QuietCodecs&) = delete;
    QuietCodecs& operator=(const QuietCodecs&) = delete;

    /// Writes to standard error all the same.
    static void writePast(const std::string& text);
};

}  // namespace zyr
