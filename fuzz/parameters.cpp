#include "Harness.h"
#include "roi/Blocks.h"

// Input: a kind, then the doubles of a parameter block. Whatever they are, reading gives what the
// block holds or leaves the outputs alone, and never changes the block.

namespace {

using fuzz::Bytes;
using fuzz::require;

using Doubles = std::vector<double>;

struct Fixed {
    int kind;
    std::size_t count;
};
constexpr Fixed kFixed[] = {{1, 3}, {2, 6},  {3, 6},  {4, 7},  {5, 6},   {6, 9},  {7, 4}, {8, 8},
                            {9, 9}, {11, 8}, {12, 9}, {13, 8}, {14, 11}, {15, 9}, {16, 9}};

double truncated(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? std::trunc(value) : -2147483648.0;
}

/// What was read can be stored if it is valid, and then reads as before.
template <class Block>
void checkStored(int kind, const Doubles& doubles) {
    Block block;
    test::gen(block, kind, doubles);
    const int type = test::typeOf(block);
    require(type == kind || (type == 0 && test::parameters(block).empty()), "stored or empty");
    if (type == 0) return;
    Doubles again(doubles.size(), 0.5);
    test::get(block, kind, again);
    require(test::areSame(again, doubles), "stored regions come back");
}

template <class Block>
void checkFixed(Block& block, Fixed fixed, const Doubles& stored) {
    const Doubles before(fixed.count, 1.0);
    Doubles outputs = before;
    const bool isRead = test::get(block, fixed.kind, outputs);
    if (test::typeOf(block) != fixed.kind || stored.size() < fixed.count) {
        require(!isRead && test::areSame(outputs, before), "another kind leaves the outputs");
        return;
    }
    Doubles expected(stored.begin(), stored.begin() + static_cast<std::ptrdiff_t>(fixed.count));
    if (fixed.kind == 14) expected.back() = truncated(expected.back()) + 0.0;
    require(test::areSame(outputs, expected), "outputs are what the block holds");
    checkStored<Block>(fixed.kind, outputs);
}

template <class Block>
void checkPolygon(Block& block, const Doubles& stored) {
    double data[] = {1, 2, 3};
    ZyrVector3dArray vertices(data, 3, 9);
    const bool isRead = block.Get3DPolygon(&vertices);
    const bool isWhole = test::typeOf(block) == 10 && stored.size() % 3 == 0;
    require(isRead == isWhole, "polygons of whole vertices are read");
    const Doubles read(vertices.Data(), vertices.Data() + 3 * vertices.Length());
    require(test::areSame(read, isWhole ? stored : Doubles()), "with what the block holds");
    block.Gen3DPolygon(vertices);
}

template <class Block>
void checkLines(Block& block, const Doubles& stored) {
    Zyr3DLineSet lines;
    lines.AppendVertex(1, 2, 3);
    const bool isRead = test::getLines(block, &lines);
    bool isWhole = test::typeOf(block) == 17 && stored.size() >= 2;
    double vertices = 0, indices = 0;
    if (isWhole) {
        vertices = truncated(stored[0]);
        indices = truncated(stored[1]);
        isWhole = vertices >= 0 && indices >= 0 &&
                  2 + 3 * vertices + indices == static_cast<double>(stored.size());
    }
    require(isRead == isWhole, "line sets of exactly their doubles are read");
    require(lines.NumVertex() == (isWhole ? vertices : 0), "all vertices");
    require(lines.NumLine() == (isWhole ? std::trunc(indices / 2) : 0), "all lines");
    for (int i = -1; i <= lines.NumLine(); ++i) (void)lines[i];
    test::genLines(block, lines);
}

template <class Block>
void checkBlock(int kind, const Doubles& doubles) {
    Block block;
    test::forge(block, kind, doubles);
    const test::Snapshot before(block);
    for (const Fixed fixed : kFixed) checkFixed(block, fixed, doubles);
    require(before.holds(), "reading does not change the block");
    Block copy;
    test::forge(copy, kind, doubles);
    checkPolygon(copy, doubles);
    test::forge(copy, kind, doubles);
    checkLines(copy, doubles);
}

void checkConversion(int kind, const Doubles& doubles) {
    Zyr3DROI roi, back;
    test::forge(roi, kind, doubles);
    Zyr3DShape shape;
    shape.From3DROI(roi);
    const bool isKnown = kind >= 1 && kind <= 17;
    require(shape.ShapeType3D() == (isKnown ? kind : 0), "the kind is taken over");
    shape.To3DROI(&back);
    require(test::areSame(test::parameters(back), isKnown ? doubles : Doubles()), "all of it");
}

}  // namespace

void fuzz::fuzzOne(Bytes input) {
    const int kind = take<std::int8_t>(input);
    Doubles doubles;
    while (input.size() >= sizeof(double) && doubles.size() < 300)
        doubles.push_back(take<double>(input));
    checkBlock<IZyr3DROIPara>(kind, doubles);
    checkBlock<IZyr3DShapePara>(kind, doubles);
    checkBlock<Zyr3DROI>(kind, doubles);
    checkBlock<Zyr3DShape>(kind, doubles);
    checkConversion(kind, doubles);
}
