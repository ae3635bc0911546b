#include "fileIO/ReadColumns.h"

#include <gtest/gtest.h>

#include "support/PcdText.h"

namespace {

zyr::PcdHeader header(const std::string& lines) {
    return test::readLines(lines).header;
}

}  // namespace

TEST(ReadColumns, LieOneBehindTheOther) {
    const auto layout = zyr::readLayout(
        header("FIELDS x y z a\nSIZE 8 8 4 2\nCOUNT 1 1 1 3\nPOINTS 10\n"), zyr::FieldsOf::points);
    ASSERT_TRUE(layout.has_value());
    ASSERT_EQ(layout->columns.size(), 4U);
    EXPECT_EQ(layout->columns[1].offset, 80U);
    EXPECT_EQ(layout->columns[2].offset, 160U);
    EXPECT_EQ(layout->columns[3].offset, 200U);
    EXPECT_EQ(layout->columns[3].stride, 6U);
    EXPECT_EQ(layout->bodySize, 260U);
}

TEST(ReadColumns, FaceFieldsHaveOneElementAFace) {
    const auto layout = zyr::readLayout(
        header("FIELDS x y z fa fb fc\nSIZE 8 8 8 4 4 4\nCOUNT 1 1 1 1 1 1\nPOINTS 10\nFACES 3\n"),
        zyr::FieldsOf::pointsAndFaces);
    ASSERT_TRUE(layout.has_value());
    EXPECT_EQ(layout->columns[2].elements, 10U);
    EXPECT_EQ(layout->columns[3].elements, 3U);
    EXPECT_EQ(layout->bodySize, 240U + 36U);
}

TEST(ReadColumns, FaceFieldsMayStandAnywhere) {
    const struct {
        const char* fields;
        std::vector<std::uint64_t> elements;
    } cases[] = {
        {"fnx fny fnz x y z fa fb fc", {3, 3, 3, 10, 10, 10, 3, 3, 3}},
        {"x y z fnx fny fnz fa fb fc", {10, 10, 10, 3, 3, 3, 3, 3, 3}},
        {"frgb x y z fa fb fc", {3, 10, 10, 10, 3, 3, 3}},
        {"x y z frgb rgb fa fb fc", {10, 10, 10, 3, 10, 3, 3, 3}},
        {"rgb x y z fa fb fc nx ny nz", {10, 10, 10, 10, 3, 3, 3, 10, 10, 10}},
        {"x y z a fa fb fc b", {10, 10, 10, 10, 3, 3, 3, 3}},
        // The two fields behind x are its y and z, whatever their names.
        {"x fa y z fb fc", {10, 10, 10, 3, 3, 3}},
    };
    for (const auto& [fields, elements] : cases) {
        std::string sizes, counts;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            sizes += " 4";
            counts += " 1";
        }
        const auto layout =
            zyr::readLayout(header(std::string("FIELDS ") + fields + "\nSIZE" + sizes + "\nCOUNT" +
                                   counts + "\nPOINTS 10\nFACES 3\n"),
                            zyr::FieldsOf::pointsAndFaces);
        ASSERT_TRUE(layout && layout->columns.size() == elements.size()) << fields;
        for (std::size_t i = 0; i < elements.size(); ++i)
            EXPECT_EQ(layout->columns[i].elements, elements[i]) << fields << ", " << i;
    }
}

TEST(ReadColumns, SizesBeyond64BitsGiveNone) {
    const std::string most = "2147483647";
    const auto product = header("FIELDS x y z\nSIZE " + most + " 1 1\nCOUNT " + most +
                                " 1 1\nPOINTS " + most + "\n");
    EXPECT_FALSE(zyr::readLayout(product, zyr::FieldsOf::points).has_value());
    const std::string eight = "2147483647 2147483647 2147483647 2147483647 2147483647";
    const auto sum =
        header("FIELDS x y z a b\nSIZE " + eight + "\nCOUNT " + eight + "\nPOINTS 4\n");
    EXPECT_FALSE(zyr::readLayout(sum, zyr::FieldsOf::points).has_value());
}
