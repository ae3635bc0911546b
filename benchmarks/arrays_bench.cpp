// Building, copying, appending and counting points, beside plain code on flat buffers.

#include <Zyr3DData.h>

#include <cstring>
#include <memory>
#include <random>

#include "Inputs.h"
#include "Measure.h"

namespace {

using bench::add;

std::vector<float> floats(std::size_t points) {
    const std::vector<double> xyz = bench::floatBorn(points);
    return std::vector<float>(xyz.begin(), xyz.end());
}

/// Vectors of which so many in a hundred are missing, at random.
ZyrVector3dArray vectors(std::size_t points, unsigned percent) {
    ZyrVector3dArray array;
    array.SetSize(static_cast<int>(points));
    std::mt19937 random(1);
    for (std::size_t i = 0; i < points; ++i)
        if (random() % 100 >= percent) array[static_cast<int>(i)] = ZyrVector3d(1, 2, 3);
    return array;
}

void addBuild(std::size_t points) {
    const std::string set = std::to_string(points);
    add("cloud from floats", set, "ours", points, [=] {
        return [buffer = floats(points)]() mutable {
            const ZyrPointCloud cloud(buffer.data(), static_cast<int>(buffer.size()), 5, 0.0);
            return cloud.Length() > 0;
        };
    });
    add("cloud from floats", set, "plain", points, [=] {
        return [buffer = floats(points)] {
            const std::vector<double> xyz(buffer.begin(), buffer.end());
            std::vector<ZyrVector3d> vectors(xyz.size() / 3);
            std::memcpy(&vectors[0].x, xyz.data(), xyz.size() * sizeof(double));
            for (ZyrVector3d& v : vectors)
                if (v.x == 0.0 || v.y == 0.0 || v.z == 0.0) v = ZyrVector3d();
            benchmark::DoNotOptimize(vectors.data());
            return true;
        };
    });
}

void addCount(std::size_t points, unsigned percent) {
    const std::string set = std::to_string(points) + ", " + std::to_string(percent) + " % holes";
    const ZyrVector3dArray all = vectors(points, percent);
    add("count valid", set, "ours", points, [=] {
        return [=] {
            benchmark::DoNotOptimize(all.NumValidPoints());
            return true;
        };
    });
    add("count valid", set, "plain", points, [=] {
        return [=] {
            int valid = 0;
            for (std::size_t i = 0; i < points; ++i) {
                const double* v = all.Data() + 3 * i;
                if (v[0] < zyr::kInvalidValue && v[1] < zyr::kInvalidValue &&
                    v[2] < zyr::kInvalidValue)
                    ++valid;
            }
            benchmark::DoNotOptimize(valid);
            return true;
        };
    });
    add("count valid", set, "read", points, [=] {
        return [=] {
            using Words =
                unsigned long long __attribute__((vector_size(16), aligned(8), may_alias));
            Words a{}, b{}, c{};
            const auto* words = reinterpret_cast<const Words*>(all.Data());
            for (std::size_t left = points / 2; left > 0; --left, words += 3) {
                a ^= words[0];
                b ^= words[1];
                c ^= words[2];
            }
            Words sums = a ^ b ^ c;
            benchmark::DoNotOptimize(sums);
            return true;
        };
    });
}

void addCopies(std::size_t points) {
    const std::string set = std::to_string(points);
    const ZyrVector3dArray all = vectors(points, 20);
    const std::size_t bytes = points * sizeof(ZyrVector3d);
    add("deep copy", set, "ours", points,
        [=] { return [source = all]() mutable { return source.DeepCopy().Length() > 0; }; });
    add("append", set, "ours", points, [=] {
        return [=] {
            ZyrVector3dArray target;
            target.Append(all);
            return target.Length() > 0;
        };
    });
    for (const char* operation : {"deep copy", "append"})
        add(operation, set, "memcpy", points, [=] {
            return [=] {
                const std::unique_ptr<unsigned char[]> copy(new unsigned char[bytes]);
                std::memcpy(copy.get(), all.Data(), bytes);
                benchmark::DoNotOptimize(copy.get());
                benchmark::ClobberMemory();
                return true;
            };
        });
    add("append in place", set, "ours", points, [=] {
        ZyrVector3dArray target;
        target.SetSize(static_cast<int>(2 * points));
        return [=]() mutable {
            target.SetSize(static_cast<int>(points));
            target.Append(all);
            return true;
        };
    });
    add("append in place", set, "memcpy", points, [=] {
        ZyrVector3dArray target;
        target.SetSize(static_cast<int>(2 * points));
        return [=] {
            std::memcpy(target.Data() + 3 * points, all.Data(), bytes);
            benchmark::ClobberMemory();
            return true;
        };
    });
}

const bool isRegistered = [] {
    const std::size_t n = bench::points();
    for (const std::size_t points : {n, 10 * n}) addBuild(points);
    for (const unsigned percent : {0U, 20U, 50U}) {
        addCount(n / 30, percent);
        addCount(33 * n, percent);
    }
    for (const std::size_t points : {n / 100, n, 10 * n}) addCopies(points);
    return true;
}();

}  // namespace
