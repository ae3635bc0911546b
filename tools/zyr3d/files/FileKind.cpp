#include "files/FileKind.h"

#include <array>

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "files/RegularFile.h"
#include "formats/Format.h"
#include "formats/Text.h"

namespace zyr {
namespace {

struct Suffix {
    const char* text;
    bool isAnyCase;
    FileKind kind;
};

constexpr std::array<Suffix, 11> kSuffixes = {{{"zpt", false, FileKind::Cloud},
                                               {"ZPT", false, FileKind::Cloud},
                                               {"ztmt", false, FileKind::Mesh},
                                               {"ZTMT", false, FileKind::Mesh},
                                               {"zrt", true, FileKind::Range},
                                               {"png", true, FileKind::Picture},
                                               {"jpg", true, FileKind::Picture},
                                               {"jpeg", true, FileKind::Picture},
                                               {"bmp", true, FileKind::Picture},
                                               {"tif", true, FileKind::Picture},
                                               {"tiff", true, FileKind::Picture}}};

}  // namespace

FileKind fileKind(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    const std::string lower = lowered(suffix);
    for (const Suffix& each : kSuffixes)
        if (each.text == (each.isAnyCase ? lower : suffix)) return each.kind;
    if (isScenePath(path)) return FileKind::Foreign;
    requireRegularFile(path);
    throw FileTrouble(suffixFault(path, "read"));
}

}  // namespace zyr
