#pragma once

#include <cstdio>
#include <string>

/// What the library calls of the C library, caught on its way: programs that use this link
/// Guards.cpp with --wrap for each of the functions that it defines.
namespace test {

/// From now on the stated assertions of headers end the reader that fails them, not the process.
/// All other assertions, and these ones with another file, line or function, still do.
void catchStops();

/// The expression of the assertion that failed since the last call; empty for none.
std::string takeStop();

/// Opens files for the library from now on; null puts the C library's own function back.
using Opener = std::FILE* (*)(const char* path, const char* mode);
void openThrough(Opener opener);

/// Closes the stream that the library opened last, if it left it open.
void closeLeftOpen();

}  // namespace test
