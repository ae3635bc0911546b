#include <algorithm>

#include "formats/Faces.h"
#include "formats/Fault.h"
#include "formats/PlyValues.h"
#include "formats/PointColumns.h"
#include "formats/Readers.h"

namespace zyr {
namespace {

bool isCornerList(const PlyProperty& property) {
    return property.isList &&
           (property.name == "vertex_indices" || property.name == "vertex_index");
}

/// The columns of an element, and what makes colours of their values.
struct Columns {
    std::vector<Role> roles;
    std::vector<std::string> names;
    std::vector<double> scales;

    explicit Columns(const PlyElement& element) {
        for (const PlyProperty& property : element.properties) {
            Role role = property.isList ? Role::None : roleOf(property.name);
            const bool isColor = role >= Role::Red && role <= Role::Alpha;
            const bool isByte = property.value.kind == 'U' && property.value.size == 1;
            const bool isFraction = property.value.kind == 'F';
            if (role == Role::Packed || (isColor && !isByte && !isFraction)) role = Role::None;
            roles.push_back(role);
            names.push_back(property.name);
            scales.push_back(isColor && isFraction ? 255.0 : 1.0);
        }
    }
};

class Reader {
public:
    explicit Reader(std::string_view bytes)
        : header_(readPlyHeader(bytes)), values_(bytes, header_) {}

    Scene read() {
        for (const PlyElement& element : header_.elements) {
            const bool isVertex = element.name == "vertex" && !hasVertices_;
            if (isVertex)
                readVertices(element);
            else if (element.name == "face" && hasVertices_)
                readFaces(element);
            else
                skip(element);
        }
        if (!hasVertices_) failAt(header_.end, "no element named vertex");
        describe();
        if (!values_.isAtEnd()) {
            leaveOut("bytes behind the last element");
            scene_.rest = values_.place().offset;
        }
        return scene_;
    }

private:
    void describe() {
        const char* const bodies[] = {"ascii", "binary_little_endian", "binary_big_endian"};
        scene_.body = bodies[header_.body];
        scene_.rawBytes = values_.rawBytes();
        for (const PlyElement& element : header_.elements)
            for (const PlyProperty& property : element.properties) {
                Field field = property.field();
                if (element.name != "vertex") field.name = element.name + "." + field.name;
                scene_.fields.push_back(field);
            }
    }

    void leaveOut(const std::string& what) { scene_.leftOut.push_back(what); }

    /// Of an element whose number the bytes that are left can hold.
    int countOf(const PlyElement& element) const {
        // The last word of a text may end without a blank.
        const bool isAscii = header_.body == PlyHeader::Ascii;
        return boundedCount(element.count, element.leastBytes(isAscii),
                            values_.bytesLeft() + (isAscii ? 1 : 0), element.name + " elements",
                            element.place);
    }

    void readList(const PlyProperty& list, std::vector<double>& values) {
        values.resize(values_.nextCount(list));
        for (double& value : values) value = values_.next(list.value);
    }

    /// One element's values by role; its corners where it has a list of them.
    void readRow(const PlyElement& element, const Columns& columns, PointRow& row) {
        for (std::size_t i = 0; i < element.properties.size(); ++i) {
            const PlyProperty& property = element.properties[i];
            if (property.isList)
                readList(property, isCornerList(property) ? corners_ : ignored_);
            else
                at(row, columns.roles[i]) = values_.next(property.value) * columns.scales[i];
        }
    }

    void readVertices(const PlyElement& element) {
        const Columns columns(element);
        if (element.properties.empty()) failAt(element.place, "vertices without properties");
        const int count = countOf(element);
        PointColumns points(count, columns.roles);
        if (!points.hasPoints()) failAt(element.place, "the vertices have no x, y and z");
        PointRow row{};
        for (int i = 0; i < count; ++i) {
            readRow(element, columns, row);
            points.set(i, row);
        }
        scene_.cloud = points.cloud();
        hasVertices_ = true;
        const std::string unused = unusedColumns(columns.names, columns.roles);
        if (!unused.empty()) leaveOut("vertex properties " + unused);
    }

    void readFaces(const PlyElement& element) {
        const Columns columns(element);
        const auto& properties = element.properties;
        if (std::none_of(properties.begin(), properties.end(), isCornerList)) return skip(element);
        const int count = countOf(element);
        std::vector<PointRow> rows;  // one a triangle, where the faces have attributes
        const bool hasAttributes = properties.size() > 1;
        PointRow row{};
        Faces faces(0);
        for (int i = 0; i < count; ++i) {
            const Place place = values_.place();
            readRow(element, columns, row);
            const int added = faces.add(corners_, scene_.cloud.Length(), place);
            if (hasAttributes) rows.insert(rows.end(), static_cast<std::size_t>(added), row);
        }
        faces.finish(scene_);
        takeAttributes(columns, rows);
    }

    void takeAttributes(const Columns& columns, const std::vector<PointRow>& rows) {
        PointColumns attributes(static_cast<int>(rows.size()), columns.roles);
        for (std::size_t i = 0; i < rows.size(); ++i) attributes.set(static_cast<int>(i), rows[i]);
        ZyrPointCloud values = attributes.cloud();
        scene_.triangleNormals = values.NormalData();
        scene_.triangleColors = values.ColorData();
        std::vector<std::string> names;
        std::vector<Role> roles;
        for (std::size_t i = 0; i < columns.names.size(); ++i) {
            if (columns.names[i] == "vertex_indices" || columns.names[i] == "vertex_index")
                continue;
            names.push_back(columns.names[i]);
            roles.push_back(columns.roles[i]);
        }
        const std::string unused = unusedColumns(names, roles);
        if (!unused.empty()) leaveOut("face properties " + unused);
    }

    void skip(const PlyElement& element) {
        if (element.properties.empty()) return;
        const Columns columns(element);
        const int count = countOf(element);
        PointRow row{};
        for (int i = 0; i < count; ++i) readRow(element, columns, row);
        if (count > 0) leaveOut(std::to_string(count) + " elements named " + element.name);
    }

    PlyHeader header_;
    PlyValues values_;
    Scene scene_;
    bool hasVertices_ = false;
    std::vector<double> corners_, ignored_;
};

}  // namespace

Scene readPly(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
