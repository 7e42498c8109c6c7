// embedding CATALOGUE: what a host of the library does, piece by piece; docs/host.md quotes the pieces.

#include <Vellari/Vellari.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using TSystem = std::unique_ptr<KvRefSystem::TShellReferenceSystem>;

struct TModule {
    TModule() { Init_Vellari(); }
    ~TModule() { Deinit_Vellari(); }
    TModule(TModule const&) = delete;
    TModule& operator=(TModule const&) = delete;
};

std::string ReadFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TSystem Load(std::string const& path) {
    TSystem system(KvRefSystem::CreateShellReferenceSystem(ReadFile(path), nullptr));
    if (!system) {
        throw std::runtime_error(path + ": no description of a system");
    }
    return system;
}

TSystem LoadTree(std::string const& text) {
    LumCommonUtils::TStringTree tree;
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    return TSystem(KvRefSystem::CreateShellReferenceSystem(&tree, nullptr)); // throws
}

void MoveNumbers(TSystem const& pulkovo, TSystem const& wgs84) {
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    if (KvRefSystem::TransformCoords(pulkovo.get(), 55.75, 37.62, 150.0, wgs84.get(), &latitude, &longitude,
                                     &height)) {
        std::printf("numbers: %.9f %.9f %.3f\n", latitude, longitude, height);
    }
}

void MoveTexts(TSystem const& from, TSystem const& to) {
    KvRefSystem::TShellCoords texts;
    texts.Coord[0] = "55 45 00 N";
    texts.Coord[1] = "37 37 12 E";
    texts.Coord[2] = "150";
    double point[3] = {};
    if (!from->InputCoords(texts, nullptr, nullptr, point)) {
        throw std::runtime_error("a text that isn't a coordinate");
    }
    from->OperateShellCoords(*to, point, false);
    to->OutputCoordsDef(point, &texts);
    std::printf("texts: %s, %s, %s\n", texts.Coord[0].c_str(), texts.Coord[1].c_str(),
                texts.Coord[2].c_str());
}

void MoveManyPoints(TSystem const& from, TSystem const& to, std::vector<double>* points) {
    std::vector<std::thread> threads;
    std::size_t const half = points->size() / 6 * 3;
    for (std::size_t const begin : {std::size_t{0}, half}) {
        std::size_t const end = begin == 0 ? half : points->size();
        threads.emplace_back([&from, &to, points, begin, end] {
            for (std::size_t i = begin; i < end; i += 3) {
                double* const p = points->data() + i;
                if (!KvRefSystem::TransformCoords(from.get(), p[0], p[1], p[2], to.get(), &p[0], &p[1],
                                                  &p[2])) {
                    p[0] = p[1] = p[2] = std::nan("");
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void RaiseHeights(TSystem const& system) {
    KvRefSystem::TShellRefSystemTransformShiftZParams raised;
    raised.SetNameDecsription("raised benchmark", "levelling of 2026");
    raised.dH = 0.25;
    if (!system->AppendTransform(&raised)) {
        throw std::runtime_error("the chain can't be changed");
    }
}

class TFlatGeoid : public TBaseGrid {
public:
    bool GetZFastZ(double x, double y, double& z, unsigned int) override {
        if (x < 20 || x > 60 || y < 40 || y > 70) {
            return false; // outside
        }
        z = 14.5;
        return true;
    }
};

void UseGeoid(TSystem const& system, TSystem const& gridSystem, TBaseGrid* grid) {
    system->SetGeoid("flat", grid, gridSystem.get());
}

void KvPrintDbgMsg(std::string const& message) {
    std::printf("host: %s\n", message.c_str());
}

int main(int count, char** arguments) {
    std::string const catalogue = count > 1 ? arguments[1] : "catalog";
    try {
        TModule const module;
        TSystem const pulkovo = Load(catalogue + "/pulkovo-1942.txt");
        TSystem const wgs84 = Load(catalogue + "/wgs-84.txt");
        MoveNumbers(pulkovo, wgs84);
        MoveTexts(Load(catalogue + "/wgs-84-dms.txt"), pulkovo);

        std::vector<double> points;
        for (int i = 0; i < 1000; ++i) {
            points.insert(points.end(), {55.0, 37.0 + 0.001 * i, 150.0});
        }
        MoveManyPoints(pulkovo, wgs84, &points);
        std::printf("points: %zu, the last %.9f %.9f\n", points.size() / 3, points[2997], points[2998]);

        TSystem const raised(wgs84->CreateCopy());
        RaiseHeights(raised);
        MoveNumbers(pulkovo, raised);

        TFlatGeoid grid;
        TSystem const overGeoid(wgs84->CreateCopy());
        UseGeoid(overGeoid, wgs84, &grid);
        MoveNumbers(pulkovo, overGeoid);

        KvRefSystem::TCoords{1, 2, 3, false}.DebugOutput("core point");
        LoadTree("(0,0)empty\n(1100,0)[1]kind\t4\n\n");
    } catch (std::runtime_error const& failure) {
        std::printf("error: %s\n", failure.what());
    }
}
