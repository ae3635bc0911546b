#include "ZyrRangeImageArray.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/RangeImages.h"

using test::valueRange;

namespace {

using Numbers = std::vector<double>;

/// One pixel of a value, with a value range that starts there.
std::unique_ptr<ZyrRangeImage> newPixel(unsigned char value) {
    return std::make_unique<ZyrRangeImage>(&value, 1, 1, 0, 0, value, value + 100, 2, 3, 4, 5, 6,
                                           7);
}

std::vector<double> pixels(ZyrRangeImageArray images) {
    std::vector<double> result;
    for (int i = 0; i < images.Length(); ++i) result.push_back(images[i].GetValue(0, 0));
    return result;
}

/// The element itself, which the interface only copies.
ZyrRangeImage& elementOf(const ZyrRangeImageArray& images, std::size_t i) {
    return *test::held<std::vector<std::shared_ptr<ZyrRangeImage>>>(images)[i];
}

/// Gives an element a maximum, which only its own SetValue can.
void setMaximum(const ZyrRangeImageArray& images, std::size_t i, double maximum) {
    ZyrRangeImage& image = elementOf(images, i);
    ASSERT_TRUE(image.SetValue(image.Data(), 0, 0, maximum, 0, 0));
}

std::vector<double> maxima(ZyrRangeImageArray& images) {
    std::vector<double> result;
    for (int i = 0; i < images.Length(); ++i)
        result.push_back(elementOf(images, static_cast<std::size_t>(i)).MaxValue());
    return result;
}

class ZyrRangeImageArrayTest : public testing::Test {
protected:
    ZyrRangeImageArrayTest() {
        for (const auto& image : {a_.get(), b_.get(), c_.get()}) images_.Append(*image);
    }

    /// Maxima of 1, 2 and 3.
    void setMaxima() {
        for (std::size_t i = 0; i < 3; ++i) setMaximum(images_, i, static_cast<double>(i + 1));
    }

    std::unique_ptr<ZyrRangeImage> a_ = newPixel(10), b_ = newPixel(20), c_ = newPixel(30),
                                   d_ = newPixel(40);
    ZyrRangeImageArray images_;
};

}  // namespace

TEST_F(ZyrRangeImageArrayTest, DefaultIsEmpty) {
    EXPECT_EQ(ZyrRangeImageArray().Length(), 0);
    EXPECT_EQ(sizeof(ZyrRangeImageArray), sizeof(void*));
}

TEST_F(ZyrRangeImageArrayTest, AppendAddsAtTheEnd) {
    EXPECT_EQ(images_.Length(), 3);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, AppendedImageSharesItsPixels) {
    *static_cast<unsigned char*>(a_->Data()) = 77;
    EXPECT_EQ(pixels(images_), (Numbers{77, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, AppendedImageHasTheCalibrationButNoValueRange) {
    EXPECT_EQ(test::calibration(images_[0]), test::sampleCalibration());
    EXPECT_EQ(valueRange(elementOf(images_, 0)), (Numbers{0, 0}));
}

TEST_F(ZyrRangeImageArrayTest, AppendsAnotherListInOrder) {
    ZyrRangeImageArray other;
    other.Append(*d_);
    other.Append(*a_);
    images_.Append(other);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30, 40, 10}));
    EXPECT_EQ(images_[3].Data(), d_->Data());
}

TEST_F(ZyrRangeImageArrayTest, AppendedListsElementsAreCopies) {
    ZyrRangeImageArray other;
    other.Append(*d_);
    images_.Append(other);
    setMaximum(other, 0, 5);
    EXPECT_EQ(maxima(images_), (Numbers{0, 0, 0, 0}));
}

TEST_F(ZyrRangeImageArrayTest, AppendedToItselfDoubles) {
    images_.Append(images_);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30, 10, 20, 30}));
    setMaximum(images_, 0, 5);
    EXPECT_EQ(maxima(images_), (Numbers{5, 0, 0, 0, 0, 0}));
}

TEST_F(ZyrRangeImageArrayTest, CopyIsAListOfItsOwnWithSharedPixels) {
    const ZyrRangeImageArray copy(images_);
    images_.Remove(0);
    EXPECT_EQ(pixels(copy), (Numbers{10, 20, 30}));
    EXPECT_EQ(copy[0].Data(), a_->Data());
}

TEST_F(ZyrRangeImageArrayTest, CopysElementsHaveNoValueRange) {
    setMaxima();
    ZyrRangeImageArray copy(images_);
    EXPECT_EQ(maxima(copy), (Numbers{0, 0, 0}));
    EXPECT_EQ(maxima(images_), (Numbers{1, 2, 3}));
}

TEST_F(ZyrRangeImageArrayTest, AssignmentCopiesTheElementsAndGivesTheTarget) {
    ZyrRangeImageArray target;
    target.Append(*d_);
    setMaximum(target, 0, 5);
    EXPECT_EQ(&(target = images_), &target);
    images_.Clear();
    EXPECT_EQ(pixels(target), (Numbers{10, 20, 30}));
    EXPECT_EQ(maxima(target), (Numbers{0, 0, 0}));
}

TEST_F(ZyrRangeImageArrayTest, SelfAssignmentKeepsTheImages) {
    ZyrRangeImageArray& images = images_;
    images = images_;
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, InsertPutsBeforeTheElement) {
    images_.Insert(0, *d_);
    EXPECT_EQ(pixels(images_), (Numbers{40, 10, 20, 30}));
    images_.Insert(3, *d_);
    EXPECT_EQ(pixels(images_), (Numbers{40, 10, 20, 40, 30}));
}

TEST_F(ZyrRangeImageArrayTest, InsertNeverAppends) {
    images_.Insert(3, *d_);
    images_.Insert(-1, *d_);
    images_.Insert(4, *d_);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
    ZyrRangeImageArray empty;
    empty.Insert(0, *d_);
    EXPECT_EQ(empty.Length(), 0);
}

TEST_F(ZyrRangeImageArrayTest, RemoveTakesTheElementOut) {
    images_.Remove(1);
    EXPECT_EQ(pixels(images_), (Numbers{10, 30}));
    images_.Remove(-1);
    images_.Remove(2);
    EXPECT_EQ(pixels(images_), (Numbers{10, 30}));
}

TEST_F(ZyrRangeImageArrayTest, ReplaceSharesThePixelsAndKeepsTheElementsValueRange) {
    setMaxima();
    images_.Replace(1, *d_);
    EXPECT_EQ(pixels(images_), (Numbers{10, 40, 30}));
    EXPECT_EQ(images_[1].Data(), d_->Data());
    EXPECT_EQ(maxima(images_), (Numbers{1, 2, 3}));
}

TEST_F(ZyrRangeImageArrayTest, ReplaceOutOfRangeDoesNothing) {
    images_.Replace(-1, *d_);
    images_.Replace(3, *d_);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, SelectSharesThePixelsAndKeepsTheOutputsValueRange) {
    setMaxima();
    images_.Select(2, d_.get());
    EXPECT_EQ(d_->Data(), c_->Data());
    EXPECT_EQ(valueRange(*d_), (Numbers{40, 140}));
}

TEST_F(ZyrRangeImageArrayTest, SelectOutOfRangeLeavesTheOutput) {
    images_.Select(-1, d_.get());
    images_.Select(3, d_.get());
    EXPECT_EQ(d_->GetValue(0, 0), 40.0);
}

TEST_F(ZyrRangeImageArrayTest, SwapExchangesTheElementsWithTheirValueRanges) {
    setMaxima();
    images_.Swap(0, 2);
    EXPECT_EQ(pixels(images_), (Numbers{30, 20, 10}));
    EXPECT_EQ(maxima(images_), (Numbers{3, 2, 1}));
}

TEST_F(ZyrRangeImageArrayTest, SwapOutOfRangeDoesNothing) {
    images_.Swap(0, 3);
    images_.Swap(-1, 0);
    images_.Swap(3, 0);
    images_.Swap(0, -1);
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, ElementsThatStayKeepPixelsAndValueRangeWhenTheListChanges) {
    setMaxima();
    std::vector<const void*> before;
    for (int i = 0; i < 3; ++i) before.push_back(images_[i].Data());
    for (int i = 0; i < 100; ++i) images_.Append(*d_);
    images_.Insert(1, *d_);
    images_.Remove(1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(images_[i].Data(), before[static_cast<std::size_t>(i)]);
        EXPECT_EQ(elementOf(images_, static_cast<std::size_t>(i)).MaxValue(), i + 1);
    }
    images_.Remove(0);
    EXPECT_EQ(elementOf(images_, 0).MaxValue(), 2);
}

TEST_F(ZyrRangeImageArrayTest, ElementIsACopyThatSharesThePixels) {
    setMaxima();
    ZyrRangeImage image = images_[1];
    EXPECT_EQ(image.Data(), b_->Data());
    EXPECT_EQ(valueRange(image), (Numbers{0, 0}));
    image.Clear();
    EXPECT_EQ(pixels(images_), (Numbers{10, 20, 30}));
}

TEST_F(ZyrRangeImageArrayTest, ElementOutOfRangeIsADefaultImage) {
    const ZyrRangeImageArray& constant = images_;
    for (const int i : {-1, 3}) {
        EXPECT_EQ(test::shape(images_[i]), (std::vector{0, 0, 0}));
        EXPECT_EQ(test::calibration(constant[i]), (Numbers{1, 0, 1, 0, 1, 0}));
    }
}

TEST_F(ZyrRangeImageArrayTest, ClearEmptiesAndLeavesThePixels) {
    images_.Clear();
    EXPECT_EQ(images_.Length(), 0);
    EXPECT_EQ(a_->GetValue(0, 0), 10.0);
}
