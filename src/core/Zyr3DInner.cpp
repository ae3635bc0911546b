#include "Zyr3DInner.h"

#include <clocale>
#include <cwchar>
#include <memory>
#include <stdexcept>

#include "core/Path.h"

namespace {

/// Puts the calling thread, not the process, under the environment's LC_CTYPE.
class EnvironmentLocale {
public:
    EnvironmentLocale()
        : environment_(newlocale(LC_CTYPE_MASK, "", nullptr)), previous_(uselocale(environment_)) {}
    ~EnvironmentLocale() {
        uselocale(previous_);
        if (environment_ != nullptr) freelocale(environment_);
    }
    EnvironmentLocale(const EnvironmentLocale&) = delete;
    EnvironmentLocale& operator=(const EnvironmentLocale&) = delete;

private:
    locale_t environment_;
    locale_t previous_;
};

std::size_t convert(wchar_t* target, const char* source, std::size_t room) {
    std::mbstate_t state{};
    return std::mbsrtowcs(target, &source, room, &state);
}

std::size_t convert(char* target, const wchar_t* source, std::size_t room) {
    std::mbstate_t state{};
    return std::wcsrtombs(target, &source, room, &state);
}

template <class Target, class Source>
Target* converted(const Source* source) {
    const EnvironmentLocale locale;
    constexpr auto kUnconvertible = static_cast<std::size_t>(-1);
    const std::size_t length =
        source == nullptr ? kUnconvertible : convert(static_cast<Target*>(nullptr), source, 0);
    if (length == kUnconvertible) return new Target[1]();
    auto target = std::make_unique<Target[]>(length + 1);
    convert(target.get(), source, length + 1);
    return target.release();
}

template <class Char>
std::basic_string<Char> suffix(const Char* path) {
    if (path == nullptr) throw std::logic_error("basic_string::_M_construct null not valid");
    return std::basic_string<Char>(zyr::suffixOf(path));
}

}  // namespace

Zyr3DInner::Zyr3DInner() = default;

Zyr3DInner::~Zyr3DInner() = default;

wchar_t* Zyr3DInner::char2wchar(const char* src) {
    return converted<wchar_t>(src);
}

char* Zyr3DInner::wchar2char(const wchar_t* src) {
    return converted<char>(src);
}

std::string Zyr3DInner::getSuffix(const char* path) {
    return suffix(path);
}

std::wstring Zyr3DInner::getSuffix(const wchar_t* path) {
    return suffix(path);
}
