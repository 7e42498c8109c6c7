#include "TestKinds.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/refsystems/PrimeMeridian.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

// Hosts are compiled against these layouts: sizes, positions and virtual slots are part of the contract.

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

static_assert(sizeof(TCoords) == 32);
static_assert(sizeof(TRefSystemTransform) == 80);
static_assert(sizeof(TRefSystemTransformsSet) == 64);
static_assert(sizeof(TReferenceSystem) == 128);
static_assert(sizeof(TGeocentricReferenceSystem) == 144);
static_assert(sizeof(TGeodeticReferenceSystem) == 144);
static_assert(sizeof(TLocalCartesianReferenceSystem) == 136);
static_assert(sizeof(TLocalCurvedReferenceSystem) == 160);
static_assert(sizeof(TTopocentricHorizontalReferenceSystem) == 264);
static_assert(sizeof(TDatumShift) == 16);
static_assert(sizeof(TPrimeMeridian) == 40);

static_assert(offsetof(TCoords, X) == 0);
static_assert(offsetof(TCoords, Y) == 8);
static_assert(offsetof(TCoords, Z) == 16);
static_assert(offsetof(TCoords, ZUndefined) == 24);
static_assert(offsetof(TRefSystemTransformsSet, TransformList) == 0);
static_assert(offsetof(TRefSystemTransformsSet, TransformID) == 24);
static_assert(offsetof(TRefSystemTransformsSet, Cursor) == 56);

static_assert(!std::is_polymorphic_v<TCoords> && !std::is_polymorphic_v<TRefSystemTransformsSet>);
static_assert(std::has_virtual_destructor_v<TRefSystemTransform>);
static_assert(std::has_virtual_destructor_v<TReferenceSystem>);
static_assert(std::has_virtual_destructor_v<TDatumShift>);
static_assert(std::has_virtual_destructor_v<TPrimeMeridian>);
static_assert(std::is_abstract_v<TRefSystemTransform>);
static_assert(std::is_abstract_v<TReferenceSystem>);
static_assert(std::is_abstract_v<TDatumShift>);

static_assert(std::is_same_v<std::underlying_type_t<TReferenceSystemType>, int>);
static_assert(std::is_same_v<std::underlying_type_t<TReferenceSystemCartesianOrientation>, int>);
static_assert(std::is_same_v<std::underlying_type_t<TReferenceSystemTransformType>, int>);
static_assert(std::is_same_v<std::underlying_type_t<TDatumShiftType>, int>);
static_assert(rstLocalCartesian == 1 && rstLocalCurved == 2 && rstGeocentric == 3 && rstGeodetic == 4 &&
              rstMapProjected == 5 && rstTopocentricHorizontal == 6);
static_assert(rscoLeft == 0 && rscoRight == 1);
static_assert(dcUnknown == 1 && dcEqual == 2 && dcDifferent == 3 && dcIncompatible == 4);
static_assert(dsBursaWolf == 1 && dsBursaWolfNonlinear == 2);

template <class Object, class Member>
std::ptrdiff_t Offset(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

/** Slot of a virtual function: its pointer to member holds 1 + 8 slots. */
template <class Function>
std::ptrdiff_t Slot(Function function) {
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / 8;
}

} // namespace

TEST(Layout, MembersStandAtTheirPositions) {
    auto const ellipsoid = Wgs84();
    TForeignTransform const transform;
    EXPECT_EQ(Offset(transform, transform.Name), 8);
    EXPECT_EQ(Offset(transform, transform.Description), 40);
    EXPECT_EQ(Offset(transform, transform.Type), 72);

    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    EXPECT_EQ(Offset(geocentric, geocentric.Type), 8);
    EXPECT_EQ(Offset(geocentric, geocentric.Transforms), 16);
    EXPECT_EQ(Offset(geocentric, geocentric.PairwiseTransforms), 80);
    EXPECT_EQ(Offset(geocentric, geocentric.DatumShift), 128);
    EXPECT_EQ(Offset(geocentric, geocentric.PrimeMeridian), 136);

    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    EXPECT_EQ(Offset(geodetic, geodetic.Ellipsoid), 128);
    EXPECT_EQ(Offset(geodetic, geodetic.GeocentricSystem), 136);

    TLocalCartesianReferenceSystem const local(rscoLeft, {}, {});
    EXPECT_EQ(Offset(local, local.Orientation), 128);

    TLocalCurvedReferenceSystem const curved(rscoLeft, 1, 2, 3, {}, {});
    EXPECT_EQ(Offset(curved, curved.LocalCartesianSystem), 128);
    EXPECT_EQ(Offset(curved, curved.Radius), 136);
    EXPECT_EQ(Offset(curved, curved.CenterX), 144);
    EXPECT_EQ(Offset(curved, curved.CenterY), 152);

    TTopocentricHorizontalReferenceSystem const topocentric(rscoLeft, 0.0, &geodetic, TCoords(), {}, {});
    EXPECT_EQ(Offset(topocentric, topocentric.GeodeticSystem), 128);
    EXPECT_EQ(Offset(topocentric, topocentric.Orientation), 136);
    EXPECT_EQ(Offset(topocentric, topocentric.Origin), 144);
    EXPECT_EQ(Offset(topocentric, topocentric.InverseShift), 168);
    EXPECT_EQ(Offset(topocentric, topocentric.Rotation), 192);

    TForeignShift const shift;
    EXPECT_EQ(Offset(shift, shift.Type), 8);

    TPrimeMeridian const meridian(0.5);
    EXPECT_EQ(Offset(meridian, meridian.Longitude), 8);
    EXPECT_EQ(Offset(meridian, meridian.SinLongitude), 16);
    EXPECT_EQ(Offset(meridian, meridian.CosLongitude), 24);
    EXPECT_EQ(Offset(meridian, meridian.NonZero), 32);
}

TEST(Layout, VirtualFunctionsOfASystemStandInTheirSlots) {
    // The destructor takes slots 0 and 1.
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedGeocentricRefSystem), 2);
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedGeodeticRefSystem), 3);
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedMapProjectedRefSystem), 4);
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedTopocentricHorizontalRefSystem), 5);
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedLocalCartesianRefSystem), 6);
    EXPECT_EQ(Slot(&TReferenceSystem::RelatedLocalCurvedRefSystem), 7);
    EXPECT_EQ(Slot(&TReferenceSystem::operator==), 8);
    EXPECT_EQ(Slot(&TReferenceSystem::PreservesHeights), 9);
    EXPECT_EQ(Slot(&TReferenceSystem::ContainsDatum), 10);
    EXPECT_EQ(Slot(&TReferenceSystem::NonlinearDatum), 11);
    EXPECT_EQ(Slot(&TReferenceSystem::OperateCoordsBase), 12);
    EXPECT_EQ(Slot(&TReferenceSystem::OperateCoordsBaseWorld), 13);
    EXPECT_EQ(Slot(&TReferenceSystem::GetAxisStepsBase), 14);
    EXPECT_EQ(Slot(&TReferenceSystem::ReplaceDatumShift), 15);
}

TEST(Layout, VirtualFunctionsOfATransformStandInTheirSlots) {
    using TStep = void (TRefSystemTransform::*)(TReferenceSystem const*, TCoords*) const;
    EXPECT_EQ(Slot(&TRefSystemTransform::operator==), 2);
    EXPECT_EQ(Slot(static_cast<TStep>(&TRefSystemTransform::BaseToTransformed)), 3);
    EXPECT_EQ(Slot(static_cast<TStep>(&TRefSystemTransform::TransformedToBase)), 4);
    EXPECT_EQ(Slot(&TRefSystemTransform::PreservesHeights), 5);
    EXPECT_EQ(Slot(&TRefSystemTransform::Output), 6);
}

TEST(Layout, VirtualFunctionsOfADatumShiftStandInTheirSlots) {
    EXPECT_EQ(Slot(&TDatumShift::operator==), 2);
    EXPECT_EQ(Slot(&TDatumShift::DirectTransform), 3);
    EXPECT_EQ(Slot(&TDatumShift::ReverseTransform), 4);
    EXPECT_EQ(Slot(&TDatumShift::IsNonlinear), 5);
}

TEST(Layout, KindsAddNoVirtualFunctions) {
    // A new virtual function would take slot 16; a function pointer in a derived class keeps its base's slot.
    EXPECT_EQ(Slot(&TGeocentricReferenceSystem::ReplaceDatumShift), 15);
    EXPECT_EQ(Slot(&TGeodeticReferenceSystem::ReplaceDatumShift), 15);
    EXPECT_EQ(Slot(&TLocalCartesianReferenceSystem::GetAxisStepsBase), 14);
    EXPECT_EQ(Slot(&TLocalCurvedReferenceSystem::GetAxisStepsBase), 14);
    EXPECT_EQ(Slot(&TTopocentricHorizontalReferenceSystem::ReplaceDatumShift), 15);
    EXPECT_EQ(Slot(&TGeocentricReferenceSystem::RelatedGeocentricRefSystem), 2);
    EXPECT_EQ(Slot(&TGeodeticReferenceSystem::RelatedGeodeticRefSystem), 3);
    EXPECT_EQ(Slot(&TTopocentricHorizontalReferenceSystem::RelatedTopocentricHorizontalRefSystem), 5);
    EXPECT_EQ(Slot(&TLocalCartesianReferenceSystem::RelatedLocalCartesianRefSystem), 6);
    EXPECT_EQ(Slot(&TLocalCurvedReferenceSystem::RelatedLocalCurvedRefSystem), 7);
}
