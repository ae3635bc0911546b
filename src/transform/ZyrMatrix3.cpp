#include "ZyrMatrix3.h"

#include <functional>

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
    ZyrMatrix3 result;
    zyr::transpose(rows_, result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::Inverse() const {
    ZyrMatrix3 result;
    zyr::invert(rows_, result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator*(const ZyrMatrix3& other) {
    ZyrMatrix3 result;
    zyr::multiply(rows_, other.rows_, result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator+(const ZyrMatrix3& other) {
    ZyrMatrix3 result;
    zyr::combine(rows_, other.rows_, result.rows_, std::plus<double>());
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator-(const ZyrMatrix3& other) {
    ZyrMatrix3 result;
    zyr::combine(rows_, other.rows_, result.rows_, std::minus<double>());
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator*(double factor) {
    ZyrMatrix3 result;
    zyr::scale(rows_, factor, result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator/(double divisor) {
    return *this * (1.0 / divisor);
}

ZyrMatrix3 ZyrMatrix3::operator+(double summand) {
    ZyrMatrix3 result;
    zyr::shift(rows_, summand, result.rows_);
    return result;
}

ZyrMatrix3 ZyrMatrix3::operator-(double subtrahend) {
    return *this + -subtrahend;
}

bool ZyrMatrix3::operator==(const ZyrMatrix3& other) {
    return zyr::equal(rows_, other.rows_);
}
