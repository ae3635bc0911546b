#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "primitive/LineSets.h"
#include "roi/Blocks.h"
#include "roi/Kinds.h"
#include "support/GenClouds.h"

using test::Doubles;
using test::parameters;
using test::typeOf;

/// A shape from a region and back, for the block and the handle.
template <class Shape>
class Conversion : public testing::Test {
protected:
    Shape shape_;
    Zyr3DROI roi_;
    const Doubles sphere_{1, 2, 3, 5};
};

using Shapes = testing::Types<IZyr3DShapePara, Zyr3DShape>;
TYPED_TEST_SUITE(Conversion, Shapes);

TYPED_TEST(Conversion, ATorusKeepsItsSevenValuesBothWays) {
    ZyrVector3d center(1, 2, 3), angle(10, 20, 30);
    this->roi_.Gen3DTorus(center, angle, 5, 6, 45, 90, Zyr3DTorusType1);
    this->shape_.From3DROI(this->roi_);
    Doubles values(11, 77);
    EXPECT_TRUE(test::get(this->shape_, 14, values));
    EXPECT_EQ(values, (Doubles{1, 2, 3, 10, 20, 30, 5, 6, 45, 90, 1}));

    Zyr3DROI back;
    this->shape_.To3DROI(&back);
    EXPECT_EQ(typeOf(back), 14);
    EXPECT_EQ(parameters(back), parameters(this->roi_));
}

TYPED_TEST(Conversion, EveryCodeKeepsItsKindAndItsDoubles) {
    for (int code = 1; code <= 17; ++code) {
        TypeParam shape;
        test::forge(this->roi_, code, {double(code), 2, 3});
        shape.From3DROI(this->roi_);
        EXPECT_EQ(typeOf(shape), code);
        EXPECT_EQ(parameters(shape), (Doubles{double(code), 2, 3}));

        Zyr3DROI back;
        shape.To3DROI(&back);
        EXPECT_EQ(typeOf(back), code);
        EXPECT_EQ(parameters(back), (Doubles{double(code), 2, 3}));
    }
}

TYPED_TEST(Conversion, AnEmptyRegionMakesTheTypeZeroAndLeavesTheDoubles) {
    test::gen(this->shape_, 7, this->sphere_);
    this->shape_.From3DROI(this->roi_);
    EXPECT_EQ(typeOf(this->shape_), 0);
    EXPECT_EQ(parameters(this->shape_), this->sphere_);
}

TYPED_TEST(Conversion, DoublesThatWereLeftAreNotRead) {
    test::gen(this->shape_, 7, this->sphere_);
    this->shape_.From3DROI(this->roi_);
    Doubles outputs(4, 77);
    EXPECT_FALSE(test::get(this->shape_, 7, outputs));
    EXPECT_EQ(outputs, Doubles(4, 77));
}

TYPED_TEST(Conversion, DoublesThatWereLeftGoWithTheNextGen) {
    test::gen(this->shape_, 7, this->sphere_);
    this->shape_.From3DROI(this->roi_);
    test::gen(this->shape_, 7, {1, 2, 3, -1});
    EXPECT_TRUE(test::isEmpty(this->shape_));
}

TYPED_TEST(Conversion, AnUnknownRegionMakesTheTypeZeroAndLeavesTheDoubles) {
    for (int code : {18, 19, -1, INT_MAX, INT_MIN}) {
        test::gen(this->shape_, 7, this->sphere_);
        test::forge(this->roi_, code, {7, 8, 9});
        this->shape_.From3DROI(this->roi_);
        EXPECT_EQ(typeOf(this->shape_), 0) << code;
        EXPECT_EQ(parameters(this->shape_), this->sphere_) << code;
        EXPECT_EQ(typeOf(this->roi_), code);
    }
}

TYPED_TEST(Conversion, AnEmptyOrUnknownShapeMakesTheRegionsTypeZeroAndLeavesItsDoubles) {
    for (int code : {0, 18, 19, -1, INT_MAX, INT_MIN}) {
        test::gen(this->roi_, 7, this->sphere_);
        test::forge(this->shape_, code, {7, 8, 9});
        this->shape_.To3DROI(&this->roi_);
        EXPECT_EQ(typeOf(this->roi_), 0) << code;
        EXPECT_EQ(parameters(this->roi_), this->sphere_) << code;
        EXPECT_EQ(typeOf(this->shape_), code);
    }
}

TYPED_TEST(Conversion, DoublesThatWereLeftInTheRegionAreNotReadAndGoWithTheNextGen) {
    test::gen(this->roi_, 7, this->sphere_);
    this->shape_.To3DROI(&this->roi_);
    Doubles outputs(4, 77);
    EXPECT_FALSE(test::get(this->roi_, 7, outputs));
    EXPECT_EQ(outputs, Doubles(4, 77));
    EXPECT_EQ(parameters(this->roi_), this->sphere_);
    test::gen(this->roi_, 7, {1, 2, 3, -1});
    EXPECT_TRUE(test::isEmpty(this->roi_));
}

TYPED_TEST(Conversion, AnIrregularRegionIsReadAsAnyShape) {
    Zyr3DLineSet lines = test::withIndices(4), out;
    this->roi_.Gen3DIrregular(lines);
    this->shape_.From3DROI(this->roi_);
    EXPECT_EQ(typeOf(this->shape_), 17);
    EXPECT_TRUE(this->shape_.Get3DAnyShape(&out));
    EXPECT_EQ(test::points(out), test::points(lines));
    EXPECT_EQ(test::lines(out), test::lines(lines));
}

TYPED_TEST(Conversion, AnyShapeIsReadAsAnIrregularRegion) {
    Zyr3DLineSet lines = test::withIndices(4), out;
    this->shape_.Gen3DAnyShape(lines);
    this->shape_.To3DROI(&this->roi_);
    EXPECT_EQ(this->roi_.ROIType3D(), 17);
    EXPECT_TRUE(this->roi_.Get3DIrregular(&out));
    EXPECT_EQ(test::lines(out), test::lines(lines));
}

TYPED_TEST(Conversion, ALaterChangeOfTheShapeDoesNotReachTheRegion) {
    test::gen(this->shape_, 7, this->sphere_);
    this->shape_.To3DROI(&this->roi_);
    test::gen(this->shape_, 1, {7, 8, 9});
    EXPECT_EQ(typeOf(this->roi_), 7);
    EXPECT_EQ(parameters(this->roi_), this->sphere_);
}

TYPED_TEST(Conversion, ALaterChangeOfTheRegionDoesNotReachTheShape) {
    test::gen(this->roi_, 7, this->sphere_);
    this->shape_.From3DROI(this->roi_);
    test::gen(this->roi_, 1, {7, 8, 9});
    EXPECT_EQ(typeOf(this->shape_), 7);
    EXPECT_EQ(parameters(this->shape_), this->sphere_);
}

TYPED_TEST(Conversion, LeavesItsSourceAsItIs) {
    for (const int code : {0, 7, 18}) {
        test::forge(this->roi_, code, this->sphere_);
        test::forge(this->shape_, 1, {7, 8, 9});
        const test::Snapshot region(this->roi_);
        this->shape_.From3DROI(this->roi_);
        EXPECT_TRUE(region.holds()) << code;

        test::forge(this->shape_, code, this->sphere_);
        test::forge(this->roi_, 1, {7, 8, 9});
        const test::Snapshot shape(this->shape_);
        this->shape_.To3DROI(&this->roi_);
        EXPECT_TRUE(shape.holds()) << code;
    }
}

TYPED_TEST(Conversion, ReusesMemoryThatSuffices) {
    test::forge(this->shape_, 10, Doubles(300, 1));
    test::forge(this->roi_, 7, this->sphere_);
    const double* memory = parameters(this->shape_).data();
    this->shape_.From3DROI(this->roi_);
    EXPECT_EQ(parameters(this->shape_).data(), memory);

    test::forge(this->roi_, 10, Doubles(300, 1));
    memory = parameters(this->roi_).data();
    this->shape_.To3DROI(&this->roi_);
    EXPECT_EQ(parameters(this->roi_).data(), memory);
    EXPECT_EQ(parameters(this->roi_), this->sphere_);
}

TYPED_TEST(Conversion, ChecksNothing) {
    const Doubles bad{test::kNaN, 2, 3, -5};
    test::forge(this->roi_, 7, bad);
    this->shape_.From3DROI(this->roi_);
    EXPECT_EQ(typeOf(this->shape_), 7);
    EXPECT_TRUE(test::areSame(parameters(this->shape_), bad));
}

RC_GTEST_PROP(ConversionProperty, AnyDoublesComeBackBitForBit, ()) {
    const auto doubles = *rc::gen::container<Doubles>(test::anyDouble());
    Zyr3DROI roi, back;
    test::forge(roi, *rc::gen::inRange(1, 18), doubles);
    Zyr3DShape shape;
    shape.From3DROI(roi);
    shape.To3DROI(&back);
    RC_ASSERT(typeOf(back) == typeOf(roi));
    RC_ASSERT(test::areSame(parameters(back), doubles));
}
