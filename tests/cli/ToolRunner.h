#pragma once

#include <string>
#include <vector>

namespace ToolTest {

/** What a run of the tool left. */
struct TToolRun {
    int status = -1; ///< exit status; 128 and more: ended by a signal
    std::string out;
    std::string err;
    long maxResidentKiB = 0; ///< greatest memory that it held
};

/** How a run differs from the plain one. */
struct TRunSettings {
    std::string input;                    ///< standard input
    std::string inputPath;                ///< a file as standard input instead
    std::string outputPath;               ///< a file as standard output; `out` is then empty
    std::vector<std::string> environment; ///< "NAME=value", in place of the test's own variables
    bool closedOutput = false;            ///< standard output is a pipe that nobody reads
};

/** Runs the built tool and waits for its end. */
TToolRun RunTool(std::vector<std::string> const& arguments, TRunSettings const& settings = {});

/** Runs `vellari transform` from SK-42 to WGS 84, with `options` behind, on a text of points. */
TToolRun Transform(std::string const& points, std::vector<std::string> const& options = {});

/** A folder of its own that goes away with the object. */
class TTemporaryFolder {
public:
    TTemporaryFolder();
    ~TTemporaryFolder();
    TTemporaryFolder(TTemporaryFolder const&) = delete;
    TTemporaryFolder& operator=(TTemporaryFolder const&) = delete;

    /** @return the path of a file in the folder. */
    std::string Path(std::string const& name) const { return path + "/" + name; }

    /** Writes a file. @return its path. */
    std::string Write(std::string const& name, std::string const& text) const;

    /** @return the names of the files, in order. */
    std::vector<std::string> Files() const;

private:
    std::string path;
};

/** @return all bytes of a file; empty when there is none. */
std::string ReadFile(std::string const& path);

/** @return the number of LF bytes. */
long CountLines(std::string const& text);

/** @return the text of an entry of the catalogue, from its file. */
std::string CatalogText(std::string const& name);

/** @return the text with the first `from` replaced; fails the test when there is none. */
std::string Replaced(std::string text, std::string const& from, std::string const& to);

} // namespace ToolTest
