#pragma once

#include <cmath>
#include <cstring>
#include <opencv2/core.hpp>
#include <utility>

/// The arithmetic of the square matrices, in place and once for any size. Every result has the bits
/// that cv::Mat gives.
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
cv::Matx<double, N, N> toMatx(const Rows<N>& m) {
    return cv::Matx<double, N, N>(&m[0][0]);
}

template <int N>
double frobeniusNorm(const Rows<N>& m) {
    double sum = 0.0;
    for (const auto& row : m)
        for (const double element : row) sum += element * element;
    return std::sqrt(sum);
}

template <int N>
double determinant(const Rows<N>& m) {
    return cv::determinant(toMatx(m));
}

/// OpenCV gives the zero matrix for a singular one.
template <int N>
void invert(Rows<N>& m) {
    const cv::Matx<double, N, N> inverse = toMatx(m).inv(cv::DECOMP_LU);
    std::memcpy(m, inverse.val, sizeof m);
}

template <int N>
void transpose(Rows<N>& m) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < r; ++c) std::swap(m[r][c], m[c][r]);
}

/// A row at a time; unrolled, its sums stay in registers. They start from +0.0, as OpenCV's do: a
/// row of negative zeros gives +0.0.
template <int N>
void multiply(Rows<N>& m, const Rows<N>& other) {
    for (auto& row : m) {
        double sums[N] = {};
#pragma GCC unroll 4
        for (int k = 0; k < N; ++k)
#pragma GCC unroll 4
            for (int c = 0; c < N; ++c) sums[c] += row[k] * other[k][c];
#pragma GCC unroll 4
        for (int c = 0; c < N; ++c) row[c] = sums[c];
    }
}

template <int N>
void add(Rows<N>& m, const Rows<N>& other) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) m[r][c] += other[r][c];
}

template <int N>
void subtract(Rows<N>& m, const Rows<N>& other) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c) m[r][c] -= other[r][c];
}

/// OpenCV scales and then adds 0.0: a product of -0.0 comes out as +0.0.
template <int N>
void scale(Rows<N>& m, double factor) {
    for (auto& row : m)
        for (double& element : row) element = element * factor + 0.0;
}

template <int N>
void shift(Rows<N>& m, double summand) {
    for (auto& row : m)
        for (double& element : row) element += summand;
}

template <int N>
bool equal(const Rows<N>& a, const Rows<N>& b) {
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            if (!(a[r][c] == b[r][c])) return false;
    return true;
}

}  // namespace zyr
