#include "Zyr3DTriangle.h"

#include <gtest/gtest.h>

#include "primitive/Samples.h"

using test::allFail;
using test::allPass;

namespace {

const ZyrVector3d kA(0, 0, 0);
const ZyrVector3d kB(10, 20, 30);
const ZyrVector3d kC(15, 27, 19);

Zyr3DTriangle withA(const ZyrVector3d& a) {
    return Zyr3DTriangle(a, kB, kC);
}

Zyr3DTriangle withB(const ZyrVector3d& b) {
    return Zyr3DTriangle(kA, b, kC);
}

Zyr3DTriangle withC(const ZyrVector3d& c) {
    return Zyr3DTriangle(kA, kB, c);
}

/// A corner at the origin, between the x axis and a line that rises by the slope.
Zyr3DTriangle withSharpCorner(double slope) {
    return Zyr3DTriangle(ZyrVector3d(1, 0, 0), ZyrVector3d(0, 0, 0), ZyrVector3d(1, slope, 0));
}

/// The same with the second line turned about: nearly straight on.
Zyr3DTriangle withFlatCorner(double slope) {
    return Zyr3DTriangle(ZyrVector3d(1, 0, 0), ZyrVector3d(0, 0, 0), ZyrVector3d(-1, slope, 0));
}

}  // namespace

TEST(Zyr3DTriangle, DefaultHasInvalidVertices) {
    EXPECT_EQ(test::fields(Zyr3DTriangle()), std::vector<double>(9, test::kInvalid));
}

TEST(Zyr3DTriangle, LiesInMemoryAsABC) {
    EXPECT_EQ(test::fields(
                  Zyr3DTriangle(ZyrVector3d(1, 2, 3), ZyrVector3d(4, 5, 6), ZyrVector3d(7, 8, 9))),
              (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Zyr3DTriangle, VerticesAreReadAndWrittenDirectly) {
    Zyr3DTriangle triangle(kA, kB, kC);
    triangle.c.z = 7;
    EXPECT_EQ(test::values(triangle.a), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(test::values(triangle.b), (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(test::values(triangle.c), (std::vector<double>{15, 27, 7}));
}

TEST(Zyr3DTriangle, EachVertexMustBeValid) {
    EXPECT_TRUE(allFail(withA, test::barelyInvalidVectors()));
    EXPECT_TRUE(allFail(withB, test::barelyInvalidVectors()));
    EXPECT_TRUE(allFail(withC, test::barelyInvalidVectors()));
}

TEST(Zyr3DTriangle, BarelyValidFiniteVerticesAreValid) {
    const auto vertices = test::withComponents({test::below(test::kInvalid), -test::kInvalid, 0.0});
    EXPECT_TRUE(allPass(withA, vertices));
    EXPECT_TRUE(allPass(withC, vertices));
}

TEST(Zyr3DTriangle, SidesMayBeLongerThanTheInvalidValue) {
    EXPECT_TRUE(Zyr3DTriangle({-3e38, 3e38, 0}, {3e38, 3e38, 0}, {0, 0, 0}).IsValid());
    EXPECT_TRUE(Zyr3DTriangle({0, 0, 0}, {3e38, 3e38, 0}, {-3e38, 3e38, 0}).IsValid());
}

TEST(Zyr3DTriangle, FarAwayBSeesTheOthersOnOneLine) {
    EXPECT_TRUE(allPass(withB, test::withComponents({1000.0, -1000.0})));
    EXPECT_TRUE(allFail(withB, test::withComponents({1e9, -1e9})));
}

TEST(Zyr3DTriangle, InfinitelyDistantVertexIsRefusedThoughItIsAValidVector) {
    EXPECT_TRUE(allFail(withA, test::withComponents({-test::kInfinity})));
}

TEST(Zyr3DTriangle, VerticesOnOneLineAreInvalid) {
    EXPECT_FALSE(Zyr3DTriangle({0, 0, 0}, {1, 0, 0}, {2, 0, 0}).IsValid());
}

TEST(Zyr3DTriangle, RightAngleAtBIsValid) {
    EXPECT_TRUE(Zyr3DTriangle({0, 0, 0}, {1, 0, 0}, {1, 1, 0}).IsValid());
}

TEST(Zyr3DTriangle, NearlyCollinearVerticesAreInvalid) {
    EXPECT_FALSE(Zyr3DTriangle({0, 0, 0}, {1, 0, 0}, {0, 1e-9, 0}).IsValid());
}

TEST(Zyr3DTriangle, EqualVerticesAreInvalid) {
    EXPECT_FALSE(Zyr3DTriangle(kA, kA, kC).IsValid());
    EXPECT_FALSE(Zyr3DTriangle(kA, kC, kC).IsValid());
    EXPECT_FALSE(Zyr3DTriangle(kA, kB, kA).IsValid());
}

// For a slope s, 1 / |cos| is sqrt(1 + s * s): 1.0000110450 for 0.0047, 1.0000105800 for 0.0046.
TEST(Zyr3DTriangle, ReciprocalCosineAtBMustExceedOneByMoreThanItsBound) {
    EXPECT_TRUE(allPass(withSharpCorner, std::vector{0.0047, -0.0047, 0.1, 1.0}));
    EXPECT_TRUE(allFail(withSharpCorner, std::vector{0.0046, -0.0046, 1e-9, 0.0}));
    EXPECT_TRUE(allPass(withFlatCorner, std::vector{0.0047, -0.0047, 0.1, 1.0}));
    EXPECT_TRUE(allFail(withFlatCorner, std::vector{0.0046, -0.0046, 1e-9, 0.0}));
}

// The angle at the middle vertex is a right one, however thin the corner at another.
TEST(Zyr3DTriangle, ThinCornerAtAOrCIsValid) {
    EXPECT_TRUE(Zyr3DTriangle({0, 0, 0}, {1, 0, 0}, {1, 1e-9, 0}).IsValid());
    EXPECT_TRUE(Zyr3DTriangle({1, 1e-9, 0}, {1, 0, 0}, {0, 0, 0}).IsValid());
}

// 1 / |cos| goes from 1.00001099799 to 1.00001100268, all of which single precision would round to
// 1.0000109673.
TEST(Zyr3DTriangle, IsToldFromALineInDoublePrecision) {
    EXPECT_TRUE(allFail(withSharpCorner, std::vector{0.00469, 0.0046904}));
    EXPECT_TRUE(allPass(withSharpCorner, std::vector{0.0046905, 0.004691}));
}
