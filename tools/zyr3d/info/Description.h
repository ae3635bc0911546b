#pragma once

#include <string>

#include "Facts.h"
#include "ZyrVector3dArray.h"
#include "files/TextHeaderFile.h"
#include "formats/Scene.h"

namespace cv {
class Mat;
}

namespace zyr {

/// What `info` tells about a file.
struct Description {
    Facts facts;
    std::string shortage;  ///< what of a cut file is there, "" where all is
};

/// These load files that may hold anything. They throw FileTrouble.
Description describeCloudFile(const std::string& path);
Description describeMeshFile(const std::string& path);
Description describeRangeFile(const std::string& path);
Description describePictureFile(const std::string& path);
/// A file of another format that the tool reads.
Description describeForeignFile(const std::string& path);

// What the descriptions share.

void addFields(Facts& facts, const CloudHeader& header);
void addFields(Facts& facts, const std::vector<Field>& fields);
void addBody(Facts& facts, const CloudHeader& header);
/// No channels are none.
void addColors(Facts& facts, const std::string& label, int channels);

/// Between which coordinates valid points lie.
class PointBounds {
public:
    void take(ZyrVector3d& point);
    /// Nothing of no points.
    void addTo(Facts& facts) const;

private:
    ZyrVector3d low_, high_{-kInvalidValue, -kInvalidValue, -kInvalidValue};
    bool isEmpty_ = true;
};

/// The bounds of all.
void addBounds(Facts& facts, ZyrVector3dArray& points);
/// The size of the file, for people with its share of what it holds.
void addDiskBytes(Facts& facts, std::uint64_t rawBytes, std::uint64_t diskBytes);
/// Type, size and values of a grid of one channel; an empty one is of an unknown type.
void addGrid(Facts& facts, const cv::Mat& grid);
std::string shortageText(const TextHeaderFile& disk);

}  // namespace zyr
