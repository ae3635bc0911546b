#pragma once

namespace zyr {

/// While it lives, the picture codecs print no notes of their own about broken pictures; we report
/// in one line ourselves.
class QuietCodecs {
public:
    QuietCodecs();
    ~QuietCodecs();
    QuietCodecs(const QuietCodecs&) = delete;
    QuietCodecs& operator=(const QuietCodecs&) = delete;

private:
    int saved_;
};

}  // namespace zyr
