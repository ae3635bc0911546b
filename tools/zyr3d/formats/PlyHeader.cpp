#include "formats/PlyHeader.h"

#include <algorithm>
#include <array>

#include "formats/Text.h"

namespace zyr {
namespace {

struct TypeName {
    const char* name;
    Scalar scalar;
};

constexpr std::array<TypeName, 16> kTypes = {{{"char", {'I', 1}},
                                              {"int8", {'I', 1}},
                                              {"uchar", {'U', 1}},
                                              {"uint8", {'U', 1}},
                                              {"short", {'I', 2}},
                                              {"int16", {'I', 2}},
                                              {"ushort", {'U', 2}},
                                              {"uint16", {'U', 2}},
                                              {"int", {'I', 4}},
                                              {"int32", {'I', 4}},
                                              {"uint", {'U', 4}},
                                              {"uint32", {'U', 4}},
                                              {"float", {'F', 4}},
                                              {"float32", {'F', 4}},
                                              {"double", {'F', 8}},
                                              {"float64", {'F', 8}}}};

class HeaderReader {
public:
    explicit HeaderReader(std::string_view bytes) : lines_(bytes) {}

    PlyHeader read() {
        std::string_view line;
        if (!lines_.next(line) || line != "ply") fail("not a PLY file: no \"ply\" at the start");
        while (lines_.next(line)) {
            splitWords(line, words_);
            if (words_.empty() || words_[0] == "comment" || words_[0] == "obj_info") continue;
            if (words_[0] == "end_header") return finish();
            take();
        }
        throw CutShort("no end_header");
    }

private:
    [[noreturn]] void fail(const std::string& why) const {
        failAt({lines_.place().offset, std::max<std::size_t>(lines_.place().line, 1)}, why);
    }

    void take() {
        if (words_[0] == "format")
            takeFormat();
        else if (words_[0] == "element")
            takeElement();
        else if (words_[0] == "property")
            takeProperty();
        else
            fail("unknown keyword " + quoted(words_[0]));
    }

    void takeFormat() {
        const std::string_view kind = words_.size() > 1 ? words_[1] : std::string_view();
        hasFormat_ = true;
        if (kind == "ascii")
            header_.body = PlyHeader::Ascii;
        else if (kind == "binary_little_endian")
            header_.body = PlyHeader::LittleEndian;
        else if (kind == "binary_big_endian")
            header_.body = PlyHeader::BigEndian;
        else
            fail("unknown format " + quoted(kind));
    }

    void takeElement() {
        PlyElement element;
        if (words_.size() != 3 || !parseInteger(words_[2], element.count))
            fail("an element needs a name and a count");
        element.name = words_[1];
        element.place = lines_.place();
        header_.elements.push_back(element);
    }

    void takeProperty() {
        if (header_.elements.empty()) fail("a property before any element");
        PlyProperty property;
        property.isList = words_.size() > 1 && words_[1] == "list";
        if (words_.size() != (property.isList ? 5u : 3u))
            fail("a property needs a type and a name");
        if (property.isList) property.count = typeOf(words_[2]);
        if (property.isList && property.count.kind == 'F') fail("a list's number is no whole one");
        property.value = typeOf(words_[words_.size() - 2]);
        property.name = words_.back();
        header_.elements.back().properties.push_back(property);
    }

    Scalar typeOf(std::string_view name) const {
        for (const TypeName& type : kTypes)
            if (name == type.name) return type.scalar;
        fail("unknown type " + quoted(name));
    }

    PlyHeader finish() {
        if (!hasFormat_) fail("no format line");
        header_.bodyStart = lines_.offset();
        header_.end = lines_.place();
        return header_;
    }

    Lines lines_;
    std::vector<std::string_view> words_;
    bool hasFormat_ = false;
    PlyHeader header_;
};

}  // namespace

std::uint64_t PlyElement::leastBytes(bool isAscii) const {
    std::uint64_t bytes = 0;
    for (const PlyProperty& property : properties)
        bytes += isAscii ? 2 : property.isList ? property.count.size : property.value.size;
    return bytes;
}

Field PlyProperty::field() const {
    return {name, value.name() + (isList ? "[]" : "")};
}

PlyHeader readPlyHeader(std::string_view bytes) {
    return HeaderReader(bytes).read();
}

}  // namespace zyr
