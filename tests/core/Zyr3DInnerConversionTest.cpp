#include <gtest/gtest.h>
#include <locale.h>
#include <rapidcheck/gtest.h>

#include <cstdlib>
#include <cwchar>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Zyr3DInner.h"

namespace {

const char kUtf8[] = "/tmp/W\xc3\xbcrfel \xe2\x82\xac \xf0\x9f\x98\x80.zpt";
const wchar_t kWide[] = L"/tmp/W\u00fcrfel \u20ac \U0001f600.zpt";
const char kUnknown[] = "xx_XX.no-such-locale";

std::wstring widened(const char* text) {
    return std::unique_ptr<wchar_t[]>(Zyr3DInner::char2wchar(text)).get();
}

std::string narrowed(const wchar_t* text) {
    return std::unique_ptr<char[]>(Zyr3DInner::wchar2char(text)).get();
}

std::string processLocale() {
    return setlocale(LC_ALL, nullptr);
}

/// Puts the process's locale and the variables that name the environment's back as they were.
class Zyr3DInnerConversion : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"LC_ALL", "LC_CTYPE", "LC_TIME", "LC_NUMERIC", "LANG"}) {
            const char* value = getenv(name);
            former_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            unsetenv(name);
        }
    }

    void TearDown() override {
        setlocale(LC_ALL, formerLocale_.c_str());
        for (const auto& [name, value] : former_)
            if (value.has_value())
                setenv(name.c_str(), value->c_str(), 1);
            else
                unsetenv(name.c_str());
    }

    static void environment(const char* name, const char* value) { setenv(name, value, 1); }

private:
    std::map<std::string, std::optional<std::string>> former_;
    std::string formerLocale_ = processLocale();
};

/// The C library's conversions under the process's locale; "" for what they can't convert.
std::wstring widenedByProcess(const std::string& text) {
    std::wstring wide(text.size() + 1, 0);
    const std::size_t length = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    return length == static_cast<std::size_t>(-1) ? L"" : wide.substr(0, length);
}

std::string narrowedByProcess(const std::wstring& text) {
    std::string narrow(text.size() * 8 + 1, 0);
    const std::size_t length = std::wcstombs(narrow.data(), text.c_str(), narrow.size());
    return length == static_cast<std::size_t>(-1) ? "" : narrow.substr(0, length);
}

/// A thread's own locale, for as long as this lives.
class ThreadLocale {
public:
    explicit ThreadLocale(const char* name)
        : own_(newlocale(LC_ALL_MASK, name, nullptr)), former_(uselocale(own_)) {}
    ~ThreadLocale() {
        uselocale(former_);
        freelocale(own_);
    }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

    locale_t get() const { return own_; }

private:
    locale_t own_;
    locale_t former_;
};

}  // namespace

TEST_F(Zyr3DInnerConversion, ConvertsUtf8BothWays) {
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
    EXPECT_EQ(narrowed(kWide), kUtf8);
}

TEST_F(Zyr3DInnerConversion, EmptyTextGivesTheTerminatorAlone) {
    for (const char* locale : {"C.UTF-8", "C", kUnknown}) {
        environment("LC_ALL", locale);
        EXPECT_EQ(widened(""), L"");
        EXPECT_EQ(narrowed(L""), "");
    }
}

TEST_F(Zyr3DInnerConversion, AsciiConvertsUnderAnyLocale) {
    for (const char* locale : {"C.UTF-8", "C", "POSIX", kUnknown}) {
        environment("LC_ALL", locale);
        EXPECT_EQ(widened("/a b/c.zpt"), L"/a b/c.zpt") << locale;
        EXPECT_EQ(narrowed(L"/a b/c.zpt"), "/a b/c.zpt") << locale;
    }
}

TEST_F(Zyr3DInnerConversion, NullGivesAnEmptyString) {
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(widened(nullptr), L"");
    EXPECT_EQ(narrowed(nullptr), "");
}

TEST_F(Zyr3DInnerConversion, UnconvertibleBytesGiveAnEmptyString) {
    environment("LC_ALL", "C.UTF-8");
    for (const char* bad : {"\xff", "good\xff", "\xc3", "cut \xe2\x82", "\xed\xa0\x80", "\xc0\x80"})
        EXPECT_EQ(widened(bad), L"") << bad;
}

TEST_F(Zyr3DInnerConversion, UnconvertibleCharactersGiveAnEmptyString) {
    environment("LC_ALL", "C.UTF-8");
    for (int bad : {0xD800, 0xDFFF, -1}) {
        const wchar_t text[] = {L'a', static_cast<wchar_t>(bad), L'b', 0};
        EXPECT_EQ(narrowed(text), "") << bad;
    }
}

TEST_F(Zyr3DInnerConversion, TheCLocaleConvertsAsciiOnly) {
    environment("LC_ALL", "C");
    EXPECT_EQ(widened(kUtf8), L"");
    EXPECT_EQ(narrowed(kWide), "");
}

TEST_F(Zyr3DInnerConversion, LongTextsConvertWhole) {
    environment("LC_ALL", "C.UTF-8");
    std::string narrow;
    std::wstring wide;
    for (int i = 0; i < 50000; ++i) {
        narrow += "\xe2\x82\xac";
        wide += L'\u20ac';
    }
    EXPECT_EQ(widened(narrow.c_str()), wide);
    EXPECT_EQ(narrowed(wide.c_str()), narrow);
}

TEST_F(Zyr3DInnerConversion, TheEnvironmentsCharacterLocaleAloneDecides) {
    environment("LC_CTYPE", "C.UTF-8");
    environment("LANG", "C");
    environment("LC_TIME", kUnknown);
    environment("LC_NUMERIC", kUnknown);
    EXPECT_EQ(widened(kUtf8), kWide);
    EXPECT_EQ(narrowed(kWide), kUtf8);
    environment("LC_CTYPE", "C");
    environment("LANG", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), L"");
}

TEST_F(Zyr3DInnerConversion, LangDecidesWhereNothingElseIsSet) {
    EXPECT_EQ(widened(kUtf8), L"");
    environment("LANG", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
}

TEST_F(Zyr3DInnerConversion, LcAllGoesBeforeTheOthers) {
    environment("LC_ALL", "C.UTF-8");
    environment("LC_CTYPE", "C");
    environment("LANG", "C");
    EXPECT_EQ(widened(kUtf8), kWide);
}

TEST_F(Zyr3DInnerConversion, GivesWhatTheProcessWouldConvertUnderThatLocale) {
    for (const char* locale : {"C.UTF-8", "C"}) {
        environment("LC_ALL", locale);
        ASSERT_NE(setlocale(LC_ALL, ""), nullptr);
        EXPECT_TRUE(rc::check([] {
            const auto characters =
                rc::gen::oneOf(rc::gen::inRange(1, 128), rc::gen::inRange(1, 70000));
            std::wstring wide;
            for (int c : *rc::gen::container<std::vector<int>>(characters))
                wide += static_cast<wchar_t>(c);
            const auto bytes = *rc::gen::arbitrary<std::string>();
            RC_ASSERT(narrowed(wide.c_str()) == narrowedByProcess(wide));
            RC_ASSERT(widened(narrowed(wide.c_str()).c_str()) ==
                      widenedByProcess(narrowedByProcess(wide)));
            RC_ASSERT(widened(bytes.c_str()) == widenedByProcess(bytes.c_str()));
        }));
    }
}

TEST_F(Zyr3DInnerConversion, TheEnvironmentIsAskedAtEachCall) {
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
    environment("LC_ALL", "C");
    EXPECT_EQ(widened(kUtf8), L"");
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(narrowed(kWide), kUtf8);
}

TEST_F(Zyr3DInnerConversion, TheProcesssOwnLocaleHasNoSay) {
    ASSERT_NE(setlocale(LC_ALL, "C.UTF-8"), nullptr);
    environment("LC_ALL", "C");
    EXPECT_EQ(widened(kUtf8), L"");
    ASSERT_NE(setlocale(LC_ALL, "C"), nullptr);
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
}

TEST_F(Zyr3DInnerConversion, AnUnknownLocaleLeavesTheProcesssLocaleInForce) {
    environment("LC_ALL", kUnknown);
    EXPECT_EQ(widened(kUtf8), L"");
    ASSERT_NE(setlocale(LC_ALL, "C.UTF-8"), nullptr);
    EXPECT_EQ(widened(kUtf8), kWide);
    EXPECT_EQ(narrowed(kWide), kUtf8);
}

TEST_F(Zyr3DInnerConversion, AnUnknownLocaleLeavesTheThreadsOwnLocaleInForce) {
    environment("LC_ALL", kUnknown);
    const ThreadLocale own("C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
    EXPECT_EQ(narrowed(kWide), kUtf8);
}

TEST_F(Zyr3DInnerConversion, NeitherTheProcesssNorTheThreadsLocaleChanges) {
    for (const char* process : {"C", "C.UTF-8"})
        for (const char* named : {"C.UTF-8", "C", kUnknown}) {
            ASSERT_NE(setlocale(LC_ALL, process), nullptr);
            environment("LC_ALL", named);
            const std::string before = processLocale();
            for (const char* text : {kUtf8, "\xff", ""}) widened(text);
            for (const wchar_t* text : {kWide, L""}) narrowed(text);
            EXPECT_EQ(processLocale(), before);
            EXPECT_EQ(uselocale(nullptr), LC_GLOBAL_LOCALE);
        }
}

TEST_F(Zyr3DInnerConversion, AThreadsOwnLocaleIsPutBack) {
    const ThreadLocale own("C");
    environment("LC_ALL", "C.UTF-8");
    EXPECT_EQ(widened(kUtf8), kWide);
    EXPECT_EQ(uselocale(nullptr), own.get());
    EXPECT_EQ(MB_CUR_MAX, 1u);
}

TEST_F(Zyr3DInnerConversion, EightThreadsConvertAtOnce) {
    environment("LC_ALL", "C.UTF-8");
    const std::string before = processLocale();
    std::vector<int> wrong(8, 0);
    std::vector<std::thread> threads;
    for (int& count : wrong)
        threads.emplace_back([&count] {
            for (int i = 0; i < 2000; ++i) {
                if (widened(kUtf8) != kWide || narrowed(kWide) != kUtf8) ++count;
                if (widened("\xff") != L"") ++count;
            }
        });
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(processLocale(), before);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, std::vector<int>(8, 0));
}
