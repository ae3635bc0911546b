#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// Nine doubles in three rows: a rotation, or any linear map.
///
/// A plain value, contiguous and row-major. A default matrix is deliberately unset: every element
/// is the invalid value 3.4028234663852886e+38, so that IsValidTransformMatrix refuses a matrix
/// that somebody forgot to fill. (A default ZyrMatrix4 is the zero matrix instead.)
///
/// Products, inverse and determinant are OpenCV's, bit for bit. The arithmetic checks nothing:
/// invalid, infinite and NaN elements propagate.
class ZYR_EXPORT ZyrMatrix3 {
public:
    /// Every element is the invalid value.
    ZyrMatrix3();
    /// The elements row by row.
    ZyrMatrix3(double m00, double m01, double m02, double m10, double m11, double m12, double m20,
               double m21, double m22);

    /// The invalid value for an index outside 0 to 2.
    double Value(int row, int col) const;
    /// Does nothing for an index outside 0 to 2.
    void Replace(int row, int col, double value);
    /// The 9 elements, row by row. Never null.
    const double* Data() const;

    /// Frobenius norm: the root of the squares, summed row by row from the left.
    double Norm() const;
    /// As cv::determinant gives it.
    double Determinant() const;
    /// Rows become columns.
    ZyrMatrix3 Transposed() const;
    /// By LU decomposition; the zero matrix for a singular one.
    ZyrMatrix3 Inverse() const;

    /// The matrix product.
    ZyrMatrix3 operator*(const ZyrMatrix3& other);
    /// Element by element.
    ZyrMatrix3 operator+(const ZyrMatrix3& other);
    ZyrMatrix3 operator-(const ZyrMatrix3& other);
    ZyrMatrix3 operator*(double factor);
    /// Every element times 1/divisor: infinite or NaN when the divisor is 0.0.
    ZyrMatrix3 operator/(double divisor);
    /// The number is added to, or taken from, every element, not only along the diagonal.
    ZyrMatrix3 operator+(double summand);
    ZyrMatrix3 operator-(double subtrahend);
    /// Exact: NaN equals nothing, +0.0 equals -0.0.
    bool operator==(const ZyrMatrix3& other);
    /// The vector as a column: a product of any vector, valid or not.
    ZyrVector3d operator*(const ZyrVector3d& v);

private:
    double rows_[3][3];
};

/// Whether m times its transpose is the identity within 1e-5 (Frobenius norm of the difference, to
/// be strictly below it). Rows are tested for orthonormality only: a reflection passes. NaN, and a
/// default matrix, do not.
ZYR_EXPORT bool IsValidTransformMatrix(ZyrMatrix3 m);

ZYR_INLINE ZyrMatrix3::ZyrMatrix3()
    : rows_{{zyr::kInvalidValue, zyr::kInvalidValue, zyr::kInvalidValue},
            {zyr::kInvalidValue, zyr::kInvalidValue, zyr::kInvalidValue},
            {zyr::kInvalidValue, zyr::kInvalidValue, zyr::kInvalidValue}} {}

ZYR_INLINE ZyrMatrix3::ZyrMatrix3(double m00, double m01, double m02, double m10, double m11,
                                  double m12, double m20, double m21, double m22)
    : rows_{{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}} {}

ZYR_INLINE const double* ZyrMatrix3::Data() const {
    return &rows_[0][0];
}

ZYR_INLINE ZyrVector3d ZyrMatrix3::operator*(const ZyrVector3d& v) {
    return ZyrVector3d(rows_[0][0] * v.x + rows_[0][1] * v.y + rows_[0][2] * v.z,
                       rows_[1][0] * v.x + rows_[1][1] * v.y + rows_[1][2] * v.z,
                       rows_[2][0] * v.x + rows_[2][1] * v.y + rows_[2][2] * v.z);
}
