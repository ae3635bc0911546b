#pragma once

#include "Batch.h"
#include "convert/Settings.h"

namespace zyr {

/// Refuses wishes that a format can't fulfil. Throws UsageTrouble.
void checkSettings(const ConvertSettings& settings, const Format& format);

/// Reads a file and writes another; says what became of it. Throws FileTrouble and UsageTrouble.
void convertFile(const std::string& in, const std::string& out, const ConvertSettings& settings,
                 Output& output);

}  // namespace zyr
