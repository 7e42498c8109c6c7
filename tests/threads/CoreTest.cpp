#include "core/primitives/BursaWolfDatumShift.h"
#include "core/primitives/Ellipsoid.h"
#include "core/primitives/GOST51794.h"
#include "core/primitives/LSR.h"
#include "core/refsystems/ReferenceSystem.h"
#include "core/transforms/FloatTable.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "core/transforms/SevenParameters.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace Threads;

constexpr double Degree = 3.14159265358979323846 / 180;

TMoved Told(TCoords const& point) {
    return {true, {point.X, point.Y, point.Z}};
}

TEST(CoreInThreads, OneCoreSystemOfEachKindServesAllAndIsCopied) {
    std::vector<TPlace> const places = EarthBoundPlaces();

    auto const outcome = AskTogether(80, [&](int) {
        TMovedPoints moved;
        for (TPlace const& place : places) {
            TReferenceSystem const& core = *place.system->CoreRefSystem;
            std::unique_ptr<TReferenceSystem> const copy(CreateCopy(core));
            TCoords world{};
            place.system->CoordsShellToCore(place.point.data(), &world);
            TCoords point = world;
            core.OperateCoordsWorld(&world, true);
            copy->OperateCoords(*places.front().system->CoreRefSystem, &point);
            double axes[9] = {};
            bool const done = *copy == core && core.CompareDatums(*copy) == dcEqual &&
                              core.PreservesHeights(*copy) && core.TransformAxesWorld(point, axes, true);
            moved.push_back({done, {axes[0], axes[4], axes[8]}});
            moved.push_back(Told(world));
            moved.push_back(Told(point));
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t place = 0; place < places.size(); ++place) {
        EXPECT_TRUE(outcome.alone[3 * place].done) << places[place].name;
        // The world is that of WGS 84, whatever the system.
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(outcome.alone[3 * place + 1].point[axis], places[5].point[axis], 2e-3)
                << places[place].name;
        }
        EXPECT_NEAR(outcome.alone[3 * place + 2].point[0] / Degree, 37.62, 2e-8) << places[place].name;
        EXPECT_NEAR(outcome.alone[3 * place + 2].point[1] / Degree, 55.75, 2e-8) << places[place].name;
    }
}

TEST(CoreInThreads, OneSetOfTransformsServesAllAndIsCopied) {
    T2DTable<float> table;
    ASSERT_TRUE(table.LoadFromString2("2 2 10 0 0 4 4 4 4", nullptr));
    double const matrix[4] = {2, 0, 0, 2};
    double const offset[2] = {1, 2};
    TRefSystemTransformsSet set;
    ASSERT_TRUE(set.AddNextTransform(TPlaneShiftRefSystemTransform(10, 20)));
    ASSERT_TRUE(set.AddNextTransform(TPlaneAffineRefSystemTransform(matrix, offset)));
    ASSERT_TRUE(set.AddNextTransform(TPlaneGridRefSystemTransform(table, table, 1, nullptr)));
    ASSERT_TRUE(set.AddNextTransform(TPlaneRotationRefSystemTransform(90 * Degree)));
    ASSERT_TRUE(set.AddNextTransform(TSevenParametersRefSystemTransform(100, 0, 0, 0, 0, 0, 0)));
    ASSERT_TRUE(set.AddNextTransform(TVerticalShiftRefSystemTransform(3)));
    TRefSystemTransformsSet const& shared = set;

    auto const outcome = AskTogether(1000, [&](int) {
        TRefSystemTransformsSet const copy(shared);
        TCoords there{1, 2, 7, false};
        shared.BaseToTransformed(nullptr, &there);
        TCoords back = there;
        copy.TransformedToBase(nullptr, &back);
        return TMovedPoints{Told(there), Told(back), {copy == shared, {}}};
    });

    EXPECT_EQ(outcome.deviations, 0);
    // (1, 2) is shifted to (11, 22), doubled to (23, 46), corrected to (27, 50), turned to (50, -27).
    EXPECT_NEAR(outcome.alone[0].point[0], 150, 1e-12);
    EXPECT_NEAR(outcome.alone[0].point[1], -27, 1e-12);
    EXPECT_EQ(outcome.alone[0].point[2], 10);
    // The table acts one way only, which leaves its 4 through the halved affine: 2.
    EXPECT_NEAR(outcome.alone[1].point[0], 3, 1e-12);
    EXPECT_NEAR(outcome.alone[1].point[1], 4, 1e-12);
    EXPECT_TRUE(outcome.alone[2].done);
}

TEST(CoreInThreads, EllipsoidsShiftsAndFramesServeAll) {
    TEllipsoid const ellipsoid(6378137, 6356752.314245179);
    TBursaWolfDatumShift const linear(TBursaWolfDatumShiftParameters(25, -141, -80));
    TBursaWolfNonlinearDatumShift const exact(TBursaWolfDatumShiftParameters(25, -141, -80, 0, 0, 0, 1));
    TLSR const frame(6378137, 6356752.314245179, 55 * Degree, 37 * Degree, 100, 0);

    auto const outcome = AskTogether(1000, [&](int) {
        TCoords point{37 * Degree, 55 * Degree, 200, false};
        ellipsoid.EllipsoidalToCartesian(&point);
        TCoords shifted = point;
        linear.DirectTransform(&shifted);
        exact.ReverseTransform(&shifted);
        TLSR const copy = frame;
        TMoved local = {true, {}};
        copy.Geocentric2LSR(point.X, point.Y, point.Z, &local.point[0], &local.point[1], &local.point[2]);
        TMoved const difference = {true, {shifted.X - point.X, shifted.Y - point.Y, shifted.Z - point.Z}};
        ellipsoid.CartesianToEllipsoidal(&point);
        return TMovedPoints{Told(point), difference, local};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_NEAR(outcome.alone[0].point[0], 37 * Degree, 1e-12);
    EXPECT_NEAR(outcome.alone[0].point[1], 55 * Degree, 1e-12);
    EXPECT_NEAR(outcome.alone[0].point[2], 200, 1e-5);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(outcome.alone[1].point[axis], 0, 1e-8);                   // there and back
        EXPECT_NEAR(outcome.alone[2].point[axis], axis == 2 ? 100 : 0, 1e-8); // 100 above the origin
    }
    EXPECT_EQ(frame.EllipsoidRef.use_count(), 1U);
}

TEST(CoreInThreads, TheTransformationsOfTheStandardServeAll) {
    using namespace GOST51794;

    auto const outcome = AskTogether(1000, [](int) {
        TMoved moved;
        moved.done = GOST51794TransformCoords(gv2008, {gdPulkovo42, grtGeodetic}, 55 * Degree, 37 * Degree,
                                              200, {gdWGS84, grtGeodetic}, &moved.point[0], &moved.point[1],
                                              &moved.point[2]);
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    ASSERT_TRUE(outcome.alone.done);
    // Of the printed steps of the standard in Python.
    EXPECT_NEAR(outcome.alone.point[0] / Degree, 55.0000199210307, 1e-10);
    EXPECT_NEAR(outcome.alone.point[1] / Degree, 36.998155819798, 1e-10);
    EXPECT_NEAR(outcome.alone.point[2], 205.160847, 1e-4);
}

} // namespace
