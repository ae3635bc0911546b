#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::areIdentical;
using test::Sample;

/// What holds for every primitive.
template <class Primitive>
class Primitives : public testing::Test {};

using AllPrimitives =
    testing::Types<Zyr3DLine, Zyr3DLineSegment, Zyr3DPlane, Zyr3DArc, Zyr3DCircle, Zyr3DEllipse,
                   Zyr3DRect, Zyr3DTriangle, Zyr3DSphere, Zyr3DCylinder, Zyr3DTube, Zyr3DTorus,
                   Zyr3DBox, Zyr3DEllipsoid>;
TYPED_TEST_SUITE(Primitives, AllPrimitives);

TYPED_TEST(Primitives, DefaultIsInvalid) {
    TypeParam primitive;
    EXPECT_FALSE(primitive.IsValid());
}

TYPED_TEST(Primitives, DefaultStaysAsItIsWhenItIsTested) {
    TypeParam primitive;
    primitive.IsValid();
    EXPECT_TRUE(areIdentical(primitive, TypeParam()));
}

TYPED_TEST(Primitives, PassedTestLeavesItAsItIs) {
    TypeParam primitive = Sample<TypeParam>::good();
    EXPECT_TRUE(primitive.IsValid());
    EXPECT_TRUE(areIdentical(primitive, Sample<TypeParam>::good()));
}

TYPED_TEST(Primitives, FailedTestLeavesTheDefault) {
    TypeParam primitive = Sample<TypeParam>::bad();
    EXPECT_FALSE(primitive.IsValid());
    EXPECT_TRUE(areIdentical(primitive, TypeParam()));
}

TYPED_TEST(Primitives, InvalidOneStaysAsGivenUntilItIsTested) {
    EXPECT_EQ(test::fields(Sample<TypeParam>::bad()), Sample<TypeParam>::badFields());
}

// Otherwise a field that a failed test leaves as it is would not show.
TYPED_TEST(Primitives, SampleThatFailsHasNoFieldOfADefaultOne) {
    const std::vector<double> given = Sample<TypeParam>::badFields();
    const std::vector<double> unset = test::fields(TypeParam());
    ASSERT_EQ(given.size(), unset.size());
    for (std::size_t i = 0; i < given.size(); ++i) EXPECT_NE(given[i], unset[i]) << i;
}

TYPED_TEST(Primitives, CopyIsItsOwn) {
    const TypeParam source = Sample<TypeParam>::bad();
    TypeParam copy(source);
    EXPECT_TRUE(areIdentical(copy, source));
    copy.IsValid();
    EXPECT_TRUE(areIdentical(source, Sample<TypeParam>::bad()));
}

TYPED_TEST(Primitives, ResetOneIsUsableAgainOnceAssignedTo) {
    TypeParam primitive = Sample<TypeParam>::bad();
    primitive.IsValid();
    primitive = Sample<TypeParam>::good();
    EXPECT_TRUE(primitive.IsValid());
    EXPECT_TRUE(areIdentical(primitive, Sample<TypeParam>::good()));
}

TYPED_TEST(Primitives, MovesAsPlainMemory) {
    EXPECT_TRUE(std::is_trivially_copyable_v<TypeParam>);
}
