#include "formats/PcdHeader.h"

#include "formats/Text.h"

namespace zyr {
namespace {

class HeaderReader {
public:
    explicit HeaderReader(std::string_view bytes) : lines_(bytes) {}

    PcdHeader read() {
        std::string_view line;
        while (header_.body.empty()) {
            if (!lines_.next(line)) throw FormatFault("not a PCD file: no DATA line");
            splitWords(line.substr(0, line.find('#')), words_);
            if (!words_.empty()) take();
        }
        header_.bodyStart = lines_.offset();
        check();
        return header_;
    }

private:
    [[noreturn]] void fail(const std::string& why) const { failAt(lines_.place(), why); }

    void take() {
        const std::string keyword(words_[0]);
        header_.places[keyword] = lines_.place();
        if (keyword == "FIELDS" || keyword == "COLUMNS")
            takeFields();
        else if (keyword == "SIZE")
            eachField([&](PcdField& field, std::string_view) { field.scalar.size = next(); });
        else if (keyword == "TYPE")
            eachField([&](PcdField& field, std::string_view word) { field.scalar.kind = word[0]; });
        else if (keyword == "COUNT")
            eachField([&](PcdField& field, std::string_view) { field.count = next(); });
        else if (keyword == "VIEWPOINT")
            takeViewpoint();
        else if (keyword == "DATA")
            takeData();
        else
            takeNumber(keyword);
    }

    void takeNumber(const std::string& keyword) {
        at_ = 1;
        if (keyword == "WIDTH") header_.width = next();
        if (keyword == "HEIGHT") header_.height = next();
        if (keyword == "POINTS") header_.points = next();
        if (keyword == "POINTS") hasPoints_ = true;
        const bool isKnown = at_ > 1 || keyword == "VERSION";
        if (!isKnown) fail("unknown keyword " + quoted(keyword));
    }

    void takeFields() {
        header_.fields.clear();
        for (std::size_t i = 1; i < words_.size(); ++i) {
            PcdField field;
            field.name = words_[i];
            field.role = roleOf(field.name);
            header_.fields.push_back(field);
        }
    }

    template <class Take>
    void eachField(Take takeWord) {
        if (words_.size() != header_.fields.size() + 1)
            fail(std::string(words_[0]) + " has not one word for each field");
        at_ = 1;
        for (std::size_t i = 0; i < header_.fields.size(); ++i)
            takeWord(header_.fields[i], words_[i + 1]);
    }

    /// The next word of the line as a number that sums of products of can't overflow.
    std::uint64_t next() {
        std::uint64_t number = 0;
        const std::string_view word = at_ < words_.size() ? words_[at_] : std::string_view();
        if (!parseInteger(word, number) || number > 0xFFFFFFFF)
            fail("not a count: " + quoted(word));
        ++at_;
        return number;
    }

    void takeViewpoint() {
        if (words_.size() != 8) fail("VIEWPOINT needs 7 numbers");
        for (std::size_t i = 1; i < 8; ++i) {
            double value = 0.0;
            if (!parseNumber(words_[i], value)) fail("not a number: " + quoted(words_[i]));
            if (value != (i == 4 ? 1.0 : 0.0)) header_.hasViewpoint = true;
        }
    }

    void takeData() {
        header_.body = words_.size() > 1 ? std::string(words_[1]) : std::string();
        if (header_.body != "ascii" && header_.body != "binary" &&
            header_.body != "binary_compressed")
            fail("unknown kind of DATA " + quoted(header_.body));
    }

    void check() {
        const std::uint64_t product = header_.width * header_.height;
        if (!hasPoints_) header_.points = product;
        if (header_.points != product)
            failAt(header_.placeOf({"POINTS"}), "POINTS is not WIDTH times HEIGHT");
        for (const PcdField& field : header_.fields)
            if (!field.scalar.isKnown())
                failAt(header_.placeOf({Scalar{field.scalar.kind, 4}.isKnown() ? "SIZE" : "TYPE"}),
                       "field " + quoted(field.name) + " has an unknown type");
        if (header_.recordBytes() > 0xFFFFFFFF)
            failAt(header_.placeOf({"COUNT"}), "the fields are too large");
    }

    Lines lines_;
    std::vector<std::string_view> words_;
    std::size_t at_ = 1;
    bool hasPoints_ = false;
    PcdHeader header_;
};

}  // namespace

Place PcdHeader::placeOf(const std::vector<const char*>& keywords) const {
    for (const char* keyword : keywords)
        if (const auto found = places.find(keyword); found != places.end()) return found->second;
    return places.at("DATA");
}

std::uint64_t PcdHeader::recordBytes() const {
    std::uint64_t bytes = 0;
    for (const PcdField& field : fields) bytes += field.bytes();
    return bytes;
}

std::uint64_t PcdHeader::recordWords() const {
    std::uint64_t words = 0;
    for (const PcdField& field : fields) words += field.count;
    return words;
}

PcdHeader readPcdHeader(std::string_view bytes) {
    return HeaderReader(bytes).read();
}

}  // namespace zyr
