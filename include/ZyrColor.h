#pragma once

#include "ZyrExport.h"

/// One colour with alpha. The channels hold 0 to 255 by convention; nothing clamps them.
class ZYR_EXPORT ZyrColor {
public:
    /// Red, green, blue, and alpha: 255 is opaque.
    int r;
    int g;
    int b;
    int a;

    /// Opaque black: (0, 0, 0, 255).
    ZyrColor();
    /// Stored as given.
    ZyrColor(int r, int g, int b, int a);
};

/// Packs a colour into the 32-bit word of the file formats, 0xAARRGGBB, from the low 8 bits of each
/// channel.
ZYR_EXPORT void RGBA2argb(int r, int g, int b, int a, unsigned int* out);

/// Unpacks 0xAARRGGBB into channels of 0 to 255.
ZYR_EXPORT void argb2RGBA(unsigned int argb, int* r, int* g, int* b, int* a);

ZYR_INLINE ZyrColor::ZyrColor() : r(0), g(0), b(0), a(255) {}

ZYR_INLINE ZyrColor::ZyrColor(int r_, int g_, int b_, int a_) : r(r_), g(g_), b(b_), a(a_) {}

ZYR_INLINE void RGBA2argb(int r, int g, int b, int a, unsigned int* out) {
    *out = static_cast<unsigned int>(a) << 24 | (static_cast<unsigned int>(r) & 0xFF) << 16 |
           (static_cast<unsigned int>(g) & 0xFF) << 8 | (static_cast<unsigned int>(b) & 0xFF);
}

ZYR_INLINE void argb2RGBA(unsigned int argb, int* r, int* g, int* b, int* a) {
    *b = static_cast<int>(argb & 0xFF);
    *g = static_cast<int>(argb >> 8 & 0xFF);
    *r = static_cast<int>(argb >> 16 & 0xFF);
    *a = static_cast<int>(argb >> 24);
}
