#include "hostkit/grids/GridFileDetail.h"

#include "hostkit/FileText.h"

#include <cerrno>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VellariHostKit {

namespace {

[[noreturn]] void Fail(int code) {
    throw std::runtime_error("can't be read: " + SystemReason(code));
}

} // namespace

// Without O_NONBLOCK a pipe would wait for a writer before it could be refused.
GridFile::GridFile(std::string const& path)
    : descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor < 0) {
        Fail(errno);
    }
    struct stat state {};
    int const failed = ::fstat(descriptor, &state) == 0 ? 0 : errno;
    if (failed != 0 || !S_ISREG(state.st_mode)) {
        ::close(descriptor);
        if (failed != 0 || S_ISDIR(state.st_mode)) {
            Fail(failed != 0 ? failed : EISDIR);
        }
        throw std::runtime_error("can't be read: it is no plain file");
    }
    size = static_cast<std::uint64_t>(state.st_size);
}

GridFile::~GridFile() {
    ::close(descriptor);
}

std::size_t GridFile::Read(std::uint64_t offset, unsigned char* bytes, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
        ssize_t const piece =
            ::pread(descriptor, bytes + done, count - done, static_cast<off_t>(offset + done));
        if (piece < 0 && errno == EINTR) {
            continue;
        }
        if (piece < 0) {
            Fail(errno);
        }
        if (piece == 0) {
            break;
        }
        done += static_cast<std::size_t>(piece);
    }
    return done;
}

} // namespace VellariHostKit
