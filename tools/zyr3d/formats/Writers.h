#pragma once

#include "formats/Format.h"

/// A writer a format. They write the scene's points as they are: who wants holes otherwise changes
/// them before.
namespace zyr {

void writePly(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeStl(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeObj(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writePcd(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeXyz(const Scene& scene, const WriteOptions& options, SafeFile& file);
/// With a first line of names.
void writeCsv(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeNpy(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writePng(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeTiff(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeZpt(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeZtmt(const Scene& scene, const WriteOptions& options, SafeFile& file);
void writeZrt(const Scene& scene, const WriteOptions& options, SafeFile& file);

}  // namespace zyr
