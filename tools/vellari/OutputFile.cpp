#include "tools/vellari/OutputFile.h"

#include "tools/vellari/ToolError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace VellariTool {

namespace {

/** Signals that end the process on the user's wish. */
constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};

/** The temporary file that a signal has to take away; empty when there is none. */
char unfinishedPath[PATH_MAX];

/** Async-signal-safe: takes the temporary file away and ends as without a handler. */
void RemoveUnfinished(int signal) {
    if (unfinishedPath[0] != '\0') {
        unlink(unfinishedPath);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/** Has the file taken away when a signal ends the process. */
void WatchSignals(std::string const& path) {
    if (path.size() >= sizeof(unfinishedPath)) {
        return;
    }
    std::memcpy(unfinishedPath, path.c_str(), path.size() + 1);
    for (int const signal : endingSignals) {
        struct sigaction old {};
        // What the caller had ignored, as nohup does, stays ignored.
        if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler == SIG_DFL) {
            std::signal(signal, RemoveUnfinished);
        }
    }
}

/** The path behind a link, or the path itself. */
std::string FollowLink(std::string const& path) {
    char* const resolved = realpath(path.c_str(), nullptr);
    if (!resolved) {
        return path;
    }
    std::string result(resolved);
    std::free(resolved);
    return result;
}

/** @return the permissions of a new file, as the umask leaves them. */
mode_t DefaultMode() {
    mode_t const mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

TOutputFile::TOutputFile(std::string const& path) : name(path) {
    if (path.empty() || path == "-") {
        file = STDOUT_FILENO;
        name = "standard output";
        return;
    }
    struct stat status {};
    bool const exists = stat(path.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (file < 0) {
            Fail();
        }
        return;
    }
    if (exists && access(path.c_str(), W_OK) != 0) {
        Fail();
    }
    finalPath = FollowLink(path);
    temporaryPath = finalPath + ".XXXXXX";
    file = mkstemp(temporaryPath.data());
    if (file < 0) {
        temporaryPath.clear();
        Fail();
    }
    fchmod(file, exists ? status.st_mode & 07777 : DefaultMode());
    WatchSignals(temporaryPath);
}

TOutputFile::~TOutputFile() {
    if (!temporaryPath.empty()) {
        unlink(temporaryPath.c_str());
        unfinishedPath[0] = '\0';
    }
    if (file >= 0 && file != STDOUT_FILENO) {
        close(file);
    }
}

void TOutputFile::Fail() const {
    throw TToolError(name + ": the result can't be written: " + std::strerror(errno));
}

void TOutputFile::Flush() {
    std::string_view rest = buffer;
    while (!rest.empty()) {
        ssize_t const count = write(file, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EPIPE) {
            throw TOutputClosed();
        } else if (errno != EINTR) {
            Fail();
        }
    }
    buffer.clear();
}

void TOutputFile::Commit() {
    Flush();
    if (file == STDOUT_FILENO) {
        return;
    }
    int const closing = file;
    if (!temporaryPath.empty() && fsync(file) != 0) {
        Fail();
    }
    file = -1;
    if (close(closing) != 0) {
        Fail();
    }
    if (temporaryPath.empty()) {
        return;
    }
    if (std::rename(temporaryPath.c_str(), finalPath.c_str()) != 0) {
        Fail();
    }
    temporaryPath.clear();
    unfinishedPath[0] = '\0';
}

void PrintText(std::string_view text) {
    TOutputFile output("");
    output.Text() = text;
    output.Commit();
}

} // namespace VellariTool
