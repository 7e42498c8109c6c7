#pragma once

#include <string>
#include <string_view>

namespace VellariTool {

/**
 * Buffered output to standard output, or to a file that appears complete or not at all.
 *
 * A plain file is written under another name beside it and takes its place in `Commit`, with the permissions
 * of the old one; a link is followed. Something else, such as a pipe or a device, is written directly.
 * Whatever ends the process in between leaves the old file as it was.
 */
class TOutputFile {
public:
    /**
     * @param path of the file; empty or "-": standard output.
     * @throws TToolError when it can't be written.
     */
    explicit TOutputFile(std::string const& path);

    /** Takes away what isn't committed. */
    ~TOutputFile();
    TOutputFile(TOutputFile const&) = delete;
    TOutputFile& operator=(TOutputFile const&) = delete;

    /** Text that waits to be written; append to it and call `FlushWhenFull`. */
    std::string& Text() { return buffer; }

    /** Writes the text when there is a block of it. @throws TToolError, TOutputClosed. */
    void FlushWhenFull() {
        if (buffer.size() >= BlockSize) {
            Flush();
        }
    }

    /** Writes the text. @throws TToolError when it can't, TOutputClosed when nobody reads any more. */
    void Flush();

    /** Writes the text, and puts the file in its place. @throws TToolError, TOutputClosed. */
    void Commit();

private:
    static constexpr std::size_t BlockSize = 64 * 1024;

    [[noreturn]] void Fail() const;

    int file = -1;
    std::string name;      ///< what messages call it
    std::string finalPath; ///< empty when it is written directly
    std::string temporaryPath;
    std::string buffer;
};

/** Writes a whole text to standard output. @throws TToolError, TOutputClosed. */
void PrintText(std::string_view text);

} // namespace VellariTool
