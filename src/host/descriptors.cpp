#include "host/descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace kestrane {

void OpenStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        const bool closed = fcntl(descriptor, F_GETFD) == -1 && errno == EBADF;
        // open() takes the lowest free number, which is this one.
        // Reading from it ends at once, but writing to it must fail: nobody would get the lines.
        if (closed) [[maybe_unused]]
            const int opened = open("/dev/null", O_RDONLY);
    }
}

}  // namespace kestrane
