#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>

#include <stdlib.h>

/** A new folder of the test's own, removed with all that it holds. */
class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "vellari-hostkit-XXXXXX").string();
        if (!::mkdtemp(name.data())) {
            throw std::runtime_error(name + ": the folder can't be made");
        }
        path = name;
    }
    TempFolder(TempFolder const&) = delete;
    TempFolder& operator=(TempFolder const&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string File(std::string const& name) const { return (path / name).string(); }

    /** Writes a file into the folder. @return its full name. */
    std::string Put(std::string const& name, std::string const& text) const {
        std::ofstream(path / name, std::ios::binary) << text;
        return File(name);
    }

    static std::string Read(std::string const& file) {
        std::ifstream stream(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }

    std::size_t FileCount() const {
        std::filesystem::directory_iterator const begin(path);
        return static_cast<std::size_t>(std::distance(begin, std::filesystem::directory_iterator()));
    }

private:
    std::filesystem::path path;
};
