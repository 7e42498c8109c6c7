#include "hostkit/FileText.h"

#include "frame/NumberText.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <locale.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VellariHostKit {

namespace {

[[noreturn]] void Fail(std::string const& path, char const* what, int code) {
    throw std::runtime_error(path + ": " + what + ": " + SystemReason(code));
}

/** An open file, closed at the end. */
class File {
public:
    explicit File(int newDescriptor) : descriptor(newDescriptor) {}
    File(File const&) = delete;
    File& operator=(File const&) = delete;
    ~File() {
        if (descriptor >= 0) {
            ::close(descriptor);
        }
    }

    int Get() const { return descriptor; }

    /** @return 0, or the error's number; some systems tell only here that the disk is full. */
    int Close() {
        int const closed = ::close(descriptor);
        descriptor = -1;
        return closed == 0 ? 0 : errno;
    }

private:
    int descriptor;
};

/** Removes a file at the end, unless it was renamed by then. */
struct Remover {
    std::string path;

    ~Remover() {
        if (!path.empty()) {
            ::unlink(path.c_str());
        }
    }
};

/** @return 0, or the error's number. */
int WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        ssize_t const written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return errno;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/** Creates a file beside `target` that nobody else has. */
int CreateBeside(std::string const& path, std::string const& target, std::string* created) {
    static std::atomic<unsigned> serial{0};
    constexpr int attempts = 1000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        *created = target + KvRefSystem::FormatText(".%ld-%u.tmp", static_cast<long>(::getpid()), ++serial);
        int const descriptor = ::open(created->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            return descriptor;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    Fail(path, "can't be written", errno);
}

void WriteDirectly(std::string const& path, std::string_view text) {
    File file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (file.Get() < 0) {
        Fail(path, "can't be written", errno);
    }
    if (int const failed = WriteAll(file.Get(), text)) {
        Fail(path, "can't be written", failed);
    }
}

} // namespace

std::string SystemReason(int code) {
    static locale_t const words = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return ::strerror_l(code, words);
}

std::string ReadWholeFile(std::string const& path) {
    File const file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.Get() < 0) {
        Fail(path, "can't be read", errno);
    }
    std::string text;
    char piece[65536];
    for (;;) {
        ssize_t const count = ::read(file.Get(), piece, sizeof piece);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            Fail(path, "can't be read", errno);
        }
        if (count == 0) {
            return text;
        }
        text.append(piece, static_cast<std::size_t>(count));
    }
}

void WriteWholeFile(std::string const& path, std::string_view text) {
    struct stat old {};
    bool const exists = ::stat(path.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        WriteDirectly(path, text);
        return;
    }
    std::string target = path;
    if (exists) {
        std::error_code code;
        target = std::filesystem::canonical(path, code).string();
        if (code) {
            Fail(path, "can't be written", code.value());
        }
    }
    Remover fresh;
    std::string created;
    File file(CreateBeside(path, target, &created));
    fresh.path = std::move(created); // a copy could fail and leave the file behind
    int failed = WriteAll(file.Get(), text);
    if (!failed && exists && ::fchmod(file.Get(), old.st_mode & 07777) != 0) {
        failed = errno;
    }
    if (!failed && ::fsync(file.Get()) != 0) {
        failed = errno;
    }
    if (int const closing = file.Close(); closing && !failed) {
        failed = closing;
    }
    if (!failed && ::rename(fresh.path.c_str(), target.c_str()) != 0) {
        failed = errno;
    }
    if (failed) {
        Fail(path, "can't be written", failed);
    }
    fresh.path.clear();
}

} // namespace VellariHostKit
