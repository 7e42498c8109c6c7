#include "tools/reference/Geocentric.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

enum EStatus : int {
    stHolds = 0,
    stFails = 1,
    stMisuse = 2,
};

constexpr char Usage[] = "usage: vellari_reference --write FILE   compute the exact data and write them\n"
                         "       vellari_reference --check FILE   compute, and tell where the file differs\n"
                         "       vellari_reference --help         this text\n";

int Misuse(std::string const& what) {
    std::cerr << "vellari_reference: " << what << '\n' << Usage;
    return stMisuse;
}

auto CountLines(std::string const& text, std::size_t end) {
    return std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
}

int Write(std::string const& path) {
    std::string const text = VellariReference::GeocentricData();
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        throw std::runtime_error("can't write " + path);
    }
    std::cout << path << ": " << CountLines(text, text.size()) << " lines written\n";
    return stHolds;
}

int Check(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("can't open " + path);
    }
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    std::string const made = VellariReference::GeocentricData();
    if (text != made) {
        auto const apart = std::mismatch(text.begin(), text.end(), made.begin(), made.end()).first;
        auto const line = CountLines(text, static_cast<std::size_t>(apart - text.begin())) + 1;
        std::cerr
            << path << ':' << line
            << ": isn't what the program computes; \"vellari_reference --write\" writes the file anew\n";
        return stFails;
    }
    std::cout << path << ": all " << CountLines(text, text.size())
              << " lines are what the program computes\n";
    return stHolds;
}

int Run(std::vector<std::string> const& arguments) {
    if (arguments.size() == 1 && arguments[0] == "--help") {
        std::cout << Usage;
        return stHolds;
    }
    if (arguments.empty()) {
        return Misuse("nothing to do");
    }
    bool const write = arguments[0] == "--write";
    if (!write && arguments[0] != "--check") {
        return Misuse("unknown argument \"" + arguments[0] + "\"");
    }
    if (arguments.size() == 1 || arguments[1].empty()) {
        return Misuse(arguments[0] + " needs a file");
    }
    if (arguments.size() > 2) {
        return Misuse("unexpected argument \"" + arguments[2] + "\" after the file");
    }
    return write ? Write(arguments[1]) : Check(arguments[1]);
}

} // namespace

int main(int count, char** arguments) {
    try {
        return Run(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (std::exception const& failure) {
        std::cerr << "vellari_reference: " << failure.what() << '\n';
        return stFails;
    }
}
