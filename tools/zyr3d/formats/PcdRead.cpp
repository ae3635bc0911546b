#include <algorithm>

#include "files/LzfStream.h"
#include "formats/Fault.h"
#include "formats/PcdHeader.h"
#include "formats/Readers.h"
#include "formats/Text.h"

namespace zyr {
namespace {

/// The body of a file, and where the values of a field lie in it.
class Reader {
public:
    explicit Reader(std::string_view bytes)
        : header_(readPcdHeader(bytes)),
          body_(bytes.substr(header_.bodyStart)),
          count_(countOf()),
          columns_(count_, roles()) {
        if (!columns_.hasPoints())
            failAt(header_.placeOf({"FIELDS", "COLUMNS"}), "no fields x, y and z");
    }

    Scene read() {
        if (header_.body == "ascii")
            readText();
        else if (header_.body == "binary")
            readRecords();
        else
            readCompressed();
        return finish();
    }

private:
    int countOf() const {
        const Place place = header_.placeOf({"POINTS", "WIDTH", "HEIGHT"});
        if (header_.body == "ascii")  // a word and a blank each, the last one without
            return boundedCount(header_.points, 2 * header_.recordWords(), body_.size() + 1,
                                "points", place);
        if (header_.body == "binary")
            return boundedCount(header_.points, header_.recordBytes(), body_.size(), "points",
                                place);
        return boundedCount(header_.points, header_.recordBytes(), body_.size() * kLzfMostExpansion,
                            "points", place);
    }

    /// A packed colour stands for three or four columns.
    std::vector<Role> roles() const {
        std::vector<Role> roles;
        for (const PcdField& field : header_.fields) {
            if (field.count > 0) roles.push_back(field.role);
            if (!isPacked(field)) continue;
            roles.insert(roles.end(), {Role::Red, Role::Green, Role::Blue});
            if (lowered(field.name) == "rgba") roles.push_back(Role::Alpha);
        }
        return roles;
    }

    static bool isPacked(const PcdField& field) {
        return field.role == Role::Packed && field.scalar.size == 4 && field.count == 1;
    }

    static void setPacked(PointRow& row, std::uint32_t word) {
        at(row, Role::Red) = word >> 16 & 0xFF;
        at(row, Role::Green) = word >> 8 & 0xFF;
        at(row, Role::Blue) = word & 0xFF;
        at(row, Role::Alpha) = word >> 24;
    }

    void readRecords() {
        std::uint64_t offset = 0;
        std::vector<std::uint64_t> starts;
        for (const PcdField& field : header_.fields) {
            starts.push_back(offset);
            offset += field.bytes();
        }
        const std::vector<std::uint64_t> steps(starts.size(), offset);
        readBinary(body_, starts, steps);
        noteRest(offset * header_.points);
    }

    /// The columns lie one after the other.
    void readCompressed() {
        if (body_.size() < 8) throw CutShort("the sizes of the body are missing");
        const auto packed = loadAs<std::uint32_t>(body_.data());
        const auto raw = loadAs<std::uint32_t>(body_.data() + 4);
        if (packed > body_.size() - 8)
            throw CutShort("" + std::to_string(body_.size() - 8) + " of " + std::to_string(packed) +
                           " bytes of the stream are there");
        if (raw != header_.recordBytes() * header_.points)
            failAt({header_.bodyStart + 4}, "the body's size is not that of its points");
        const std::string columns = decompressed(body_.substr(8, packed), raw);
        std::vector<std::uint64_t> starts, steps;
        std::uint64_t offset = 0;
        for (const PcdField& field : header_.fields) {
            starts.push_back(offset);
            steps.push_back(field.bytes());
            offset += field.bytes() * header_.points;
        }
        readBinary(columns, starts, steps);
        noteRest(8u + packed);
    }

    void noteRest(std::size_t at) {
        if (hasContent(body_.substr(at))) rest_ = header_.bodyStart + at;
    }

    std::string decompressed(std::string_view stream, std::uint32_t rawSize) const {
        if (rawSize == 0) return {};
        std::string out(rawSize, '\0');
        const LzfWalk walk =
            decodeLzf(reinterpret_cast<const unsigned char*>(stream.data()), stream.size(),
                      reinterpret_cast<unsigned char*>(out.data()), out.size());
        const std::string why = walk.produced < rawSize && walk.fault.empty()
                                    ? "the stream gives " + std::to_string(walk.produced) + " of " +
                                          std::to_string(rawSize) + " bytes"
                                    : walk.fault;
        if (!why.empty())
            failAt({header_.bodyStart + 8 + walk.at}, "the compressed body is broken: " + why);
        return out;
    }

    void readBinary(std::string_view bytes, const std::vector<std::uint64_t>& starts,
                    const std::vector<std::uint64_t>& steps) {
        PointRow row{};
        for (int i = 0; i < count_; ++i) {
            for (std::size_t f = 0; f < header_.fields.size(); ++f) {
                const PcdField& field = header_.fields[f];
                if (field.role == Role::None || field.count == 0) continue;
                const char* value =
                    bytes.data() + starts[f] + steps[f] * static_cast<std::uint64_t>(i);
                if (isPacked(field))
                    setPacked(row, loadAs<std::uint32_t>(value));
                else
                    at(row, field.role) = loadScalar(field.scalar, value, false);
            }
            columns_.set(i, row);
        }
    }

    void readText() {
        Lines lines(body_);
        std::string_view line;
        std::vector<std::string_view> words;
        PointRow row{};
        for (int i = 0; i < count_;) {
            if (!lines.next(line))
                throw CutShort("" + std::to_string(i) + " of " + std::to_string(count_) +
                               " points are there");
            splitWords(line.substr(0, line.find('#')), words);
            if (words.empty()) continue;
            const auto fail = [&](const std::string& why) {
                const Place place = lines.place(), data = header_.placeOf({});
                failAt({header_.bodyStart + place.offset, data.line + place.line}, why);
            };
            if (words.size() < header_.recordWords()) fail("fewer values than fields");
            if (const auto wrong = takeWords(words, row); !wrong.empty())
                fail("not a number: " + quoted(wrong));
            columns_.set(i++, row);
        }
        noteRest(lines.offset());
    }

    /// Gives the word that is no number, or "".
    std::string_view takeWords(const std::vector<std::string_view>& words, PointRow& row) const {
        std::size_t next = 0;
        for (const PcdField& field : header_.fields) {
            const std::size_t first = next;
            next += field.count;
            if (field.role == Role::None || field.count == 0) continue;
            const bool isGood = isPacked(field) ? takePacked(field, words[first], row)
                                                : parseNumber(words[first], at(row, field.role));
            if (!isGood) return words[first];
        }
        return {};
    }

    /// A colour word as a whole number, or as a float of the same bits.
    static bool takePacked(const PcdField& field, std::string_view text, PointRow& row) {
        std::int64_t word = 0;
        float number = 0.0F;
        if (parseInteger(text, word) && (field.scalar.kind != 'F' || word > 0xFFFF)) {
            setPacked(row, static_cast<std::uint32_t>(word));
            return true;
        }
        if (!parseNumber(text, number)) return false;
        setPacked(row, loadAs<std::uint32_t>(reinterpret_cast<const char*>(&number)));
        return true;
    }

    Scene finish() {
        Scene scene;
        scene.cloud = columns_.cloud();
        if (header_.height > 1) {
            scene.columns = static_cast<int>(header_.width);
            scene.rows = static_cast<int>(header_.height);
        }
        std::vector<std::string> names;
        std::vector<Role> given;
        for (const PcdField& field : header_.fields) {
            if (field.name == "_") continue;
            names.push_back(field.name);
            given.push_back(field.role == Role::Packed && !isPacked(field) ? Role::None
                                                                           : field.role);
        }
        const std::string unused = unusedColumns(names, given);
        if (!unused.empty()) scene.leftOut.push_back("fields " + unused);
        if (header_.hasViewpoint) scene.leftOut.push_back("the viewpoint");
        describe(scene);
        scene.rest = rest_;
        if (rest_) scene.leftOut.push_back("bytes behind the last point");
        return scene;
    }

    void describe(Scene& scene) const {
        scene.body = header_.body;
        scene.rawBytes = header_.recordBytes() * header_.points;
        for (const PcdField& field : header_.fields) {
            const std::string many =
                field.count == 1 ? "" : "[" + std::to_string(field.count) + "]";
            scene.fields.push_back({field.name, field.scalar.name() + many});
        }
    }

    PcdHeader header_;
    std::string_view body_;
    int count_;
    PointColumns columns_;
    std::optional<std::uint64_t> rest_;
};

}  // namespace

Scene readPcd(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
