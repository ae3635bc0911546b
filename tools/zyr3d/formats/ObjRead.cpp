#include <algorithm>
#include <array>
#include <cstdint>
#include <set>

#include "formats/Faces.h"
#include "formats/Fault.h"
#include "formats/PointColumns.h"
#include "formats/Readers.h"
#include "formats/Text.h"

namespace zyr {
namespace {

/// What a scene has no place for. Any other keyword means that the file is something else.
constexpr std::array<const char*, 40> kPassedOver = {
    {"vt",     "vp",       "l",          "p",         "g",      "o",     "s",    "mg",
     "usemtl", "mtllib",   "usemap",     "maplib",    "bevel",  "lod",   "deg",  "c_interp",
     "bmat",   "d_interp", "shadow_obj", "trace_obj", "ctech",  "stech", "step", "cstype",
     "curv",   "curv2",    "surf",       "parm",      "trim",   "hole",  "scrv", "sp",
     "end",    "con",      "call",       "csh",       "cstech", "res",   "bsp",  "bzp"}};

class Reader {
public:
    explicit Reader(std::string_view bytes) : lines_(bytes) {}

    Scene read() {
        std::string_view line;
        while (lines_.next(line)) {
            place_ = lines_.place();
            joined_.assign(line);
            while (!joined_.empty() && joined_.back() == '\\' && lines_.next(line)) {
                joined_.back() = ' ';
                joined_ += line;
            }
            const std::string_view text(joined_);
            splitWords(text.substr(0, text.find('#')), words_);
            if (!words_.empty()) take();
        }
        return finish();
    }

private:
    struct Face {
        std::size_t size;
        Place place;
    };

    [[noreturn]] void fail(const std::string& why) const { failAt(place_, why); }

    void take() {
        const std::string_view keyword = words_[0];
        if (keyword == "v") return takeVertex();
        if (keyword == "vn") return takeNormal();
        if (keyword == "f" || keyword == "fo") return takeFace();
        if (std::find(kPassedOver.begin(), kPassedOver.end(), keyword) == kPassedOver.end())
            fail("unknown keyword " + quoted(keyword));
        passedOver_.emplace(keyword);
    }

    double number(std::size_t i) const {
        double value = 0.0;
        if (!parseNumber(words_[i], value)) fail("not a number: " + quoted(words_[i]));
        return value;
    }

    void takeVertex() {
        if (words_.size() < 4) fail("a vertex of fewer than 3 numbers");
        vertices_.Append(validOrHole(number(1), number(2), number(3)));
        // Behind the coordinates may stand a weight, or red, green and blue.
        if (words_.size() >= 7)
            for (std::size_t i = 4; i < 7; ++i) colors_.push_back(number(i));
        else if (words_.size() > 4)
            passedOver_.emplace("weights of v");
    }

    void takeNormal() {
        if (words_.size() < 4) fail("a normal of fewer than 3 numbers");
        normals_.Append(validOrHole(number(1), number(2), number(3)));
    }

    /// From 0, of an index that counts from 1, or back from the last one when it is negative.
    std::int64_t resolved(std::string_view word, int count, const char* what) const {
        std::int64_t index = 0;
        if (!parseInteger(word, index) || index == 0) fail("not an index: " + quoted(word));
        if (index < -count) fail(std::string("a face names a ") + what + " before the first");
        return index > 0 ? index - 1 : index + count;
    }

    /// Words are v, v/vt, v//vn or v/vt/vn.
    void takeFace() {
        for (std::size_t i = 1; i < words_.size(); ++i) {
            const std::string_view word = words_[i];
            const std::size_t slash = word.find('/');
            const std::size_t second = slash == word.npos ? slash : word.find('/', slash + 1);
            corners_.push_back(
                static_cast<double>(resolved(word.substr(0, slash), vertices_.Length(), "vertex")));
            const bool hasNormal = second != word.npos;
            cornerNormals_.push_back(
                hasNormal ? resolved(word.substr(second + 1), normals_.Length(), "normal") : -1);
            indices_ += hasNormal ? 2 : 1;
        }
        faces_.push_back({words_.size() - 1, place_});
    }

    Scene finish() {
        if (vertices_.Length() == 0) throw FormatFault("no points");
        Scene scene;
        scene.cloud.SetPoints(vertices_);
        addFaces(scene);
        addColors(scene);
        addNormals(scene);
        std::string text;
        addFields(scene);
        for (const std::string& keyword : passedOver_) text += (text.empty() ? "" : ", ") + keyword;
        if (!text.empty()) scene.leftOut.push_back("lines " + text);
        return scene;
    }

    void addFaces(Scene& scene) const {
        Faces faces(1);
        std::size_t next = 0;
        for (const Face& face : faces_) {
            std::vector<double> corners;
            for (const std::size_t end = next + face.size; next < end; ++next) {
                corners.push_back(corners_[next]);
                requireNormal(cornerNormals_[next], face.place);
            }
            faces.add(corners, vertices_.Length(), face.place);
        }
        faces.finish(scene);
    }

    void requireNormal(std::int64_t index, const Place& place) const {
        if (index < normals_.Length()) return;
        failAt(place, "a face names normal " + std::to_string(index + 1) + " of " +
                          std::to_string(normals_.Length()));
    }

    void addFields(Scene& scene) const {
        const auto vertices = static_cast<std::uint64_t>(vertices_.Length());
        const auto normals = static_cast<std::uint64_t>(normals_.Length());
        scene.body = "ascii";
        scene.fields.push_back({"v", colors_.empty() ? "float64[3]" : "float64[6]"});
        if (normals > 0) scene.fields.push_back({"vn", "float64[3]"});
        if (!faces_.empty()) scene.fields.push_back({"f", "int32[]"});
        scene.rawBytes = 8 * (3 * vertices + 3 * normals + colors_.size()) + 4 * indices_;
    }

    void addColors(Scene& scene) const {
        if (colors_.empty()) return;
        const int count = vertices_.Length();
        if (colors_.size() != 3 * static_cast<std::size_t>(count)) {
            scene.leftOut.push_back("colours: not every vertex has one");
            return;
        }
        const double most = *std::max_element(colors_.begin(), colors_.end());
        ZyrColorArray colors;
        colors.Create(count, 3);
        for (std::size_t i = 0; i < colors_.size(); ++i)
            colors.Data()[i / 3 * 3 + 2 - i % 3] =
                channelOf(colors_[i] * (most > 1.0 ? 1.0 : 255.0));
        scene.cloud.SetColors(colors);
    }

    /// A vertex has the normal that all its corners name. Without corners normals belong to
    /// vertices in turn.
    void addNormals(Scene& scene) {
        if (normals_.Length() == 0) return;
        if (corners_.empty() && normals_.Length() == vertices_.Length())
            return scene.cloud.SetNormals(normals_);
        std::vector<std::int64_t> named(static_cast<std::size_t>(vertices_.Length()), -1);
        bool isClear = !corners_.empty();
        for (std::size_t i = 0; i < corners_.size(); ++i) {
            std::int64_t& normal = named[static_cast<std::size_t>(corners_[i])];
            isClear = isClear && (normal < 0 || normal == cornerNormals_[i]);
            normal = cornerNormals_[i];
        }
        if (!isClear) {
            scene.leftOut.push_back("normals: vertices have several, or none of their own");
            return;
        }
        ZyrVector3dArray normals;
        normals.SetSize(vertices_.Length());
        for (int i = 0; i < normals.Length(); ++i) {
            const std::int64_t index = named[static_cast<std::size_t>(i)];
            if (index >= 0) normals[i] = normals_[static_cast<int>(index)];
        }
        scene.cloud.SetNormals(normals);
    }

    Lines lines_;
    Place place_;  ///< of the statement
    std::string joined_;
    std::vector<std::string_view> words_;
    ZyrVector3dArray vertices_, normals_;
    std::vector<double> colors_, corners_;
    std::vector<std::int64_t> cornerNormals_;  ///< -1: none is named
    std::vector<Face> faces_;
    std::uint64_t indices_ = 0;
    std::set<std::string> passedOver_;
};

}  // namespace

Scene readObj(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
