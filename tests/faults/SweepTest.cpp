#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "Allocations.h"
#include "FilledMemory.h"
#include "Lists.h"
#include "support/MatrixLimit.h"
#include "support/SweepStride.h"

// Golden files, spoiled in every way that is listed here, under each pair of flags: whatever comes
// out is consistent with the header, reads back when it is written, and takes no more memory than
// it may. Every file of the kind is one case; all of them run when ZYR_SWEEP_STRIDE is 1.

using test::Bytes;
using test::Content;
using test::List;
using test::listsOf;

namespace {

/// Twice what elements may always take, for the body and what is made of it, or what the bytes can
/// back, and something for the reading itself.
std::size_t mostMemory(std::size_t fileBytes) {
    return 2 * std::max<std::size_t>(64 << 20, 88 * fileBytes) + (4 << 20);
}

long numNonZeroBytes(const std::vector<List>& lists) {
    long n = 0;
    for (const List& list : lists)
        n +=
            std::count_if(list.bytes.begin(), list.bytes.end(), [](int byte) { return byte != 0; });
    return n;
}

/// The columns of a golden cloud as "binary" has them: record after record.
Bytes withRecords(const Bytes& file) {
    const test::CloudParts parts(file);
    const test::PlainHeader header(file);
    const Bytes body = parts.body();
    std::vector<std::size_t> sizes(header.index("nx") < 0 ? 3 : 6, 8);
    if (header.index("rgb") >= 0) sizes.push_back(4);
    const auto points = static_cast<std::size_t>(header.number("POINTS"));
    Bytes records;
    for (std::size_t i = 0; i < points; ++i)
        for (std::size_t k = 0, column = 0; k < sizes.size(); column += points * sizes[k++]) {
            const auto value = body.begin() + static_cast<std::ptrdiff_t>(column + i * sizes[k]);
            records.insert(records.end(), value, value + static_cast<std::ptrdiff_t>(sizes[k]));
        }
    EXPECT_EQ(records.size(), body.size());
    const std::string text = parts.header.substr(0, parts.header.rfind('_')) + "\n";
    return test::joined(test::toBytes(text), records);
}

class Sweep : public test::EachFormat {
protected:
    static void SetUpTestSuite() { test::catchStops(); }

    /// Calls use with the bytes of each golden file.
    template <class Use>
    void forEachGolden(Use use) {
        const std::string folder = std::string(ZYR_GOLDEN_DIR "/") + GetParam().folder;
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".py") continue;
            name_ = entry.path().filename();
            const Bytes bytes = test::readFile(entry.path());
            use(bytes);
            ++count;
            if (GetParam().folder != std::string("pointcloud")) continue;
            name_ += " in records";
            use(withRecords(bytes));
        }
        EXPECT_GT(count, 0);
    }

    /// Whether the next case is run: that depends on the stride alone.
    bool isNextTaken() { return next_++ % test::sweepStride(61) == 0; }

    /// The file is one case.
    void takeCase(const Bytes& bytes) {
        if (isNextTaken()) check(bytes);
    }

    /// What is loaded of the bytes; nothing when that is refused.
    std::optional<Content> contentOf(const Bytes& bytes) {
        Content content;
        file_.fill(bytes);
        if (!load(content, file_.path())) return std::nullopt;
        return content;
    }

    /// The least bytes of a golden file that load: a text header or all of a range image.
    std::size_t leastLoaded(const Bytes& whole) const {
        const bool isRange = GetParam().folder == std::string("rangeimage");
        return isRange ? whole.size() : test::PlainHeader(whole).size();
    }

    const std::string& name() const { return name_; }

    void check(const Bytes& bytes) {
        file_.fill(bytes);
        for (const fuzz::Flags flags : fuzz::kAllFlags) {
            const std::size_t before = test::heldBytes();
            const test::MatrixLimit limit(mostMemory(bytes.size()));
            test::resetPeak();
            try {
                GetParam().check(file_, bytes, flags);
            } catch (const std::exception& fault) {
                ADD_FAILURE() << name_ << ", case " << next_ - 1 << ": " << fault.what();
            }
            EXPECT_LE(test::peakBytes() - before, mostMemory(bytes.size())) << name_;
        }
        EXPECT_TRUE(test::isReadTheSameWhateverMemoryHeld(GetParam(), file_.path()))
            << name_ << ", case " << next_ - 1;
    }

private:
    fuzz::InputFile file_;
    std::string name_;
    std::size_t next_ = 0;
};

}  // namespace

TEST_P(Sweep, EveryPrefix) {
    forEachGolden([&](const Bytes& whole) {
        for (std::size_t size = 0; size <= whole.size(); ++size)
            takeCase(test::prefix(whole, size));
    });
}

TEST_P(Sweep, WhatIsReadOfAPrefixIsTheWholeFilesOrZero) {
    forEachGolden([&](const Bytes& whole) {
        const std::vector<List> all = listsOf(contentOf(whole).value());
        long numRead = 0;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            if (!isNextTaken()) continue;
            const std::optional<Content> part = contentOf(test::prefix(whole, size));
            ASSERT_EQ(part.has_value(), size >= leastLoaded(whole)) << name() << ' ' << size;
            if (!part) continue;
            const std::vector<List> lists = listsOf(*part);
            EXPECT_TRUE(test::arePartsOf(lists, all)) << name() << ' ' << size;
            // More bytes give more values, and the first values come with the first bytes.
            EXPECT_GE(numNonZeroBytes(lists), numRead) << name() << ' ' << size;
            numRead = numNonZeroBytes(lists);
            EXPECT_TRUE(numRead > 0 || size <= leastLoaded(whole) + 64) << name() << ' ' << size;
        }
    });
}

TEST_P(Sweep, EveryByteReplaced) {
    forEachGolden([&](const Bytes& whole) {
        for (std::size_t i = 0; i < whole.size(); ++i)
            for (const int other : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
                Bytes bytes = whole;
                bytes[i] = static_cast<unsigned char>(other);
                takeCase(bytes);
            }
    });
}

TEST_P(Sweep, EveryBitFlipped) {
    forEachGolden([&](const Bytes& whole) {
        for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
            Bytes bytes = whole;
            bytes[bit / 8] = static_cast<unsigned char>(bytes[bit / 8] ^ 1U << bit % 8);
            takeCase(bytes);
        }
    });
}

TEST_P(Sweep, BytesBehindTheEnd) {
    forEachGolden([&](const Bytes& whole) {
        for (const int byte : {0x00, 0x20, 0xE0, 0xFF})
            check(test::joined(whole, Bytes(40, static_cast<unsigned char>(byte))));
    });
}

TEST_P(Sweep, InputsOfTheCorporaAreReadTheSameWhateverMemoryHeld) {
    const std::string folder = std::string(ZYR_GOLDEN_DIR "/../../fuzz/corpora/") + GetParam().name;
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        EXPECT_TRUE(test::isReadTheSameWhateverMemoryHeld(GetParam(), entry.path().c_str()))
            << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0);
}

INSTANTIATE_TEST_SUITE_P(Formats, Sweep, testing::ValuesIn(test::formats()), test::formatName);
