#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "tests/support/CartesianSystems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

using TBase = TShellReferenceSystem;
using TKeys = std::map<int, std::string>;

/** Slot of a virtual operation in the table: a pointer to it holds the offset plus 1 (Itanium ABI, 2.3). */
template <class Operation>
std::size_t SlotOf(Operation operation) {
    std::uintptr_t code = 0;
    std::memcpy(&code, &operation, sizeof code);
    return (code - 1) / sizeof(void*);
}

/** Offset of a member in its object. */
template <class Object, class Member>
std::ptrdiff_t OffsetOf(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

// Hosts are compiled against these places.

TEST(ReferenceSystemSlots, StandInTheOrderThatHostsCall) {
    // The destructor has slots 0 and 1.
    EXPECT_EQ(SlotOf<void (TBase::*)(double const*, TCoords*) const>(&TBase::CoordsShellToCore), 2U);
    EXPECT_EQ(SlotOf<void (TBase::*)(TCoords const&, double*) const>(&TBase::CoordsCoreToShell), 3U);
    EXPECT_EQ(SlotOf<void (TBase::*)(TShellCoords const&, TCoords*) const>(&TBase::CoordsShellToCore), 4U);
    EXPECT_EQ(SlotOf<void (TBase::*)(TCoords const&, TShellCoords*) const>(&TBase::CoordsCoreToShell), 5U);
    EXPECT_EQ(SlotOf(&TBase::InputCoords), 6U);
    EXPECT_EQ(SlotOf(&TBase::OutputCoords), 7U);
    EXPECT_EQ(SlotOf(&TBase::OutputCoordsDef), 8U);
    EXPECT_EQ(SlotOf(&TBase::FillInternalRefSystemTree), 9U);
    EXPECT_EQ(SlotOf(&TBase::FillPrimaryGeodeticRefSystemTree), 10U);
    EXPECT_EQ(SlotOf(&TBase::FillPrimaryGeodeticRefSystemTreeDeg), 11U);
    EXPECT_EQ(SlotOf(&TBase::FillPrimaryGeocentricRefSystemTree), 12U);
    EXPECT_EQ(SlotOf(&TBase::ExportToMIFMID), 13U);
    EXPECT_EQ(SlotOf<bool (TBase::*)(TKeys*, bool) const>(&TBase::ExportToGeoTIFF), 14U);
    EXPECT_EQ(SlotOf(&TBase::ExportToGeoTIFFClassified), 15U);
    EXPECT_EQ(SlotOf(&TBase::ExportToWKT), 16U);
    EXPECT_EQ(SlotOf(&TBase::ExportToPanorama), 17U);
    EXPECT_EQ(SlotOf(&TBase::IsLeft), 18U);
    EXPECT_EQ(SlotOf(&TBase::GetSphereRadius), 19U);
    EXPECT_EQ(SlotOf(&TBase::GetAxesDirections), 20U);
    EXPECT_EQ(SlotOf(&TBase::GetMapProjectionName), 21U);
    EXPECT_EQ(SlotOf(&TBase::GetPlaneUnitCoefToBase), 22U);
    EXPECT_EQ(SlotOf(&TBase::GetPlaneUnitName), 23U);
    EXPECT_EQ(SlotOf(&TBase::GetPlaneUnitShortName), 24U);
    EXPECT_EQ(SlotOf(&TBase::GetPlaneUnitDefPrec), 25U);
    EXPECT_EQ(SlotOf(&TBase::GetHeightUnitCoefToBase), 26U);
    EXPECT_EQ(SlotOf(&TBase::GetHeightUnitName), 27U);
    EXPECT_EQ(SlotOf(&TBase::GetHeightUnitShortName), 28U);
    EXPECT_EQ(SlotOf(&TBase::GetHeightUnitDefPrec), 29U);
    EXPECT_EQ(SlotOf<bool (TBase::*)(TBase const&) const>(&TBase::operator==), 30U);
    EXPECT_EQ(SlotOf(&TBase::PreservesHeights), 31U);
    EXPECT_EQ(SlotOf(&TBase::LoadFromXML), 32U);
    EXPECT_EQ(SlotOf(&TBase::SaveToXML), 33U);
    EXPECT_EQ(SlotOf(&TBase::Reset), 34U);
    EXPECT_EQ(SlotOf(&TBase::CalculateArea), 35U);
    EXPECT_EQ(SlotOf(&TBase::GetDatumShift), 36U);
    EXPECT_EQ(SlotOf(&TBase::ExportAxesToWKT), 37U);
    EXPECT_EQ(SlotOf(&TBase::InsertCoreTransforms), 38U);
    EXPECT_EQ(SlotOf(&TBase::InsertCorePairwiseTransforms), 39U);
}

template <class System>
std::size_t OneArgumentMifSlot() {
    return SlotOf<bool (System::*)(std::string*) const>(&System::ExportToMIFMID);
}

TEST(ReferenceSystemSlots, FourKindsHaveOneMoreAtTheEnd) {
    // It overrides nothing: a call through the base's slot 13 runs the base's operation.
    EXPECT_EQ(OneArgumentMifSlot<TShellGeocentricReferenceSystem>(), 40U);
    EXPECT_EQ(OneArgumentMifSlot<TShellTopocentricHorizontalReferenceSystem>(), 40U);
    EXPECT_EQ(OneArgumentMifSlot<TShellLocalCartesianReferenceSystem>(), 40U);
    EXPECT_EQ(OneArgumentMifSlot<TShellLocalCurvedReferenceSystem>(), 40U);
}

TEST(ReferenceSystemSlots, OfTheVerticalPartFollowItsDestructor) {
    using TVertical = TShellVerticalReferenceSystem;
    EXPECT_EQ(SlotOf<bool (TVertical::*)(TVertical const&) const>(&TVertical::operator==), 2U);
    EXPECT_EQ(SlotOf(&TVertical::ExportToWKT), 3U);
    EXPECT_EQ(SlotOf(&TVertical::LoadFromXML), 4U);
    EXPECT_EQ(SlotOf(&TVertical::SaveToXML), 5U);
    EXPECT_EQ(SlotOf(&TVertical::Reset), 6U);
}

TEST(ReferenceSystemSlots, MembersStandInTheirOrder) {
    auto const owned = Create(WithZeroShift());
    auto const& system = dynamic_cast<TShellGeodeticReferenceSystem const&>(*owned);

    // Strings of 32 bytes, a map of 48, a handle of 16, pointers of 8.
    EXPECT_EQ(OffsetOf(system, system.Type), 8);
    EXPECT_EQ(OffsetOf(system, system.CoreRefSystem), 16);
    EXPECT_EQ(OffsetOf(system, system.Name), 24);
    EXPECT_EQ(OffsetOf(system, system.Description), 56);
    EXPECT_EQ(OffsetOf(system, system.Abbreviation), 88);
    EXPECT_EQ(OffsetOf(system, system.AxisName), 120);
    EXPECT_EQ(OffsetOf(system, system.GeoTIFFCode), 216);
    EXPECT_EQ(OffsetOf(system, system.GeoTIFFType), 248);
    EXPECT_EQ(OffsetOf(system, system.DatumGeoTIFFCode), 280);
    EXPECT_EQ(OffsetOf(system, system.PanoramaCode), 312);
    EXPECT_EQ(OffsetOf(system, system.DatumShift), 344);
    EXPECT_EQ(OffsetOf(system, system.Ellipsoid), 352);
    EXPECT_EQ(OffsetOf(system, system.PrimeMeridian), 360);
    EXPECT_EQ(OffsetOf(system, system.Transform), 368);
    EXPECT_EQ(OffsetOf(system, system.Geoid), 376);
    EXPECT_EQ(OffsetOf(system, system.PairwiseTransforms), 384);
    EXPECT_EQ(OffsetOf(system, system.ProxyRefSys), 432);
    EXPECT_EQ(OffsetOf(system, system.DatumName), 448);
    EXPECT_EQ(OffsetOf(system, system.SavedTree), 480);
    EXPECT_EQ(OffsetOf(system, system.AngularUnit), 488);
    EXPECT_EQ(OffsetOf(system, system.PositiveLongitude), 496);
    EXPECT_EQ(OffsetOf(system, system.Vertical), 504);
    EXPECT_EQ(OffsetOf(*system.Vertical, system.Vertical->HeightUnit), 8);
}

TEST(ReferenceSystemSlots, MembersOfTheCartesianKindsFollowTheBases) {
    // The base ends at 488. A number of 32 bits or a bool takes a place of 8 before a pointer or a string.
    auto const geocentric = Live(TGeocentricText());
    EXPECT_EQ(OffsetOf(*geocentric, geocentric->LinearUnit), 488);
    auto const topocentric = Live(TTopocentricText());
    EXPECT_EQ(OffsetOf(*topocentric, topocentric->BaseGeodetic), 488);
    EXPECT_EQ(OffsetOf(*topocentric, topocentric->LinearUnit), 496);
    EXPECT_EQ(OffsetOf(*topocentric, topocentric->Orientation), 504);
    EXPECT_EQ(sizeof topocentric->Orientation, 4U);
    EXPECT_EQ(OffsetOf(*topocentric, topocentric->OriginCoord), 512);
    EXPECT_EQ(OffsetOf(*topocentric, topocentric->Azimuth), 608);
    auto const plane = LiveCartesian(TLocalText());
    EXPECT_EQ(OffsetOf(*plane, plane->LinearUnit), 488);
    EXPECT_EQ(OffsetOf(*plane, plane->SwapAxes), 496);
    auto const curved = LiveCurved(Curved("1"));
    EXPECT_EQ(OffsetOf(*curved, curved->LinearUnit), 488);
    EXPECT_EQ(OffsetOf(*curved, curved->Orientation), 496);
    EXPECT_EQ(OffsetOf(*curved, curved->OriginCoord), 504);
    EXPECT_EQ(OffsetOf(*curved, curved->NoOrigin), 568);
    EXPECT_EQ(OffsetOf(*curved, curved->SphereUnit), 576);
    EXPECT_EQ(OffsetOf(*curved, curved->SphereRadiusText), 584);
    EXPECT_EQ(OffsetOf(*curved, curved->SphereRadius), 616);
    // One base, at the beginning: a pointer to the object is one to the base.
    EXPECT_EQ(static_cast<void const*>(static_cast<TBase const*>(curved.get())), curved.get());
}

} // namespace
} // namespace KvRefSystem
