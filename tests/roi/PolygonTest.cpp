#include <gtest/gtest.h>

#include "primitive/Conditions.h"
#include "primitive/LineSets.h"
#include "roi/Blocks.h"

using Doubles = std::vector<double>;
using test::values;

template <class Block>
class Polygons : public testing::Test {
protected:
    Block block_;

    void gen(ZyrVector3dArray vertices) { block_.Gen3DPolygon(vertices); }
    Doubles& stored() { return test::parameters(block_); }

    /// Whether the block is not read and stays as it is, and the array is emptied for all.
    testing::AssertionResult isRefused() {
        const test::Snapshot before(block_);
        ZyrVector3dArray out = test::vertices(2), sharer = out;
        if (block_.Get3DPolygon(&out)) return testing::AssertionFailure() << "is read";
        if (out.Length() + sharer.Length() != 0) return testing::AssertionFailure() << "fills";
        if (!before.holds()) return testing::AssertionFailure() << "changes the block";
        return testing::AssertionSuccess();
    }
};

TYPED_TEST_SUITE(Polygons, test::AllBlocks);

TYPED_TEST(Polygons, StoresTheVerticesInArrayOrder) {
    this->gen(test::vertices(5));
    EXPECT_EQ(test::typeOf(this->block_), 10);
    EXPECT_EQ(this->stored(), values(test::vertices(5)));
}

TYPED_TEST(Polygons, TwoVerticesAreNotStored) {
    this->gen(test::vertices(3));
    this->gen(test::vertices(2));
    EXPECT_TRUE(test::isEmpty(this->block_));
}

TYPED_TEST(Polygons, NoVerticesAreNotStored) {
    this->gen(test::vertices(3));
    this->gen(test::vertices(0));
    EXPECT_TRUE(test::isEmpty(this->block_));
}

TYPED_TEST(Polygons, ThreeCollinearVerticesAreStored) {
    this->gen(test::vertices(3));
    EXPECT_EQ(this->stored(), (Doubles{0, 0, 0, 1, 10, 100, 2, 20, 200}));
}

TYPED_TEST(Polygons, EqualVerticesAreStored) {
    ZyrVector3dArray vertices;
    for (int i = 0; i < 3; ++i) vertices.Append(ZyrVector3d(1, 2, 3));
    this->gen(vertices);
    EXPECT_EQ(this->stored(), (Doubles{1, 2, 3, 1, 2, 3, 1, 2, 3}));
}

TYPED_TEST(Polygons, BarelyValidVerticesAreStoredAsGiven) {
    for (ZyrVector3d v : test::barelyValidVectors())
        for (int i = 0; i < 4; ++i) {
            ZyrVector3dArray vertices = test::vertices(4);
            vertices.Replace(i, v);
            this->gen(vertices);
            EXPECT_EQ(this->stored(), values(vertices));
        }
}

TYPED_TEST(Polygons, OneInvalidVertexIsEnoughToRefuse) {
    for (ZyrVector3d v : test::barelyInvalidVectors())
        for (int i = 0; i < 4; ++i) {
            ZyrVector3dArray vertices = test::vertices(4);
            this->gen(vertices);
            vertices.Replace(i, v);
            this->gen(vertices);
            EXPECT_TRUE(test::isEmpty(this->block_)) << test::text(v) << " at " << i;
        }
}

TYPED_TEST(Polygons, StoringLeavesTheArgumentAsItIs) {
    ZyrVector3dArray vertices = test::vertices(4);
    this->block_.Gen3DPolygon(vertices);
    EXPECT_EQ(values(vertices), values(test::vertices(4)));
}

TYPED_TEST(Polygons, RefusingLeavesTheArgumentAsItIs) {
    ZyrVector3dArray few = test::vertices(2), invalid = test::vertices(4);
    invalid[1].z = test::kInfinity;
    const Doubles before = values(invalid);
    this->block_.Gen3DPolygon(few);
    EXPECT_EQ(values(few), values(test::vertices(2)));
    this->block_.Gen3DPolygon(invalid);
    EXPECT_EQ(values(invalid), before);
}

TYPED_TEST(Polygons, LaterChangesOfTheArgumentAreNotSeen) {
    ZyrVector3dArray vertices = test::vertices(3);
    this->block_.Gen3DPolygon(vertices);
    vertices.Clear();
    EXPECT_EQ(this->stored(), values(test::vertices(3)));
}

TYPED_TEST(Polygons, AllVerticesAreReadInPlaceOfWhatTheArrayHeld) {
    this->gen(test::vertices(4));
    const test::Snapshot before(this->block_);
    ZyrVector3dArray out = test::vertices(7);
    EXPECT_TRUE(this->block_.Get3DPolygon(&out));
    EXPECT_EQ(values(out), values(test::vertices(4)));
    EXPECT_TRUE(before.holds());
}

TYPED_TEST(Polygons, AnotherKindIsNotReadAndEmptiesTheArray) {
    for (int kind : {-1, 0, 1, 9, 11, 17, 18}) {
        test::forge(this->block_, kind, {1, 2, 3});
        EXPECT_TRUE(this->isRefused()) << kind;
    }
}

TYPED_TEST(Polygons, DoublesThatMakeNoWholeVerticesAreNotReadAndEmptyTheArray) {
    for (std::size_t size : {1, 2, 4, 5, 10}) {
        test::forge(this->block_, 10, Doubles(size, 1));
        this->stored().shrink_to_fit();
        EXPECT_TRUE(this->isRefused()) << size;
    }
}

TYPED_TEST(Polygons, WithoutDoublesIsReadAsEmpty) {
    test::forge(this->block_, 10, {});
    ZyrVector3dArray out = test::vertices(2);
    EXPECT_TRUE(this->block_.Get3DPolygon(&out));
    EXPECT_EQ(out.Length(), 0);
}

TYPED_TEST(Polygons, ReadVerticesAreNotCheckedAgain) {
    test::forge(this->block_, 10, {test::kInvalid, -test::kInfinity, 0, 4, 5, test::kInfinity});
    ZyrVector3dArray out;
    EXPECT_TRUE(this->block_.Get3DPolygon(&out));
    EXPECT_EQ(values(out), this->stored());
}

TYPED_TEST(Polygons, WhoSharesTheArraySeesWhatIsRead) {
    this->gen(test::vertices(4));
    ZyrVector3dArray out = test::vertices(7), sharer = out;
    this->block_.Get3DPolygon(&out);
    EXPECT_EQ(values(sharer), values(test::vertices(4)));
}

TYPED_TEST(Polygons, LaterChangesOfTheOutputDoNotReachTheBlock) {
    this->gen(test::vertices(4));
    ZyrVector3dArray out;
    this->block_.Get3DPolygon(&out);
    out[0] = ZyrVector3d(7, 7, 7);
    EXPECT_EQ(this->stored(), values(test::vertices(4)));
}

TYPED_TEST(Polygons, ASmallRegionGivesTheMemoryOfALargeOneBack) {
    this->gen(test::vertices(1000));
    ZyrVector3d point(1, 2, 3);
    this->block_.Gen3DPoint(point);
    EXPECT_LT(this->stored().capacity(), 10u);
}
