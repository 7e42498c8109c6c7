// geoid GRID DESCRIPTION: reads latitudes, longitudes and heights over the ellipsoid of WGS 84, and tells the heights
// over the geoid whose grid is given; DESCRIPTION is that of WGS 84.

#include <Vellari/Vellari.h>
#include <Vellari/hostkit/grids/GeoidGrid.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

using TSystem = std::unique_ptr<KvRefSystem::TShellReferenceSystem>;

TSystem Load(char const* path) {
    std::ifstream file(path, std::ios::binary);
    return TSystem(KvRefSystem::CreateShellReferenceSystem(
        std::string{std::istreambuf_iterator<char>(file), {}}, nullptr));
}

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: geoid GRID DESCRIPTION <POINTS\n");
        return 2;
    }
    Init_Vellari();
    try {
        VellariHostKit::TGeoidGrid grid(arguments[1]);
        TSystem const ellipsoid = Load(arguments[2]);
        TSystem const geoid = Load(arguments[2]);
        geoid->SetGeoid(arguments[1], &grid, ellipsoid.get());
        for (double p[3]; std::cin >> p[0] >> p[1] >> p[2];) {
            bool const moved = KvRefSystem::TransformCoords(ellipsoid.get(), p[0], p[1], p[2], geoid.get(),
                                                            &p[0], &p[1], &p[2]);
            moved ? std::printf("%.3f\n", p[2]) : std::printf("outside\n");
        }
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "geoid: %s\n", failure.what());
        return 1;
    }
    Deinit_Vellari();
}
