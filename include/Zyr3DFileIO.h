#pragma once

#include "ZyrExport.h"

class Zyr3DIntArray;
class ZyrVector3dArray;

namespace cv {
class Mat;
}

/// Readers and writers of the library's own files, on bare arrays and colour matrices. The
/// containers' Load and Save members call them; they differ by checking the path's suffix first.
///
/// Compressed files are written and read in pieces: above the data itself, loaded into empty
/// outputs, it takes less than a megabyte at any size. Outputs that hold something keep it until
/// the new file is known to be good, and colours for a matrix that has their shape already pass
/// through a row of their own. All give false on failure and throw nothing. A null path is a
/// failure. Numbers are little-endian in the files. A colour matrix has 8-bit elements of 1 (grey),
/// 3 (b, g, r) or 4 (b, g, r, a) channels; any other counts as no colours.
class ZYR_EXPORT Zyr3DFileIO {
public:
    /// Writes a point-cloud file. Normals are written when wanted and as many as the points,
    /// colours when wanted and the matrix has as many columns (its first row is written).
    ///
    /// False when there are no points, when the columns take 4 GiB or more, or when the file can't
    /// be opened; in the first two cases no file is created. Errors while writing go unnoticed, as
    /// on a full disk: callers who must know read the file back.
    static bool SavePointCloud(ZyrVector3dArray& points, ZyrVector3dArray& normals, cv::Mat& colors,
                               const char* path, bool withNormals, bool withColors);

    /// Reads a point-cloud file into the arrays given (and so into whatever shares their stores).
    ///
    /// Normals are cleared unless wanted and in the file; the colour matrix is left alone unless
    /// the file's colours are read. The kind of body decides further:
    /// - "binary_compressed": everything wanted is read. Colours become 1 x N of the file's channel
    ///   count, in place where the matrix has that shape already. A NaN component becomes 0.0.
    /// - "binary": points, NaN included. Normals come out as zero vectors. Colours are read whether
    ///   wanted or not, as 1 x N of 4 channels.
    /// - "ascii": nothing is read: N points, and normals where wanted, at the origin.
    ///
    /// A body that is cut short is no failure: the values that are missing are 0 (with its channel
    /// count missing too, the colour matrix is left alone). But elements of more than 64 MiB must
    /// be backed by bytes in the file, which what can't be measured, such as a pipe, never does.
    ///
    /// False when the file can't be opened, when its header is incomplete, contradicts itself,
    /// takes more than a mebibyte, has more than 14 fields or a number that is negative or beyond
    /// 32 bits, when coordinates are neither floats nor doubles or wanted colours have other than
    /// 1, 3 or 4 channels, when a whole body does not decode to exactly the columns that the header
    /// declares, and when memory runs out. Only in the last case may the outputs have changed.
    ///
    /// A header word of more than 32 characters, a line of more than 61 words, and a SIZE line that
    /// has not one word a field stop the process by an assertion failure, in release builds too.
    static bool LoadPointCloud(ZyrVector3dArray& points, ZyrVector3dArray& normals, cv::Mat& colors,
                               const char* path, bool withNormals, bool withColors);

    /// Writes a triangle-mesh file; triangles holds three vertex indices each. Vertex normals and
    /// colours are written when wanted and as many as the vertices, triangle normals and colours
    /// when wanted and as many as the triangles, of which there must be one at least (of a colour
    /// matrix the columns are counted and the first row is written). Lists that do not fit are left
    /// out.
    ///
    /// False when there are no vertices, when the columns take 4 GiB or more, or when the file
    /// can't be opened, written or closed; in the first two cases no file is created.
    static bool SaveTriangleMesh(ZyrVector3dArray& vertices, ZyrVector3dArray& vertexNormals,
                                 cv::Mat& vertexColors, Zyr3DIntArray& triangles,
                                 ZyrVector3dArray& triangleNormals, cv::Mat& triangleColors,
                                 const char* path, bool withNormals, bool withColors);

    /// Reads a triangle-mesh file into the arrays given (and so into whatever shares their stores).
    ///
    /// Normals are cleared unless wanted and in the file; a colour matrix is left alone unless it
    /// is wanted and in the file, and is filled in place where it has the file's shape already.
    /// Indices come back whatever their value, and so does NaN. "binary" and "binary_compressed"
    /// bodies are read alike, as compressed. An "ascii" body is not read: the vertices are at the
    /// origin and all indices 0. FACES may be missing, for a file without triangles, and so may
    /// FIELDS, SIZE and COUNT.
    ///
    /// False when the file has no vertices (the lists are sized by then), and for what
    /// LoadPointCloud says but for WIDTH and HEIGHT, which have no say; also when indices are not
    /// 32-bit, faces are more than 715827882, or one field would belong to two groups; the same
    /// header faults stop the process, and a body that is cut short is no failure here either.
    static bool LoadTriangleMesh(ZyrVector3dArray& vertices, ZyrVector3dArray& vertexNormals,
                                 cv::Mat& vertexColors, Zyr3DIntArray& triangles,
                                 ZyrVector3dArray& triangleNormals, cv::Mat& triangleColors,
                                 const char* path, bool withNormals, bool withColors);

    /// Writes a range-image file: the values, of one channel and a type from 0 to 6, the
    /// calibration and, when wanted and as many as the values, the colours, a grid. Rows are stored
    /// packed. The value range is not stored; the head states the channels of the colours even when
    /// these are not.
    ///
    /// False when there are no values or they are of another type, when a compressed block takes
    /// 2 GiB or more, or when the file can't be opened, written or closed; in the first two cases
    /// no file is created.
    static bool SaveRangeImage(cv::Mat& values, cv::Mat& colors, const char* path, double& minValue,
                               double& maxValue, double& resolutionX, double& resolutionY,
                               double& resolutionZ, double& offsetX, double& offsetY,
                               double& offsetZ, bool withColors);

    /// Reads a range-image file. The matrices become new ones, so that whoever shares the old ones
    /// keeps them as they are; colors is left alone unless wanted and in the file, and values when
    /// the file's type code is unknown. minValue and maxValue stay.
    ///
    /// On success the file stays open, until the process ends: callers rely on it. Whoever loads
    /// many files needs a descriptor for each.
    ///
    /// False when the file can't be opened, starts with a byte 0xFF, is cut short, or has a width
    /// or height below 1, a block that does not decode to exactly width * height elements, or
    /// colours of other than 1, 3 or 4 channels, and when memory runs out. Only blocks that are
    /// wanted count, and the values of an unknown type as not wanted, save that they must be there.
    /// Even then resolutionX and resolutionY are 1.0 and offsetZ is 0.0 afterwards; all else is as
    /// it was, and the file is closed.
    static bool LoadRangeImage(cv::Mat& values, cv::Mat& colors, const char* path, double& minValue,
                               double& maxValue, double& resolutionX, double& resolutionY,
                               double& resolutionZ, double& offsetX, double& offsetY,
                               double& offsetZ, bool withColors);
};
