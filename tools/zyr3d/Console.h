#pragma once

#include <string>

#include "Outcome.h"

namespace zyr {

/// Whoever reads our standard output has seen enough: nothing that people need to be told.
struct ReaderGone : FileTrouble {
    ReaderGone() : FileTrouble("standard output: closed by its reader") {}
};

/// Makes writing to a closed pipe or beyond a limit an error instead of the end, and keeps the
/// places of closed standard streams, so that no file is opened in their stead.
void prepareStandardStreams();

/// Writes to standard output at once. Throws FileTrouble where that fails, as on a full disk.
void printOut(const std::string& text);
/// What std::cout still holds.
void flushOut();
/// A line for standard error; the program's name comes before the text, which may hold names of any
/// bytes.
std::string errorLine(const std::string& text);
/// Writes to standard error, also while the codecs are kept quiet.
void printError(const std::string& text);

}  // namespace zyr
