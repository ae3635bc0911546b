#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <array>
#include <opencv2/core.hpp>
#include <random>

#include "Zyr3DBox.h"
#include "ZyrDualQuaternion.h"
#include "ZyrMatrix3.h"
#include "ZyrMatrix4.h"
#include "ZyrQuaternion.h"

/// Nanoseconds of one operation beside cv::Mat, cv::Matx and Eigen, over a small ring of operands.
/// Run interleaved: --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
namespace {

constexpr std::size_t kRing = 64;

template <class T>
using Ring = std::array<T, kRing>;

/// Well-conditioned elements, the same for every library.
template <int N>
std::array<double, N * N> elements(std::size_t seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> uniform(-1, 1);
    std::array<double, N * N> e;
    for (double& element : e) element = uniform(random);
    for (int i = 0; i < N; ++i) e[static_cast<std::size_t>(i * N + i)] += 4;
    return e;
}

template <class Matrix, int N>
Matrix make(std::size_t seed) {
    std::array<double, N* N> e = elements<N>(seed);
    if constexpr (std::is_same_v<Matrix, cv::Mat>)
        return cv::Mat(N, N, CV_64F, e.data()).clone();
    else if constexpr (std::is_same_v<Matrix, cv::Matx<double, N, N>>)
        return Matrix(e.data());
    else if constexpr (std::is_same_v<Matrix, Eigen::Matrix<double, N, N>>)
        return Eigen::Map<const Eigen::Matrix<double, N, N, Eigen::RowMajor>>(e.data());
    else
        return std::apply([](auto... each) { return Matrix(each...); }, e);
}

template <class T, class Make>
Ring<T> ring(Make made) {
    Ring<T> r;
    for (std::size_t i = 0; i < kRing; ++i) r[i] = made(i);
    return r;
}

/// Times operation(a, b) over the ring; the result is kept.
template <class T, class Operation>
void timeOperation(benchmark::State& state, Ring<T> operands, Operation operation) {
    std::size_t i = 0;
    for (auto _ : state) {
        auto result = operation(operands[i % kRing], operands[(i + 1) % kRing]);
        benchmark::DoNotOptimize(&result);
        benchmark::ClobberMemory();
        ++i;
    }
}

/// One operation on one library's matrix, whatever that library calls it.
struct Product {
    static cv::Mat of(cv::Mat& a, cv::Mat& b) { return a * b; }
    template <class M>
    static M of(M& a, M& b) {
        return a * b;
    }
};

struct Sum {
    static cv::Mat of(cv::Mat& a, cv::Mat& b) { return a + b; }
    template <class M>
    static M of(M& a, M& b) {
        return a + b;
    }
};

struct Scaled {
    static cv::Mat of(cv::Mat& a, cv::Mat&) { return a * 1.5; }
    template <class M>
    static M of(M& a, M&) {
        return a * 1.5;
    }
};

struct Copy {
    static cv::Mat of(cv::Mat& a, cv::Mat&) { return a.clone(); }
    template <class M>
    static M of(M& a, M&) {
        return a;
    }
};

struct Transposed {
    template <class M>
    static M of(M& a, M&) {
        if constexpr (std::is_same_v<M, cv::Mat> || std::is_same_v<M, cv::Matx33d> ||
                      std::is_same_v<M, cv::Matx44d>)
            return a.t();
        else if constexpr (std::is_same_v<M, ZyrMatrix3> || std::is_same_v<M, ZyrMatrix4>)
            return a.Transposed();
        else
            return a.transpose();
    }
};

struct Inverse {
    template <class M>
    static M of(M& a, M&) {
        if constexpr (std::is_same_v<M, cv::Mat> || std::is_same_v<M, cv::Matx33d> ||
                      std::is_same_v<M, cv::Matx44d>)
            return a.inv(cv::DECOMP_LU);
        else if constexpr (std::is_same_v<M, ZyrMatrix3> || std::is_same_v<M, ZyrMatrix4>)
            return a.Inverse();
        else
            return a.inverse();
    }
};

struct Determinant {
    template <class M>
    static double of(M& a, M&) {
        if constexpr (std::is_same_v<M, cv::Mat> || std::is_same_v<M, cv::Matx33d> ||
                      std::is_same_v<M, cv::Matx44d>)
            return cv::determinant(a);
        else if constexpr (std::is_same_v<M, ZyrMatrix3> || std::is_same_v<M, ZyrMatrix4>)
            return a.Determinant();
        else
            return a.determinant();
    }
};

struct Norm {
    template <class M>
    static double of(M& a, M&) {
        if constexpr (std::is_same_v<M, cv::Mat> || std::is_same_v<M, cv::Matx33d> ||
                      std::is_same_v<M, cv::Matx44d>)
            return cv::norm(a);
        else if constexpr (std::is_same_v<M, ZyrMatrix3> || std::is_same_v<M, ZyrMatrix4>)
            return a.Norm();
        else
            return a.norm();
    }
};

template <class Operation, class Matrix, int N>
void registerOne(const std::string& name) {
    benchmark::RegisterBenchmark(name.c_str(), [](benchmark::State& state) {
        timeOperation(state, ring<Matrix>(make<Matrix, N>),
                      [](Matrix& a, Matrix& b) { return Operation::of(a, b); });
    });
}

template <class Operation>
void registerMatrices(const std::string& name) {
    registerOne<Operation, ZyrMatrix3, 3>(name + "/3x3/ours");
    registerOne<Operation, cv::Mat, 3>(name + "/3x3/cv_mat");
    registerOne<Operation, cv::Matx33d, 3>(name + "/3x3/cv_matx");
    registerOne<Operation, Eigen::Matrix3d, 3>(name + "/3x3/eigen");
    registerOne<Operation, ZyrMatrix4, 4>(name + "/4x4/ours");
    registerOne<Operation, cv::Mat, 4>(name + "/4x4/cv_mat");
    registerOne<Operation, cv::Matx44d, 4>(name + "/4x4/cv_matx");
    registerOne<Operation, Eigen::Matrix4d, 4>(name + "/4x4/eigen");
}

Eigen::Quaterniond eigenRotation(std::size_t seed) {
    const auto e = elements<3>(seed);
    return Eigen::Quaterniond(
        Eigen::AngleAxisd(e[1] * 3, Eigen::Vector3d(e[2], e[3], e[5] + 2).normalized()));
}

ZyrQuaternion zyrRotation(std::size_t seed) {
    const Eigen::Quaterniond q = eigenRotation(seed);
    ZyrVector3d v(q.x(), q.y(), q.z());
    return ZyrQuaternion(q.w(), v);
}

Eigen::Isometry3d eigenMotion(std::size_t seed) {
    return Eigen::Translation3d(1, 2, static_cast<double>(seed)) * eigenRotation(seed);
}

ZyrDualQuaternion zyrMotion(std::size_t seed) {
    ZyrQuaternion rotation = zyrRotation(seed);
    ZyrVector3d translation(1, 2, static_cast<double>(seed));
    ZyrDualQuaternion q;
    q.GenDualQuaternion(rotation, translation);
    return q;
}

/// A result's vector or matrix on the stack, whatever expression gave it.
template <class T, class Make, class Operation>
void registerOver(const char* name, Make made, Operation operation) {
    benchmark::RegisterBenchmark(name, [made, operation](benchmark::State& state) {
        timeOperation(state, ring<T>(made), operation);
    });
}

void registerQuaternions() {
    using EQ = Eigen::Quaterniond;
    using EV = Eigen::Vector3d;
    using ZQ = ZyrQuaternion;
    using ZV = ZyrVector3d;
    registerOver<ZQ>("product/quaternion/ours", zyrRotation, [](ZQ& a, ZQ& b) { return a * b; });
    registerOver<EQ>("product/quaternion/eigen", eigenRotation,
                     [](EQ& a, EQ& b) -> EQ { return a * b; });
    registerOver<ZQ>("rotate/direction/ours", zyrRotation, [](ZQ& a, ZQ& b) {
        ZV out;
        a.TransformDirection(b.v, &out);
        return out;
    });
    registerOver<EQ>("rotate/direction/eigen", eigenRotation,
                     [](EQ& a, EQ& b) -> EV { return (a * EV(b.vec())).normalized(); });
    registerOver<EQ>("rotate/direction/eigen not renormalised", eigenRotation,
                     [](EQ& a, EQ& b) -> EV { return a * EV(b.vec()); });
    registerOver<ZQ>("normalise/quaternion/ours", zyrRotation,
                     [](ZQ& a, ZQ&) { return a.Normalized(); });
    registerOver<EQ>("normalise/quaternion/eigen", eigenRotation,
                     [](EQ& a, EQ&) -> EQ { return a.normalized(); });
    registerOver<ZQ>("slerp/quaternion/ours", zyrRotation, [](ZQ& a, ZQ& b) {
        ZQ out;
        a.SLERP(b, 0.3, &out);
        return out;
    });
    registerOver<EQ>("slerp/quaternion/eigen", eigenRotation,
                     [](EQ& a, EQ& b) -> EQ { return a.slerp(0.3, b); });
    registerOver<ZQ>("to matrix/quaternion/ours", zyrRotation, [](ZQ& a, ZQ&) {
        ZyrMatrix3 m;
        a.GetTransMatrix(&m);
        return m;
    });
    registerOver<EQ>("to matrix/quaternion/eigen", eigenRotation,
                     [](EQ& a, EQ&) -> Eigen::Matrix3d { return a.toRotationMatrix(); });
}

void registerMotions() {
    using EM = Eigen::Isometry3d;
    using ZD = ZyrDualQuaternion;
    registerOver<ZD>("product/motion/ours", zyrMotion, [](ZD& a, ZD& b) { return a * b; });
    registerOver<EM>("product/motion/eigen", eigenMotion, [](EM& a, EM& b) -> EM { return a * b; });
    registerOver<ZD>("transform/point/ours", zyrMotion, [](ZD& a, ZD& b) {
        ZyrVector3d out;
        a.TransformPoint(b.dual.v, &out);
        return out;
    });
    registerOver<EM>("transform/point/eigen", eigenMotion, [](EM& a, EM& b) -> Eigen::Vector3d {
        return a * Eigen::Vector3d(b.translation());
    });
    const auto box = [](std::size_t seed) {
        const auto e = elements<3>(seed);
        return Zyr3DBox(ZyrVector3d(1, 2, 3), ZyrVector3d(e[1], e[2], e[3]) * 90.0,
                        ZyrVector3d(1, 1, 1));
    };
    registerOver<Zyr3DBox>("to pose/box/ours", box,
                           [](Zyr3DBox& a, Zyr3DBox&) { return a.GetAttributeMatrix(); });
    registerOver<Zyr3DBox>("from pose/box/ours", box, [](Zyr3DBox& a, Zyr3DBox&) {
        const ZyrMatrix4 identity(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
        a.SetAttributeMatrix(identity);
        return a;
    });
}

const bool registered = [] {
    registerMatrices<Product>("product");
    registerMatrices<Sum>("sum");
    registerMatrices<Scaled>("scaled");
    registerMatrices<Copy>("copy");
    registerMatrices<Transposed>("transposed");
    registerMatrices<Inverse>("inverse");
    registerMatrices<Determinant>("determinant");
    registerMatrices<Norm>("norm");
    registerQuaternions();
    registerMotions();
    return true;
}();

}  // namespace
