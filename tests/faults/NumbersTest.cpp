#include <gtest/gtest.h>

#include <limits>

#include "Allocations.h"
#include "FilledMemory.h"
#include "support/MatrixLimit.h"

// Numbers at their edges in each place where a file states one: sizes, counts, channels, blocks.

using test::Bytes;

namespace {

constexpr std::size_t kMostMemory = std::size_t(140) << 20;

const char* const kNumbers[] = {"-1",         "0",          "1",           "4",     "8",
                                "32",         "33",         "46341",       "65536", "2147483647",
                                "2147483648", "4294967297", "not-a-number"};

const std::uint32_t kWords[] = {0,       1,     2,     3,          4,          5,         8,
                                32,      33,    127,   128,        255,        256,       65536,
                                1 << 24, 46341, 32768, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};

class Numbers : public testing::Test {
protected:
    static void SetUpTestSuite() { test::catchStops(); }

    void check(const test::Format& format, const Bytes& bytes) {
        file_.fill(bytes);
        for (const fuzz::Flags flags : fuzz::kAllFlags) {
            const std::size_t before = test::heldBytes();
            const test::MatrixLimit limit(kMostMemory);
            test::resetPeak();
            EXPECT_NO_THROW(format.check(file_, bytes, flags)) << std::string(
                bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(
                                                   std::min<std::size_t>(300, bytes.size())));
            EXPECT_LE(test::peakBytes() - before, kMostMemory);
        }
        EXPECT_TRUE(test::isReadTheSameWhateverMemoryHeld(format, file_.path()));
    }

private:
    fuzz::InputFile file_;
};

using RangeHeadNumbers = Numbers;

/// In a header whose body is declared as of the kind that the parameter names.
class HeaderNumbers : public Numbers, public testing::WithParamInterface<const char*> {
protected:
    /// The header with one entry of a list line, or its only number, replaced.
    static std::string with(const std::string& header, const std::string& keyword, int entry,
                            const std::string& number) {
        const std::size_t line = header.find("\n" + keyword + " ");
        std::size_t start = line + keyword.size() + 2;
        for (int i = 0; i < entry; ++i) start = header.find(' ', start) + 1;
        std::string text = header;
        return text.replace(start, header.find_first_of(" \n", start) - start, number);
    }
};

const test::Format& cloudFormat() {
    return test::formats()[0];
}
const test::Format& meshFormat() {
    return test::formats()[1];
}
const test::Format& rangeFormat() {
    return test::formats()[2];
}

struct Parts {
    std::string header;
    Bytes body;
};

/// A sample file in two, its body declared as of the kind that the parameter names.
Parts partsOf(const test::Format& format, const std::string& kind) {
    const Bytes file = test::readFile(format.samplePath());
    const test::PlainHeader header(file);
    const auto end = file.begin() + static_cast<std::ptrdiff_t>(header.size());
    std::string text(file.begin(), end);
    text = text.substr(0, text.rfind("DATA ")) + "DATA " + kind + "\n";
    return {text, Bytes(end, file.end())};
}

Bytes together(const std::string& header, const Bytes& body) {
    return test::joined(test::toBytes(header), body);
}

}  // namespace

TEST_P(HeaderNumbers, OfAnyLineOfAPointCloudGiveAConsistentResult) {
    const Parts parts = partsOf(cloudFormat(), GetParam());
    for (const char* number : kNumbers) {
        for (const char* keyword : {"WIDTH", "HEIGHT", "POINTS"})
            check(cloudFormat(), together(with(parts.header, keyword, 0, number), parts.body));
        for (const char* keyword : {"SIZE", "TYPE", "COUNT"})
            for (const int entry : {0, 2, 4, 6})
                check(cloudFormat(),
                      together(with(parts.header, keyword, entry, number), parts.body));
    }
}

TEST_P(HeaderNumbers, OfAgreeingLinesOfAPointCloudGiveAConsistentResult) {
    const Parts parts = partsOf(cloudFormat(), GetParam());
    for (const char* number : kNumbers) {
        const std::string points =
            with(with(parts.header, "WIDTH", 0, number), "POINTS", 0, number);
        check(cloudFormat(), together(points, parts.body));
        const std::string wide = with(with(points, "COUNT", 6, number), "SIZE", 6, number);
        check(cloudFormat(), together(wide, parts.body));
    }
    const std::string square = with(with(parts.header, "WIDTH", 0, "46341"), "HEIGHT", 0, "46341");
    check(cloudFormat(), together(with(square, "POINTS", 0, "2147488281"), parts.body));
    check(cloudFormat(), together(with(square, "POINTS", 0, "-2147479015"), parts.body));
}

TEST_P(HeaderNumbers, OfAnyLineOfAMeshGiveAConsistentResult) {
    const Parts parts = partsOf(meshFormat(), GetParam());
    for (const char* number : kNumbers) {
        for (const char* keyword : {"POINTS", "FACES"})
            check(meshFormat(), together(with(parts.header, keyword, 0, number), parts.body));
        for (const char* keyword : {"SIZE", "TYPE", "COUNT"})
            for (const int entry : {0, 4, 6, 8, 11, 13})
                check(meshFormat(),
                      together(with(parts.header, keyword, entry, number), parts.body));
    }
}

TEST_P(HeaderNumbers, OfLinesOfTheOtherFormatGiveAConsistentResult) {
    const auto checkWith = [&](const test::Format& format, const std::string& line) {
        const Parts parts = partsOf(format, GetParam());
        check(format, together(line + parts.header, parts.body));
    };
    for (const char* number : kNumbers) {
        for (const char* keyword : {"WIDTH ", "HEIGHT "})
            checkWith(meshFormat(), std::string(keyword) + number + "\n");
        checkWith(cloudFormat(), std::string("FACES ") + number + "\n");
    }
}

TEST_P(HeaderNumbers, OfBothCountsOfAMeshGiveAConsistentResult) {
    const Parts parts = partsOf(meshFormat(), GetParam());
    for (const char* points : kNumbers)
        for (const char* faces : kNumbers)
            check(meshFormat(),
                  together(with(with(parts.header, "POINTS", 0, points), "FACES", 0, faces),
                           parts.body));
}

TEST_P(HeaderNumbers, OfAPreambleGiveAConsistentResult) {
    for (const test::Format* format : {&cloudFormat(), &meshFormat()}) {
        const Parts parts = partsOf(*format, GetParam());
        for (std::size_t word = 0; word < 4; ++word)
            for (const std::uint32_t value : kWords) {
                Bytes body = parts.body;
                std::memcpy(body.data() + 4 * word, &value, sizeof value);
                check(*format, together(parts.header, body));
            }
    }
}

TEST_P(HeaderNumbers, OfWordsInALineStopItBeyondSixtyOne) {
    for (const test::Format* format : {&cloudFormat(), &meshFormat()}) {
        const Parts parts = partsOf(*format, GetParam());
        for (const int words : {60, 61, 62, 63}) {
            std::string line = "VIEWPOINT";
            for (int i = 1; i < words; ++i) line += " 0";
            const Bytes bytes = together(line + "\n" + parts.header, parts.body);
            EXPECT_EQ(test::PlainHeader(bytes).stop(), words > 61 ? test::kStopLine : "") << words;
            check(*format, bytes);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, HeaderNumbers,
                         testing::Values("binary_compressed", "binary", "ascii"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_F(RangeHeadNumbers, GiveAConsistentResult) {
    const Bytes whole = test::readFile(rangeFormat().samplePath());
    for (const std::size_t offset : {0, 4, 8, 12, 64, 68, 72 + 13})
        for (const std::uint32_t value : kWords) {
            Bytes bytes = whole;
            std::memcpy(bytes.data() + offset, &value, sizeof value);
            check(rangeFormat(), bytes);
        }
}

TEST_F(RangeHeadNumbers, OfBothSizesGiveAConsistentResult) {
    const Bytes whole = test::readFile(rangeFormat().samplePath());
    for (const std::uint32_t width : kWords)
        for (const std::uint32_t height : kWords) {
            Bytes bytes = whole;
            std::memcpy(bytes.data() + 8, &width, sizeof width);
            std::memcpy(bytes.data() + 12, &height, sizeof height);
            check(rangeFormat(), bytes);
        }
}
