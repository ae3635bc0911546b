#pragma once

#include "Zyr3DIntArray.h"
#include "support/CloudFile.h"

/// Triangle-mesh files put together by hand, and what the reader makes of them.
namespace test {

/// A mesh file's six lists, as Zyr3DFileIO takes them.
struct MeshLists {
    ZyrVector3dArray vertices, vertexNormals;
    cv::Mat vertexColors;
    Zyr3DIntArray triangles;
    ZyrVector3dArray triangleNormals;
    cv::Mat triangleColors;

    bool save(const std::string& path, bool withNormals, bool withColors) {
        return Zyr3DFileIO::SaveTriangleMesh(vertices, vertexNormals, vertexColors, triangles,
                                             triangleNormals, triangleColors, path.c_str(),
                                             withNormals, withColors);
    }
    bool load(const std::string& path, bool withNormals, bool withColors) {
        return Zyr3DFileIO::LoadTriangleMesh(vertices, vertexNormals, vertexColors, triangles,
                                             triangleNormals, triangleColors, path.c_str(),
                                             withNormals, withColors);
    }
    bool load(const Bytes& bytes, bool withNormals = true, bool withColors = true) {
        return load(MemoryFile(bytes).path(), withNormals, withColors);
    }
};

struct LoadedMesh : MeshLists {
    bool isLoaded = false;
};

/// Into lists that are not empty, which must not pass for what a refused file gave.
inline LoadedMesh loadMesh(const Bytes& bytes, bool withNormals = true, bool withColors = true) {
    LoadedMesh mesh;
    mesh.vertices.SetSize(1);
    mesh.isLoaded = mesh.load(bytes, withNormals, withColors);
    return mesh;
}

/// The lines of a header, each to be replaced; an empty one is left out.
struct MeshHeader {
    std::string version = "VERSION 0.1";
    std::string fields = "FIELDS x y z fa fb fc";
    std::string size = "SIZE 8 8 8 4 4 4";
    std::string type = "TYPE F F F U U U";
    std::string count = "COUNT 1 1 1 1 1 1";
    std::string points;
    std::string faces;
    std::string data = "DATA binary_compressed";

    MeshHeader(long numPoints, long numFaces)
        : points("POINTS " + std::to_string(numPoints)),
          faces("FACES " + std::to_string(numFaces)) {}

    /// With one value an element.
    MeshHeader& columns(const std::string& names, const std::string& sizes) {
        fields = "FIELDS " + names;
        size = "SIZE " + sizes;
        count = "COUNT";
        for (const char c : " " + names)
            if (c == ' ') count += " 1";
        return *this;
    }

    MeshHeader& kind(const std::string& word) {
        data = "DATA " + word;
        return *this;
    }

    Bytes bytes() const {
        std::string text;
        for (const std::string& line : {version, fields, size, type, count, points, faces, data})
            if (!line.empty()) text += line + "\n";
        return toBytes(text);
    }
};

/// The four words and the stream of a body.
inline Bytes meshStream(std::uint32_t vertexChannels, std::uint32_t triangleChannels,
                        const Bytes& stream, std::uint32_t bodySize) {
    Bytes bytes;
    put(bytes, vertexChannels);
    return joined(bytes, compressed(triangleChannels, stream, bodySize));
}

/// As above, from the body: all of it as literals.
inline Bytes meshBody(std::uint32_t vertexChannels, std::uint32_t triangleChannels,
                      const Bytes& body) {
    return meshStream(vertexChannels, triangleChannels, literalStream(body),
                      static_cast<std::uint32_t>(body.size()));
}

/// A file of a header and a body, colours of three channels.
inline Bytes meshFile(const MeshHeader& header, const Bytes& body) {
    return joined(header.bytes(), meshBody(3, 3, body));
}

/// A written file taken apart.
struct MeshParts {
    std::string header;  ///< up to and with the DATA line
    std::uint32_t vertexChannels = 0, triangleChannels = 0, streamSize = 0, bodySize = 0;
    Bytes stream;  ///< all that follows the four words

    explicit MeshParts(const Bytes& file) {
        const std::string text(file.begin(), file.end());
        const std::string last = "DATA binary_compressed\n";
        const std::size_t end = text.find(last) + last.size();
        if (end < last.size() || end + 16 > file.size()) return;
        header = text.substr(0, end);
        vertexChannels = valueAt<std::uint32_t>(file, end);
        triangleChannels = valueAt<std::uint32_t>(file, end + 4);
        streamSize = valueAt<std::uint32_t>(file, end + 8);
        bodySize = valueAt<std::uint32_t>(file, end + 12);
        stream = Bytes(file.begin() + static_cast<std::ptrdiff_t>(end + 16), file.end());
    }

    Bytes body() const { return plainDecode(stream, bodySize); }

    /// The header line of that keyword.
    std::string line(const std::string& keyword) const {
        const std::size_t start = header.find("\n" + keyword + " ");
        if (start == header.npos) return "";
        return header.substr(start + 1, header.find('\n', start + 1) - start - 1);
    }
};

/// What saving lists makes.
struct SavedMesh {
    bool isSaved;
    bool isCreated;
    Bytes file;

    MeshParts parts() const { return MeshParts(file); }
};

inline SavedMesh saveMesh(MeshLists mesh, bool withNormals = true, bool withColors = true) {
    const TempFolder folder;
    const std::string path = folder.path("mesh.ztmt");
    SavedMesh saved{};
    saved.isSaved = mesh.save(path, withNormals, withColors);
    saved.isCreated = fileExists(path);
    saved.file = readFile(path);
    return saved;
}

inline Zyr3DIntArray indices(std::vector<int> flat) {
    return Zyr3DIntArray(flat.data(), static_cast<int>(flat.size()));
}

inline Bytes all(const std::vector<Bytes>& parts) {
    Bytes bytes;
    for (const Bytes& part : parts) bytes = joined(bytes, part);
    return bytes;
}

}  // namespace test
