#include "tools/accuracy/TextFile.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace VellariAccuracy {

namespace {

[[noreturn]] void Fail(char const* what, std::string const& path) {
    throw std::runtime_error(std::string(what) + " " + path + ": " + std::strerror(errno));
}

} // namespace

std::string ReadTextFile(std::string const& path) {
    TFile const file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        Fail("can't open", path);
    }
    std::string text;
    char block[65536];
    while (std::size_t const count = std::fread(block, 1, sizeof(block), file.get())) {
        text.append(block, count);
    }
    if (std::ferror(file.get()) != 0) {
        Fail("can't read", path);
    }
    return text;
}

TTextFile::TTextFile(std::string const& filePath)
    : path(filePath), aside(filePath + ".part"), file(std::fopen(aside.c_str(), "wb")) {
    if (!file) {
        Fail("can't write", aside);
    }
}

TTextFile::~TTextFile() {
    if (!aside.empty()) {
        std::remove(aside.c_str());
    }
}

void TTextFile::Commit(std::string const& text) {
    bool const written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    if (std::fclose(file.release()) != 0 || !written) {
        Fail("can't write", aside);
    }
    if (std::rename(aside.c_str(), path.c_str()) != 0) {
        Fail("can't write", path);
    }
    aside.clear();
}

} // namespace VellariAccuracy
