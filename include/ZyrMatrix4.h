#pragma once

#include "ZyrExport.h"
#include "ZyrVector3d.h"

/// Sixteen doubles in four rows: a rigid transform between coordinate frames, in homogeneous form.
///
/// A plain value, contiguous and row-major. A default matrix is the zero matrix: neither the
/// identity, nor unset as a default ZyrMatrix3 is. It is never applied to a vector here;
/// ZyrDualQuaternion moves points.
///
/// Products, inverse and determinant are OpenCV's, bit for bit. The arithmetic checks nothing:
/// invalid, infinite and NaN elements propagate.
class ZYR_EXPORT ZyrMatrix4 {
public:
    /// Every element is 0.0.
    ZyrMatrix4();
    /// The elements row by row.
    ZyrMatrix4(double m00, double m01, double m02, double m03, double m10, double m11, double m12,
               double m13, double m20, double m21, double m22, double m23, double m30, double m31,
               double m32, double m33);

    /// The invalid value for an index outside 0 to 3.
    double Value(int row, int col) const;
    /// Does nothing for an index outside 0 to 3.
    void Replace(int row, int col, double value);
    /// The 16 elements, row by row. Never null.
    const double* Data() const;

    /// Frobenius norm: the root of the squares, summed row by row from the left.
    double Norm() const;
    /// As cv::determinant gives it.
    double Determinant() const;
    /// Rows become columns.
    ZyrMatrix4 Transposed() const;
    /// By LU decomposition; the zero matrix for a singular one. A pivot below 2.22e-14 counts as
    /// none, so that 1e-15 times the identity inverts to zeros; ZyrMatrix3 knows no such bound.
    ZyrMatrix4 Inverse() const;

    /// The matrix product.
    ZyrMatrix4 operator*(const ZyrMatrix4& other);
    /// Element by element.
    ZyrMatrix4 operator+(const ZyrMatrix4& other);
    ZyrMatrix4 operator-(const ZyrMatrix4& other);
    ZyrMatrix4 operator*(double factor);
    /// Every element times 1/divisor: infinite or NaN when the divisor is 0.0.
    ZyrMatrix4 operator/(double divisor);
    /// The number is added to, or taken from, every element, not only along the diagonal.
    ZyrMatrix4 operator+(double summand);
    ZyrMatrix4 operator-(double subtrahend);
    /// Exact: NaN equals nothing, +0.0 equals -0.0.
    bool operator==(const ZyrMatrix4& other);

private:
    double rows_[4][4];
};

/// The test of the upper left 3x3 block; the fourth row and column may hold anything. A default
/// matrix fails, a reflection passes.
ZYR_EXPORT bool IsValidTransformMatrix(ZyrMatrix4 m);

ZYR_INLINE ZyrMatrix4::ZyrMatrix4() : rows_{} {}

ZYR_INLINE ZyrMatrix4::ZyrMatrix4(double m00, double m01, double m02, double m03, double m10,
                                  double m11, double m12, double m13, double m20, double m21,
                                  double m22, double m23, double m30, double m31, double m32,
                                  double m33)
    : rows_{
          {m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}} {}

ZYR_INLINE const double* ZyrMatrix4::Data() const {
    return &rows_[0][0];
}
