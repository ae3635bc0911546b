#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>

namespace zyr {

struct CloseFile {
    void operator()(std::FILE* file) const { (void)std::fclose(file); }
};

/// A file that is closed when it goes out of scope; null when it could not be opened.
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Null path: null file.
File openFile(const char* path, const char* mode);

bool writeAll(std::FILE* file, const void* bytes, std::size_t size);

/// False when what was written did not get through.
bool closeFile(File& file);

/// Bytes from the current position to the end; 0 for what has no end to seek to.
std::uint64_t remainingBytes(std::FILE* file);

/// What an element takes in an "ascii" body at least: three digits, two spaces and a line feed.
constexpr std::uint64_t kLeastAsciiBytes = 6;

/// Whether elements of this many bytes may be allocated whatever the file holds.
bool isAlwaysAllowed(std::uint64_t elementBytes);

/// Whether elements of this many bytes may be allocated for a file that has fewer bytes than it
/// declares: small ones always, others only when the bytes they need are there.
bool isBacked(std::uint64_t elementBytes, std::uint64_t neededBytes, std::uint64_t presentBytes);

}  // namespace zyr
