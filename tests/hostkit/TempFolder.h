#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

/** A new folder of the test's own, removed with all that it holds. */
class TempFolder {
public:
    TempFolder() {
        std::random_device device;
        do {
            path = std::filesystem::temp_directory_path() / ("vellari-hostkit-" + std::to_string(device()));
        } while (!std::filesystem::create_directory(path));
    }
    TempFolder(TempFolder const&) = delete;
    TempFolder& operator=(TempFolder const&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string File(std::string const& name) const {
        return (path / name).string();
    }

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
