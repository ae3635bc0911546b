#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "Allocations.h"
#include "Formats.h"
#include "support/MatrixLimit.h"

// Golden files, spoiled in every way that is listed here, under each pair of flags: whatever comes
// out is consistent with the header, reads back when it is written, and takes no more memory than
// it may. Every file of the kind is one case; all of them run when ZYR_SWEEP_STRIDE is 1.

using test::Bytes;

namespace {

/// One case of so many runs. Prime, so that a run meets other bits and bytes in each file.
std::size_t stride() {
    const char* text = std::getenv("ZYR_SWEEP_STRIDE");
    return text == nullptr ? 61 : std::strtoul(text, nullptr, 10);
}

/// Twice what elements may always take, for the body and what is made of it, or what the bytes can
/// back, and something for the reading itself.
std::size_t mostMemory(std::size_t fileBytes) {
    return 2 * std::max<std::size_t>(64 << 20, 88 * fileBytes) + (4 << 20);
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
            use(test::readFile(entry.path()));
            ++count;
        }
        EXPECT_GT(count, 0);
    }

    /// The file is one case; which are run depends on the stride alone.
    void takeCase(const Bytes& bytes) {
        if (next_++ % stride() == 0) check(bytes);
    }

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

INSTANTIATE_TEST_SUITE_P(Formats, Sweep, testing::ValuesIn(test::formats()), test::formatName);
