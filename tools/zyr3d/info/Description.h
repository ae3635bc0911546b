#pragma once

#include <string>

#include "Table.h"
#include "ZyrVector3dArray.h"
#include "files/TextHeaderFile.h"

namespace zyr {

/// What `info` tells about a file.
struct Description {
    Table table{Table::Left};
    std::string shortage;  ///< what of a cut file is there, "" where all is
};

/// These load files that may hold anything. They throw FileTrouble.
Description describeCloudFile(const std::string& path);
Description describeMeshFile(const std::string& path);
Description describeRangeFile(const std::string& path);
Description describePictureFile(const std::string& path);

// What the descriptions share.

std::string fieldsText(const CloudHeader& header);
std::string bodyText(const CloudHeader& header);
std::string channelsText(int channels);
/// Which coordinates the valid points have.
void addBounds(Table& table, ZyrVector3dArray& points);
std::string shortageText(const TextHeaderFile& disk);

}  // namespace zyr
