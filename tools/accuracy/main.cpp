#include "tools/accuracy/Check.h"
#include "tools/accuracy/TextFile.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace VellariAccuracy;

enum EStatus : int {
    stHolds = 0,
    stFails = 1,
    stMisuse = 2,
};

constexpr char Usage[] =
    "usage: vellari_accuracy --write FILE   measure all projections and write the document\n"
    "       vellari_accuracy --check FILE   measure, and tell what of the document no longer "
    "holds\n"
    "       vellari_accuracy --help         this text\n";

int Misuse(std::string const& what) {
    std::cerr << "vellari_accuracy: " << what << '\n' << Usage;
    return stMisuse;
}

int Write(std::string const& path) {
    TTextFile file(path);
    std::vector<TFamily> const families = Families();
    std::vector<TDifferences> const differences = MeasureAll(families);
    std::vector<TFigures> figures;
    for (TFamily const& family : families) {
        for (TCase const& measured : family.Cases) {
            for (TRow const& row : measured.Rows) {
                figures.push_back(FiguresOf(row, differences.at(figures.size())));
            }
        }
    }
    file.Commit(Render(families, figures, ProjRelease()));
    std::cout << path << ": " << figures.size() << " rows written\n";
    return stHolds;
}

int CheckFile(std::string const& path) {
    std::string const text = ReadTextFile(path);
    std::vector<TFamily> const families = Families();
    std::vector<TDifferences> const differences = MeasureAll(families);
    std::vector<std::string> const failures = Check(families, differences, text, path);
    for (std::string const& failure : failures) {
        std::cerr << failure << '\n';
    }
    if (!failures.empty()) {
        std::cerr << "PROJ " << ProjRelease() << "; \"make accuracy\" writes the document anew\n";
        return stFails;
    }
    std::cout << path << ": all " << differences.size() << " rows hold with PROJ " << ProjRelease() << '\n';
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
    return write ? Write(arguments[1]) : CheckFile(arguments[1]);
}

} // namespace

int main(int count, char** arguments) {
    try {
        return Run(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (std::exception const& failure) {
        std::cerr << "vellari_accuracy: " << failure.what() << '\n';
        return stFails;
    }
}
