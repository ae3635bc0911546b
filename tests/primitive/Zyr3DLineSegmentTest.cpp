#include "Zyr3DLineSegment.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;
using test::values;

namespace {

const ZyrVector3d kEnd(1, 2, 3);

Zyr3DLineSegment withFirst(const ZyrVector3d& p) {
    return Zyr3DLineSegment(p, kEnd);
}

Zyr3DLineSegment withSecond(const ZyrVector3d& p) {
    return Zyr3DLineSegment(kEnd, p);
}

}  // namespace

TEST(Zyr3DLineSegment, DefaultHasInvalidEnds) {
    EXPECT_EQ(test::fields(Zyr3DLineSegment()), std::vector<double>(6, test::kInvalid));
}

TEST(Zyr3DLineSegment, LiesInMemoryAsFirstAndSecondEnd) {
    EXPECT_EQ(test::fields(Zyr3DLineSegment(kEnd, ZyrVector3d(4, 5, 6))),
              (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(Zyr3DLineSegment, EndsAreReadAndWrittenDirectly) {
    Zyr3DLineSegment segment(kEnd, ZyrVector3d(4, 5, 6));
    segment.p2.x = 7;
    EXPECT_EQ(values(segment.p1), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(values(segment.p2), (std::vector<double>{7, 5, 6}));
}

TEST(Zyr3DLineSegment, BothEndsMustBeValid) {
    EXPECT_TRUE(allPass(withFirst, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withFirst, test::barelyInvalidVectors()));
    EXPECT_TRUE(allPass(withSecond, test::barelyValidVectors()));
    EXPECT_TRUE(allFail(withSecond, test::barelyInvalidVectors()));
}

TEST(Zyr3DLineSegment, EqualEndsAreValidAndOfLengthZero) {
    Zyr3DLineSegment segment(kEnd, kEnd);
    EXPECT_TRUE(segment.IsValid());
    EXPECT_EQ(segment.Length(), 0);
}

TEST(Zyr3DLineSegment, LengthIsTheDistanceBetweenTheEnds) {
    const Zyr3DLineSegment segment(ZyrVector3d(1, 2, 3), ZyrVector3d(3, 5, -3));
    EXPECT_EQ(segment.Length(), 7);
}

TEST(Zyr3DLineSegment, LengthDoesNotStopAtTheInvalidValue) {
    EXPECT_EQ(Zyr3DLineSegment(ZyrVector3d(0, 0, 0), ZyrVector3d(1e39, 0, 0)).Length(), 1e39);
    EXPECT_EQ(Zyr3DLineSegment().Length(), 0);
}

TEST(Zyr3DLineSegment, LineStartsAtTheFirstEndInTheUnitDirectionOfTheSecond) {
    const Zyr3DLine line = Zyr3DLineSegment(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 2, 7)).to3DLine();
    EXPECT_EQ(values(line.point), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(values(line.direction), (std::vector<double>{0.6, 0, 0.8}));
}

TEST(Zyr3DLineSegment, LineOfEqualEndsHasNaNsAsDirection) {
    Zyr3DLine line = Zyr3DLineSegment(kEnd, kEnd).to3DLine();
    EXPECT_TRUE(std::isnan(line.direction.x));
    EXPECT_FALSE(line.IsValid());
}

TEST(Zyr3DLineSegment, LineOfEndsTooFarApartHasTheInvalidVectorAsDirection) {
    const Zyr3DLine line =
        Zyr3DLineSegment(ZyrVector3d(-3e38, 0, 0), ZyrVector3d(3e38, 0, 0)).to3DLine();
    EXPECT_EQ(values(line.direction), values(ZyrVector3d()));
    EXPECT_EQ(values(line.point), (std::vector<double>{-3e38, 0, 0}));
}

TEST(Zyr3DLineSegment, LineOfAnInvalidEndHasTheInvalidVectorAsDirection) {
    for (const ZyrVector3d& end : test::barelyInvalidVectors())
        for (Zyr3DLineSegment segment : {withFirst(end), withSecond(end)}) {
            const Zyr3DLine line = segment.to3DLine();
            EXPECT_EQ(values(line.direction), values(ZyrVector3d())) << test::text(end);
            EXPECT_EQ(test::text(line.point), test::text(segment.p1));
        }
}

TEST(Zyr3DLineSegment, LineIsValidAlongAnAxisOnly) {
    EXPECT_TRUE(Zyr3DLineSegment({1, 2, 3}, {1, 2, -3}).to3DLine().IsValid());
    EXPECT_FALSE(Zyr3DLineSegment({1, 2, 3}, {4, 2, 7}).to3DLine().IsValid());
}
