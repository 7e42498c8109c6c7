#include "tests/oracle/exports/gdal/GdalPrograms.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace OracleTests {

namespace {

std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char const letter : text) {
        quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return quoted + "'";
}

/** What a program prints. */
std::string OutputOf(std::vector<std::string> const& words) {
    std::string command;
    for (std::string const& word : words) {
        command += Quoted(word) + " ";
    }
    std::FILE* const pipe = popen((command + "2>/dev/null").c_str(), "r");
    if (!pipe) {
        throw std::runtime_error("cannot run: " + command);
    }
    std::string output;
    char buffer[4096];
    for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        output.append(buffer, got);
    }
    if (pclose(pipe) != 0) {
        throw std::runtime_error("failed: " + command);
    }
    return output;
}

std::string Trimmed(std::string const& text, char const* letters) {
    std::size_t const first = text.find_first_not_of(letters);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(letters) - first + 1);
}

} // namespace

TScratchFolder::TScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vellari-exports-XXXXXX").string();
    if (!mkdtemp(name.data())) {
        throw std::runtime_error("cannot make " + name);
    }
    Path = name;
}

TScratchFolder::~TScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
}

std::string GdalsMapInfo(std::string const& definition) {
    return Trimmed(OutputOf({GDALSRSINFO, "-o", "mapinfo", definition}), " \n'");
}

std::string GdalsWkt(std::string const& definition) {
    return Trimmed(OutputOf({GDALSRSINFO, "-o", "wkt1", "--single-line", definition}), " \n");
}

std::string GdalsWktOfMapInfo(std::string const& clause) {
    TScratchFolder const folder;
    std::string const file = folder.File("clause.mif");
    std::ofstream(file) << "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                        << clause << "\nColumns 1\n  id Integer\nData\n\nPoint 0 0\n";
    std::ofstream(folder.File("clause.mid")) << "1\n";
    return GdalsWkt(file);
}

void GdalCreatesGeoTiff(std::string const& file, std::string const& definition) {
    OutputOf(
        {GDAL_CREATE, "-q", "-of", "GTiff", "-outsize", "1", "1", "-bands", "1", "-a_srs", definition, file});
}

std::string WithoutCode(std::string const& wkt) {
    std::string const code = ",AUTHORITY[\"EPSG\",\"";
    std::size_t const at = wkt.rfind(code);
    bool const isLast = at != std::string::npos && wkt.find("\"]]", at + code.size()) == wkt.size() - 3;
    return isLast ? wkt.substr(0, at) + "]" : wkt;
}

} // namespace OracleTests
