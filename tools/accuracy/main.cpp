#include "tools/accuracy/Check.h"
#include "tools/accuracy/Contents.h"
#include "tools/accuracy/ProjOperation.h"
#include "tools/accuracy/TextFile.h"

#include <Vellari/Vellari.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace VellariAccuracy;

/** The library, started. */
struct TModule {
    TModule() { Init_Vellari(); }
    ~TModule() { Deinit_Vellari(); }
    TModule(TModule const&) = delete;
    TModule& operator=(TModule const&) = delete;
};

enum EStatus : int {
    stHolds = 0,
    stFails = 1,
    stMisuse = 2,
};

constexpr char Usage[] =
    "usage: vellari_accuracy --write FILE   measure the whole road and write the document\n"
    "       vellari_accuracy --check FILE   measure, and tell what of the document no longer "
    "holds\n"
    "       vellari_accuracy --help         this text\n";

int Misuse(std::string const& what) {
    std::cerr << "vellari_accuracy: " << what << '\n' << Usage;
    return stMisuse;
}

void Tell(std::vector<std::string> const& failures) {
    for (std::string const& failure : failures) {
        std::cerr << failure << '\n';
    }
}

int Write(std::string const& path) {
    TTextFile file(path);
    TDocument const document = WholeDocument();
    std::vector<TNumbers> const measured = MeasureAll(document);
    std::vector<std::string> const failures = BeyondBounds(document, measured);
    if (!failures.empty()) {
        Tell(failures);
        return stFails;
    }
    std::vector<TFigures> figures;
    for (TTable const& table : document.Tables) {
        for (TLine const& line : table.Lines) {
            figures.push_back(FiguresOf(table, line, measured.at(figures.size())));
        }
    }
    file.Commit(Render(document, figures, ProjRelease()));
    std::cout << path << ": " << figures.size() << " rows written\n";
    return stHolds;
}

int CheckFile(std::string const& path) {
    std::string const text = ReadTextFile(path);
    TDocument const document = WholeDocument();
    std::vector<TNumbers> const measured = MeasureAll(document);
    std::vector<std::string> const failures = Check(document, measured, text, path);
    if (!failures.empty()) {
        Tell(failures);
        std::cerr << "PROJ " << ProjRelease() << "; \"make accuracy\" writes the document anew\n";
        return stFails;
    }
    std::cout << path << ": all " << measured.size() << " rows hold with PROJ " << ProjRelease() << '\n';
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
        TModule const module;
        return Run(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (std::exception const& failure) {
        std::cerr << "vellari_accuracy: " << failure.what() << '\n';
        return stFails;
    }
}
