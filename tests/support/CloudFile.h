#pragma once

#include <cstdint>
#include <string>

#include "Zyr3DFileIO.h"
#include "ZyrVector3dArray.h"
#include "support/MatBytes.h"
#include "support/MemoryFile.h"
#include "support/PlainLzf.h"
#include "support/TempFolder.h"

/// Point-cloud files put together by hand, and what the reader makes of them.
namespace test {

/// The lines of a header, each to be replaced; an empty one is left out.
struct CloudHeader {
    std::string version = "VERSION 0.1";
    std::string fields = "FIELDS x y z";
    std::string size = "SIZE 8 8 8";
    std::string type = "TYPE F F F";
    std::string count = "COUNT 1 1 1";
    std::string width;
    std::string height = "HEIGHT 1";
    std::string viewpoint = "VIEWPOINT 0 0 0 1 0 0 0";
    std::string points;
    std::string data = "DATA binary_compressed";

    explicit CloudHeader(long n)
        : width("WIDTH " + std::to_string(n)), points("POINTS " + std::to_string(n)) {}

    CloudHeader& columns(const std::string& f, const std::string& s, const std::string& t,
                         const std::string& c) {
        fields = "FIELDS " + f;
        size = "SIZE " + s;
        type = "TYPE " + t;
        count = "COUNT " + c;
        return *this;
    }

    CloudHeader& kind(const std::string& word) {
        data = "DATA " + word;
        return *this;
    }

    Bytes bytes() const {
        std::string text;
        for (const std::string& line :
             {version, fields, size, type, count, width, height, viewpoint, points, data})
            if (!line.empty()) text += line + "\n";
        return toBytes(text);
    }
};

/// The three words and the stream of a compressed body.
inline Bytes compressed(std::uint32_t channels, const Bytes& stream, std::uint32_t bodySize) {
    Bytes bytes;
    put(bytes, channels);
    put(bytes, static_cast<std::uint32_t>(stream.size()));
    put(bytes, bodySize);
    return joined(bytes, stream);
}

/// As above, from the body: all of it as literals.
inline Bytes compressed(std::uint32_t channels, const Bytes& body) {
    return compressed(channels, literalStream(body), static_cast<std::uint32_t>(body.size()));
}

struct LoadedCloud {
    bool isLoaded = false;
    ZyrVector3dArray points;
    ZyrVector3dArray normals;
    cv::Mat colors;

    Bytes colorBytes() const { return bytesOf(colors); }
};

inline LoadedCloud loadFile(const std::string& path, bool withNormals, bool withColors) {
    LoadedCloud cloud;
    cloud.isLoaded = Zyr3DFileIO::LoadPointCloud(cloud.points, cloud.normals, cloud.colors,
                                                 path.c_str(), withNormals, withColors);
    return cloud;
}

inline LoadedCloud loadBytes(const Bytes& bytes, bool withNormals = true, bool withColors = true) {
    return loadFile(MemoryFile(bytes).path(), withNormals, withColors);
}

/// A written file taken apart.
struct CloudParts {
    std::string header;  ///< up to and with the DATA line
    std::uint32_t channels = 0, streamSize = 0, bodySize = 0;
    Bytes stream;  ///< all that follows the three words

    explicit CloudParts(const Bytes& file) {
        const std::string text(file.begin(), file.end());
        const std::string last = "DATA binary_compressed\n";
        const std::size_t end = text.find(last) + last.size();
        if (end < last.size() || end + 12 > file.size()) return;
        header = text.substr(0, end);
        channels = valueAt<std::uint32_t>(file, end);
        streamSize = valueAt<std::uint32_t>(file, end + 4);
        bodySize = valueAt<std::uint32_t>(file, end + 8);
        stream = Bytes(file.begin() + static_cast<std::ptrdiff_t>(end + 12), file.end());
    }

    Bytes body() const { return plainDecode(stream, bodySize); }
};

inline ZyrVector3dArray vectors(std::vector<double> flat) {
    return ZyrVector3dArray(flat.data(), static_cast<int>(flat.size()), 3.4028234663852886e+38);
}

/// A colour matrix of one row that owns its bytes.
inline cv::Mat colorRow(Bytes bytes, int channels) {
    return cv::Mat(1, static_cast<int>(bytes.size()) / channels, CV_8UC(channels), bytes.data())
        .clone();
}

}  // namespace test
