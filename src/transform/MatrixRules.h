#pragma once

#include <cmath>
#include <cstring>
#include <opencv2/core.hpp>

/// The arithmetic of the square matrices, written once for any size. Every result has the bits that
/// cv::Mat gives.
namespace zyr {

template <int N>
using Rows = double[N][N];

/// Taken as unsigned, a negative index lies beyond any order.
template <int N>
bool hasElement(int row, int col) {
    return static_cast<unsigned>(row) < N && static_cast<unsigned>(col) < N;
}

/// What OpenCV's own inverse and determinant work on.
template <int N>
cv::Matx<double, N, N> toMatx(const Rows<N>& a) {
    return cv::Matx<double, N, N>(&a[0][0]);
}

template <int N>
double frobeniusNorm(const Rows<N>& a) {
    double sum = 0.0;
    for (const auto& row : a)
        for (const double element : row) sum += element * element;
    return std::sqrt(sum);
}

template <int N>
double determinant(const Rows<N>& a) {
    return cv::determinant(toMatx(a));
}

/// OpenCV gives the zero matrix for a singular one.
template <int N>
void invert(const Rows<N>& a, Rows<N>& out) {
    const cv::Matx<double, N, N> inverse = toMatx(a).inv(cv::DECOMP_LU);
    std::memcpy(out, inverse.val, sizeof out);
}

template <int N>
void transpose(const Rows<N>& a, Rows<N>& out) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) out[r][c] = a[c][r];
}

/// The sums start from +0.0, as OpenCV's do: a row of negative zeros gives +0.0.
template <int N>
void multiply(const Rows<N>& a, const Rows<N>& b, Rows<N>& out) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) {
            double sum = 0.0;
            for (int k = 0; k < N; ++k) sum += a[r][k] * b[k][c];
            out[r][c] = sum;
        }
}

template <int N, class Operation>
void combine(const Rows<N>& a, const Rows<N>& b, Rows<N>& out, Operation operation) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) out[r][c] = operation(a[r][c], b[r][c]);
}

/// OpenCV scales and then adds 0.0: a product of -0.0 comes out as +0.0.
template <int N>
void scale(const Rows<N>& a, double factor, Rows<N>& out) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) out[r][c] = a[r][c] * factor + 0.0;
}

template <int N>
void shift(const Rows<N>& a, double summand, Rows<N>& out) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) out[r][c] = a[r][c] + summand;
}

template <int N>
bool equal(const Rows<N>& a, const Rows<N>& b) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            if (!(a[r][c] == b[r][c])) return false;
    return true;
}

}  // namespace zyr
