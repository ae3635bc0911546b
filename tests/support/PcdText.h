#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "fileIO/File.h"
#include "fileIO/PcdHeader.h"

namespace test {

/// A temporary file that holds a text and stands at its start.
class TextFile {
public:
    explicit TextFile(const std::string& text) : file_(std::tmpfile()) {
        std::fwrite(text.data(), 1, text.size(), file_.get());
        std::rewind(file_.get());
    }

    std::FILE* get() { return file_.get(); }
    std::string rest() {
        std::string text;
        for (int c = std::getc(get()); c != EOF; c = std::getc(get())) text += static_cast<char>(c);
        return text;
    }

private:
    zyr::File file_;
};

/// The words of the file's next line.
inline std::vector<std::string> words(TextFile& file) {
    zyr::PcdLine line;
    zyr::pcdReadLine(file.get(), line);
    std::vector<std::string> words;
    for (int i = 0; i < line.numWords; ++i) words.emplace_back(line.words[i]);
    return words;
}

inline std::vector<std::string> words(const std::string& text) {
    TextFile file(text);
    return words(file);
}

struct ReadHeader {
    bool isRead;
    zyr::PcdHeader header;
};

inline ReadHeader readHeader(const std::string& text) {
    TextFile file(text);
    ReadHeader result{};
    result.isRead = zyr::pcdReadHeader(file.get(), result.header);
    return result;
}

/// The header after some lines and a DATA line; the lines alone decide whether it is read.
inline ReadHeader readLines(const std::string& lines) {
    return readHeader(lines + "DATA ascii\n");
}

}  // namespace test
