#include "files/QuietCodecs.h"

#include <fcntl.h>
#include <unistd.h>

namespace zyr {

QuietCodecs::QuietCodecs() : saved_(dup(STDERR_FILENO)) {
    const int null = open("/dev/null", O_WRONLY);
    if (null < 0) return;
    dup2(null, STDERR_FILENO);
    close(null);
}

QuietCodecs::~QuietCodecs() {
    if (saved_ < 0) return;
    dup2(saved_, STDERR_FILENO);
    close(saved_);
}

}  // namespace zyr
