#include <algorithm>

#include "formats/Fault.h"
#include "formats/PointColumns.h"
#include "formats/Readers.h"
#include "formats/Scalar.h"
#include "formats/Text.h"

namespace zyr {
namespace {

struct NpyHeader {
    Scalar scalar;
    bool isSwapped = false, isFortran = false;
    std::vector<std::uint64_t> shape;
    Place typeAt, shapeAt;
    std::size_t bodyStart = 0;
};

/// What follows a key of the header's dictionary, which starts here.
std::string_view valueOf(std::string_view dictionary, std::size_t start, std::string_view key) {
    const std::size_t at = dictionary.find("'" + std::string(key) + "'");
    const std::size_t colon = at == dictionary.npos ? at : dictionary.find(':', at);
    if (colon == dictionary.npos) failAt({start}, "the header has no " + std::string(key));
    const std::size_t value = dictionary.find_first_not_of(" ", colon + 1);
    return dictionary.substr(std::min(value, dictionary.size()));
}

/// Such as '<f8': order, kind and size.
void takeType(std::string_view text, NpyHeader& header) {
    const std::string_view word = text.substr(0, text.find('\'', 1));
    const bool isWord = word.size() == 4 && word[0] == '\'';
    const char order = isWord ? word[1] : '?', kind = isWord ? word[2] : '?';
    header.isSwapped = order == '>';
    header.scalar.kind = kind == 'f' ? 'F' : kind == 'i' ? 'I' : kind == 'u' ? 'U' : '?';
    header.scalar.size = isWord ? static_cast<std::size_t>(word[3] - '0') : 0;
    const bool isOrder = order == '<' || order == '>' || order == '|' || order == '=';
    if (!isOrder || !header.scalar.isKnown())
        failAt(header.typeAt,
               "values of the unknown type " + quoted(text.substr(0, text.find(','))));
}

void takeShape(std::string_view text, NpyHeader& header) {
    const std::size_t end = text.find(')');
    if (text.substr(0, 1) != "(" || end == text.npos)
        failAt(header.shapeAt, "the header has no shape");
    std::string_view rest = text.substr(1, end - 1);
    while (!rest.empty()) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        std::vector<std::string_view> words;
        splitWords(rest.substr(0, comma), words);
        rest.remove_prefix(std::min(comma + 1, rest.size()));
        if (words.empty()) continue;
        header.shape.emplace_back();
        if (words.size() > 1 || !parseInteger(words[0], header.shape.back()))
            failAt(header.shapeAt, "the shape is no list of counts");
    }
}

NpyHeader readHeader(std::string_view bytes) {
    if (bytes.substr(0, 6) != "\x93NUMPY" || bytes.size() < 12)
        failAt({0}, "not an NPY file: its first bytes are others");
    const char version = bytes[6];
    if (version < 1 || version > 3) failAt({6}, "an unknown version");
    const std::size_t start = version == 1 ? 10 : 12;
    const std::size_t length = version == 1 ? loadAs<std::uint16_t>(bytes.data() + 8)
                                            : loadAs<std::uint32_t>(bytes.data() + 8);
    if (length > bytes.size() - start) throw CutShort("inside the header");
    const std::string_view dictionary = bytes.substr(start, length);
    NpyHeader header;
    header.bodyStart = start + length;
    const auto value = [&](const char* key) { return valueOf(dictionary, start, key); };
    const auto placeOf = [&](std::string_view text) {
        return Place{static_cast<std::uint64_t>(text.data() - bytes.data())};
    };
    header.typeAt = placeOf(value("descr"));
    header.shapeAt = placeOf(value("shape"));
    takeType(value("descr"), header);
    header.isFortran = value("fortran_order").substr(0, 4) == "True";
    takeShape(value("shape"), header);
    return header;
}

class Reader {
public:
    explicit Reader(std::string_view bytes)
        : header_(readHeader(bytes)), body_(bytes.substr(header_.bodyStart)) {
        const auto& shape = header_.shape;
        const std::uint64_t most = body_.size() / header_.scalar.size;
        if (std::find(shape.begin(), shape.end(), 0) != shape.end()) total_ = 0;
        for (const std::uint64_t length : shape) {
            if (length > 0 && total_ > most / length)
                throw CutShort("the shape needs more bytes than are there");
            total_ *= length;
        }
    }

    Scene read() {
        const std::vector<std::uint64_t>& shape = header_.shape;
        const bool isThree = !shape.empty() && shape.back() == 3;
        if (shape.size() == 3 && isThree) return grid();
        if (shape.size() == 2 && isThree && header_.scalar.kind == 'F') return list();
        if (shape.size() == 2) return range();
        failAt(header_.shapeAt, "a shape that is neither (N, 3), (H, W, 3) nor (H, W)");
    }

private:
    /// Element i of C order, wherever it lies.
    const char* bytesOf(std::uint64_t i) const {
        if (header_.isFortran) {
            std::uint64_t offset = 0, rest = i, stride = total_;
            for (std::size_t axis = header_.shape.size(); axis-- > 0;) {
                stride /= header_.shape[axis];
                offset += rest % header_.shape[axis] * stride;
                rest /= header_.shape[axis];
            }
            i = offset;
        }
        return body_.data() + i * header_.scalar.size;
    }

    double value(std::uint64_t i) const {
        return loadScalar(header_.scalar, bytesOf(i), header_.isSwapped);
    }

    Scene list() const {
        Scene scene;
        ZyrVector3dArray points;
        points.SetSize(boundedCount(total_ / 3, 0, 0, "points", header_.shapeAt));
        for (int i = 0; i < points.Length(); ++i) {
            const std::uint64_t at = 3 * static_cast<std::uint64_t>(i);
            points[i] = validOrHole(value(at), value(at + 1), value(at + 2));
        }
        scene.cloud.SetPoints(points);
        for (const char* name : {"x", "y", "z"})
            scene.fields.push_back({name, header_.scalar.name()});
        finish(scene);
        return scene;
    }

    Scene grid() const {
        Scene scene = list();
        scene.rows = length(0, "rows");
        scene.columns = length(1, "columns");
        return scene;
    }

    int length(std::size_t axis, const char* what) const {
        return boundedCount(header_.shape[axis], 0, 0, what, header_.shapeAt);
    }

    /// OpenCV's code of the values' type, which range images use; -1 where they have none.
    int rangeType() const {
        const Scalar& scalar = header_.scalar;
        if (scalar.kind == 'F') return scalar.size == 4 ? 5 : 6;
        if (scalar.size == 4 && scalar.kind == 'I') return 4;
        if (scalar.size > 2) return -1;
        return (scalar.size == 1 ? 0 : 2) + (scalar.kind == 'I' ? 1 : 0);
    }

    Scene range() const {
        if (rangeType() < 0)
            failAt(header_.typeAt, "values of a type that range images do not have");
        if (total_ == 0) failAt(header_.shapeAt, "no values");
        std::string values;
        values.reserve(total_ * header_.scalar.size);
        for (std::uint64_t i = 0; i < total_; ++i) {
            const char* bytes = bytesOf(i);
            for (std::size_t b = 0; b < header_.scalar.size; ++b)
                values += bytes[header_.isSwapped ? header_.scalar.size - 1 - b : b];
        }
        Scene scene;
        scene.kind = Scene::Range;
        const int height = length(0, "rows"), width = length(1, "columns");
        scene.range = ZyrRangeImage(values.data(), width, height, 0, rangeType(), 0.0, 0.0, 1.0,
                                    0.0, 1.0, 0.0, 1.0, 0.0);
        finish(scene);
        return scene;
    }

    void finish(Scene& scene) const {
        const std::size_t size = total_ * header_.scalar.size;
        scene.body = header_.isSwapped ? "binary_big_endian" : "binary";
        if (header_.isFortran) scene.body += ", columns first";
        scene.rawBytes = size;
        if (body_.size() == size) return;
        scene.leftOut.push_back("bytes behind the last value");
        scene.rest = header_.bodyStart + size;
    }

    NpyHeader header_;
    std::string_view body_;
    std::uint64_t total_ = 1;
};

}  // namespace

Scene readNpy(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
