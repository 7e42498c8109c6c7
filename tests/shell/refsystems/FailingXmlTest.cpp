#include "tests/support/FailingXml.h"

#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/** Systems of all kinds, written and read while one operation of the writer or the reader fails. */
namespace KvRefSystem {
namespace {

using namespace TestSupport;

TGeodeticText ShiftedBy(int type) {
    TGeodeticText text = Pulkovo1942();
    text.shiftType = type;
    return text;
}

/** One of each kind with all that it may hold, and a geodetic one of each form of datum. */
std::vector<std::unique_ptr<TShellReferenceSystem>> AllKinds() {
    std::vector<std::unique_ptr<TShellReferenceSystem>> systems;
    for (TCartesianKind const& kind : CartesianKinds) {
        systems.push_back(Everything(kind));
    }
    for (int const shift : {0, 1, 2, 3}) {
        systems.push_back(Geodetic(ShiftedBy(shift), [&](TStringTree* tree) {
            FillRest(tree);
            if (shift > 1) {
                SetField(Child(Child(tree, 1107), 1102), 5469, "1"); // exact rotations
            }
        }));
    }
    systems.push_back(Projected(On(Pulkovo1942(), TransverseMercator("9", "0.9996", "5e5")), &FillRest));
    return systems;
}

/** Loads with one operation of the reader failing each time; afterwards the object is as an emptied one. */
template <class System>
void ExpectEmptiedByReadFailures(System* system, std::string const& document) {
    ExpectToldReadFailures(document, [&](TKvXIniReader* reader) {
        bool const isLoaded = system->LoadFromXML(reader);
        EXPECT_EQ(isLoaded, system->Ellipsoid || system->LinearUnit);
        return isLoaded;
    });
}

TEST(FailingXml, EveryKindTellsOfAFailedWriteAndWritesNoMore) {
    for (auto const& system : AllKinds()) {
        SCOPED_TRACE(system->Type);
        ExpectToldWriteFailures([&](TKvXIniWriter* writer) { return system->SaveToXML(writer); });
    }
}

TEST(FailingXml, ADescriptionTellsOfAFailedWriteAndWritesNoMore) {
    auto const system = LiveCartesian(TLocalText());

    ExpectToldWriteFailures([&](TKvXIniWriter* writer) { return system->WriteToXML(writer); });
    EXPECT_FALSE(system->WriteToXML(nullptr));
}

TEST(FailingXml, EveryKindTellsOfASectionThatCannotBeEnteredOrLeft) {
    for (auto const& system : AllKinds()) {
        SCOPED_TRACE(system->Type);
        ExpectToldReadFailures(XmlOf(*system), [](TKvXIniReader* reader) {
            std::unique_ptr<TShellReferenceSystem> const read(CreateShellReferenceSystem(reader, nullptr));
            return read != nullptr;
        });
    }
}

TEST(FailingXml, ReservedSectionsAreEnteredAndLeft) {
    std::string document = XmlOf(*Create(Pulkovo1942()));
    document.insert(document.find("<RefSystemPrimeMeridian>"),
                    "<RefSystemHeightSystem></RefSystemHeightSystem>");
    auto const operations = [](std::string const& text) {
        TFailingXmlReader reader(text);
        std::unique_ptr<TShellReferenceSystem> const system(CreateShellReferenceSystem(&reader, nullptr));
        EXPECT_NE(system, nullptr);
        return reader.Operations();
    };
    for (std::string const key : {"RefSystemHeightSystem", "RefSystemTransform"}) {
        std::string renamed = document;
        for (std::size_t at = renamed.find(key); at != std::string::npos; at = renamed.find(key)) {
            renamed.replace(at, key.size(), "Another");
        }
        EXPECT_EQ(operations(document), operations(renamed) + 2) << key;
    }
}

TEST(FailingXml, AFailedLoadEmptiesTheSystem) {
    auto const geocentric = Live(TGeocentricText());
    ExpectEmptiedByReadFailures(geocentric.get(), XmlOf(*geocentric));
    auto const projected = Projected(TransverseMercator("9", "1", "0"));
    ExpectEmptiedByReadFailures(projected.get(), XmlOf(*projected));
    auto const topocentric = Live(TTopocentricText());
    ExpectEmptiedByReadFailures(topocentric.get(), XmlOf(*topocentric));
    auto const curved = LiveCurved(Curved("6371000"));
    ExpectEmptiedByReadFailures(curved.get(), XmlOf(*curved));
    auto const cartesian = LiveCartesian(TLocalText());
    ExpectEmptiedByReadFailures(cartesian.get(), XmlOf(*cartesian));
}

TEST(FailingXml, AFailedLoadEmptiesTheHeights) {
    auto const system = Geodetic(WithZeroShift());
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->Vertical->SaveToXML(&writer));

    ExpectToldReadFailures(writer.ToString(), [&](TKvXIniReader* reader) {
        bool const isLoaded = system->Vertical->LoadFromXML(reader);
        EXPECT_EQ(isLoaded, system->Vertical->HeightUnit != nullptr);
        return isLoaded;
    });
    EXPECT_FALSE(system->Vertical->LoadFromXML(nullptr));
}

} // namespace
} // namespace KvRefSystem
