// host SOURCE TARGET: reads two description files and moves the points on standard input, three numbers each.

#include <Vellari/Vellari.h>

#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <memory>

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Load(char const* path) {
    std::ifstream file(path, std::ios::binary);
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    return std::unique_ptr<KvRefSystem::TShellReferenceSystem>(
        KvRefSystem::CreateShellReferenceSystem(text, nullptr));
}

int main(int count, char** arguments) {
    Init_Vellari();
    auto const source = Load(count == 3 ? arguments[1] : "");
    auto const target = Load(count == 3 ? arguments[2] : "");
    if (!source || !target) {
        std::cerr << "usage: host SOURCE TARGET <POINTS, with two description files\n";
        return 2;
    }
    double point[3];
    while (std::cin >> point[0] >> point[1] >> point[2]) {
        bool const moved = KvRefSystem::TransformCoords(source.get(), point[0], point[1], point[2],
                                                        target.get(), &point[0], &point[1], &point[2]);
        std::cout << std::fixed << std::setprecision(9);
        moved ? std::cout << point[0] << ' ' << point[1] << ' ' << point[2] << '\n' : std::cout << "failed\n";
    }
    Deinit_Vellari();
}
