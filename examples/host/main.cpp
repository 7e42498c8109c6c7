// host SOURCE TARGET A B C: reads two description files and moves one point from the first system to the second.

#include <Vellari/Vellari.h>

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <memory>

namespace {

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Load(char const* path) {
    std::ifstream file(path, std::ios::binary);
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    return std::unique_ptr<KvRefSystem::TShellReferenceSystem>(
        KvRefSystem::CreateShellReferenceSystem(text, nullptr));
}

int Run(char** arguments) {
    auto const source = Load(arguments[1]);
    auto const target = Load(arguments[2]);
    if (!source || !target) {
        std::cerr << "host: " << arguments[source ? 2 : 1] << " doesn't describe a system\n";
        return 2;
    }
    double const a = std::atof(arguments[3]);
    double const b = std::atof(arguments[4]);
    double const c = std::atof(arguments[5]);
    double x;
    double y;
    double z;
    if (!KvRefSystem::TransformCoords(source.get(), a, b, c, target.get(), &x, &y, &z)) {
        std::cerr << "host: the point can't be transformed\n";
        return 1;
    }
    std::cout << std::fixed << std::setprecision(9) << x << ' ' << y << ' ' << z << '\n';
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 6) {
        std::cerr << "usage: host SOURCE TARGET A B C\n";
        return 2;
    }
    Init_Vellari();
    int const status = Run(arguments);
    Deinit_Vellari();
    return status;
}
