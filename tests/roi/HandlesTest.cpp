#include <gtest/gtest.h>

#include "primitive/LineSets.h"
#include "roi/Blocks.h"
#include "roi/Kinds.h"

using test::Doubles;
using test::parameters;
using test::typeOf;

/// What both handles do with their blocks.
template <class Handle>
class HandlesOfBlocks : public testing::Test {
protected:
    static Handle polygon(int vertices) {
        Handle handle;
        ZyrVector3dArray array = test::vertices(vertices);
        handle.Gen3DPolygon(array);
        return handle;
    }

    static Handle sphere(double radius) {
        Handle handle;
        ZyrVector3d center(1, 2, 3);
        handle.Gen3DSphere(center, radius);
        return handle;
    }
};

TYPED_TEST_SUITE(HandlesOfBlocks, test::Handles);

TYPED_TEST(HandlesOfBlocks, AreOnePointer) {
    EXPECT_EQ(sizeof(TypeParam), sizeof(void*));
}

TYPED_TEST(HandlesOfBlocks, CopyHoldsTheSameInABlockOfItsOwn) {
    TypeParam source = this->sphere(5), copy(source);
    EXPECT_NE(&test::contents(copy), &test::contents(source));
    EXPECT_EQ(typeOf(copy), 7);
    EXPECT_EQ(parameters(copy), (Doubles{1, 2, 3, 5}));
}

TYPED_TEST(HandlesOfBlocks, CopyIsNotChangedWithItsSource) {
    TypeParam source = this->sphere(5), copy(source);
    source = this->polygon(3);
    EXPECT_EQ(typeOf(copy), 7);
    EXPECT_EQ(parameters(copy), (Doubles{1, 2, 3, 5}));
}

TYPED_TEST(HandlesOfBlocks, AssignmentHoldsTheSameInTheBlockThatWasThere) {
    TypeParam source = this->sphere(5), target = this->polygon(3);
    const auto* block = &test::contents(target);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(&test::contents(target), block);
    EXPECT_EQ(typeOf(target), 7);
    EXPECT_EQ(parameters(target), (Doubles{1, 2, 3, 5}));
}

TYPED_TEST(HandlesOfBlocks, AssignedOneIsNotChangedWithItsSource) {
    TypeParam a = this->sphere(5), b;
    b = a;
    ZyrVector3d point(7, 8, 9);
    a.Gen3DPoint(point);
    EXPECT_EQ(typeOf(b), 7);
    EXPECT_EQ(parameters(b), (Doubles{1, 2, 3, 5}));
}

TYPED_TEST(HandlesOfBlocks, AssignedOneDoesNotChangeItsSource) {
    TypeParam a = this->sphere(5), b;
    b = a;
    ZyrVector3d point(7, 8, 9);
    b.Gen3DPoint(point);
    EXPECT_EQ(typeOf(a), 7);
    EXPECT_EQ(parameters(a), (Doubles{1, 2, 3, 5}));
}

TYPED_TEST(HandlesOfBlocks, SelfAssignmentKeepsTheRegion) {
    TypeParam handle = this->polygon(100);
    const Doubles before = parameters(handle);
    const TypeParam& same = handle;
    handle = same;
    EXPECT_EQ(typeOf(handle), 10);
    EXPECT_EQ(parameters(handle), before);
}

TYPED_TEST(HandlesOfBlocks, AssigningAnEmptyOneEmpties) {
    TypeParam handle = this->sphere(5);
    handle = TypeParam();
    EXPECT_EQ(typeOf(handle), 0);
    EXPECT_TRUE(parameters(handle).empty());
}

TYPED_TEST(HandlesOfBlocks, AssignmentReusesMemoryThatSuffices) {
    TypeParam handle = this->polygon(100);
    const double* memory = parameters(handle).data();
    handle = this->sphere(5);
    EXPECT_EQ(parameters(handle).data(), memory);
}

TYPED_TEST(HandlesOfBlocks, EveryKindIsCopiedAndAssignedAsItIs) {
    for (const test::Kind& kind : test::kindsOf<TypeParam>()) {
        TypeParam source, assigned;
        test::forge(source, kind.code, kind.sample);
        const TypeParam& constant = source;
        TypeParam copy(constant);
        assigned = constant;
        EXPECT_EQ(typeOf(copy), kind.code);
        EXPECT_EQ(typeOf(assigned), kind.code);
        EXPECT_EQ(parameters(copy), kind.sample);
        EXPECT_EQ(parameters(assigned), kind.sample);
    }
}

TYPED_TEST(HandlesOfBlocks, CopiesOfUnknownContentsAreExact) {
    TypeParam source;
    test::forge(source, -5, {1, test::kNaN});
    TypeParam copy(source);
    EXPECT_EQ(typeOf(copy), -5);
    EXPECT_TRUE(test::areSame(parameters(copy), parameters(source)));
}
