#include "Zyr3DRegion.h"

#include "core/IndexRules.h"

Zyr3DRegion::Zyr3DRegion() : lineSets_(new std::vector<Zyr3DLineSet>) {}

Zyr3DRegion::Zyr3DRegion(const Zyr3DRegion& other)
    : lineSets_(new std::vector<Zyr3DLineSet>(*other.lineSets_)) {}

Zyr3DRegion& Zyr3DRegion::operator=(const Zyr3DRegion& other) {
    *lineSets_ = *other.lineSets_;
    return *this;
}

Zyr3DRegion::~Zyr3DRegion() {
    delete lineSets_;
}

int Zyr3DRegion::Length() const {
    return static_cast<int>(lineSets_->size());
}

void Zyr3DRegion::Append(const Zyr3DLineSet& lineSet) {
    lineSets_->push_back(lineSet);
}

Zyr3DLineSet& Zyr3DRegion::operator[](int i) {
    return zyr::hasIndex(*lineSets_, i) ? (*lineSets_)[static_cast<std::size_t>(i)]
                                        : zyr::scratchElement<Zyr3DLineSet>();
}

Zyr3DLineSet Zyr3DRegion::operator[](int i) const {
    return zyr::hasIndex(*lineSets_, i) ? (*lineSets_)[static_cast<std::size_t>(i)]
                                        : Zyr3DLineSet();
}
