#include "tools/determinism/Block.h"

#include <Vellari/Vellari.h>

namespace VellariDeterminism {

namespace {

using namespace KvRefSystem;

constexpr int PointsOfRoad = 40;
constexpr int PointsOfType = 5000;
constexpr TGOST51794Version Editions[] = {gv2001, gv2008, gv2017};
constexpr int LastDatum = gdITRF2008;

void PrintRoad(TGOST51794Version edition, TGOST51794Datum from, TGOST51794Datum to, TGenerator& numbers,
               TLine* line) {
    double const latitude = numbers.Between(-1.5, 1.5);
    double const longitude = numbers.Between(-0.1, 3.14);
    double const height = numbers.Between(-100, 5000);
    for (TGOST51794RefsystemType const type : {grtGeocentric, grtGeodetic, grtProjected}) {
        double out[3] = {};
        bool const done = GOST51794TransformCoords(edition, {from, grtGeodetic}, latitude, longitude, height,
                                                   {to, type}, &out[0], &out[1], &out[2]);
        line->AddWord(done ? "done" : "refused");
        if (done) {
            line->Add(out[0], out[1], out[2]);
        }
    }
}

void PrintPlane(TGenerator& numbers, TLine* line) {
    double const B = numbers.Between(-1.57, 1.57);
    double const L = numbers.Between(0, 6.28);
    double x = 0;
    double y = 0;
    line->AddWord(GOST51794::geod2proj(B, L, &x, &y) ? "done" : "refused");
    line->Add(x, y);
    double latitude = 0;
    double longitude = 0;
    bool const back = GOST51794::proj2geod(x + numbers.Between(-1e4, 1e4), y, &latitude, &longitude);
    line->AddWord(back ? "done" : "refused");
    line->Add(latitude, longitude);
}

void PrintGeodetic(TGenerator& numbers, TLine* line) {
    double const a = numbers.Between(6.377e6, 6.379e6);
    double const e2 = numbers.Between(0.0066, 0.0068);
    double const point[3] = {numbers.Between(-6.4e6, 6.4e6), numbers.Between(-6.4e6, 6.4e6),
                             numbers.Between(-6.4e6, 6.4e6)};
    double B = 0;
    double L = 0;
    double H = 0;
    bool const done = GOST51794::geoc2geod(a, e2, point[0], point[1], point[2], &B, &L, &H);
    line->AddWord(done ? "done" : "refused");
    line->Add(B, L, H);
}

void PrintRecord(TGOST51794Version edition, TGOST51794Datum datum, TLine* line) {
    double a = 0;
    double b = 0;
    TDatumShiftParams params = {};
    line->AddWord(GetGOST51794Params(edition, datum, &a, &b, &params) ? "done" : "refused");
    line->Add(a, b, params.dX, params.dY, params.dZ, params.wx, params.wy, params.wz, params.m);
}

} // namespace

void AddGost(TBlocks* blocks) {
    for (TGOST51794Version const edition : Editions) {
        for (int from = 0; from <= LastDatum; ++from) {
            auto const source = static_cast<TGOST51794Datum>(from);
            std::string const name = FormatText("edition of %d, datum %d", edition, from);
            blocks->push_back({name, 1, [edition, source](TGenerator&, TLine* line) {
                                   PrintRecord(edition, source, line);
                               }});
            for (int to = 0; to <= LastDatum; ++to) {
                auto const target = static_cast<TGOST51794Datum>(to);
                blocks->push_back({name + FormatText(" to %d", to), PointsOfRoad,
                                   [edition, source, target](TGenerator& numbers, TLine* line) {
                                       PrintRoad(edition, source, target, numbers, line);
                                   }});
            }
        }
    }
    blocks->push_back({"plane coordinates of the standard", PointsOfType, &PrintPlane});
    blocks->push_back({"geodetic coordinates of the standard", PointsOfType, &PrintGeodetic});
}

} // namespace VellariDeterminism
