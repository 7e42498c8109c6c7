#include "tests/catalog/Entries.h"

#include "frame/NumberText.h"
#include "tests/support/Descriptions.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <stdexcept>

namespace VellariTest {

namespace {

/** The names of the entries of some kinds. */
std::vector<std::string> namesOfKinds(std::initializer_list<int> kinds) {
    std::vector<std::string> names;
    for (std::string const& name : CatalogNames()) {
        LumCommonUtils::TStringTree tree;
        tree.ReadFromString(ReadEntry(name).c_str(), nullptr, nullptr);
        int kind = 0;
        tree.GetInteger(1100, 0, &kind);
        if (std::find(kinds.begin(), kinds.end(), kind) != kinds.end()) {
            names.push_back(name);
        }
    }
    return names;
}

} // namespace

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

std::vector<std::string> GridNames() {
    return namesOfKinds({KvRefSystem::rstMapProjected});
}

std::vector<std::string> GeodeticNames() {
    return namesOfKinds({KvRefSystem::rstGeodetic});
}

std::vector<std::string> FrameNames() {
    return namesOfKinds({KvRefSystem::rstLocalCartesian, KvRefSystem::rstLocalCurved,
                         KvRefSystem::rstGeocentric, KvRefSystem::rstTopocentricHorizontal});
}

std::string ReadEntry(std::string const& name) {
    return ReadSourceFile("catalog/" + name + ".txt");
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildEntry(std::string const& name) {
    return std::unique_ptr<KvRefSystem::TShellReferenceSystem>(
        KvRefSystem::CreateShellReferenceSystem(ReadEntry(name), nullptr));
}

std::unique_ptr<KvRefSystem::TShellMapProjectedReferenceSystem> BuildGrid(std::string const& name) {
    auto system = BuildEntry(name);
    auto* const grid = dynamic_cast<KvRefSystem::TShellMapProjectedReferenceSystem*>(system.get());
    if (grid != nullptr) {
        system.release();
    }
    return std::unique_ptr<KvRefSystem::TShellMapProjectedReferenceSystem>(grid);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> BuildPulkovoZone(int zone) {
    TestSupport::TProjectedText text;
    text.base = TestSupport::Pulkovo1942();
    text.type = KvRefSystem::mptGaussKruger6;
    text.parameters = {{6201, KvRefSystem::FormatText("%d", zone)}, {6202, "N"}};
    text.flip = 1;
    return TestSupport::Create(text);
}

std::string TestSuffix(std::string const& name) {
    std::string suffix = name;
    std::replace_if(
        suffix.begin(), suffix.end(), [](char c) { return c == '-' || c == '.'; }, '_');
    return suffix;
}

} // namespace VellariTest
