#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "CloudChecks.h"
#include "MeshChecks.h"
#include "RangeChecks.h"
#include "support/GoldenCloud.h"
#include "support/GoldenMesh.h"

/// The three formats as one list, for tests of what they have in common.
namespace test {

/// All that a file gives or takes, of whatever format.
struct Content {
    LoadedCloud cloud;
    MeshLists mesh;
    Stores range;
};

/// The bytes of all of it, and whether it was loaded.
inline Bytes bytesOf(const Content& c) {
    std::vector<Bytes> parts = {c.cloud.colorBytes(),
                                bytesOf(c.mesh.vertexColors),
                                bytesOf(c.mesh.triangleColors),
                                bytesOf(c.range.values),
                                bytesOf(c.range.colors),
                                fuzz::calibrationBytes(c.range),
                                bytesOf(fuzz::indicesOf(c.mesh.triangles))};
    for (const ZyrVector3dArray& list : {c.cloud.points, c.cloud.normals, c.mesh.vertices,
                                         c.mesh.vertexNormals, c.mesh.triangleNormals})
        parts.push_back(bytesOf(bits(list)));
    Bytes bytes;
    for (const Bytes& part : parts) {
        put(bytes, part.size());
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

struct Format {
    const char* name;
    const char* folder;  ///< of its golden files
    const char* sample;  ///< the golden file with all that the format can hold
    bool (*load)(Content&, const char* path, bool withNormals, bool withColors);
    bool (*save)(Content&, const char* path);
    bool noticesWriteFaults;
    /// What must hold of any file, under one pair of flags.
    void (*check)(const fuzz::InputFile&, const Bytes&, fuzz::Flags);

    std::string samplePath() const {
        return std::string(ZYR_GOLDEN_DIR "/") + folder + "/" + sample;
    }
};

inline const std::vector<Format>& formats() {
    static const std::vector<Format> all = {
        {"cloud", "pointcloud", "points_normals_bgra.zpt",
         [](Content& c, const char* path, bool withNormals, bool withColors) {
             return Zyr3DFileIO::LoadPointCloud(c.cloud.points, c.cloud.normals, c.cloud.colors,
                                                path, withNormals, withColors);
         },
         [](Content& c, const char* path) {
             return Zyr3DFileIO::SavePointCloud(c.cloud.points, c.cloud.normals, c.cloud.colors,
                                                path, true, true);
         },
         false,
         [](const fuzz::InputFile& file, const Bytes& bytes, fuzz::Flags flags) {
             fuzz::checkCloud(file, PlainHeader(bytes), flags);
         }},
        {"mesh", "mesh", "mesh_vn_vc3_tn_tc4.ztmt",
         [](Content& c, const char* path, bool withNormals, bool withColors) {
             MeshLists& m = c.mesh;
             return Zyr3DFileIO::LoadTriangleMesh(m.vertices, m.vertexNormals, m.vertexColors,
                                                  m.triangles, m.triangleNormals, m.triangleColors,
                                                  path, withNormals, withColors);
         },
         [](Content& c, const char* path) {
             MeshLists& m = c.mesh;
             return Zyr3DFileIO::SaveTriangleMesh(m.vertices, m.vertexNormals, m.vertexColors,
                                                  m.triangles, m.triangleNormals, m.triangleColors,
                                                  path, true, true);
         },
         true,
         [](const fuzz::InputFile& file, const Bytes& bytes, fuzz::Flags flags) {
             fuzz::checkMesh(file, PlainHeader(bytes), flags);
         }},
        {"range", "rangeimage", "type2_bgra.zrt",
         [](Content& c, const char* path, bool, bool withColors) {
             return fuzz::loadRange(c.range, path, withColors);
         },
         [](Content& c, const char* path) { return c.range.save(path, true); }, true,
         [](const fuzz::InputFile& file, const Bytes& bytes, fuzz::Flags flags) {
             if (flags.withNormals) return;  // it has none
             fuzz::checkRange(file, bytes, flags.withColors);
         }},
    };
    return all;
}

inline void PrintTo(const Format& format, std::ostream* out) {
    *out << format.name;
}

/// What the format's sample holds.
inline Content sampleOf(const Format& format) {
    Content content;
    fuzz::require(format.load(content, format.samplePath().c_str(), true, true),
                  "the sample loads");
    return content;
}

/// A suite whose tests run for each of the formats.
class EachFormat : public testing::TestWithParam<Format> {
protected:
    bool load(Content& content, const std::string& path) const {
        return GetParam().load(content, path.c_str(), true, true);
    }
    bool save(Content& content, const std::string& path) const {
        return GetParam().save(content, path.c_str());
    }
    /// The result and all values of loading.
    Bytes loaded(const std::string& path) const {
        Content content;
        const bool isLoaded = load(content, path);
        return joined(Bytes(1, isLoaded), bytesOf(content));
    }
    std::string file(const std::string& name = "file") const { return folder_.path(name); }

    TempFolder folder_;
};

inline auto formatName(const testing::TestParamInfo<Format>& info) {
    return std::string(info.param.name);
}

}  // namespace test
