#include "tests/catalog/Entries.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace VellariTest {

std::string ReadSourceFile(std::string const& path) {
    std::ifstream file(std::string(VELLARI_SOURCE_DIR) + "/" + path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> CatalogNames() {
    std::vector<std::string> names;
    for (auto const& file : std::filesystem::directory_iterator(VELLARI_SOURCE_DIR "/catalog")) {
        if (file.path().extension() == ".txt") {
            names.push_back(file.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadEntry(std::string const& name) {
    return ReadSourceFile("catalog/" + name + ".txt");
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildEntry(std::string const& name) {
    return std::unique_ptr<KvRefSystem::TShellReferenceSystem>(
        KvRefSystem::CreateShellReferenceSystem(ReadEntry(name), nullptr));
}

std::string TestSuffix(std::string const& name) {
    std::string suffix = name;
    std::replace_if(
        suffix.begin(), suffix.end(), [](char c) { return c == '-' || c == '.'; }, '_');
    return suffix;
}

} // namespace VellariTest
