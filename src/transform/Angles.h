#pragma once

namespace zyr {

constexpr double kPi = 3.141592653589793;

}  // namespace zyr
