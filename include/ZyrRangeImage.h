#pragma once

#include "ZyrColorArray.h"
#include "ZyrExport.h"
#include "ZyrImage.h"

namespace zyr {
struct RangeImageBlock;
}

/// A height grid: one raw sensor value a pixel, the calibration that turns columns, rows and values
/// into X, Y and Z, and a colour a pixel where there are colours.
///
/// The type of the values is OpenCV's depth code: 0 (8-bit unsigned), 1 (8-bit signed), 2 (16-bit
/// unsigned), 3 (16-bit signed), 4 (32-bit signed), 5 (float) or 6 (double). Pixels are addressed
/// row first. A coordinate is resolution * position + offset, in the caller's unit; the image only
/// keeps these numbers and applies none of them.
///
/// A default image is empty: type 0, no values and no colours, resolutions 1, all else 0. Copies
/// and assignment share the pixels, so that what is written through one is seen through all, until
/// one gets pixels of its own (DeepCopy, SetSize to another size or type, Load, Clear). The value
/// range, MinValue to MaxValue, belongs to each image alone: it is not copied, not assigned and not
/// deep-copied. Errors that OpenCV raises for an impossible size, step or null buffer pass through,
/// except from the file functions.
class ZYR_EXPORT ZyrRangeImage {
public:
    ZyrRangeImage();
    /// Copies height rows of width values, rowStep bytes from row to row (0: packed). An unknown
    /// type gives an image without values. In each pair of numbers the resolution comes first; Z
    /// comes before X and Y.
    ZyrRangeImage(void* data, int width, int height, int rowStep, int type, double minValue,
                  double maxValue, double resolutionZ, double offsetZ, double resolutionX,
                  double offsetX, double resolutionY, double offsetY);
    /// Shares the other's pixels. The value range starts at 0 to 0.
    ZyrRangeImage(const ZyrRangeImage& other);
    /// Shares the other's pixels. The value range stays as it was.
    ZyrRangeImage& operator=(const ZyrRangeImage& other);
    ~ZyrRangeImage();

    /// Makes the image a view of the caller's buffer, which the caller owns and keeps alive until
    /// Clear, a SetSize to another size or type, or a Load. An unknown type leaves the values
    /// alone. Sets the calibration but not the value range: minValue and maxValue are ignored.
    /// Always true.
    bool CreateRangeImage(void* data, int width, int height, int rowStep, int type, double minValue,
                          double maxValue, double resolutionZ, double offsetZ, double resolutionX,
                          double offsetX, double resolutionY, double offsetY);

    /// An image with copies of the pixels and the calibration. Its value range is 0 to 0.
    ZyrRangeImage DeepCopy();
    /// A copy of the values, packed; empty when the copy fails.
    ZyrImage DeepCopyValues() const;
    /// A copy of the colours.
    ZyrColorArray DeepCopyColors() const;
    /// Back to a default image; pixels stay with those who share them.
    void Clear();

    /// Makes room for height * width values of a type, not initialised. Nothing happens when the
    /// image has values of that size and type already, or when the type is unknown.
    void SetSize(int width, int height, int type);
    /// Forwards to ZyrColorArray::CreateColorArray, and so stops the process unless width * height
    /// is negative (OpenCV's error) or channels is not 1, 3 or 4 (nothing happens).
    void SetColorSize(int width, int height, int channels);
    /// Sets the calibration; Z comes first, and of each pair the resolution.
    void SetInfo(double resolutionZ, double offsetZ, double resolutionX, double offsetX,
                 double resolutionY, double offsetY);
    /// Copies rowEnd - rowStart + 1 packed rows from data into the rows rowStart to rowEnd. False,
    /// with nothing changed, unless the type is the image's own and
    /// 0 <= rowStart <= rowEnd < Height().
    ///
    /// The value range takes a minValue above 0 that is below its own and a maxValue above 0 that
    /// is above its own. As the range starts at 0, its lower end only ever moves where a
    /// constructor set it above 0.
    bool SetValue(void* data, int type, double minValue, double maxValue, int rowStart, int rowEnd);
    /// As ZyrColorArray::SetValue, which refuses a single row. The second argument is ignored.
    bool SetColorValue(void* data, int unused, int channels, int rowStart, int rowEnd);

    /// The first value, not a copy; null when there are no columns. Rows are packed, save in a view
    /// of a caller's buffer that has a row step.
    void* Data() const;
    /// The first byte of the colours; null when there are none.
    unsigned char* ColorData() const;
    /// OpenCV's depth code; 0 when there are no values.
    int DataType() const;
    /// Columns and rows of the values.
    int Width() const;
    int Height() const;
    /// The value range as it was set; the values themselves are not looked at.
    double MinValue() const;
    double MaxValue() const;
    /// The calibration, in the caller's unit: a coordinate is resolution * position + offset.
    double ResolutionX() const;
    double OffsetX() const;
    double ResolutionY() const;
    double OffsetY() const;
    double ResolutionZ() const;
    double OffsetZ() const;
    /// Whether there are as many colours as values, and at least one.
    bool IsValidColor() const;
    /// The raw value, without resolution and offset; 0.0 out of range.
    double GetValue(int row, int column) const;
    /// The colour as ZyrColorArray's [] gives it; the default colour out of range, and while
    /// IsValidColor() is false.
    ZyrColor GetColor(int row, int column) const;

    /// Replaces the image by a file's, as Zyr3DFileIO::LoadRangeImage reads it: what it says of a
    /// failure, and of the file that stays open on success, goes here too. The suffix must be
    /// "zrt", in any letter case; another one, or a null path, changes nothing.
    bool Load(const char* path, bool withColors);
    bool Load(const wchar_t* path, bool withColors);
    /// Writes a file, as Zyr3DFileIO::SaveRangeImage does. The suffix must be "zrt", in any letter
    /// case.
    bool Save(const char* path, bool withColors);
    bool Save(const wchar_t* path, bool withColors);

    /// Replaces the values by those of an image file, turned to one channel of the stored depth.
    /// The suffix must be PNG, JPG, JPEG, BMP, TIF or TIFF, in any letter case. The calibration is
    /// set even when that fails: Z as given, X and Y to resolution 1 and offset 0. Colours and
    /// value range stay, and so do the values when it fails.
    bool Load(const wchar_t* path, double resolutionZ, double offsetZ);
    bool Load(const char* path, double resolutionZ, double offsetZ);
    /// Writes the values alone to an image file of such a suffix. Floats and doubles become 16-bit,
    /// value / ResolutionZ() without the offset, by OpenCV's saturating conversion: rounded, halves
    /// to even, and clipped to 0..65535, but 0 for NaN and for what lies beyond 2^31. Integers are
    /// given to the image codec as they are, which clips what it can't keep: TIFF keeps all types,
    /// PNG 8- and 16-bit unsigned ones, BMP 8-bit ones; JPEG is 8-bit and lossy.
    bool Save(const wchar_t* path);
    bool Save(const char* path);

private:
    zyr::RangeImageBlock* block_;
};
