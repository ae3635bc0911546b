#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include "FaultyFile.h"
#include "FilledMemory.h"
#include "Lists.h"

/// Processes that are killed while they write, and what they leave.
namespace test {

/// Saves in a process of its own, so many bytes a write. Whether that was killed at its n-th write,
/// or ended before.
inline bool isKilledAt(std::size_t n, std::size_t step, const Format& format, Content& content,
                       const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        const FaultyFiles faulty({step, kNever, n});
        format.save(content, path.c_str());
        std::_Exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

/// Whether all of a range image's values are there, and the number of their bytes in front.
inline bool hasAllValues(const Bytes& left, const Bytes& whole) {
    const std::size_t end = 72 + valueAt<std::uint32_t>(whole, 68);
    return left.size() >= end && prefix(left, end) == prefix(whole, end);
}

/// What was left is read as any file of its bytes is, values as the whole file has them or zero.
/// Range images are refused unless all is there that is wanted. Gives how many loads were true.
inline int checkLeft(const Format& format, const Bytes& left, const Bytes& whole) {
    fuzz::InputFile leftFile, wholeFile;
    leftFile.fill(left);
    wholeFile.fill(whole);
    int numLoaded = 0;
    for (const fuzz::Flags flags : fuzz::kAllFlags) {
        EXPECT_NO_THROW(format.check(leftFile, left, flags));
        Content part, all;
        const bool isLoaded = [&] {
            const FilledMemory filled(0x55);
            return format.load(part, leftFile.path(), flags.withNormals, flags.withColors);
        }();
        takeStop();
        EXPECT_TRUE(format.load(all, wholeFile.path(), flags.withNormals, flags.withColors));
        if (format.name == std::string("range")) {
            EXPECT_EQ(isLoaded, flags.withColors ? left == whole : hasAllValues(left, whole));
        }
        EXPECT_TRUE(!isLoaded || arePartsOf(listsOf(part), listsOf(all)));
        numLoaded += isLoaded;
    }
    return numLoaded;
}

}  // namespace test
