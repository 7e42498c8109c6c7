#include "core/transforms/FloatTable.h"
#include "frame/NumberText.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/Targets.h"

#include <cmath>
#include <limits>

namespace Fuzz {

namespace {

using TTable = KvRefSystem::T2DTable<float>;
using KvRefSystem::FormatText;

/** The table in the text form that it is read from; nine digits tell a float. */
std::string TextOf(TTable const& table) {
    std::string text = FormatText("%u %u %.9g %.9g %.9g", table.SizeY, table.SizeX, table.StepX,
                                  table.OriginY, table.OriginX);
    for (unsigned y = 0; y < table.SizeY; ++y) {
        for (unsigned x = 0; x < table.SizeX; ++x) {
            text += FormatText(x == 0 ? "\r\n%.9g" : "\t%.9g", table.Rows[x][y]);
        }
    }
    return text;
}

/** Inside and outside of the grid a looked-up value lies between the least and the greatest one. */
void LookAround(TTable const& table) {
    TTable const copy(table);
    float const infinity = std::numeric_limits<float>::infinity();
    float const least = table.MinValue;
    float const greatest = table.MaxValue;
    float const largest = std::fmax(std::fabs(least), std::fabs(greatest));
    // Beyond the half of what a float holds the sum of four products may overflow.
    // A step beyond the floats has no cells.
    bool const isTame = largest < std::numeric_limits<float>::max() / 4 && table.StepX > 0 &&
                        std::isfinite(table.StepX) && table == copy;
    float const slack = 1e-3f * (greatest - least) + 1e-5f * largest;
    float const steps[] = {-infinity,
                           -1e9f,
                           -1,
                           0,
                           0.25f,
                           0.5f,
                           1,
                           1.5f,
                           2.75f,
                           100,
                           1e9f,
                           infinity,
                           std::numeric_limits<float>::quiet_NaN()};
    for (float const right : steps) {
        for (float const up : steps) {
            float const x = table.OriginX + right * table.StepX;
            float const y = table.OriginY + up * table.StepY;
            float const value = table.InterpolateValue(x, y);
            Require(!isTame || (value >= least - slack && value <= greatest + slack),
                    "a looked-up value lies between the table's ends",
                    FormatText("%.9g at %.9g, %.9g", value, x, y));
        }
    }
}

} // namespace

void RunFloatTable(std::string_view input) {
    TTable table;
    if (!table.LoadFromString2(std::string(input), nullptr)) {
        TTable const copy(table);
        Require(copy.SizeX == table.SizeX && copy.SizeY == table.SizeY, "a table as far as it came is whole");
        return;
    }
    TTable const copy(table);
    // A NaN makes a table unequal to itself and leaves its ends undefined.
    // A step that a float takes for 0 can't be written.
    if (!(table == copy) || table.StepX == 0) {
        LookAround(table);
        return;
    }
    std::string const text = TextOf(table);
    TTable again;
    Require(again.LoadFromString2(text, nullptr), "a written table is read", text);
    Require(again == table, "a table is read as it was written", text);
    RequireSameText(text, TextOf(again), "a table has the same text again");
    LookAround(table);
}

std::vector<std::string> FloatTableSeeds() {
    return {
        "1 1 1 0 0 5",
        "2 2 0.5 10 20 1 2 3 4",
        "2 3 1000 5000000 400000\r\n0.125\t-0.25\t1e-3\r\n1e3\t0\t-0",
        "3 1 1e-3 -1e10 1e10 nan inf -inf",
        "1 2 1e39 0 0 1 2",
        "2 1 1e-46 -1 -1 0x10 2",
        "1 5 2 0 0 3.4e38 -3.4e38 1e-45 1e400 +7",
        "2147483647 2147483647 1 0 0 1",
        "2 2 1 0 0 1 2 3",
        "2 2 -1 0 0 1 2 3 4",
    };
}

} // namespace Fuzz
