#include <algorithm>

#include "LZF.h"
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
        if (!columns_.hasPoints()) throw FormatFault("no fields x, y and z");
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
        if (header_.body == "ascii")  // a word and a blank each, the last one without
            return boundedCount(header_.points, 2 * header_.recordWords(), body_.size() + 1,
                                "points");
        if (header_.body == "binary")
            return boundedCount(header_.points, header_.recordBytes(), body_.size(), "points");
        constexpr std::uint64_t kMostGrowth = 88;
        return boundedCount(header_.points, header_.recordBytes(), body_.size() * kMostGrowth,
                            "points");
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
        hasMore_ = hasContent(body_.substr(offset * header_.points));
    }

    /// The columns lie one after the other.
    void readCompressed() {
        if (body_.size() < 8) throw FormatFault("cut short: the sizes of the body are missing");
        const auto packed = loadAs<std::uint32_t>(body_.data());
        const auto raw = loadAs<std::uint32_t>(body_.data() + 4);
        if (packed > body_.size() - 8)
            throw FormatFault("cut short: " + std::to_string(body_.size() - 8) + " of " +
                              std::to_string(packed) + " bytes of the stream are there");
        if (raw != header_.recordBytes() * header_.points)
            throw FormatFault("the body's size is not that of its points");
        const std::string columns = decompressed(body_.substr(8, packed), raw);
        std::vector<std::uint64_t> starts, steps;
        std::uint64_t offset = 0;
        for (const PcdField& field : header_.fields) {
            starts.push_back(offset);
            steps.push_back(field.bytes());
            offset += field.bytes() * header_.points;
        }
        readBinary(columns, starts, steps);
        hasMore_ = hasContent(body_.substr(8u + packed));
    }

    static std::string decompressed(std::string_view stream, std::uint32_t rawSize) {
        constexpr std::uint32_t kMost = 0x7FFFFFFF - 64;
        if (rawSize == 0) return {};
        if (rawSize > kMost || stream.size() > kMost || stream.empty())
            throw FormatFault("the compressed body is too large");
        // The decoder may read a last chunk past the end.
        std::string in(stream);
        in.append(64, '\0');
        std::string out(rawSize, '\0');
        const int size = LZF::decompress(
            reinterpret_cast<unsigned char*>(in.data()), static_cast<int>(stream.size()),
            reinterpret_cast<unsigned char*>(out.data()), static_cast<int>(rawSize));
        if (size != static_cast<int>(rawSize)) throw FormatFault("the compressed body is broken");
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
                throw FormatFault("cut short: " + std::to_string(i) + " of " +
                                  std::to_string(count_) + " points are there");
            splitWords(line.substr(0, line.find('#')), words);
            if (words.empty()) continue;
            const std::string place = "line " + std::to_string(lines.number()) + " of the points: ";
            if (words.size() < header_.recordWords())
                throw FormatFault(place + "fewer values than fields");
            takeWords(words, row, place);
            columns_.set(i++, row);
        }
        hasMore_ = hasContent(body_.substr(lines.offset()));
    }

    void takeWords(const std::vector<std::string_view>& words, PointRow& row,
                   const std::string& place) const {
        std::size_t next = 0;
        for (const PcdField& field : header_.fields) {
            const std::size_t first = next;
            next += field.count;
            if (field.role == Role::None || field.count == 0) continue;
            const bool isGood = isPacked(field) ? takePacked(field, words[first], row)
                                                : parseNumber(words[first], at(row, field.role));
            if (!isGood) throw FormatFault(place + "not a number: " + quoted(words[first]));
        }
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
        if (hasMore_) scene.leftOut.push_back("bytes behind the last point");
        return scene;
    }

    PcdHeader header_;
    std::string_view body_;
    int count_;
    PointColumns columns_;
    bool hasMore_ = false;
};

}  // namespace

Scene readPcd(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
