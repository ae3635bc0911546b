#include <gtest/gtest.h>

#include <malloc.h>

#include <cstring>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

#include "support/ArrayElements.h"
#include "support/Held.h"
#include "support/LengthError.h"

// What holds for all three sharing arrays; where they differ is in the files named after them.

using test::arrayOf;
using test::element;
using test::ElementOf;
using test::expected;
using test::flatElement;
using test::values;

template <class Array>
class SharedArray : public testing::Test {
protected:
    using Element = ElementOf<Array>;
    using Store = zyr::SharedStore<Element>;

    static const Store& storeOf(const Array& array) { return test::held<Store>(array); }
};

TYPED_TEST_SUITE(SharedArray, test::Arrays);

TYPED_TEST(SharedArray, DefaultIsEmpty) {
    const TypeParam array;
    EXPECT_EQ(array.Length(), 0);
    EXPECT_EQ(array.Data(), nullptr);
}

TYPED_TEST(SharedArray, AppendAddsAtTheEnd) {
    TypeParam array;
    array.Append(element<ElementOf<TypeParam>>(1));
    array.Append(element<ElementOf<TypeParam>>(2));
    EXPECT_EQ(values(array), expected<TypeParam>({1, 2}));
}

TYPED_TEST(SharedArray, DataIsTheFlatBufferOfTheElements) {
    const TypeParam array = arrayOf<TypeParam>({1, 2, 3});
    const auto* elements = reinterpret_cast<const ElementOf<TypeParam>*>(array.Data());
    EXPECT_EQ(flatElement(elements[0]), expected<TypeParam>({1}));
    EXPECT_EQ(flatElement(elements[2]), expected<TypeParam>({3}));
}

TYPED_TEST(SharedArray, DataOfAnArrayThatWasEmptiedIsNull) {
    TypeParam array = arrayOf<TypeParam>({1});
    array.Remove(0);
    EXPECT_EQ(array.Data(), nullptr);
}

TYPED_TEST(SharedArray, CopySeesChangesThroughTheSource) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    const TypeParam b(a);
    a.Append(element<ElementOf<TypeParam>>(3));
    EXPECT_EQ(values(b), expected<TypeParam>({1, 2, 3}));
    EXPECT_EQ(a.Data(), b.Data());
}

TYPED_TEST(SharedArray, SourceSeesEveryChangeThroughTheCopy) {
    TypeParam a = arrayOf<TypeParam>({1, 2, 3, 4});
    TypeParam b(a);
    auto five = element<ElementOf<TypeParam>>(5);
    b.Insert(1, five);
    EXPECT_EQ(values(a), expected<TypeParam>({1, 5, 2, 3, 4}));
    b.Remove(0);
    EXPECT_EQ(values(a), expected<TypeParam>({5, 2, 3, 4}));
    b.Replace(3, five);
    EXPECT_EQ(values(a), expected<TypeParam>({5, 2, 3, 5}));
    b[1] = five;
    EXPECT_EQ(values(a), expected<TypeParam>({5, 5, 3, 5}));
    b.SetSize(3);
    EXPECT_EQ(values(a), expected<TypeParam>({5, 5, 3}));
    b.Data()[0] = 7;
    EXPECT_EQ(values(a)[0], 7);
    b.Clear();
    EXPECT_EQ(a.Length(), 0);
}

TYPED_TEST(SharedArray, AssignmentSharesAndLeavesTheFormerStore) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    TypeParam b = arrayOf<TypeParam>({3});
    TypeParam formerSharer(b);
    EXPECT_EQ(&(b = a), &b);
    a.Append(element<ElementOf<TypeParam>>(4));
    EXPECT_EQ(values(b), expected<TypeParam>({1, 2, 4}));
    EXPECT_EQ(values(formerSharer), expected<TypeParam>({3}));
}

TYPED_TEST(SharedArray, SelfAssignmentIsHarmless) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    const TypeParam& same = a;
    a = same;
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2}));
    EXPECT_EQ(this->storeOf(a).owner.use_count(), 1);
}

TYPED_TEST(SharedArray, DeepCopyHasElementsOfItsOwn) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    TypeParam copy = a.DeepCopy();
    a.Append(element<ElementOf<TypeParam>>(3));
    a[0] = element<ElementOf<TypeParam>>(9);
    EXPECT_EQ(values(copy), expected<TypeParam>({1, 2}));
    copy.Clear();
    EXPECT_EQ(values(a), expected<TypeParam>({9, 2, 3}));
}

TYPED_TEST(SharedArray, EmptyArraysShareAndCopyToo) {
    TypeParam a;
    const TypeParam sharer(a);
    const TypeParam copy = a.DeepCopy();
    a.Append(element<ElementOf<TypeParam>>(1));
    EXPECT_EQ(sharer.Length(), 1);
    EXPECT_EQ(copy.Length(), 0);
}

TYPED_TEST(SharedArray, SharersKeepTheElementsOfAnArrayThatIsGone) {
    TypeParam kept;
    {
        TypeParam a = arrayOf<TypeParam>({1, 2});
        kept = a;
    }
    EXPECT_EQ(values(kept), expected<TypeParam>({1, 2}));
}

TYPED_TEST(SharedArray, EachHasAHolderOfItsOwnOnACountedStore) {
    TypeParam a = arrayOf<TypeParam>({1});
    const auto& store = this->storeOf(a);
    TypeParam b(a);
    EXPECT_NE(&this->storeOf(b), &store);
    EXPECT_EQ(this->storeOf(b).elements, store.elements);
    EXPECT_EQ(this->storeOf(b).elements, this->storeOf(b).owner.get());
    EXPECT_EQ(store.owner.use_count(), 2);
    b = a.DeepCopy();
    EXPECT_EQ(this->storeOf(b).elements, this->storeOf(b).owner.get());
    EXPECT_EQ(store.owner.use_count(), 1);
}

TYPED_TEST(SharedArray, TheElementVectorStandsInTheBlockOfItsCount) {
    const TypeParam array;
    const auto& owner = this->storeOf(array).owner;
    char* vectorAndCount[2];
    static_assert(sizeof owner == sizeof vectorAndCount);
    std::memcpy(vectorAndCount, &owner, sizeof owner);
    const auto [vector, count] = vectorAndCount;
    EXPECT_GT(static_cast<void*>(vector), count);
    EXPECT_LE(static_cast<void*>(vector + sizeof *owner), count + malloc_usable_size(count));
}

TYPED_TEST(SharedArray, TheLastOwnerFreesItsElementsWhenItIsAssignedTo) {
    TypeParam a = arrayOf<TypeParam>({1});
    TypeParam b = arrayOf<TypeParam>({2});
    const std::weak_ptr former = this->storeOf(b).owner;
    {
        TypeParam sharer(b);
        b = a;
        EXPECT_FALSE(former.expired());
        sharer = a;
        EXPECT_TRUE(former.expired());
    }
    const std::weak_ptr shared = this->storeOf(a).owner;
    a = TypeParam();
    EXPECT_FALSE(shared.expired());
    b = TypeParam();
    EXPECT_TRUE(shared.expired());
}

TYPED_TEST(SharedArray, SharesAreCountedAcrossThreads) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    const auto shareOften = [&a] {
        for (int i = 0; i < 20000; ++i) {
            TypeParam sharer(a);
            TypeParam assigned;
            assigned = sharer;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) threads.emplace_back(shareOften);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(this->storeOf(a).owner.use_count(), 1);
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2}));
}

TYPED_TEST(SharedArray, SetSizeGrowsByDefaultElements) {
    TypeParam array = arrayOf<TypeParam>({1});
    array.SetSize(3);
    const auto grown = flatElement(ElementOf<TypeParam>());
    EXPECT_EQ(array.Length(), 3);
    EXPECT_EQ(flatElement(array[0]), expected<TypeParam>({1}));
    EXPECT_EQ(flatElement(array[1]), grown);
    EXPECT_EQ(flatElement(array[2]), grown);
}

TYPED_TEST(SharedArray, SetSizeReservesRoomForExactlyTheSize) {
    TypeParam array;
    array.SetSize(3);
    array.SetSize(4);  // doubling the room for 3 would make it 6
    EXPECT_EQ(this->storeOf(array).elements->capacity(), 4u);
}

TYPED_TEST(SharedArray, SetSizeDropsFromTheEnd) {
    TypeParam array = arrayOf<TypeParam>({1, 2, 3});
    array.SetSize(2);
    EXPECT_EQ(values(array), expected<TypeParam>({1, 2}));
    array.SetSize(0);
    EXPECT_EQ(array.Length(), 0);
}

TYPED_TEST(SharedArray, SetSizeDoesNotBringBackDroppedElements) {
    TypeParam array = arrayOf<TypeParam>({1, 2});
    array.SetSize(1);
    array.SetSize(2);
    EXPECT_EQ(flatElement(array[1]), flatElement(ElementOf<TypeParam>()));
}

TYPED_TEST(SharedArray, NegativeSizeIsALengthErrorAndChangesNothing) {
    TypeParam array = arrayOf<TypeParam>({1, 2});
    for (int n : {-1, -3, std::numeric_limits<int>::min()})
        EXPECT_TRUE(test::isLengthError([&] { array.SetSize(n); })) << n;
    EXPECT_EQ(values(array), expected<TypeParam>({1, 2}));
}

TYPED_TEST(SharedArray, ClearEmpties) {
    TypeParam array = arrayOf<TypeParam>({1, 2});
    array.Clear();
    EXPECT_EQ(array.Length(), 0);
    EXPECT_EQ(array.Data(), nullptr);
    array.Clear();
    array.Append(element<ElementOf<TypeParam>>(3));
    EXPECT_EQ(values(array), expected<TypeParam>({3}));
}

TYPED_TEST(SharedArray, AppendOfAnArrayCopiesItsElements) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    TypeParam b = arrayOf<TypeParam>({3, 4});
    a.Append(b);
    b[0] = element<ElementOf<TypeParam>>(9);
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2, 3, 4}));
    EXPECT_EQ(values(b), expected<TypeParam>({9, 4}));
}

TYPED_TEST(SharedArray, AppendOfAnEmptyArrayChangesNothing) {
    TypeParam a = arrayOf<TypeParam>({1});
    a.Append(TypeParam());
    EXPECT_EQ(values(a), expected<TypeParam>({1}));
}

TYPED_TEST(SharedArray, AppendToAnEmptyArrayCopies) {
    TypeParam a;
    TypeParam b = arrayOf<TypeParam>({1, 2});
    a.Append(b);
    b.Clear();
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2}));
}

TYPED_TEST(SharedArray, AppendOfItselfDoubles) {
    TypeParam a = arrayOf<TypeParam>({1, 2, 3});
    a.Append(a);
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2, 3, 1, 2, 3}));
    TypeParam empty;
    empty.Append(empty);
    EXPECT_EQ(empty.Length(), 0);
}

TYPED_TEST(SharedArray, AppendOfASharerDoublesBoth) {
    TypeParam a = arrayOf<TypeParam>({1, 2});
    TypeParam sharer(a);
    a.Append(sharer);
    EXPECT_EQ(values(a), expected<TypeParam>({1, 2, 1, 2}));
    EXPECT_EQ(values(sharer), expected<TypeParam>({1, 2, 1, 2}));
}

// A list of doubles keeps its memory.
template <class Array>
class ReleasingArray : public SharedArray<Array> {};

using ReleasingArrays = testing::Types<ZyrVector3dArray, Zyr3DIntArray>;
TYPED_TEST_SUITE(ReleasingArray, ReleasingArrays);

TYPED_TEST(ReleasingArray, ClearGivesTheMemoryBack) {
    TypeParam array;
    array.SetSize(1000);
    array.Clear();
    EXPECT_EQ(this->storeOf(array).elements->capacity(), 0u);
}
