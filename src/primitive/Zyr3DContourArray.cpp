#include "Zyr3DContourArray.h"

#include "core/IndexRules.h"

namespace {

using PointArrays = std::vector<ZyrVector3dArray>;

PointArrays independentCopies(const PointArrays& contours) {
    PointArrays copies;
    copies.reserve(contours.size());
    for (ZyrVector3dArray points : contours) copies.push_back(points.DeepCopy());
    return copies;
}

}  // namespace

Zyr3DContourArray::Zyr3DContourArray() : contours_(new PointArrays) {}

Zyr3DContourArray::Zyr3DContourArray(const Zyr3DContourArray& other)
    : contours_(new PointArrays(independentCopies(*other.contours_))) {}

Zyr3DContourArray& Zyr3DContourArray::operator=(const Zyr3DContourArray& other) {
    if (this != &other) *contours_ = independentCopies(*other.contours_);
    return *this;
}

Zyr3DContourArray::~Zyr3DContourArray() {
    delete contours_;
}

int Zyr3DContourArray::Length() const {
    return static_cast<int>(contours_->size());
}

void Zyr3DContourArray::Append(Zyr3DContour& contour) {
    contours_->push_back(contour.ToPointArray().DeepCopy());
}

void Zyr3DContourArray::Append(Zyr3DContourArray& other) {
    zyr::appendAll(*contours_, independentCopies(*other.contours_));
}

void Zyr3DContourArray::Insert(int i, Zyr3DContour& contour) {
    zyr::insertAt(*contours_, i, contour.ToPointArray().DeepCopy());
}

void Zyr3DContourArray::Remove(int i) {
    zyr::removeAt(*contours_, i);
}

void Zyr3DContourArray::Replace(int i, Zyr3DContour& contour) {
    zyr::replaceAt(*contours_, i, contour.ToPointArray());
}

void Zyr3DContourArray::Select(int i, Zyr3DContour* out) const {
    if (zyr::hasIndex(*contours_, i))
        out->FromPointArray((*contours_)[static_cast<std::size_t>(i)]);
}

void Zyr3DContourArray::Swap(int i, int j) {
    zyr::swapAt(*contours_, i, j);
}

void Zyr3DContourArray::Clear() {
    zyr::release(*contours_);
}

Zyr3DContour Zyr3DContourArray::operator[](int i) const {
    Zyr3DContour shared;
    Select(i, &shared);
    return shared.DeepCopy();
}
