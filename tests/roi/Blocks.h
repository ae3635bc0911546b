#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <vector>

#include "Zyr3DShape.h"
#include "support/Held.h"
#include "support/ZyrValues.h"

/// One way to speak with the two blocks and their two handles: kinds by their codes, arguments and
/// outputs as flat doubles in the order of the layout.
namespace test {

/// What a block holds, to look at it and to put in what no Gen3D... stores.
inline zyr::ParameterBlock& contents(IZyr3DROIPara& block) {
    static_assert(sizeof(IZyr3DROIPara) == sizeof(zyr::ParameterBlock));
    return reinterpret_cast<zyr::ParameterBlock&>(block);
}

inline zyr::ParameterBlock& contents(IZyr3DShapePara& block) {
    static_assert(sizeof(IZyr3DShapePara) == sizeof(zyr::ParameterBlock));
    return reinterpret_cast<zyr::ParameterBlock&>(block);
}

inline zyr::ParameterBlock& contents(Zyr3DROI& roi) {
    return contents(held<IZyr3DROIPara>(roi));
}

inline zyr::ParameterBlock& contents(Zyr3DShape& shape) {
    return contents(held<IZyr3DShapePara>(shape));
}

template <class Block>
std::vector<double>& parameters(Block& block) {
    return contents(block).parameters;
}

inline int typeOf(const IZyr3DROIPara& block) {
    return block.ThirdROIType();
}

inline int typeOf(const IZyr3DShapePara& block) {
    return block.ThirdShapeType();
}

inline int typeOf(const Zyr3DROI& roi) {
    return roi.ROIType3D();
}

inline int typeOf(const Zyr3DShape& shape) {
    return shape.ShapeType3D();
}

/// Makes the block hold a kind with any doubles.
template <class Block>
void forge(Block& block, int kind, const std::vector<double>& doubles) {
    contents(block).type = kind;
    parameters(block) = doubles;
}

/// Bit for bit, so that a NaN is like itself.
inline bool areSame(const std::vector<double>& one, const std::vector<double>& other) {
    const std::size_t bytes = one.size() * sizeof(double);
    return one.size() == other.size() &&
           (one.empty() || std::memcmp(one.data(), other.data(), bytes) == 0);
}

/// A block as it was, to see whether it changes.
class Snapshot {
public:
    template <class Block>
    explicit Snapshot(Block& block)
        : contents_(contents(block)), before_(contents_), memory_(contents_.parameters.data()) {}

    bool holds() const {
        return contents_.type == before_.type && contents_.parameters.data() == memory_ &&
               areSame(contents_.parameters, before_.parameters);
    }

private:
    const zyr::ParameterBlock& contents_;
    zyr::ParameterBlock before_;
    const double* memory_;
};

template <class Block>
testing::AssertionResult isEmpty(Block& block) {
    if (typeOf(block) == 0 && parameters(block).empty() && parameters(block).capacity() == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "type " << typeOf(block) << ", parameters "
                                       << testing::PrintToString(parameters(block)) << " of "
                                       << parameters(block).capacity() << " reserved";
}

inline void read(const double*& next, ZyrVector3d& v) {
    v = ZyrVector3d(next[0], next[1], next[2]);
    next += 3;
}

inline void read(const double*& next, double& value) {
    value = *next++;
}

inline void read(const double*& next, Zyr3DTorusType& type) {
    type = static_cast<Zyr3DTorusType>(static_cast<int>(*next++));
}

inline void write(double*& next, const ZyrVector3d& v) {
    for (const double component : {v.x, v.y, v.z}) *next++ = component;
}

inline void write(double*& next, double value) {
    *next++ = value;
}

/// Calls Gen3D... with arguments from flat doubles, and gives what they are afterwards.
template <class Block, class... Arguments>
std::vector<double> gen(Block& block, void (Block::*operation)(Arguments...),
                        std::vector<double> doubles) {
    std::tuple<std::decay_t<Arguments>...> arguments;
    const double* next = doubles.data();
    std::apply([&](auto&... argument) { (read(next, argument), ...); }, arguments);
    std::apply([&](auto&... argument) { (block.*operation)(argument...); }, arguments);
    double* target = doubles.data();
    std::apply([&](const auto&... argument) { (write(target, argument), ...); }, arguments);
    return doubles;
}

/// Calls Get3D... with outputs that start as the given doubles, and puts back what they become.
template <class Block, class... Outputs>
bool get(Block& block, bool (Block::*operation)(Outputs*...), std::vector<double>& doubles) {
    std::tuple<Outputs...> outputs;
    const double* next = doubles.data();
    std::apply([&](auto&... output) { (read(next, output), ...); }, outputs);
    const bool result =
        std::apply([&](auto&... output) { return (block.*operation)(&output...); }, outputs);
    double* target = doubles.data();
    std::apply([&](const auto&... output) { (write(target, output), ...); }, outputs);
    return result;
}

/// Calls use with the pair of operations of a kind of fixed size.
template <class Block, class Use>
auto withOperations(int kind, Use use) {
    using B = Block;
    switch (kind) {
        case 1:
            return use(&B::Gen3DPoint, &B::Get3DPoint);
        case 2:
            return use(&B::Gen3DLine, &B::Get3DLine);
        case 3:
            return use(&B::Gen3DLineSegment, &B::Get3DLineSegment);
        case 4:
            return use(&B::Gen3DCircle, &B::Get3DCircle);
        case 5:
            return use(&B::Gen3DPlane, &B::Get3DPlane);
        case 6:
            return use(&B::Gen3DBox, &B::Get3DBox);
        case 7:
            return use(&B::Gen3DSphere, &B::Get3DSphere);
        case 8:
            return use(&B::Gen3DCylinder, &B::Get3DCylinder);
        case 9:
            return use(&B::Gen3DTriangle, &B::Get3DTriangle);
        case 11:
            return use(&B::Gen3DEllipse, &B::Get3DEllipse);
        case 12:
            return use(&B::Gen3DEllipsoid, &B::Get3DEllipsoid);
        case 13:
            return use(&B::Gen3DRect, &B::Get3DRect);
        case 14:
            return use(&B::Gen3DTorus, &B::Get3DTorus);
        case 15:
            return use(&B::Gen3DTube, &B::Get3DTube);
        case 16:
            return use(&B::Gen3DArc, &B::Get3DArc);
        default:
            throw std::logic_error("no kind of fixed size");
    }
}

template <class Block>
std::vector<double> gen(Block& block, int kind, const std::vector<double>& doubles) {
    return withOperations<Block>(
        kind, [&](auto genOperation, auto) { return gen(block, genOperation, doubles); });
}

template <class Block>
bool get(Block& block, int kind, std::vector<double>& doubles) {
    return withOperations<Block>(
        kind, [&](auto, auto getOperation) { return get(block, getOperation, doubles); });
}

/// The pair for line sets is named for its meaning.
inline void genLines(IZyr3DROIPara& block, Zyr3DLineSet& lines) {
    block.Gen3DIrregular(lines);
}

inline void genLines(Zyr3DROI& roi, Zyr3DLineSet& lines) {
    roi.Gen3DIrregular(lines);
}

inline void genLines(IZyr3DShapePara& block, Zyr3DLineSet& lines) {
    block.Gen3DAnyShape(lines);
}

inline void genLines(Zyr3DShape& shape, Zyr3DLineSet& lines) {
    shape.Gen3DAnyShape(lines);
}

inline bool getLines(IZyr3DROIPara& block, Zyr3DLineSet* lines) {
    return block.Get3DIrregular(lines);
}

inline bool getLines(Zyr3DROI& roi, Zyr3DLineSet* lines) {
    return roi.Get3DIrregular(lines);
}

inline bool getLines(IZyr3DShapePara& block, Zyr3DLineSet* lines) {
    return block.Get3DAnyShape(lines);
}

inline bool getLines(Zyr3DShape& shape, Zyr3DLineSet* lines) {
    return shape.Get3DAnyShape(lines);
}

using AllBlocks = testing::Types<IZyr3DROIPara, Zyr3DROI, IZyr3DShapePara, Zyr3DShape>;
using Handles = testing::Types<Zyr3DROI, Zyr3DShape>;

}  // namespace test
