#include "frame/NumberText.h"
#include "shell/datum/Geoid.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/fuzz/targets/ComposedSystem.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/SystemPromises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tests/support/Descriptions.h"
#include "tests/support/Systems.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace Fuzz {

namespace {

using namespace KvRefSystem;

/** A number that no operation gives: a NaN with a mark of its own. */
double Untouched() {
    return std::bit_cast<double>(std::uint64_t{0x7FF8'0000'0BAD'C0DE});
}

bool IsUntouched(double number) {
    return std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(Untouched());
}

/** Moves a point; a failure touches nothing, and the result may lie where the point was. */
bool Move(TShellReferenceSystem const& from, double const* point, TShellReferenceSystem const& to,
          double* result) {
    std::fill_n(result, 3, Untouched());
    bool const isMoved =
        TransformCoords(&from, point[0], point[1], point[2], &to, &result[0], &result[1], &result[2]);
    double inPlace[3] = {point[0], point[1], point[2]};
    bool const isMovedInPlace = TransformCoords(&from, inPlace[0], inPlace[1], inPlace[2], &to, &inPlace[0],
                                                &inPlace[1], &inPlace[2]);
    Require(isMoved == isMovedInPlace, "a point in place goes the same way");
    for (int axis = 0; axis < 3; ++axis) {
        Require(isMoved || IsUntouched(result[axis]), "a failure leaves the results untouched");
        Require(IsSame(inPlace[axis], isMoved ? result[axis] : point[axis]),
                "a point in place goes to the same place");
    }
    return isMoved;
}

/** A copy of a system sends points to the same place. */
void MoveByCopies(TShellReferenceSystem const& from, double const* point, TShellReferenceSystem const& to,
                  bool isMoved, double const* expected) {
    TSystem const copyOfFrom(from.CreateCopy());
    TSystem const copyOfTo(to.CreateCopy());
    double result[3];
    Require(Move(*copyOfFrom, point, *copyOfTo, result) == isMoved, "copies move the same points");
    for (int axis = 0; axis < 3 && isMoved; ++axis) {
        if (!IsSame(result[axis], expected[axis])) {
            Require(false, "copies move a point to the same place",
                    FormatText("axis %d: %.17g and %.17g\n", axis, expected[axis], result[axis]) +
                        TextOf(from) + TextOf(to));
        }
    }
}

/** Asks what a host may ask of two systems and a point besides. */
void AskRelations(TShellReferenceSystem const& from, double const* point, TShellReferenceSystem const& to) {
    Succeeds<std::logic_error, std::runtime_error>([&] { CompareDatums(&from, &to); });
    Succeeds<std::logic_error, std::runtime_error>([&] { from.PreservesHeights(to); });
    Succeeds<std::logic_error, std::runtime_error>([&] { static_cast<void>(from == to); });
    Succeeds<std::logic_error, std::runtime_error>([&] { from ^= to; });
    double axes[9];
    Succeeds<std::logic_error, std::runtime_error>(
        [&] { TransformAxes(&from, point[0], point[1], point[2], axes, true); });
    Succeeds<std::logic_error, std::runtime_error>([&] {
        from.CalculateArea({{{point[0], point[1], 0}}, {{point[1], point[2], 0}}, {{0, 0, 0}}});
    });
    TShellCoords texts;
    Succeeds<std::logic_error, std::runtime_error>([&] { from.OutputCoordsDef(point, &texts); });
    double read[3];
    from.InputCoords(texts, nullptr, nullptr, read);
    RequireQuietExports(from);
}

} // namespace

/** Input: the two systems, whether the first has a geoid, the point. */
void RunTransform(std::string_view input) {
    TInputBytes bytes(input);
    TSystem systems[2];
    for (TSystem& system : systems) {
        TStringTree tree;
        ComposeSystem(&bytes, &tree);
        if (!Succeeds<std::runtime_error, std::logic_error>(
                [&] { system.reset(CreateShellReferenceSystem(&tree, nullptr)); }) ||
            !system) {
            return;
        }
    }
    TShellReferenceSystem& from = *systems[0];
    TShellReferenceSystem const& to = *systems[1];
    static TSystem const ofGrid = TestSupport::Create(TestSupport::WithZeroShift());
    TestSupport::TLevelGrid grid(bytes.Below(2) == 0 ? 14.5 : bytes.Number());
    if (bytes.Below(4) == 0) {
        Succeeds<std::runtime_error>([&] { from.SetGeoid("level", &grid, ofGrid.get()); });
    }
    double const point[3] = {bytes.Number(), bytes.Number(), bytes.Number()};

    double there[3];
    bool const isMoved = Move(from, point, to, there);
    MoveByCopies(from, point, to, isMoved, there);
    if (isMoved) {
        double back[3];
        Move(to, there, from, back);
    }
    AskRelations(from, point, to);
}

std::vector<std::string> TransformSeeds() {
    std::vector<std::string> seeds;
    // Every method towards a geodetic system, and every kind towards every other one.
    for (std::size_t method = 0; method < MethodCount(); ++method) {
        for (char const changes : {'\0', '\x03', '\x0E', '\x7F'}) {
            seeds.push_back(std::string(1, '\0') + static_cast<char>(method) + changes + '\0' + '\4' + '\2' +
                            std::string(80, '\1'));
        }
    }
    for (char from = 0; from < 10; ++from) {
        for (char to = 3; to < 10; ++to) {
            std::string bytes(1, from);
            bytes += std::string(20, to);
            bytes += std::string(20, '\4');
            seeds.push_back(bytes);
        }
    }
    return seeds;
}

} // namespace Fuzz
