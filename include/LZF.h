#pragma once

#include "ZyrExport.h"

constexpr int HLOG = 14;          ///< log2 of the compressor's hash table size
constexpr int HSIZE = 1 << HLOG;  ///< entries of the compressor's hash table
constexpr int MAX_LIT = 32;       ///< longest literal run
constexpr int MAX_OFF = 8192;     ///< farthest back-reference distance
constexpr int MAX_REF = 264;      ///< longest back-reference

/// The LZF codec that all three file formats use; its streams are those of the published LZF
/// format.
///
/// A stream is a sequence of chunks. A control byte c below 32 starts a literal run: c + 1 bytes
/// follow. Any other c starts a back-reference of (c >> 5) + 2 bytes, or of that plus the next byte
/// when c >> 5 is 7; one more byte o follows, and the copy starts ((c & 31) << 8) + o + 1 bytes
/// before the end of the output, byte by byte, so that it may overlap what it writes.
class ZYR_EXPORT LZF {
public:
    /// Compresses inLen bytes into out. Gives the bytes written; 0 when the result does not fit in
    /// outLen bytes or there is nothing to compress. The result never takes more than
    /// inLen + (inLen + 31) / 32 bytes.
    static int compress(unsigned char* in, int inLen, unsigned char* out, int outLen);

    /// Decompresses into out. Gives the bytes produced; 0 when they do not fit in outLen bytes or a
    /// back-reference starts before the output. The input length only ends the loop: at least one
    /// chunk is read, and a last chunk that claims more bytes than inLen is read in full, so pass
    /// whole streams, not foreign bytes.
    static int decompress(unsigned char* in, int inLen, unsigned char* out, int outLen);
};
