#include "ZyrMatrix3.h"

#include "transform/MatrixRules.h"

double ZyrMatrix3::Value(int row, int col) const {
    return zyr::hasElement<3>(row, col) ? rows_[row][col] : zyr::kInvalidValue;
}

void ZyrMatrix3::Replace(int row, int col, double value) {
    if (zyr::hasElement<3>(row, col)) rows_[row][col] = value;
}

double ZyrMatrix3::Norm() const {
    return zyr::frobeniusNorm(rows_);
}

double ZyrMatrix3::Determinant() const {
    return zyr::determinant(rows_);
}

ZyrMatrix3 ZyrMatrix3::Transposed() const {
    ZyrMatrix3 result = *this;
    zyr::transpose(result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::Inverse() const {
    ZyrMatrix3 result = *this;
    zyr::invert(result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator*(const ZyrMatrix3& other) {
    ZyrMatrix3 result = *this;
    zyr::multiply(result.rows_, other.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator+(const ZyrMatrix3& other) {
    ZyrMatrix3 result = *this;
    zyr::add(result.rows_, other.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator-(const ZyrMatrix3& other) {
    ZyrMatrix3 result = *this;
    zyr::subtract(result.rows_, other.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator*(double factor) {
    ZyrMatrix3 result = *this;
    zyr::scale(result.rows_, factor);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator/(double divisor) {
    return *this * (1.0 / divisor);
}

ZyrMatrix3 ZyrMatrix3::operator+(double summand) {
    ZyrMatrix3 result = *this;
    zyr::shift(result.rows_, summand);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator-(double subtrahend) {
    return *this + -subtrahend;
}

bool ZyrMatrix3::operator==(const ZyrMatrix3& other) {
    return zyr::equal(rows_, other.rows_);
}
