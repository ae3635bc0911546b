#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/HeaderScan.h"

namespace zyr {

/// The values of a point-cloud or mesh file whose header was checked, field by field. The file's
/// bytes are its user's.
class Body {
public:
    /// Checks sizes, preamble and stream. Throws FileTrouble or Fault.
    static Body ofCloud(const std::string& path, const CloudHeader& header,
                        const std::vector<unsigned char>& file);
    static Body ofMesh(const std::string& path, const CloudHeader& header,
                       const std::vector<unsigned char>& file);

    /// The field's number; throws nothing for a field that is not there: -1.
    int field(const char* name) const;
    /// The first value of an element.
    double real(int field, std::uint64_t element) const;
    std::uint32_t word(int field, std::uint64_t element) const;
    /// Where the file has, compressed or not, what the element's value came from.
    std::uint64_t fileOffset(int field, std::uint64_t element) const;
    /// Whether NaN stands for 0.
    bool isCompressed() const { return isCompressed_; }
    /// The preamble's channel counts; none in a body without preamble.
    const std::vector<std::uint32_t>& channels() const { return channels_; }

private:
    struct Column {
        std::uint64_t offset, stride;
        std::int64_t size;
    };

    Body(const std::string& path, const CloudHeader& header,
         const std::vector<unsigned char>& file);
    void layRecords();
    void layColumns(bool isMesh);
    void readRecords();
    void readStream(std::size_t channelWords);
    void decode(std::uint64_t start, std::uint64_t size);
    std::uint32_t wordAt(std::uint64_t offset, const std::string& name) const;
    void requireEnd(std::uint64_t end) const;
    [[noreturn]] void fail(std::uint64_t offset, const std::string& why) const;
    const unsigned char* at(int field, std::uint64_t element) const;

    std::string path_;
    CloudHeader header_;
    const std::vector<unsigned char>& file_;
    std::vector<unsigned char> columns_;
    std::vector<Column> layout_;
    std::uint64_t size_ = 0, streamStart_ = 0;
    bool isCompressed_ = true;
    std::vector<std::uint32_t> channels_;
};

}  // namespace zyr
