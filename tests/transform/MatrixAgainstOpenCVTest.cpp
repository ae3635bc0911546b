#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <opencv2/core.hpp>
#include <random>

#include "support/Sanitizer.h"
#include "support/TransformValues.h"

/// Every operation beside cv::Mat's, bit for bit, signed zeros included: a million pairs of each
/// size over six families in what ships.
namespace {

/// The sanitizers, which make all of it take minutes, see every line in fewer.
int casesPerFamily() {
    return test::hasSanitizer() ? 5000 : 170000;
}

using Random = std::mt19937_64;
using Fill = void (*)(Random&, double*, int);

double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

int pick(Random& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

void fillUniform(Random& random, double* m, int n) {
    std::generate(m, m + n * n, [&] { return uniform(random, -1, 1); });
}

void fillTwelveDecades(Random& random, double* m, int n) {
    std::generate(m, m + n * n,
                  [&] { return uniform(random, -1, 1) * std::pow(10.0, uniform(random, -6, 6)); });
}

/// A rotation from three angles, with a translation where there is room.
void fillRigid(Random& random, double* m, int n) {
    const double a = uniform(random, -4, 4), b = uniform(random, -4, 4), c = uniform(random, -4, 4);
    const double rotation[] = {std::cos(a) * std::cos(b),
                               std::cos(a) * std::sin(b) * std::sin(c) - std::sin(a) * std::cos(c),
                               std::cos(a) * std::sin(b) * std::cos(c) + std::sin(a) * std::sin(c),
                               std::sin(a) * std::cos(b),
                               std::sin(a) * std::sin(b) * std::sin(c) + std::cos(a) * std::cos(c),
                               std::sin(a) * std::sin(b) * std::cos(c) - std::cos(a) * std::sin(c),
                               -std::sin(b),
                               std::cos(b) * std::sin(c),
                               std::cos(b) * std::cos(c)};
    std::fill(m, m + n * n, 0.0);
    for (int i = 0; i < 9; ++i) m[i / 3 * n + i % 3] = rotation[i];
    if (n == 3) return;
    for (int r = 0; r < 3; ++r) m[r * n + 3] = uniform(random, -1000, 1000);
    m[15] = 1.0;
}

/// Small integers of both signs, zeros of both signs among them: often singular.
void fillIntegers(Random& random, double* m, int n) {
    std::generate(m, m + n * n, [&] { return pick(random, -2, 2) * (pick(random, 0, 1) - 0.5); });
}

/// The last row is a mixture of the first two.
void fillRankDeficient(Random& random, double* m, int n) {
    fillUniform(random, m, n);
    const double f = uniform(random, -2, 2), g = uniform(random, -2, 2);
    for (int c = 0; c < n; ++c) m[(n - 1) * n + c] = f * m[c] + g * m[n + c];
}

/// The same, a little off: pivots on both sides of the smallest that counts.
void fillNearSingular(Random& random, double* m, int n) {
    fillRankDeficient(random, m, n);
    m[n * n - 1] += std::pow(10.0, uniform(random, -16, -9));
}

constexpr Fill kFamilies[] = {fillUniform,  fillTwelveDecades, fillRigid,
                              fillIntegers, fillRankDeficient, fillNearSingular};

template <class Matrix>
bool same(const Matrix& actual, const cv::Mat& expected) {
    constexpr int kOrder = test::Elements<Matrix>::order;
    return std::equal(actual.Data(), actual.Data() + kOrder * kOrder, expected.ptr<double>(),
                      test::sameBits);
}

template <class Matrix>
struct Pair {
    using Array = typename test::Elements<Matrix>::Array;
    static constexpr int kOrder = test::Elements<Matrix>::order;

    Pair(Fill fill, Random& random) {
        fill(random, a.data(), kOrder);
        fill(random, b.data(), kOrder);
    }

    Array a, b;
    Matrix left() const { return test::matrix<Matrix>(a); }
    Matrix right() const { return test::matrix<Matrix>(b); }
    cv::Mat leftMat() { return cv::Mat(kOrder, kOrder, CV_64F, a.data()); }
    cv::Mat rightMat() { return cv::Mat(kOrder, kOrder, CV_64F, b.data()); }
};

class MatrixAgainstOpenCV : public testing::TestWithParam<int> {
public:
    template <class Matrix, class Agree>
    void expectAgreement(Agree agree) {
        Random random(static_cast<unsigned>(20 + GetParam()));
        int differing = 0;
        for (int i = 0; i < casesPerFamily(); ++i) {
            Pair<Matrix> pair(kFamilies[GetParam()], random);
            differing += agree(pair) ? 0 : 1;
        }
        EXPECT_EQ(differing, 0);
    }

    template <class Agree>
    void expectAgreementOfBoth(Agree agree) {
        expectAgreement<ZyrMatrix3>(agree);
        expectAgreement<ZyrMatrix4>(agree);
    }
};

}  // namespace

TEST_P(MatrixAgainstOpenCV, ProductHasTheSameBits) {
    expectAgreementOfBoth(
        [](auto& p) { return same(p.left() * p.right(), cv::Mat(p.leftMat() * p.rightMat())); });
}

TEST_P(MatrixAgainstOpenCV, InverseHasTheSameBits) {
    expectAgreementOfBoth(
        [](auto& p) { return same(p.left().Inverse(), cv::Mat(p.leftMat().inv(cv::DECOMP_LU))); });
}

TEST_P(MatrixAgainstOpenCV, DeterminantHasTheSameBits) {
    expectAgreementOfBoth([](auto& p) {
        return test::sameBits(p.left().Determinant(), cv::determinant(p.leftMat()));
    });
}

TEST_P(MatrixAgainstOpenCV, SumsHaveTheSameBits) {
    expectAgreementOfBoth([](auto& p) {
        const double s = p.b[0];
        return same(p.left() + p.right(), cv::Mat(p.leftMat() + p.rightMat())) &&
               same(p.left() - p.right(), cv::Mat(p.leftMat() - p.rightMat())) &&
               same(p.left() + s, cv::Mat(p.leftMat() + cv::Scalar(s))) &&
               same(p.left() - s, cv::Mat(p.leftMat() - cv::Scalar(s)));
    });
}

TEST_P(MatrixAgainstOpenCV, ScaledOnesHaveTheSameBits) {
    expectAgreementOfBoth([](auto& p) {
        const double s = p.b[0];
        return same(p.left() * s, cv::Mat(p.leftMat() * s)) &&
               same(p.left() / s, cv::Mat(p.leftMat() / s)) &&
               same(p.left().Transposed(), cv::Mat(p.leftMat().t()));
    });
}

INSTANTIATE_TEST_SUITE_P(Families, MatrixAgainstOpenCV, testing::Range(0, 6));
