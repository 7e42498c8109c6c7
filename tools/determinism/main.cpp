#include "tools/determinism/Block.h"
#include "tools/determinism/Compare.h"

#include <Vellari/Vellari.h>

#include <atomic>
#include <clocale>
#include <cstddef>
#include <exception>
#include <iostream>
#include <locale>
#include <string>
#include <thread>
#include <vector>

// Prints what the library makes of some 200,000 points, bit by bit. Two builds of the library, two locales or
// two numbers of threads must give the same bytes; `tools/same-bits` and the tests compare them.

namespace {

using namespace VellariDeterminism;

enum EStatus : int {
    stDone = 0,
    stFails = 1,
    stMisuse = 2,
};

constexpr char Usage[] =
    "usage: vellari_determinism [--threads N] CATALOGUE   print the results' bits\n"
    "       vellari_determinism --compare FILE FILE       tell where two outputs differ\n"
    "       vellari_determinism --help                    this text\n"
    "CATALOGUE is the folder of the ready descriptions.\n";

constexpr int MostThreads = 64;

std::string LineOf(TBlock const& block, std::size_t blockNumber, int lineNumber) {
    TGenerator numbers((static_cast<std::uint64_t>(blockNumber) << 32) +
                       static_cast<std::uint64_t>(lineNumber));
    TLine line;
    try {
        block.Print(numbers, &line);
    } catch (std::exception const& failure) {
        TLine refusal;
        refusal.AddWord("refused");
        refusal.AddText(failure.what());
        return refusal.Text();
    }
    return line.Text();
}

/** All lines of a block; every thread takes the next line that no other has. */
std::vector<std::string> LinesOf(TBlock const& block, std::size_t blockNumber, int threadCount) {
    std::vector<std::string> lines(static_cast<std::size_t>(block.Lines));
    std::atomic<int> next = 0;
    auto const work = [&] {
        for (int line = next++; line < block.Lines; line = next++) {
            lines[static_cast<std::size_t>(line)] = LineOf(block, blockNumber, line);
        }
    };
    std::vector<std::jthread> threads;
    for (int more = 1; more < threadCount; ++more) {
        threads.emplace_back(work);
    }
    work();
    threads.clear();
    return lines;
}

int PrintAll(std::string const& catalogue, int threadCount) {
    TBlocks blocks;
    AddProjections(&blocks);
    AddCatalogue(&blocks, catalogue);
    AddDescribed(&blocks);
    AddKinds(&blocks);
    AddCorrections(&blocks);
    AddUnits(&blocks);
    AddPrimitives(&blocks);
    AddGost(&blocks);
    std::string text;
    int lineCount = 0;
    for (std::size_t number = 0; number < blocks.size(); ++number) {
        text = "block " + blocks[number].Name + '\n';
        for (std::string const& line : LinesOf(blocks[number], number, threadCount)) {
            text += line;
            text += '\n';
            ++lineCount;
        }
        std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    text = KvRefSystem::FormatText("end: %zu blocks, %d lines\n", blocks.size(), lineCount);
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "vellari_determinism: the output can't be written\n";
        return stFails;
    }
    return stDone;
}

int Misuse(std::string const& what) {
    std::cerr << "vellari_determinism: " << what << '\n' << Usage;
    return stMisuse;
}

int Run(std::vector<std::string> arguments) {
    if (arguments.size() == 1 && arguments[0] == "--help") {
        std::cout << Usage;
        return stDone;
    }
    if (arguments.size() == 3 && arguments[0] == "--compare") {
        return Compare(arguments[1], arguments[2]) ? stDone : stFails;
    }
    int threadCount = 1;
    if (arguments.size() > 1 && arguments[0] == "--threads") {
        if (!KvRefSystem::ParseWholeInt(arguments[1], &threadCount) || threadCount < 1 ||
            threadCount > MostThreads) {
            return Misuse("--threads takes 1 to 64, not \"" + arguments[1] + "\"");
        }
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() != 1) {
        return Misuse("one folder is needed");
    }
    return PrintAll(arguments[0], threadCount);
}

} // namespace

int main(int count, char** arguments) {
    // As a host of that locale does it; "" is the one of the environment.
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::cerr << "vellari_determinism: the locale of the environment isn't installed\n";
        return stFails;
    }
    std::locale::global(std::locale(""));

    try {
        return Run(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (std::exception const& failure) {
        std::cerr << "vellari_determinism: " << failure.what() << '\n';
        return stFails;
    }
}
