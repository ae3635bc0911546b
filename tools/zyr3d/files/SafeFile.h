#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zyr {

/// A file that gets its name when it is whole: until then it is a temporary one in the same folder,
/// which goes away unless it is committed, so that a good file is never replaced by a torn one.
/// All throw FileTrouble.
class SafeFile {
public:
    /// A path to a link means what the link leads to.
    explicit SafeFile(const std::string& path);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// For those who go by the suffix: it is that of the path.
    const std::string& temporary() const { return temporary_; }
    /// For those who write by name: it leads to the file even when a signal has taken that away,
    /// so that they make no other.
    std::string opened() const;
    const std::string& path() const { return path_; }

    void put(std::string_view bytes);
    /// For what was written by name and is not as it should be: throws the error that this left
    /// behind, or, for 0, that the disk takes no more, if so.
    void requireWritten(int error);
    /// The same, but where that gives no cause, it is what was found when the temporary name was
    /// read.
    [[noreturn]] void failWritten(int error, const std::string& found);
    /// All that was put, or written by name, is on the disk and of the right size.
    void finish();
    /// After finish: takes the place of the file that had the name.
    void commit();

private:
    void flush();
    [[noreturn]] void fail(const char* what) const;

    std::string path_, target_, temporary_, buffer_;  ///< target_: behind links
    std::uint64_t written_ = 0;
    int file_ = -1;
};

/// Where the bytes of such a file go, by links too, be there a file or not.
std::string targetOf(const std::string& path);

}  // namespace zyr
