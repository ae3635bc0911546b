#include "fileIO/ReadTargets.h"

#include <algorithm>
#include <cstring>

#include "core/FreshMemory.h"
#include "core/StoreAccess.h"
#include "fileIO/ColorWords.h"

namespace zyr {
namespace {

template <class T>
T valueAt(const Byte* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

ZyrVector3d origin() {
    return ZyrVector3d(0, 0, 0);
}

/// Makes the list so long, with room for all at the first value: the file has been found to back
/// them.
template <class T>
void growTo(std::vector<T>& elements, std::size_t length, std::size_t most) {
    if (elements.size() >= length) return;
    if (elements.empty()) reserveFresh(elements, most);
    elements.resize(length);
}

}  // namespace

bool VectorTarget::isFor(const ZyrVector3dArray& array) const {
    return &StoreAccess::elements(*array_) == &StoreAccess::elements(array);
}

void VectorTarget::grow(std::size_t length) {
    const std::size_t had = vectors_.size();
    growTo(vectors_, length, length_);
    // Faster than a resize that is given the value.
    for (std::size_t i = had; i < vectors_.size(); ++i) vectors_[i] = origin();
}

template <class T>
void VectorTarget::store(const ReadRun& run, std::size_t component) {
    if (run.i >= length_) return;
    const std::size_t count = std::min(run.count, length_ - run.i);
    grow(run.i + count);
    double* target = &vectors_[run.i].x + component;
    // Counted down, which takes an instruction less for each value.
    for (std::size_t left = count; left > 0; --left) {
        const std::size_t j = count - left;
        const auto value = static_cast<double>(valueAt<T>(run.data + j * run.stride));
        if (keepsNaN_ || value == value) target[3 * j] = value;
    }
}

void VectorTarget::store(const ReadRun& run, std::size_t component) {
    run.size == 8 ? store<double>(run, component) : store<float>(run, component);
}

void VectorTarget::publish() {
    grow(length_);
    StoreAccess::elements(*array_) = std::move(vectors_);
}

VectorTarget& VectorTargets::targetFor(ZyrVector3dArray& array) {
    for (VectorTarget& target : targets_)
        if (target.isFor(array)) return target;
    return targets_.emplace_back(array, keepsNaN_);
}

void VectorTargets::add(ZyrVector3dArray& array, std::int32_t length, std::int32_t first,
                        std::vector<ColumnTaker>& takers) {
    VectorTarget& target = targetFor(array);
    target.setLength(static_cast<std::size_t>(length));
    if (first < 0) return;
    for (std::size_t k = 0; k < 3; ++k)
        takers.push_back({first + static_cast<std::int32_t>(k),
                          [&target, k](const ReadRun& run) { target.store(run, k); }});
}

void VectorTargets::publish() {
    for (VectorTarget& target : targets_) target.publish();
}

void TriangleTarget::store(const ReadRun& run, std::size_t corner) {
    growTo(corners_, 3 * (run.i + run.count), 3 * triangles_);
    for (std::size_t j = 0; j < run.count; ++j)
        corners_[3 * (run.i + j) + corner] = valueAt<int>(run.data + j * run.stride);
}

void TriangleTarget::takeFrom(std::int32_t first, std::vector<ColumnTaker>& takers) {
    for (std::size_t k = 0; k < 3; ++k)
        takers.push_back({first + static_cast<std::int32_t>(k),
                          [this, k](const ReadRun& run) { store(run, k); }});
}

void TriangleTarget::publish(Zyr3DIntArray& array) {
    growTo(corners_, 3 * triangles_, 3 * triangles_);
    StoreAccess::elements(array) = std::move(corners_);
}

ColorTarget::ColorTarget(bool areWanted, std::int32_t length, std::optional<std::uint32_t> channels)
    : areRead_(areWanted && channels) {
    if (areRead_) row_ = cv::Mat(1, length, CV_8UC(static_cast<int>(*channels)));
}

void ColorTarget::takeFrom(std::int32_t column, std::vector<ColumnTaker>& takers) {
    if (!areRead_) return;
    takers.push_back({column, [this](const ReadRun& run) {
                          for (std::size_t j = 0; j < run.count; ++j)
                              unpackColor(valueAt<std::uint32_t>(run.data + j * run.stride), row_,
                                          run.i + j);
                          stored_ = run.i + run.count;
                      }});
}

void ColorTarget::publish(cv::Mat& colors) {
    if (!areRead_) return;
    const std::size_t size = row_.elemSize();
    if (!row_.empty()) std::memset(row_.ptr() + stored_ * size, 0, (row_.total() - stored_) * size);
    const bool isInPlace = colors.dims == 2 && colors.size() == row_.size() &&
                           colors.type() == row_.type() && colors.data != nullptr;
    if (isInPlace)
        row_.copyTo(colors);
    else
        colors = row_;
}

void setOrigins(ZyrVector3dArray& vectors, std::int32_t n) {
    std::vector<ZyrVector3d>& elements = StoreAccess::elements(vectors);
    elements.clear();
    reserveFresh(elements, static_cast<std::size_t>(n));
    elements.resize(static_cast<std::size_t>(n), origin());
}

}  // namespace zyr
