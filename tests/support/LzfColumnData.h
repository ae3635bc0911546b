#pragma once

#include <cmath>
#include <cstdint>
#include <random>

#include "support/LzfData.h"

/// Columns of values for the block encoders.
namespace test {

/// What make gives for each index.
template <class Make>
Bytes column(std::size_t count, Make make) {
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) put(bytes, make(i));
    return bytes;
}

/// Doubles that fill all their bits.
inline Bytes noiseColumn(std::size_t count) {
    std::mt19937_64 random(45);
    std::uniform_real_distribution<double> uniform(-1, 1);
    return column(count, [&](std::size_t) { return uniform(random); });
}

/// Floats that come back in the order in which they were, but for a few.
inline Bytes orderedColumn(std::size_t count) {
    std::mt19937 random(46);
    std::uniform_real_distribution<float> uniform(0.5F, 1);
    std::vector<float> order(700);
    for (float& value : order) value = uniform(random);
    return column(count, [&](std::size_t i) {
        float& value = order[i % 700];
        if (random() % 6 == 0) value = uniform(random);
        return double(value);
    });
}

/// Columns as files hold them, and mixtures that make an encoder change its mind.
inline std::vector<NamedBytes> columns() {
    std::mt19937 random(41);
    std::normal_distribution<double> noise(0, 0.0003);
    const auto wave = [&](std::size_t i) { return std::sin(0.01 * double(i)) + noise(random); };
    const Bytes floats = column(20000, [&](std::size_t i) { return double(float(wave(i))); });
    const Bytes holes = column(20000, [&](std::size_t i) {
        return random() % 5 == 0 ? 3.4028234663852886e+38 : double(float(wave(i)));
    });
    const Bytes steps =
        column(20000, [&](std::size_t i) { return std::round(wave(i) * 1000) * 0.001; });
    const Bytes grid = column(20000, [&](std::size_t) { return 0.5F * double(random() % 300); });
    const Bytes indices = column(40000, [&](std::size_t i) { return int(i / 2 + random() % 50); });
    const Bytes words = column(40000, [&](std::size_t i) {
        return 0xFF000000U | std::uint32_t(random() % 4) << 16 | std::uint32_t(i / 64 % 256);
    });
    const Bytes rows = column(70000, [&](std::size_t i) {
        return std::uint16_t(random() % 50 == 0 ? 0 : 1000 + i % 640 / 7 + random() % 2);
    });
    const Bytes noisyRows = column(70000, [&](std::size_t i) {
        return std::uint16_t(1000 + 500 * std::sin(0.02 * double(i)) + 7000 * noise(random));
    });
    const Bytes halfFloats = column(20000, [&](std::size_t i) {
        return i % 2 == 0 ? double(float(wave(i))) : std::round(wave(i) * 1000) * 0.001;
    });
    return {{"floats", floats},
            {"holes", holes},
            {"steps", steps},
            {"grid", grid},
            {"indices", indices},
            {"words", words},
            {"rows", rows},
            {"noisy rows", noisyRows},
            {"half floats", halfFloats},
            {"noise", noiseColumn(20000)},
            {"ordered", orderedColumn(20000)},
            {"all", joined({floats, steps, Bytes(30000), indices, words, rows, grid})}};
}

}  // namespace test
