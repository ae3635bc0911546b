#include <gtest/gtest.h>

#include <utility>

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

TYPED_TEST(HandlesOfBlocks, ChangedCopyLeavesItsSource) {
    TypeParam source = this->sphere(5), copy(source);
    parameters(copy)[0] = 77;
    EXPECT_EQ(parameters(source), (Doubles{1, 2, 3, 5}));
    ZyrVector3d point(7, 8, 9);
    copy.Gen3DPoint(point);
    EXPECT_EQ(typeOf(source), 7);
    EXPECT_EQ(parameters(source), (Doubles{1, 2, 3, 5}));
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
    const auto* block = &test::contents(handle);
    const test::Snapshot before(handle);
    const TypeParam& same = handle;
    EXPECT_EQ(&(handle = same), &handle);
    EXPECT_EQ(&test::contents(handle), block);
    EXPECT_TRUE(before.holds());
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

/// What blocks and handles have in common: a copy holds the same and shares nothing.
template <class Block>
class Copies : public testing::Test {
protected:
    /// Of every kind, of none and of an unknown one.
    static std::vector<std::pair<int, Doubles>> anyContents() {
        std::vector<std::pair<int, Doubles>> all{{0, {}},
                                                 {0, {1, 2, 3}},
                                                 {10, {1, 2, 3, 4, 5, 6, 7, 8, 9}},
                                                 {17, {1, 2, 5, 6, 7, 0, 0}},
                                                 {-5, {1, test::kNaN}}};
        for (const test::Kind& kind : test::kindsOf<Block>())
            all.emplace_back(kind.code, kind.sample);
        return all;
    }
};

TYPED_TEST_SUITE(Copies, test::AllBlocks);

TYPED_TEST(Copies, HoldWhatTheirSourceHolds) {
    for (const auto& [code, doubles] : this->anyContents()) {
        TypeParam source, assigned;
        test::forge(source, code, doubles);
        test::forge(assigned, 7, {1, 2, 3, 5});
        const TypeParam& constant = source;
        TypeParam copy(constant);
        assigned = constant;
        EXPECT_EQ(typeOf(copy), code);
        EXPECT_EQ(typeOf(assigned), code);
        EXPECT_TRUE(test::areSame(parameters(copy), doubles)) << code;
        EXPECT_TRUE(test::areSame(parameters(assigned), doubles)) << code;
    }
}

TYPED_TEST(Copies, AndTheirSourceDoNotChangeEachOther) {
    for (const auto& [code, doubles] : this->anyContents()) {
        TypeParam source, assigned;
        test::forge(source, code, doubles);
        TypeParam copy(source);
        assigned = source;
        const test::Snapshot before(source);
        test::gen(copy, 1, {7, 8, 9});
        test::gen(assigned, 1, {7, 8, 9});
        EXPECT_TRUE(before.holds()) << code;
        const test::Snapshot ofCopy(copy), ofAssigned(assigned);
        test::gen(source, 1, {4, 5, 6});
        EXPECT_TRUE(ofCopy.holds() && ofAssigned.holds()) << code;
    }
}
