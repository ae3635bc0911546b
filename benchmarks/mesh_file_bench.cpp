// Saving, loading, counting and appending meshes, beside plain loops over flat buffers and, for the
// files, liblzf on the bytes of the columns alone.

#include <Zyr3DData.h>
#include <liblzf/lzf.h>

#include <cmath>
#include <cstring>

#include "Inputs.h"
#include "Measure.h"

namespace {

using bench::add;
using bench::Mesh;

ZyrVector3dArray vectors(std::vector<double> flat) {
    return ZyrVector3dArray(flat.data(), static_cast<int>(flat.size()), zyr::kInvalidValue);
}

ZyrTriangleMesh meshOf(const Mesh& input) {
    ZyrColorArray colors;
    colors.Create(static_cast<int>(input.bgr.size() / 3), 3);
    if (!input.bgr.empty()) std::memcpy(colors.Data(), input.bgr.data(), input.bgr.size());
    std::vector<int> faces = input.faces;
    return ZyrTriangleMesh(vectors(input.xyz),
                           Zyr3DIntArray(faces.data(), static_cast<int>(faces.size())), colors,
                           ZyrColorArray(), vectors(input.normals), ZyrVector3dArray());
}

template <class T>
void addColumns(std::vector<unsigned char>& bytes, const std::vector<T>& flat) {
    for (std::size_t k = 0; k < 3; ++k)
        for (std::size_t i = k; i < flat.size(); i += 3) {
            const auto* first = reinterpret_cast<const unsigned char*>(&flat[i]);
            bytes.insert(bytes.end(), first, first + sizeof flat[i]);
        }
}

std::vector<unsigned char> columnsOf(const Mesh& input) {
    std::vector<unsigned char> bytes;
    addColumns(bytes, input.xyz);
    addColumns(bytes, input.normals);
    for (std::size_t i = 0; i < input.bgr.size(); i += 3) {
        bytes.insert(bytes.end(), &input.bgr[i], &input.bgr[i] + 3);
        bytes.push_back(255);
    }
    addColumns(bytes, input.faces);
    return bytes;
}

void addFiles(const Mesh& input) {
    const ZyrTriangleMesh mesh = meshOf(input);
    const auto triangles = static_cast<std::size_t>(mesh.NumTriangles());
    const auto save = [=](const char* path) { return mesh.Save(path, true, true); };
    add("save mesh", input.name, "ours", triangles, [=] { return bench::FileCall("ztmt", save); });
    add("load mesh", input.name, "ours", triangles, [=] {
        return bench::readingCall("ztmt", save, [](const char* path) {
            ZyrTriangleMesh loaded;
            return loaded.Load(path, true, true);
        });
    });
    const std::vector<unsigned char> raw = columnsOf(input);
    const auto size = static_cast<unsigned>(raw.size());
    add("save mesh", input.name, "liblzf", triangles, [=] {
        return [raw, size, stream = std::vector<unsigned char>(raw.size() * 2)]() mutable {
            return lzf_compress(raw.data(), size, stream.data(), 2 * size) > 0;
        };
    });
    add("load mesh", input.name, "liblzf", triangles, [=] {
        std::vector<unsigned char> stream(raw.size() * 2);
        const unsigned bytes = lzf_compress(raw.data(), size, stream.data(), 2 * size);
        return [stream, bytes, size, body = raw]() mutable {
            return lzf_decompress(stream.data(), bytes, body.data(), size) == size;
        };
    });
}

bool isPoint(const double* v) {
    return v[0] < zyr::kInvalidValue && v[1] < zyr::kInvalidValue && v[2] < zyr::kInvalidValue;
}

double length(const double* v) {
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

/// The triangle's own test, written out: corners apart, valid and not on one line.
bool isTriangle(const double* a, const double* b, const double* c) {
    double u[3], v[3], n[3];
    for (int k = 0; k < 3; ++k) {
        u[k] = b[k] - a[k];
        v[k] = c[k] - a[k];
    }
    for (int k = 0; k < 3; ++k)
        n[k] = u[(k + 1) % 3] * v[(k + 2) % 3] - u[(k + 2) % 3] * v[(k + 1) % 3];
    return isPoint(a) && isPoint(b) && isPoint(c) && length(n) > 1e-12 * length(u) * length(v);
}

void addCount(const Mesh& input) {
    const ZyrTriangleMesh mesh = meshOf(input);
    const auto triangles = static_cast<std::size_t>(mesh.NumTriangles());
    add("count valid triangles", input.name, "ours", triangles, [=] {
        return [mesh]() mutable {
            benchmark::DoNotOptimize(mesh.NumValidTriangles());
            return true;
        };
    });
    add("count valid triangles", input.name, "plain", triangles, [&input] {
        return [&input] {
            int valid = 0;
            for (std::size_t t = 0; t < input.faces.size(); t += 3) {
                const auto corner = [&](std::size_t k) {
                    return &input.xyz[3 * static_cast<std::size_t>(input.faces[t + k])];
                };
                if (isTriangle(corner(0), corner(1), corner(2))) ++valid;
            }
            benchmark::DoNotOptimize(valid);
            return true;
        };
    });
}

template <class T>
void append(std::vector<T>& target, const std::vector<T>& source) {
    target.insert(target.end(), source.begin(), source.end());
}

void addAppend(const Mesh& input) {
    const ZyrTriangleMesh mesh = meshOf(input);
    const auto triangles = static_cast<std::size_t>(mesh.NumTriangles());
    add("append mesh", input.name, "ours", triangles, [=] {
        return [=] {
            ZyrTriangleMesh target;
            target.Append(mesh);
            target.Append(mesh);
            return target.NumTriangles() > 0;
        };
    });
    add("append mesh", input.name, "plain", triangles, [&input] {
        return [&input] {
            Mesh target;
            for (int k = 0; k < 2; ++k) {
                const auto shift = static_cast<int>(target.xyz.size() / 3);
                const std::size_t before = target.faces.size();
                append(target.xyz, input.xyz);
                append(target.normals, input.normals);
                append(target.bgr, input.bgr);
                append(target.faces, input.faces);
                for (std::size_t i = before; i < target.faces.size(); ++i) target.faces[i] += shift;
            }
            benchmark::DoNotOptimize(target.faces.data());
            return true;
        };
    });
}

const bool isRegistered = [] {
    for (const Mesh& input : bench::meshes()) {
        addFiles(input);
        addCount(input);
        addAppend(input);
    }
    return true;
}();

}  // namespace
