#include <gtest/gtest.h>

#include <limits>
#include <thread>
#include <utility>
#include <vector>

#include "support/ArrayElements.h"

// The index rules of all three sharing arrays.

using test::arrayOf;
using test::element;
using test::ElementOf;
using test::expected;
using test::flatElement;
using test::values;

template <class Array>
class ArrayIndex : public testing::Test {
protected:
    using Element = ElementOf<Array>;

    /// Neither of them is an index of an array of three.
    static std::vector<int> outOfRange() {
        return {-1, 3, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    }

    static auto fallback() { return flatElement(Element()); }

    Array array_ = arrayOf<Array>({1, 2, 3});
    const Array& constArray_ = array_;
    Element nine_ = element<Element>(9);
};

TYPED_TEST_SUITE(ArrayIndex, test::Arrays);

TYPED_TEST(ArrayIndex, InsertPutsTheElementBeforeTheIndex) {
    this->array_.Insert(0, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({9, 1, 2, 3}));
    this->array_.Insert(2, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({9, 1, 9, 2, 3}));
}

TYPED_TEST(ArrayIndex, InsertAtTheLastIndexPutsTheElementBeforeTheLast) {
    this->array_.Insert(2, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 9, 3}));
}

TYPED_TEST(ArrayIndex, InsertOutOfRangeDoesNothing) {
    for (int i : this->outOfRange()) this->array_.Insert(i, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
}

TYPED_TEST(ArrayIndex, InsertNeverAppendsToAnEmptyArray) {
    TypeParam empty;
    empty.Insert(0, this->nine_);
    EXPECT_EQ(empty.Length(), 0);
}

TYPED_TEST(ArrayIndex, RemoveShiftsTheRestDown) {
    this->array_.Remove(1);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 3}));
    this->array_.Remove(1);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1}));
    this->array_.Remove(0);
    EXPECT_EQ(this->array_.Length(), 0);
}

TYPED_TEST(ArrayIndex, RemoveOutOfRangeDoesNothing) {
    for (int i : this->outOfRange()) this->array_.Remove(i);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
    TypeParam empty;
    empty.Remove(0);
    EXPECT_EQ(empty.Length(), 0);
}

TYPED_TEST(ArrayIndex, ReplaceOverwritesTheElement) {
    this->array_.Replace(2, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 9}));
}

TYPED_TEST(ArrayIndex, ReplaceOutOfRangeDoesNothing) {
    for (int i : this->outOfRange()) this->array_.Replace(i, this->nine_);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
}

TYPED_TEST(ArrayIndex, SelectCopiesTheElement) {
    this->array_.Select(1, &this->nine_);
    EXPECT_EQ(flatElement(this->nine_), expected<TypeParam>({2}));
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
}

TYPED_TEST(ArrayIndex, SelectOutOfRangeLeavesTheOutputUntouched) {
    for (int i : this->outOfRange()) this->array_.Select(i, &this->nine_);
    EXPECT_EQ(flatElement(this->nine_), expected<TypeParam>({9}));
}

TYPED_TEST(ArrayIndex, AnElementOfTheArrayItselfMayBeAppended) {
    for (int i = 0; i < 40; ++i) this->array_.Append(this->array_[0]);
    EXPECT_EQ(this->array_.Length(), 43);
    for (int i = 3; i < 43; ++i) EXPECT_EQ(flatElement(this->array_[i]), expected<TypeParam>({1}));
}

TYPED_TEST(ArrayIndex, AnElementOfTheArrayItselfMayBeInserted) {
    this->array_.Insert(0, this->array_[1]);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({2, 1, 2, 3}));
    this->array_.Insert(1, this->array_[3]);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({2, 3, 1, 2, 3}));
    this->array_.Insert(4, this->array_[2]);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({2, 3, 1, 2, 1, 3}));
}

TYPED_TEST(ArrayIndex, AnElementOfTheArrayItselfMayReplaceAnother) {
    this->array_.Replace(2, this->array_[0]);
    this->array_.Replace(1, this->array_[1]);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 1}));
}

TYPED_TEST(ArrayIndex, SelectMayWriteIntoTheArrayItself) {
    this->array_.Select(0, &this->array_[2]);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 1}));
}

TYPED_TEST(ArrayIndex, SubscriptRefersToTheElement) {
    this->array_[1] = this->nine_;
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 9, 3}));
    EXPECT_EQ(static_cast<void*>(&this->array_[0]), static_cast<void*>(this->array_.Data()));
}

TYPED_TEST(ArrayIndex, ConstSubscriptGivesACopy) {
    const auto& copy = this->constArray_[1];
    this->array_[1] = this->nine_;
    EXPECT_EQ(flatElement(copy), expected<TypeParam>({2}));
}

TYPED_TEST(ArrayIndex, SubscriptOutOfRangeGivesADefaultElement) {
    for (int i : this->outOfRange()) {
        EXPECT_EQ(flatElement(this->array_[i]), this->fallback());
        EXPECT_EQ(flatElement(this->constArray_[i]), this->fallback());
    }
}

TYPED_TEST(ArrayIndex, SubscriptOfAnEmptyArrayGivesADefaultElement) {
    TypeParam empty;
    EXPECT_EQ(flatElement(empty[0]), this->fallback());
    EXPECT_EQ(flatElement(std::as_const(empty)[0]), this->fallback());
}

TYPED_TEST(ArrayIndex, WritingOutOfRangeChangesNoArrayAndIsForgotten) {
    TypeParam other = arrayOf<TypeParam>({4});
    this->array_[3] = this->nine_;
    this->array_[-1] = this->nine_;
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
    EXPECT_EQ(flatElement(this->array_[3]), this->fallback());
    EXPECT_EQ(flatElement(other[1]), this->fallback());
}

TYPED_TEST(ArrayIndex, TheElementOutOfRangeIsTheCallingThreadsOwn) {
    auto& mine = this->array_[-1];
    mine = this->nine_;
    std::thread([this] { this->array_[-1] = element<ElementOf<TypeParam>>(5); }).join();
    EXPECT_EQ(flatElement(mine), expected<TypeParam>({9}));
}

// A list of doubles has no Swap.
template <class Array>
class ArraySwap : public ArrayIndex<Array> {};

using SwappingArrays = testing::Types<ZyrVector3dArray, Zyr3DIntArray>;
TYPED_TEST_SUITE(ArraySwap, SwappingArrays);

TYPED_TEST(ArraySwap, ExchangesTwoElements) {
    this->array_.Swap(0, 2);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({3, 2, 1}));
    this->array_.Swap(1, 1);
    EXPECT_EQ(values(this->array_), expected<TypeParam>({3, 2, 1}));
}

TYPED_TEST(ArraySwap, DoesNothingUnlessBothAreInRange) {
    for (int i : this->outOfRange()) {
        this->array_.Swap(0, i);
        this->array_.Swap(i, 1);
        this->array_.Swap(i, i);
    }
    EXPECT_EQ(values(this->array_), expected<TypeParam>({1, 2, 3}));
}

TYPED_TEST(ArraySwap, IsSeenByThoseWhoShare) {
    const TypeParam sharer(this->array_);
    this->array_.Swap(0, 1);
    EXPECT_EQ(values(sharer), expected<TypeParam>({2, 1, 3}));
}
