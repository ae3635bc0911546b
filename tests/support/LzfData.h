#pragma once

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/Bytes.h"
#include "support/Npy.h"

/// Inputs of many kinds for the codec.
namespace test {

using NamedBytes = std::pair<std::string, Bytes>;

inline Bytes randomBytes(std::size_t size, int values, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random() % static_cast<unsigned>(values));
    return bytes;
}

/// The bytes over and over.
inline Bytes repeated(const Bytes& period, std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = period[i % period.size()];
    return bytes;
}

/// A column of doubles in steps of 0.01, as scanners give them.
inline Bytes decimals(std::size_t count) {
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) put(bytes, 63.7 + 0.01 * static_cast<double>(i % 997));
    return bytes;
}

inline std::vector<NamedBytes> madeData() {
    std::vector<NamedBytes> data = {
        {"incompressible", randomBytes(20000, 256, 1)},
        {"two values", randomBytes(20000, 2, 2)},
        {"sixteen values", randomBytes(20000, 16, 3)},
        {"constant", Bytes(20000, 0x47)},
        {"period of 3", repeated({1, 2, 3}, 20000)},
        {"period of 8192", repeated(randomBytes(8192, 256, 4), 30000)},
        {"period of 8193", repeated(randomBytes(8193, 256, 5), 30000)},
        {"decimals", decimals(4000)},
        {"random behind zeros", joined(Bytes(5000), randomBytes(5000, 256, 6))},
    };
    for (std::size_t size : {1, 2, 3, 4, 5, 31, 32, 33, 64, 65, 263, 264, 265, 266, 267, 529}) {
        data.emplace_back("zeros, " + std::to_string(size), Bytes(size, 0));
        data.emplace_back("random, " + std::to_string(size), randomBytes(size, 256, 7));
    }
    return data;
}

/// The clouds of the data folder as field-major columns; none where the folder is missing.
inline std::vector<NamedBytes> measuredData() {
    std::vector<NamedBytes> data;
    for (const char* name : {"cloud_milk", "cloud_rs1", "cloud_autzen"}) {
        const auto xyz = readNpy<double>(std::string(ZYR_DATA_DIR "/") + name + "/xyz.npy", "<f8");
        Bytes columns(xyz.size() * sizeof(double));
        const std::size_t points = xyz.size() / 3;
        for (std::size_t i = 0; i < xyz.size(); ++i)
            std::memcpy(&columns[(i % 3 * points + i / 3) * 8], &xyz[i], 8);
        if (!columns.empty()) data.emplace_back(name, columns);
    }
    return data;
}

}  // namespace test
