#include "tests/support/FailingXml.h"

#include "shell/datum/DatumShift.h"
#include "shell/datum/Ellipsoid.h"
#include "shell/datum/PrimeMeridian.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

/** The components of a datum, written and read while one operation of the writer or the reader fails. */
namespace KvRefSystem {
namespace {

using namespace TestSupport;

/** A system with a shift of that type, and codes for its components. */
std::unique_ptr<TShellGeodeticReferenceSystem> WithShift(int type) {
    TGeodeticText text = Pulkovo1942();
    text.shiftType = type;
    auto system = Geodetic(text);
    system->Ellipsoid->Description = "ellipsoid of Krassovsky";
    system->Ellipsoid->GeoTIFFCode = 7024;
    system->Ellipsoid->MIFMIDCode = 3;
    system->PrimeMeridian->Description = "meridian of Greenwich";
    system->PrimeMeridian->GeoTIFFCode = 8901;
    system->DatumShift->SetNonLinear(true);
    return system;
}

template <class Component>
std::string DocumentOf(Component const& component) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(component.SaveToXML(&writer));
    return writer.ToString();
}

template <class Component>
void ExpectToldFailures(Component* component) {
    ExpectToldWriteFailures([&](TKvXIniWriter* writer) { return component->SaveToXML(writer); });
    ExpectToldReadFailures(DocumentOf(*component),
                           [&](TKvXIniReader* reader) { return component->LoadFromXML(reader); });
}

TEST(FailingDatumXml, TheEllipsoidTellsOfEveryFailure) {
    ExpectToldFailures(WithShift(1)->Ellipsoid);
}

TEST(FailingDatumXml, ThePrimeMeridianTellsOfEveryFailure) {
    ExpectToldFailures(WithShift(1)->PrimeMeridian);
}

TEST(FailingDatumXml, EveryDatumShiftTellsOfEveryFailure) {
    for (int const type : {1, 2, 3}) {
        SCOPED_TRACE(type);
        ExpectToldFailures(WithShift(type)->DatumShift);
    }
}

TEST(FailingDatumXml, AComponentWithoutItsUnitIsNotWrittenWhole) {
    auto const system = WithShift(1);
    delete std::exchange(system->Ellipsoid->LinearUnit, nullptr);
    delete std::exchange(system->PrimeMeridian->AngularUnit, nullptr);
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(system->Ellipsoid->SaveToXML(&writer));
    EXPECT_FALSE(system->PrimeMeridian->SaveToXML(&writer));
    EXPECT_FALSE(system->Ellipsoid->SaveToXML(nullptr));
    EXPECT_FALSE(system->PrimeMeridian->SaveToXML(nullptr));
    EXPECT_FALSE(system->DatumShift->SaveToXML(nullptr));
    EXPECT_FALSE(system->DatumShift->LoadFromXML(nullptr));
}

} // namespace
} // namespace KvRefSystem
