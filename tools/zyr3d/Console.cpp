#include "Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>

#include "Printable.h"
#include "files/QuietCodecs.h"

namespace zyr {

void prepareStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        // Open for reading alone, a stand-in for an output fails when it is written to.
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDONLY) != stream) return;
}

void printOut(const std::string& text) {
    std::cout << text;
    flushOut();
}

void flushOut() {
    errno = 0;
    if (std::cout.flush()) return;
    if (errno == EPIPE) throw ReaderGone();
    // What failed at an earlier write has no number any more.
    const std::string why = errno != 0 ? std::strerror(errno) : "cannot be written";
    throw FileTrouble("standard output: " + why);
}

std::string errorLine(const std::string& text) {
    return "zyr3d: " + printable(text) + "\n";
}

void printError(const std::string& text) {
    QuietCodecs::writePast(text);
}

}  // namespace zyr
