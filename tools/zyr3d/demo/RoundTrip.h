#pragma once

#include <chrono>
#include <string>

#include "Outcome.h"
#include "demo/Comparison.h"

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
    double save = 0.0, load = 0.0;  ///< milliseconds
    std::string differing;          ///< what came back differently, "" for nothing
};

/// Runs save(path) and load(path), which tell whether they succeeded, and then compare(), which
/// tells what differs. Throws FileTrouble when the file can't be written.
template <class Save, class Load, class Compare>
RoundTrip roundTrip(const std::string& path, const Save& save, const Load& load,
                    const Compare& compare) {
    RoundTrip trip;
    trip.path = path;
    bool isSaved = false, isLoaded = false;
    trip.save = timed([&] { isSaved = save(path.c_str()); });
    if (!isSaved) throw FileTrouble(path + ": cannot be written");
    trip.load = timed([&] { isLoaded = load(path.c_str()); });
    trip.differing = isLoaded ? compare() : "file as a whole";
    return trip;
}

/// For what saves and loads normals and colours.
template <class Container>
RoundTrip roundTrip(Container& container, const std::string& path) {
    Container loaded;
    return roundTrip(
        path, [&](const char* file) { return container.Save(file, true, true); },
        [&](const char* file) { return loaded.Load(file, true, true); },
        [&] { return difference(container, loaded); });
}

}  // namespace zyr
