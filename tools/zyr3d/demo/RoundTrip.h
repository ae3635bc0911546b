#pragma once

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <string>

#include "Outcome.h"
#include "demo/Comparison.h"
#include "files/RegularFile.h"
#include "files/SafeFile.h"

namespace zyr {

/// Milliseconds that a step takes.
template <class Step>
double timed(const Step& step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// A file that was written and loaded back.
struct RoundTrip {
    std::string path;
    std::uint64_t bytes = 0;
    double save = 0.0, load = 0.0;  ///< milliseconds
    std::string differing;          ///< what came back differently, "" for nothing
};

/// Throws FileTrouble unless the file was saved, by its temporary name, and is whole; the error is
/// what the saving left behind.
void checkWritten(bool isSaved, int error, SafeFile& file);

/// Runs save(path) and load(path), which tell whether they succeeded, and then compare(), which
/// tells what differs. Finishes the file. Throws FileTrouble when it can't be written.
template <class Save, class Load, class Compare>
RoundTrip roundTrip(SafeFile& file, const Save& save, const Load& load, const Compare& compare) {
    RoundTrip trip;
    trip.path = file.path();
    const char* path = file.temporary().c_str();
    bool isSaved = false, isLoaded = false;
    errno = 0;
    trip.save = timed([&] { isSaved = save(path); });
    const int saveError = errno;
    checkWritten(isSaved, saveError, file);
    errno = 0;
    trip.load = timed([&] { isLoaded = load(path); });
    const int loadError = errno;
    trip.differing = isLoaded ? compare() : "file as a whole";
    if (!trip.differing.empty()) {
        file.requireWritten(saveError);
        // A cloud whose reading failed is loaded all the same; else the error may be a stray one.
        if (loadError != 0 && (!isLoaded || loadError == EIO))
            file.failWritten(0, std::string("cannot be read back: ") + std::strerror(loadError));
    }
    file.finish();
    trip.bytes = fileSize(path);
    return trip;
}

/// For what saves and loads normals and colours.
template <class Container>
RoundTrip roundTrip(Container& container, SafeFile& file) {
    Container loaded;
    return roundTrip(
        file, [&](const char* path) { return container.Save(path, true, true); },
        [&](const char* path) { return loaded.Load(path, true, true); },
        [&] { return difference(container, loaded); });
}

}  // namespace zyr
