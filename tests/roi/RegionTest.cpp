#include <gtest/gtest.h>

#include "primitive/Conditions.h"
#include "primitive/LineSets.h"
#include "roi/Blocks.h"

using Doubles = std::vector<double>;
using test::values;

/// What callers of both blocks and both handles rely on, spelt out.
template <class Block>
class Regions : public testing::Test {
protected:
    Block block_;
    ZyrVector3d center_{1, 2, 3}, angle_{10, 20, 30}, direction_{0, 0, 3}, size_{4, 5, 6};
    ZyrVector3d zero_{0, 0, 0};

    int type() { return test::typeOf(block_); }
};

TYPED_TEST_SUITE(Regions, test::AllBlocks);

TYPED_TEST(Regions, AnInvalidPointLosesTheSphereHeldBefore) {
    ZyrVector3d invalid;
    this->block_.Gen3DSphere(this->center_, 5);
    EXPECT_EQ(this->type(), 7);
    this->block_.Gen3DPoint(invalid);
    EXPECT_EQ(this->type(), 0);
    double radius = 77;
    EXPECT_FALSE(this->block_.Get3DSphere(&this->zero_, &radius));
    EXPECT_EQ(radius, 77);
}

TYPED_TEST(Regions, ARefusedRegionGivesItsMemoryBack) {
    ZyrVector3d invalid;
    ZyrVector3dArray vertices = test::vertices(1000);
    this->block_.Gen3DPolygon(vertices);
    this->block_.Gen3DPoint(invalid);
    EXPECT_EQ(test::parameters(this->block_).capacity(), 0u);
}

TYPED_TEST(Regions, ALineWithoutALengthIsNotStored) {
    this->block_.Gen3DLine(this->center_, this->zero_);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ADirectionIsNotNormalised) {
    this->block_.Gen3DLine(this->center_, this->direction_);
    ZyrVector3d point, direction;
    EXPECT_TRUE(this->block_.Get3DLine(&point, &direction));
    EXPECT_EQ(values(direction), (Doubles{0, 0, 3}));
    EXPECT_EQ(values(point), (Doubles{1, 2, 3}));
}

TYPED_TEST(Regions, ALineSegmentMayHaveNoLength) {
    this->block_.Gen3DLineSegment(this->center_, this->center_);
    EXPECT_EQ(this->type(), 3);
}

TYPED_TEST(Regions, AnArcThatStartsAt400IsStoredAndReadWithFalse) {
    this->block_.Gen3DArc(this->center_, this->angle_, 1, 400, 90);
    EXPECT_EQ(this->type(), 16);
    Doubles outputs(9, 77);
    EXPECT_FALSE(test::get(this->block_, 16, outputs));
    EXPECT_EQ(outputs, (Doubles{1, 2, 3, 10, 20, 30, 1, 400, 90}));
}

TYPED_TEST(Regions, ATorusThatStartsAt400IsStoredAndReadWithFalse) {
    this->block_.Gen3DTorus(this->center_, this->angle_, 1, 2, 400, 90, Zyr3DTorusType1);
    EXPECT_EQ(this->type(), 14);
    Doubles outputs(11, 77);
    EXPECT_FALSE(test::get(this->block_, 14, outputs));
    EXPECT_EQ(outputs, (Doubles{1, 2, 3, 10, 20, 30, 1, 2, 400, 90, 1}));
}

TYPED_TEST(Regions, ATorusOfNegativeSpanIsReadButNotStored) {
    test::forge(this->block_, 14, {1, 2, 3, 10, 20, 30, 1, 2, 0, -90, 1});
    Doubles outputs(11, 77);
    EXPECT_TRUE(test::get(this->block_, 14, outputs));
    this->block_.Gen3DTorus(this->center_, this->angle_, 1, 2, 0, -90, Zyr3DTorusType1);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ATubeOfHeight0IsReadButNotStored) {
    test::forge(this->block_, 15, {1, 2, 3, 0, 0, 3, 0, 1, 0});
    Doubles outputs(9, 77);
    EXPECT_TRUE(test::get(this->block_, 15, outputs));
    this->block_.Gen3DTube(this->center_, this->direction_, 0, 1, 0);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ATubeWithoutDirectionIsReadButNotStored) {
    test::forge(this->block_, 15, {1, 2, 3, 0, 0, 0, 0, 1, 5});
    Doubles outputs(9, 77);
    EXPECT_TRUE(test::get(this->block_, 15, outputs));
    this->block_.Gen3DTube(this->center_, this->zero_, 0, 1, 5);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ABoxWithoutExtentIsReadButNotStoredAndAnEllipsoidIsNeither) {
    const Doubles flat{1, 2, 3, 10, 20, 30, 4, 0, 6};
    Doubles outputs(9, 77);
    test::forge(this->block_, 6, flat);
    EXPECT_TRUE(test::get(this->block_, 6, outputs));
    test::forge(this->block_, 12, flat);
    EXPECT_FALSE(test::get(this->block_, 12, outputs));
    test::gen(this->block_, 6, flat);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ACollinearTriangleIsReadButNotStored) {
    const Doubles collinear{0, 0, 0, 1, 0, 0, 2, 0, 0};
    test::forge(this->block_, 9, collinear);
    Doubles outputs(9, 77);
    EXPECT_TRUE(test::get(this->block_, 9, outputs));
    test::gen(this->block_, 9, collinear);
    EXPECT_EQ(this->type(), 0);
}

TYPED_TEST(Regions, ATorusOfAnotherTypeThan0Or1IsNotStoredThoughItIsAValidTorus) {
    for (const int number : {2, 5, -1}) {
        const auto type = static_cast<Zyr3DTorusType>(number);
        this->block_.Gen3DTorus(this->center_, this->angle_, 1, 2, 0, 90, Zyr3DTorusType1);
        this->block_.Gen3DTorus(this->center_, this->angle_, 1, 2, 0, 90, type);
        EXPECT_TRUE(test::isEmpty(this->block_)) << number;
        EXPECT_TRUE(Zyr3DTorus(this->center_, this->angle_, 1, 2, 0, 90, type).IsValid());
    }
}

TYPED_TEST(Regions, ATorusOfAnotherTypeThan0Or1IsReadWithFalse) {
    for (const double number : {2, 5, -1}) {
        const Doubles stored{1, 2, 3, 10, 20, 30, 1, 2, 0, 90, number};
        test::forge(this->block_, 14, stored);
        Doubles outputs(11, 77);
        EXPECT_FALSE(test::get(this->block_, 14, outputs)) << number;
        EXPECT_EQ(outputs, stored);
    }
}

TYPED_TEST(Regions, ATorusReadsItsTypeBack) {
    for (Zyr3DTorusType type : {Zyr3DTorusType0, Zyr3DTorusType1}) {
        this->block_.Gen3DTorus(this->center_, this->angle_, 1, 2, 0, 90, type);
        ZyrVector3d center, angle;
        double inner, outer, start, span;
        auto out = static_cast<Zyr3DTorusType>(77);
        EXPECT_TRUE(this->block_.Get3DTorus(&center, &angle, &inner, &outer, &start, &span, &out));
        EXPECT_EQ(out, type);
    }
}

TYPED_TEST(Regions, ABoxIsNoSphereAndLeavesTheOutputs) {
    this->block_.Gen3DBox(this->center_, this->angle_, this->size_);
    double radius = 77;
    EXPECT_FALSE(this->block_.Get3DSphere(&this->zero_, &radius));
    EXPECT_EQ(values(this->zero_), (Doubles{0, 0, 0}));
    EXPECT_EQ(radius, 77);
    EXPECT_EQ(this->type(), 6);
}

TYPED_TEST(Regions, AnEllipseWithoutRadiusAIsNotStored) {
    this->block_.Gen3DEllipse(this->center_, this->angle_, 0, 1);
    EXPECT_EQ(this->type(), 0);
}

// The twins differ here alone: radius A has no say when a region is read.
TEST(Zyr3DROI, ReadsAnEllipseWithoutRadiusA) {
    Zyr3DROI roi;
    test::forge(roi, 11, {1, 2, 3, 10, 20, 30, 0, 1});
    Doubles outputs(8, 77);
    EXPECT_TRUE(test::get(roi, 11, outputs));
    EXPECT_EQ(outputs, test::parameters(roi));
}

TEST(Zyr3DShape, ReadsAnEllipseWithoutRadiusAWithFalse) {
    Zyr3DShape shape;
    test::forge(shape, 11, {1, 2, 3, 10, 20, 30, 0, 1});
    Doubles outputs(8, 77);
    EXPECT_FALSE(test::get(shape, 11, outputs));
    EXPECT_EQ(outputs, test::parameters(shape));
}

// Radius A is looked at behind the region's own check, when it has been read.
TEST(Zyr3DShape, WithoutAWholeEllipseLooksAtNoOutput) {
    Zyr3DShape shape;
    for (const int kind : {0, 6, 10, 13}) {
        test::forge(shape, kind, {1, 2, 3, 10, 20, 30, 1, 1});
        EXPECT_FALSE(shape.Get3DEllipse(nullptr, nullptr, nullptr, nullptr)) << kind;
    }
    test::forge(shape, 11, {1, 2, 3, 10, 20, 30, 1});
    EXPECT_FALSE(shape.Get3DEllipse(nullptr, nullptr, nullptr, nullptr));
}

// The codes are stored by callers.
TEST(IZyr3DROIPara, KindCodesStay) {
    const std::vector<int> codes{zyr::KindNone,        zyr::KindPoint,   zyr::KindLine,
                                 zyr::KindLineSegment, zyr::KindCircle,  zyr::KindPlane,
                                 zyr::KindBox,         zyr::KindSphere,  zyr::KindCylinder,
                                 zyr::KindTriangle,    zyr::KindPolygon, zyr::KindEllipse,
                                 zyr::KindEllipsoid,   zyr::KindRect,    zyr::KindTorus,
                                 zyr::KindTube,        zyr::KindArc,     zyr::KindIrregular};
    for (int i = 0; i < 18; ++i) EXPECT_EQ(codes[static_cast<std::size_t>(i)], i);
    EXPECT_EQ(zyr::KindAnyShape, zyr::KindIrregular);
}
