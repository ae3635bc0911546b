#pragma once

#include <functional>
#include <string>

#include "Batch.h"

namespace zyr {

/// Does the work on one file. When it throws and the answer is to be JSON, there is an object for
/// this file too, with the error, besides the line for people.
int withJsonError(bool isJson, const std::string& file, Output& output,
                  const std::function<int()>& work);

}  // namespace zyr
