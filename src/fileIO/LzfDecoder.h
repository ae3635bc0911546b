#pragma once

#include "fileIO/LzfFormat.h"

/// Decoding LZF streams, whole or piece by piece.
namespace zyr {

enum class LzfEnd {
    Whole,         ///< the input ended with a chunk
    Cut,           ///< the input ended inside a chunk; what it holds was decoded
    Overrun,       ///< a chunk's output does not fit
    BadReference,  ///< a back-reference starts before the output
};

struct LzfStep {
    LzfEnd end;
    std::size_t consumed;  ///< bytes of whole chunks
    std::size_t produced;  ///< bytes that the whole chunks gave
    std::size_t partial;   ///< bytes behind them that a cut literal run gave
};

/// Decodes chunks into out[from, outLen); references reach back as far as out[0]. Strictly inside
/// both buffers, whatever the bytes; up to outLen the output behind what was produced is undefined.
///
/// A stream decodes piece by piece through a window with the same result as in one go: after Cut
/// call again with the bytes from consumed on and more behind them, if there are more; after
/// Overrun call again with more room, if the output has more, and keep the last 8192 bytes before
/// it.
LzfStep lzfDecodeStep(const Byte* in, std::size_t inLen, Byte* out, std::size_t from,
                      std::size_t outLen);

}  // namespace zyr
