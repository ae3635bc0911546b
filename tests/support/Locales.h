#pragma once

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "support/Bytes.h"

/// Locales with decimal commas, thousands' dots and the Turkish i, which tests compile themselves.
namespace test {

struct LocaleName {
    const char* language;
    const char* charset;

    std::string name() const { return std::string(language) + "." + charset; }
};

inline void PrintTo(const LocaleName& locale, std::ostream* out) {
    *out << locale.name();
}

inline const std::vector<LocaleName>& localeNames() {
    static const std::vector<LocaleName> names = {
        {"de_DE", "UTF-8"}, {"de_DE", "ISO-8859-1"}, {"tr_TR", "UTF-8"}, {"tr_TR", "ISO-8859-9"}};
    return names;
}

/// The system's own source, save the order of words, which takes longest to compile.
inline std::string localeSource(const LocaleName& locale) {
    std::string text = "comment_char %\nescape_char /\n";
    for (const std::string category :
         {"IDENTIFICATION", "CTYPE", "COLLATE", "MONETARY", "NUMERIC", "TIME", "MESSAGES", "PAPER",
          "NAME", "ADDRESS", "TELEPHONE", "MEASUREMENT"})
        text += "LC_" + category + "\ncopy \"" +
                (category == "COLLATE" ? "POSIX" : locale.language) + "\"\nEND LC_" + category +
                "\n";
    return text;
}

/// Compiles the locale into the folder, which ends with a slash. False where the system can't.
inline bool makeLocale(const std::string& folder, const LocaleName& locale) {
    writeFile(folder + "source", toBytes(localeSource(locale)));
    const std::string command = "localedef -i '" + folder + "source' -f " + locale.charset + " '" +
                                folder + locale.name() + "' >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

}  // namespace test
