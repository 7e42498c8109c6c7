#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace VellariAccuracy {

/** Closes a file, whatever comes of it. */
struct TCloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using TFile = std::unique_ptr<std::FILE, TCloseFile>;

/** @throws std::runtime_error with the path and the reason. */
std::string ReadTextFile(std::string const& path);

/** A text file that appears complete or not at all: written beside under another name, then renamed. */
class TTextFile {
public:
    /** @throws std::runtime_error with the path and the reason, before there is anything to write. */
    explicit TTextFile(std::string const& filePath);

    /** Takes away what isn't committed. */
    ~TTextFile();
    TTextFile(TTextFile const&) = delete;
    TTextFile& operator=(TTextFile const&) = delete;

    /** Writes the text and takes the path's place. @throws as the constructor. */
    void Commit(std::string const& text);

private:
    std::string path;
    std::string aside; ///< empty when it has taken its place
    TFile file;
};

} // namespace VellariAccuracy
