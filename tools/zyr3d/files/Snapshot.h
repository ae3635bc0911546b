#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zyr {

/// The bytes of a point-cloud or mesh file as one reading gave them, kept in memory. For the
/// library, which takes paths, and a read that fails for the end of the file. Throws FileTrouble,
/// also, before much is kept, for files whose header is none.
class Snapshot {
public:
    explicit Snapshot(const std::string& path);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    /// Of the file itself, for what people are told.
    const std::string& path() const { return path_; }
    /// A path to the bytes, of this process alone. It has no suffix.
    std::string name() const;
    std::uint64_t size() const { return size_; }
    /// As many of the bytes from there on as are there.
    std::vector<unsigned char> bytes(std::uint64_t from, std::uint64_t most) const;

private:
    Snapshot();
    void append(std::string_view piece);
    [[noreturn]] void fail() const;

    std::string path_;
    std::uint64_t size_ = 0;
    int file_;
};

}  // namespace zyr
