#pragma once

#include "ZyrColor.h"
#include "ZyrExport.h"

namespace cv {
class Mat;
}

/// A list or grid of colours, kept as an OpenCV matrix of 8-bit channels that image code takes as
/// it is.
///
/// An element has 1 (grey), 3 (b, g, r) or 4 (b, g, r, a) channels. A list is one row high: element
/// i is column i. Copies share the pixels as cv::Mat does, so that writes through one are seen
/// through all, until one of them is made anew (Create, Append, Clear); DeepCopy gives pixels of
/// one's own. Unless said otherwise an index out of range does nothing. Errors that OpenCV raises
/// pass through.
///
/// The four operations that size an array from an explicit width, size or buffer are closed: called
/// with a size that is not negative and 1, 3 or 4 channels they stop the process by an assertion
/// failure, in release builds too. Use Create to make an array.
class ZYR_EXPORT ZyrColorArray {
public:
    ZyrColorArray();
    /// Stops the process, unless size (in bytes) is negative or channel is not 1, 3 or 4. An
    /// unknown channel gives an empty array, as does a negative size that makes no whole element;
    /// any other negative size is OpenCV's error.
    ZyrColorArray(void* data, int size, int channel);
    /// Stops the process, unless width * height is negative or channel is not 1, 3 or 4. An unknown
    /// channel gives an empty array, a negative size OpenCV's error.
    ZyrColorArray(void* data, int width, int height, int channel);
    /// Shares the other's pixels.
    ZyrColorArray(const ZyrColorArray& other);
    /// Shares the other's pixels.
    ZyrColorArray& operator=(const ZyrColorArray& other);
    ~ZyrColorArray();

    /// An array with a copy of the pixels.
    ZyrColorArray DeepCopy();

    /// Columns and rows: of a list the columns are its elements.
    int Width() const;
    int Height() const;
    /// Width times height.
    int Length() const;
    /// Channels of an element: 1, 3 or 4; 1 for an array without columns.
    int Channel() const;
    /// The first byte of the pixels; null for an array without columns.
    unsigned char* Data() const;

    /// Becomes one row of new, uninitialised elements of 1, 3 or 4 channels; any other channel
    /// count does nothing. A negative length is OpenCV's error and leaves the array as it was.
    void Create(int length, int channel);
    /// Closed like the constructor from width and height. An unknown channel does nothing and gives
    /// true.
    bool CreateColorArray(void* data, int width, int height, int channel);
    /// Closed like the constructor from width and height. An unknown channel does nothing.
    void SetSize(int width, int height, int channel);

    /// Sets every byte of every element, saturated to 0..255.
    void SetColor(int value);
    /// Sets every element, each channel saturated to 0..255; a one-channel array takes r.
    void SetColor(ZyrColor color);
    /// Copies endRow - startRow + 1 packed rows from data into the rows startRow to endRow. False,
    /// with nothing written, unless channel is the array's own and
    /// 0 <= startRow < endRow < Height(): a single row is refused. Null data is OpenCV's error.
    bool SetValue(void* data, int channel, int startRow, int endRow);

    /// Stores the low 8 bits of each channel in element i; a one-channel array takes r.
    void Replace(int i, ZyrColor& color);
    /// Reads element i. A one-channel array sets r, g and b to its grey level. Only four channels
    /// set a: with fewer, out's a stays as it was.
    void Select(int i, ZyrColor* out) const;
    /// Element i over the default colour, which it is when i is out of range. A one-channel array
    /// sets r alone, unlike Select: g and b stay 0.
    ZyrColor operator[](int i) const;

    /// Adds the other's elements in a new matrix, which leaves those who share the old one. Does
    /// nothing when the other is empty, when the channel counts differ, or when either has more
    /// than one row. An empty array becomes a copy of the other.
    void Append(const ZyrColorArray& other);
    /// Lets go of the pixels; those who share them keep them.
    void Clear();

private:
    // The containers hand the matrix itself to the file readers and writers.
    friend class ZyrPointCloud;
    friend class ZyrRangeImage;
    friend class ZyrTriangleMesh;

    cv::Mat* mat_;
};
