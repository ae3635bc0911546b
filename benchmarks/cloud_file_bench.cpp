// Saving and loading point clouds, beside the plain way: gather all columns, encode them as their
// format is worded or with liblzf, write; and the same back.

#include <Zyr3DData.h>
#include <liblzf/lzf.h>

#include <cstdio>
#include <cstring>

#include "Inputs.h"
#include "Measure.h"
#include "PlainCodec.h"

namespace {

using bench::add;
using bench::FileCall;

ZyrPointCloud cloudOf(const bench::Cloud& input) {
    std::vector<double> xyz = input.xyz;
    ZyrPointCloud cloud(xyz.data(), static_cast<int>(xyz.size()), 6, zyr::kInvalidValue);
    if (input.bgr.empty()) return cloud;
    ZyrColorArray colors;
    colors.Create(cloud.Length(), 3);
    std::memcpy(colors.Data(), input.bgr.data(), input.bgr.size());
    cloud.SetColors(colors);
    return cloud;
}

using Bytes = std::vector<unsigned char>;

Bytes columnsOf(const std::vector<double>& xyz) {
    const std::size_t points = xyz.size() / 3;
    Bytes bytes(xyz.size() * sizeof(double));
    for (std::size_t k = 0; k < 3; ++k)
        for (std::size_t i = 0; i < points; ++i)
            std::memcpy(&bytes[(k * points + i) * sizeof(double)], &xyz[3 * i + k], sizeof(double));
    return bytes;
}

struct WordedCodec {
    static constexpr const char* kName = "plain";
    static std::size_t encode(const Bytes& body, Bytes& stream) {
        return bench::PlainEncoder(body.data(), body.size(), stream.data()).encode();
    }
    static std::size_t decode(const Bytes& stream, Bytes& body) {
        return bench::plainDecode(stream.data(), stream.size(), body.data(), body.size());
    }
};

struct PeerCodec {
    static constexpr const char* kName = "plain, liblzf";
    static std::size_t encode(const Bytes& body, Bytes& stream) {
        return lzf_compress(body.data(), static_cast<unsigned>(body.size()), stream.data(),
                            static_cast<unsigned>(stream.size()));
    }
    static std::size_t decode(const Bytes& stream, Bytes& body) {
        return lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()), body.data(),
                              static_cast<unsigned>(body.size()));
    }
};

template <class Codec>
bool savePlainly(const std::vector<double>& xyz, const char* path) {
    const Bytes body = columnsOf(xyz);
    Bytes stream(body.size() * 3 / 2);
    const auto size = static_cast<unsigned>(Codec::encode(body, stream));
    std::FILE* file = std::fopen(path, "wb");
    if (file == nullptr) return false;
    const std::size_t points = xyz.size() / 3;
    std::fprintf(file,
                 "# .PCD v.7 - Point Cloud Data file format\nVERSION .7\nFIELDS x y z\nSIZE 8 8 8\n"
                 "TYPE F F F\nCOUNT 1 1 1\nWIDTH %zu\nHEIGHT 1\nVIEWPOINT 0 0 0 1 0 0 0\n"
                 "POINTS %zu\nDATA binary_compressed\n",
                 points, points);
    std::fwrite(&size, sizeof size, 1, file);
    std::fwrite(stream.data(), 1, size, file);
    return std::fclose(file) == 0;
}

template <class Codec>
bool loadPlainly(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    std::size_t points = 0;
    unsigned size = 0;
    if (file == nullptr) return false;
    for (char line[256];
         std::fgets(line, sizeof line, file) != nullptr && std::strncmp(line, "DATA", 4) != 0;)
        std::sscanf(line, "POINTS %zu", &points);
    if (points == 0 || std::fread(&size, sizeof size, 1, file) != 1) return false;
    Bytes stream(size), body(points * 3 * sizeof(double));
    bool isRead = std::fread(stream.data(), 1, size, file) == size;
    std::fclose(file);
    isRead = isRead && Codec::decode(stream, body) == body.size();
    std::vector<ZyrVector3d> vectors(points);
    for (std::size_t k = 0; k < 3; ++k)
        for (std::size_t i = 0; i < points; ++i)
            std::memcpy(&vectors[i].x + k, &body[(k * points + i) * sizeof(double)],
                        sizeof(double));
    benchmark::DoNotOptimize(vectors.data());
    return isRead;
}

void addOurs(const std::string& set, const ZyrPointCloud& cloud, bool withColors) {
    const auto points = static_cast<std::size_t>(cloud.Length());
    const auto save = [=](const char* path) {
        return ZyrPointCloud(cloud).Save(path, true, withColors);
    };
    add("save cloud", set, "ours", points, [=] { return FileCall("zpt", save); });
    add("load cloud", set, "ours", points, [=] {
        return bench::readingCall("zpt", save, [=](const char* path) {
            ZyrPointCloud loaded;
            return loaded.Load(path, true, withColors);
        });
    });
}

template <class Codec>
void addPlain(const std::string& set, const std::vector<double>& xyz) {
    const std::size_t points = xyz.size() / 3;
    const auto save = [=](const char* path) { return savePlainly<Codec>(xyz, path); };
    add("save cloud", set, Codec::kName, points, [=] { return FileCall("plain", save); });
    add("load cloud", set, Codec::kName, points,
        [=] { return bench::readingCall("plain", save, loadPlainly<Codec>); });
}

void addPlain(const std::string& set, const std::vector<double>& xyz) {
    addPlain<WordedCodec>(set, xyz);
    addPlain<PeerCodec>(set, xyz);
}

/// Directions as normals.
ZyrPointCloud withNormals(ZyrPointCloud cloud) {
    ZyrVector3dArray normals;
    normals.SetSize(cloud.Length());
    for (int i = 0; i < cloud.Length(); ++i) {
        const ZyrVector3d n = cloud.Point(i).Normalized();
        normals[i] =
            ZyrVector3d(static_cast<float>(n.x), static_cast<float>(n.y), static_cast<float>(n.z));
    }
    cloud.SetNormals(normals);
    return cloud;
}

const bool isRegistered = [] {
    for (const bench::Cloud& input : bench::clouds()) {
        addOurs(input.name, cloudOf(input), false);
        addPlain(input.name, input.xyz);
        if (!input.bgr.empty()) addOurs(input.name + " and colours", cloudOf(input), true);
        if (input.name == "rs1") addOurs("rs1 and normals", withNormals(cloudOf(input)), false);
    }
    for (const std::size_t points : bench::sizes()) {
        const bench::Cloud input{std::to_string(points) + " points", bench::floatBorn(points), {}};
        addOurs(input.name, cloudOf(input), false);
        addPlain(input.name, input.xyz);
    }
    return true;
}();

}  // namespace
