#include "files/FileKind.h"

#include <CLI/CLI.hpp>
#include <array>

#include "Outcome.h"
#include "Zyr3DInner.h"
#include "formats/Scene.h"

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
    const std::string lower = CLI::detail::to_lower(suffix);
    for (const Suffix& each : kSuffixes)
        if (each.text == (each.isAnyCase ? lower : suffix)) return each.kind;
    if (isScenePath(path)) return FileKind::Foreign;
    throw FileTrouble(path + ": not a .zpt file by its suffix, nor any other that is read");
}

}  // namespace zyr
