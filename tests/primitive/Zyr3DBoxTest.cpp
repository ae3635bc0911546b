#include "Zyr3DBox.h"

#include <gtest/gtest.h>

#include "primitive/OrientedSolids.h"

namespace {

Zyr3DBox fromCorners(const ZyrVector3d& a, const ZyrVector3d& b) {
    Zyr3DBox box;
    box.FromCorner(a, b);
    return box;
}

Zyr3DBox box(const ZyrVector3d& angle) {
    return Zyr3DBox(ZyrVector3d(1, 2, 3), angle, ZyrVector3d(2, 4, 6));
}

}  // namespace

TEST(Zyr3DBox, HasConstOnlyWhereListed) {
    using B = Zyr3DBox;
    using V = ZyrVector3d;
    static_assert(test::listed<void (B::*)(const V&, const V&)>(&B::FromCorner));
    static_assert(test::listed<V (B::*)()>(&B::MinCorner));
    static_assert(test::listed<V (B::*)()>(&B::MaxCorner));
    static_assert(test::listed<bool (B::*)(const B&) const>(&B::operator==));
    EXPECT_TRUE(test::listed<double (B::*)() const>(&B::Volume));
}

TEST(Zyr3DBox, IsValidWhateverItsCentreAndAngles) {
    Zyr3DBox unplaced(ZyrVector3d(), ZyrVector3d(std::nan(""), 0, 0), ZyrVector3d(1, 1, 1));
    EXPECT_TRUE(unplaced.IsValid());
    EXPECT_EQ(test::values(unplaced.Size()), (std::vector<double>{1, 1, 1}));
}

TEST(Zyr3DBox, ARefusedPoseChangesNothing) {
    Zyr3DBox b = box(ZyrVector3d(10, 20, 30));
    b.SetAttributeMatrix(test::withNaN());
    EXPECT_EQ(test::values(b.Center()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(b.Size()), (std::vector<double>{2, 4, 6}));
    EXPECT_EQ(test::values(b.Angle()), (std::vector<double>{10, 20, 30}));
}

TEST(Zyr3DBox, ConstructionFromARefusedPoseKeepsTheSize) {
    Zyr3DBox b(ZyrVector3d(2, 4, 6), test::withNaN());
    EXPECT_EQ(test::values(b.Size()), (std::vector<double>{2, 4, 6}));
    EXPECT_EQ(test::values(b.Center()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(b.Angle()), std::vector<double>(3, test::kInvalid));
    EXPECT_TRUE(b.IsValid());
}

TEST(Zyr3DBox, FromCornerSpansTheTwo) {
    Zyr3DBox b = fromCorners(ZyrVector3d(0, 0, 0), ZyrVector3d(2, 4, 6));
    EXPECT_EQ(test::values(b.Center()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(b.Size()), (std::vector<double>{2, 4, 6}));
    EXPECT_EQ(test::values(b.Angle()), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(b.Volume(), 48.0);
    EXPECT_EQ(test::values(b.MinCorner()), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(test::values(b.MaxCorner()), (std::vector<double>{2, 4, 6}));
}

TEST(Zyr3DBox, FromCornerTakesTheCornersInAnyOrder) {
    Zyr3DBox b = fromCorners(ZyrVector3d(2, 0, 6), ZyrVector3d(0, 4, -6));
    EXPECT_EQ(test::values(b.Center()), (std::vector<double>{1, 2, 0}));
    EXPECT_EQ(test::values(b.Size()), (std::vector<double>{2, 4, 12}));
}

TEST(Zyr3DBox, FromCornerDoesNotCheck) {
    Zyr3DBox b = fromCorners(ZyrVector3d(1, 2, 3), ZyrVector3d(1, 5, std::nan("")));
    EXPECT_EQ(b.Size().x, 0.0);
    EXPECT_EQ(b.Size().y, 3.0);
    EXPECT_TRUE(std::isnan(b.Center().z));
}

TEST(Zyr3DBox, FromCornerDropsTheRotation) {
    Zyr3DBox b = box(ZyrVector3d(10, 20, 30));
    b.FromCorner(ZyrVector3d(0, 0, 0), ZyrVector3d(1, 1, 1));
    EXPECT_EQ(test::values(b.Angle()), (std::vector<double>{0, 0, 0}));
}

TEST(Zyr3DBox, AFlatBoxHasNoVolumeAndIsResetByIsValidOnly) {
    Zyr3DBox flat(ZyrVector3d(1, 2, 3), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 0, 1));
    EXPECT_EQ(flat.Volume(), test::kInvalid);
    EXPECT_EQ(test::values(flat.Size()), (std::vector<double>{1, 0, 1}));
    EXPECT_FALSE(flat.IsValid());
    test::expectDefault(flat);
}

TEST(Zyr3DBox, VolumeNeedsEachSizeStrictlyInside) {
    for (const double bad : {0.0, -1.0, test::kInvalid, std::nan("")})
        for (const ZyrVector3d& size :
             {ZyrVector3d(bad, 2, 3), ZyrVector3d(2, bad, 3), ZyrVector3d(2, 3, bad)})
            EXPECT_EQ(Zyr3DBox(ZyrVector3d(), ZyrVector3d(), size).Volume(), test::kInvalid);
    EXPECT_EQ(Zyr3DBox(ZyrVector3d(), ZyrVector3d(), ZyrVector3d(2, 3, 4)).Volume(), 24.0);
}

// A quarter turn about z takes the local corner (-1, -2, -3) to (2, -1, -3).
TEST(Zyr3DBox, CornersAreLocalNotTheLeastAndGreatest) {
    Zyr3DBox b = box(ZyrVector3d(0, 0, 90));
    test::expectNear(test::values(b.MinCorner()), {3, 1, 0}, 1e-14);
    test::expectNear(test::values(b.MaxCorner()), {-1, 3, 6}, 1e-14);
}

// The terms of y and z nearly cancel at 3.5e15, which would swallow the centre's 0.3.
TEST(Zyr3DBox, CornersAddTheCentreLast) {
    Zyr3DBox b(ZyrVector3d(0, 0.3, 0), ZyrVector3d(45, 0, 0), ZyrVector3d(2, 1e16, 1e16));
    const double c = std::cos(45 * test::kPi / 180.0), s = std::sin(45 * test::kPi / 180.0);
    const double y = c * 0.5 * 1e16, z = -s * 0.5 * 1e16;
    ASSERT_NE((y + z) + 0.3, y + (z + 0.3));
    EXPECT_EQ(b.MaxCorner().y, (y + z) + 0.3);
    EXPECT_EQ(b.MinCorner().y, (-y - z) + 0.3);
}

// In any other order the sum ends in 6.
TEST(Zyr3DBox, CornersAddTheTermOfZToThoseOfXAndY) {
    Zyr3DBox b(ZyrVector3d(0, 0, 0), ZyrVector3d(10, 20, 30), ZyrVector3d(1, 2, 3));
    EXPECT_EQ(b.MaxCorner().y, 1.1445297413103084);
    EXPECT_EQ(b.MinCorner().y, -1.1445297413103084);
}

TEST(Zyr3DBox, CornersOfAnInvalidBoxAreInvalidAndResetIt) {
    Zyr3DBox a(ZyrVector3d(1, 2, 3), ZyrVector3d(0, 0, 0), ZyrVector3d(1, 0, 1)), b = a;
    EXPECT_EQ(test::values(a.MinCorner()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(a.Center()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(b.MaxCorner()), std::vector<double>(3, test::kInvalid));
    EXPECT_EQ(test::values(b.Center()), std::vector<double>(3, test::kInvalid));
}

TEST(Zyr3DBox, EqualityIgnoresTheAngleAboutZ) {
    EXPECT_TRUE(box(ZyrVector3d(1, 2, 10)) == box(ZyrVector3d(1, 2, 20)));
    EXPECT_TRUE(box(ZyrVector3d(1, 2, 10)) == box(ZyrVector3d(1, 2, std::nan(""))));
}

TEST(Zyr3DBox, EqualityComparesAllElseExactly) {
    double fields[] = {1, 2, 3, 4, 5, 6, 7, 8};
    const auto made = [&] {
        return Zyr3DBox(ZyrVector3d(fields[0], fields[1], fields[2]),
                        ZyrVector3d(fields[3], fields[4], 0),
                        ZyrVector3d(fields[5], fields[6], fields[7]));
    };
    const Zyr3DBox before = made();
    EXPECT_TRUE(before == made());
    for (double& field : fields) {
        const double kept = field;
        field = std::nextafter(kept, 10);
        EXPECT_FALSE(before == made()) << kept;
        field = kept;
    }
}

TEST(Zyr3DBox, NaNIsUnequalEvenToItsCopy) {
    const Zyr3DBox b = box(ZyrVector3d(std::nan(""), 0, 0));
    EXPECT_FALSE(b == b);
}

TEST(Zyr3DBox, TwoDefaultBoxesAreEqual) {
    EXPECT_TRUE(Zyr3DBox() == Zyr3DBox());
}
