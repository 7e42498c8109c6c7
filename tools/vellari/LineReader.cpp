#include "tools/vellari/LineReader.h"

#include "tools/vellari/ToolError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace VellariTool {

namespace {

constexpr std::size_t blockSize = 256 * 1024;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

} // namespace

TLineReader::TLineReader(std::string const& path)
    : file(STDIN_FILENO),
      isOwned(!path.empty() && path != "-"),
      name(isOwned ? path : "standard input"),
      buffer(blockSize) {
    if (isOwned) {
        file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (file < 0) {
            throw TToolError(path + ": the points can't be read: " + std::strerror(errno));
        }
    }
    struct stat status {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0) {
        size = static_cast<std::uint64_t>(status.st_size);
    }
    try {
        SkipByteOrderMark();
    } catch (...) {
        if (isOwned) {
            close(file);
        }
        throw;
    }
}

TLineReader::~TLineReader() {
    if (isOwned) {
        close(file);
    }
}

bool TLineReader::Next(TTextLine* line) {
    std::size_t searched = 0;
    for (;;) {
        char const* const start = buffer.data() + begin;
        auto const* const found =
            static_cast<char const*>(std::memchr(start + searched, '\n', end - begin - searched));
        if (found) {
            auto const length = static_cast<std::size_t>(found - start);
            *line = Take(length, 1);
            return true;
        }
        searched = end - begin;
        if (searched > MaxLineLength) {
            // What `line` shows stays in the buffer: the rest is skipped behind it, in blocks.
            if (buffer.size() < begin + MaxLineLength + blockSize) {
                buffer.resize(begin + MaxLineLength + blockSize);
            }
            *line = Take(MaxLineLength, 0);
            line->isTooLong = true;
            SkipRestOfLine();
            return true;
        }
        if (!Fill()) {
            break;
        }
    }
    if (begin == end) {
        return false;
    }
    *line = Take(end - begin, 0);
    return true;
}

/** Hands out `length` bytes and goes past them and the line end. */
TTextLine TLineReader::Take(std::size_t length, std::size_t lineEnd) {
    TTextLine line;
    line.text = std::string_view(buffer.data() + begin, length);
    if (!line.text.empty() && line.text.back() == '\r') {
        line.text.remove_suffix(1);
    }
    line.isTooLong = length > MaxLineLength;
    if (line.isTooLong) {
        line.text = line.text.substr(0, MaxLineLength);
    }
    begin += length + lineEnd;
    position += length + lineEnd;
    return line;
}

/** Reads one more block behind what there is. @return false at the end of the file. */
bool TLineReader::Fill() {
    if (isAtEnd) {
        return false;
    }
    if (begin > 0) {
        std::memmove(buffer.data(), buffer.data() + begin, end - begin);
        end -= begin;
        begin = 0;
    }
    if (buffer.size() - end < blockSize / 2) {
        // Grows only for a long line, and no further than the longest one and a block.
        buffer.resize(buffer.size() + blockSize);
    }
    for (;;) {
        ssize_t const count = read(file, buffer.data() + end, buffer.size() - end);
        if (count > 0) {
            end += static_cast<std::size_t>(count);
            return true;
        }
        if (count == 0) {
            isAtEnd = true;
            return false;
        }
        if (errno != EINTR) {
            throw TToolError(name + ": the points can't be read: " + std::strerror(errno));
        }
    }
}

/** Goes past the next line end, using the room behind the line that was handed out. */
void TLineReader::SkipRestOfLine() {
    std::size_t const kept = begin;
    for (;;) {
        char const* const start = buffer.data() + begin;
        auto const* const found = static_cast<char const*>(std::memchr(start, '\n', end - begin));
        if (found) {
            auto const length = static_cast<std::size_t>(found - start) + 1;
            begin += length;
            position += length;
            return;
        }
        position += end - begin;
        begin = kept;
        end = kept;
        ssize_t const count = isAtEnd ? 0 : read(file, buffer.data() + end, buffer.size() - end);
        if (count > 0) {
            end += static_cast<std::size_t>(count);
        } else if (count == 0) {
            isAtEnd = true;
            return;
        } else if (errno != EINTR) {
            throw TToolError(name + ": the points can't be read: " + std::strerror(errno));
        }
    }
}

void TLineReader::SkipByteOrderMark() {
    while (end < byteOrderMark.size() && Fill()) {}
    if (end >= byteOrderMark.size() &&
        std::memcmp(buffer.data(), byteOrderMark.data(), byteOrderMark.size()) == 0) {
        begin = byteOrderMark.size();
        position = begin;
    }
}

} // namespace VellariTool
