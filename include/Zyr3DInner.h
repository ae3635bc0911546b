#pragma once

#include <string>

#include "ZyrExport.h"

namespace cv {
class Mat;
}

/// Helpers of the file functions (path conversion and suffixes) and of the oriented solids. Has no
/// state.
class ZYR_EXPORT Zyr3DInner {
public:
    Zyr3DInner();
    ~Zyr3DInner();

    /// The string as wide characters, in a new array that the caller releases with delete[].
    /// Converts under the environment's LC_CTYPE (asked at each call), from any number of threads
    /// and without touching the process's locale; under the calling thread's own locale where the
    /// environment names one that is not installed. Null and an unconvertible string give "".
    static wchar_t* char2wchar(const char* src);
    /// The reverse of char2wchar, by the same rules.
    static char* wchar2char(const wchar_t* src);

    /// What follows the path's last '.', case kept; empty when there is no '.'. Folders count too:
    /// "dir.v2/file" gives "v2/file". A null path throws std::logic_error with the text
    /// "basic_string::_M_construct null not valid".
    static std::string getSuffix(const char* path);
    static std::wstring getSuffix(const wchar_t* path);

    /// Whether the L2 distance of the transpose times r from the identity is below the invalid
    /// value 3.4028234663852886e+38. Deliberately that wide: any matrix of floats or doubles with
    /// three columns passes, whatever its rows, scaled and mirrored ones too, unless it holds NaN
    /// or its squares reach the bound. OpenCV's own exception comes through for another number of
    /// columns or element type.
    static bool isRotationMatrix(cv::Mat& r);
};
