#include "roi/Kinds.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "primitive/LineSets.h"
#include "roi/Blocks.h"
#include "support/GenClouds.h"

using test::areSame;
using test::Doubles;
using test::Kind;
using test::Rule;

/// What holds for all kinds of fixed size, in both blocks and both handles.
template <class Block>
class Kinds : public testing::Test {
protected:
    const std::vector<Kind> kinds_ = test::kindsOf<Block>();

    /// What the outputs become: each double as it was stored, the torus's type as an integer.
    static Doubles expectedOutputs(const Kind& kind, Doubles stored) {
        if (kind.code == 14) stored[10] = test::truncated(stored[10]);
        return stored;
    }

    /// Every way to store all kinds: what passes and what fails.
    template <class Use>
    void forEachGen(Use use) {
        for (const Kind& kind : kinds_)
            for (auto lists : {&Rule::taken, &Rule::refused})
                for (const Doubles& arguments : test::variants(kind.sample, kind.storing, lists))
                    use(kind, arguments);
    }

    static std::string text(const Kind& kind, const Doubles& doubles) {
        return kind.name + testing::PrintToString(doubles);
    }
};

TYPED_TEST_SUITE(Kinds, test::AllBlocks);

TYPED_TEST(Kinds, WhatJustPassesIsStoredAsGiven) {
    for (const Kind& kind : this->kinds_)
        for (const Doubles& arguments : test::variants(kind.sample, kind.storing, &Rule::taken)) {
            TypeParam block;
            test::gen(block, kind.code, arguments);
            EXPECT_EQ(test::typeOf(block), kind.code) << this->text(kind, arguments);
            EXPECT_TRUE(areSame(test::parameters(block), arguments)) << this->text(kind, arguments);
        }
}

TYPED_TEST(Kinds, WhatJustFailsIsNotStoredAndLosesTheRegionHeldBefore) {
    for (const Kind& kind : this->kinds_)
        for (const Doubles& arguments : test::variants(kind.sample, kind.storing, &Rule::refused)) {
            TypeParam block;
            test::gen(block, kind.code, kind.sample);
            test::gen(block, kind.code, arguments);
            EXPECT_TRUE(test::isEmpty(block)) << this->text(kind, arguments);
        }
}

TYPED_TEST(Kinds, WhatJustPassesIsReadIntoAllOutputs) {
    for (const Kind& kind : this->kinds_)
        for (const Doubles& stored : test::variants(kind.sample, kind.reading, &Rule::taken)) {
            TypeParam block;
            test::forge(block, kind.code, stored);
            Doubles outputs(stored.size(), 77);
            EXPECT_TRUE(test::get(block, kind.code, outputs)) << this->text(kind, stored);
            EXPECT_TRUE(areSame(outputs, this->expectedOutputs(kind, stored)))
                << this->text(kind, stored);
        }
}

TYPED_TEST(Kinds, WhatJustFailsIsReadIntoAllOutputsWithFalse) {
    for (const Kind& kind : this->kinds_)
        for (const Doubles& stored : test::variants(kind.sample, kind.reading, &Rule::refused)) {
            TypeParam block;
            test::forge(block, kind.code, stored);
            Doubles outputs(stored.size(), 77);
            EXPECT_FALSE(test::get(block, kind.code, outputs)) << this->text(kind, stored);
            EXPECT_TRUE(areSame(outputs, this->expectedOutputs(kind, stored)))
                << this->text(kind, stored);
        }
}

TYPED_TEST(Kinds, AnotherKindIsNotReadAndLeavesTheOutputs) {
    for (const Kind& kind : this->kinds_)
        for (int other = -1; other <= 18; ++other) {
            if (other == kind.code) continue;
            TypeParam block;
            test::forge(block, other, kind.sample);
            Doubles outputs(kind.sample.size(), 77);
            EXPECT_FALSE(test::get(block, kind.code, outputs)) << kind.name << " of " << other;
            EXPECT_TRUE(areSame(outputs, Doubles(kind.sample.size(), 77))) << kind.name;
        }
}

TYPED_TEST(Kinds, TooFewDoublesAreNotReadAndLeaveTheOutputs) {
    for (const Kind& kind : this->kinds_)
        for (std::size_t size = 0; size < kind.sample.size(); ++size) {
            TypeParam block;
            test::forge(block, kind.code, Doubles(size, 1));
            test::parameters(block).shrink_to_fit();
            Doubles outputs(kind.sample.size(), 77);
            EXPECT_FALSE(test::get(block, kind.code, outputs)) << kind.name << size;
            EXPECT_TRUE(areSame(outputs, Doubles(kind.sample.size(), 77))) << kind.name << size;
        }
}

TYPED_TEST(Kinds, SurplusDoublesAreIgnored) {
    for (const Kind& kind : this->kinds_) {
        Doubles stored = kind.sample;
        stored.insert(stored.end(), {-1, test::kNaN});
        TypeParam block;
        test::forge(block, kind.code, stored);
        Doubles outputs(kind.sample.size(), 77);
        EXPECT_TRUE(test::get(block, kind.code, outputs)) << kind.name;
        EXPECT_EQ(outputs, kind.sample) << kind.name;
    }
}

TYPED_TEST(Kinds, StoringLeavesTheArgumentsAsTheyAre) {
    this->forEachGen([this](const Kind& kind, const Doubles& arguments) {
        TypeParam block;
        EXPECT_TRUE(areSame(test::gen(block, kind.code, arguments), arguments))
            << this->text(kind, arguments);
    });
}

TYPED_TEST(Kinds, ReadingNeverChangesTheBlock) {
    for (const Kind& kind : this->kinds_)
        for (auto lists : {&Rule::taken, &Rule::refused})
            for (const Doubles& stored : test::variants(kind.sample, kind.reading, lists)) {
                TypeParam block;
                test::forge(block, kind.code, stored);
                const test::Snapshot before(block);
                Doubles outputs(stored.size(), 77);
                test::get(block, kind.code, outputs);
                EXPECT_TRUE(before.holds()) << this->text(kind, stored);
            }
}

TYPED_TEST(Kinds, ReadingInVainNeverChangesTheBlock) {
    for (const Kind& kind : this->kinds_)
        for (const int held : {0, kind.code, 10, 17, 18}) {
            TypeParam block;
            test::forge(block, held, {1, 2});
            const test::Snapshot before(block);
            Doubles outputs(kind.sample.size(), 77);
            EXPECT_FALSE(test::get(block, kind.code, outputs));
            EXPECT_TRUE(before.holds()) << kind.name << " of " << held;
        }
}

TYPED_TEST(Kinds, OneKindReplacesAnotherCompletely) {
    TypeParam block;
    for (const Kind& kind : this->kinds_) {
        test::gen(block, kind.code, kind.sample);
        EXPECT_EQ(test::typeOf(block), kind.code);
        EXPECT_EQ(test::parameters(block), kind.sample) << kind.name;
    }
}

TYPED_TEST(Kinds, PolygonsAndLineSetsReplaceAndAreReplacedCompletely) {
    ZyrVector3dArray polygon = test::vertices(3);
    Zyr3DLineSet lines(test::vertices(1), test::indices(2));
    TypeParam block;
    const auto expect = [&block](int code, const Doubles& doubles) {
        EXPECT_EQ(test::typeOf(block), code);
        EXPECT_EQ(test::parameters(block), doubles);
    };
    for (const Kind& kind : this->kinds_) {
        block.Gen3DPolygon(polygon);
        expect(10, {0, 0, 0, 1, 10, 100, 2, 20, 200});
        test::gen(block, kind.code, kind.sample);
        expect(kind.code, kind.sample);
        test::genLines(block, lines);
        expect(17, {1, 2, 0, 0, 0, 0, 1});
        block.Gen3DPolygon(polygon);
        test::genLines(block, lines);
        expect(17, {1, 2, 0, 0, 0, 0, 1});
        test::gen(block, kind.code, kind.sample);
        expect(kind.code, kind.sample);
    }
}

TYPED_TEST(Kinds, ANewOneIsEmpty) {
    TypeParam block;
    EXPECT_TRUE(test::isEmpty(block));
}

RC_GTEST_PROP(KindsProperty, AnyDoublesOfAnyKindAreReadAsTheyAreAndAlikeByTheTwins, ()) {
    const auto kinds = test::kindsOf<Zyr3DROI>();
    const Kind kind = *rc::gen::elementOf(kinds);
    const auto stored = *rc::gen::container<Doubles>(kind.sample.size(), test::anyDouble());
    Doubles expected = stored;
    if (kind.code == 14) expected[10] = test::truncated(stored[10]);
    Zyr3DROI roi;
    Zyr3DShape shape;
    test::forge(roi, kind.code, stored);
    test::forge(shape, kind.code, stored);
    const test::Snapshot before(roi);
    Doubles ofRoi(stored.size(), 77), ofShape = ofRoi;
    const bool fitsRoi = test::get(roi, kind.code, ofRoi);
    const bool fitsShape = test::get(shape, kind.code, ofShape);
    RC_ASSERT(areSame(ofRoi, expected) && areSame(ofShape, expected));
    RC_ASSERT(fitsShape == (fitsRoi && (kind.code != 11 || stored[6] > 0)));
    RC_ASSERT(before.holds());
}
