#include "ZyrMatrix4.h"

#include "transform/MatrixRules.h"

double ZyrMatrix4::Value(int row, int col) const {
    return zyr::hasElement<4>(row, col) ? rows_[row][col] : zyr::kInvalidValue;
}

void ZyrMatrix4::Replace(int row, int col, double value) {
    if (zyr::hasElement<4>(row, col)) rows_[row][col] = value;
}

double ZyrMatrix4::Norm() const {
    return zyr::frobeniusNorm(rows_);
}

double ZyrMatrix4::Determinant() const {
    return zyr::determinant(rows_);
}

ZyrMatrix4 ZyrMatrix4::Transposed() const {
    ZyrMatrix4 result = *this;
    zyr::transpose(result.rows_);
    return result;
}

ZyrMatrix4 ZyrMatrix4::Inverse() const {
    ZyrMatrix4 result = *this;
    zyr::invert(result.rows_);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator*(const ZyrMatrix4& other) {
    ZyrMatrix4 result = *this;
    zyr::multiply(result.rows_, other.rows_);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator+(const ZyrMatrix4& other) {
    ZyrMatrix4 result = *this;
    zyr::add(result.rows_, other.rows_);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator-(const ZyrMatrix4& other) {
    ZyrMatrix4 result = *this;
    zyr::subtract(result.rows_, other.rows_);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator*(double factor) {
    ZyrMatrix4 result = *this;
    zyr::scale(result.rows_, factor);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator/(double divisor) {
    return *this * (1.0 / divisor);
}

ZyrMatrix4 ZyrMatrix4::operator+(double summand) {
    ZyrMatrix4 result = *this;
    zyr::shift(result.rows_, summand);
    return result;
}

ZyrMatrix4 ZyrMatrix4::operator-(double subtrahend) {
    return *this + -subtrahend;
}

bool ZyrMatrix4::operator==(const ZyrMatrix4& other) {
    return zyr::equal(rows_, other.rows_);
}
