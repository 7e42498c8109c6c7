#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VellariTool {

/** One line of a text file. */
struct TTextLine {
    std::string_view text;  ///< without its line end; valid until the next line is read
    bool isTooLong = false; ///< only its beginning stands in `text`
};

/**
 * Reads a text file or standard input line by line, in blocks, with memory that doesn't grow with the file.
 *
 * Lines end with LF or CR LF, the last one also at the end of the file. A byte order mark of UTF-8 at the
 * beginning is skipped. A line of more than `MaxLineLength` bytes is cut.
 */
class TLineReader {
public:
    static constexpr std::size_t MaxLineLength = 1 << 20;

    /** @param path of the file; "-" or empty: standard input. @throws TToolError when it can't be opened. */
    explicit TLineReader(std::string const& path);
    ~TLineReader();
    TLineReader(TLineReader const&) = delete;
    TLineReader& operator=(TLineReader const&) = delete;

    /** @return false at the end of the file. @throws TToolError when it can't be read. */
    bool Next(TTextLine* line);

    /** @return what messages call the file. */
    std::string const& Name() const { return name; }

    /** @return the file's size in bytes as it was opened; 0 when it has none, as a pipe. */
    std::uint64_t Size() const { return size; }

    /** @return bytes of the lines that were handed out. */
    std::uint64_t Position() const { return position; }

private:
    bool Fill();
    void SkipRestOfLine();
    void SkipByteOrderMark();
    TTextLine Take(std::size_t length, std::size_t lineEnd);

    int file;
    bool isOwned;
    bool isAtEnd = false;
    std::string name;
    std::uint64_t size = 0;
    std::uint64_t position = 0;
    std::vector<char> buffer;
    std::size_t begin = 0; ///< of what isn't handed out yet
    std::size_t end = 0;   ///< of what is read
};

} // namespace VellariTool
