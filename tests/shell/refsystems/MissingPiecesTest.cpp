#include "shell/datum/BursaWolfDatumShift.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

/** Systems from which a host has taken one of the pieces that their public members point to. */
namespace KvRefSystem {
namespace {

using namespace TestSupport;

/** What can't be done without a piece. */
struct TNeeds {
    bool equality; ///< with the same system that is whole
    bool xml;
};

/** A text is replaced by an export that succeeds and left alone by one that fails. */
void ExpectTextOnlyOfSuccess(char const* name, std::function<bool(std::string*)> const& write) {
    std::string const before = "before";
    std::string text = before;
    bool const isWritten = write(&text);
    EXPECT_EQ(isWritten, text != before) << name;
}

void ExpectToldLack(TShellReferenceSystem const& whole, TShellReferenceSystem const& lacking, TNeeds needs) {
    EXPECT_EQ(whole == lacking, !needs.equality);
    EXPECT_EQ(lacking == whole, !needs.equality);
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_EQ(lacking.SaveToXML(&writer), !needs.xml);

    for (bool const compound : {false, true}) {
        ExpectTextOnlyOfSuccess(
            "WKT", [&](std::string* text) { return lacking.ExportToWKT(text, compound, !compound); });
        ExpectTextOnlyOfSuccess("the clause for MapInfo",
                                [&](std::string* text) { return lacking.ExportToMIFMID(text, compound); });
        ExpectTextOnlyOfSuccess("the datum for MapInfo", [&](std::string* text) {
            return lacking.ExportDatumToMIFMID(text, compound);
        });
    }
    ExpectTextOnlyOfSuccess("the datum's WKT",
                            [&](std::string* text) { return lacking.ExportDatumToWKT(text); });
    std::map<int, std::string> keys;
    EXPECT_EQ(lacking.ExportToGeoTIFF(&keys, false), lacking.ExportToPanorama(&keys, false));
}

/** Takes a piece for the time of the checks. @param place of the piece in `system`. */
template <class Piece>
void ExpectToldLackOf(char const* name, TShellReferenceSystem const& whole,
                      TShellReferenceSystem const& system, Piece** place, TNeeds needs) {
    SCOPED_TRACE(name);
    ASSERT_NE(*place, nullptr);
    Piece* const piece = std::exchange(*place, nullptr);
    ExpectToldLack(whole, system, needs);
    *place = piece;
    ExpectToldLack(whole, system, {false, false});
}

/** The pieces of every kind. @param core what a missing core prevents. @param ellipsoid the same. */
void ExpectToldLackOfCommonPieces(TShellReferenceSystem const& whole, TShellReferenceSystem* system,
                                  TNeeds core, TNeeds ellipsoid) {
    ExpectToldLackOf("core", whole, *system, &system->CoreRefSystem, core);
    ExpectToldLackOf("ellipsoid", whole, *system, &system->Ellipsoid, ellipsoid);
    ExpectToldLackOf("datum shift", whole, *system, &system->DatumShift, {false, false});
    ExpectToldLackOf("meridian", whole, *system, &system->PrimeMeridian, {false, false});
    ExpectToldLackOf("chain", whole, *system, &system->Transform, {false, false});
    ExpectToldLackOf("description", whole, *system, &system->SavedTree, {false, false});
}

constexpr TNeeds Compared = {true, false};
constexpr TNeeds Written = {false, true};
constexpr TNeeds Both = {true, true};

/** MapInfo settings, so that the exports reach the pieces. */
void FillMapInfo(TStringTree* tree) {
    TStringTree* const settings = Child(tree, 101000);
    SetField(settings, 101001, "8");
    SetField(settings, 101002, "m");
}

TEST(MissingPieces, AGeodeticSystemTellsWhatItLacks) {
    auto const whole = Geodetic(Pulkovo1942(), &FillMapInfo);
    auto const system = Geodetic(Pulkovo1942(), &FillMapInfo);

    ExpectToldLackOfCommonPieces(*whole, system.get(), Compared, Written);
    ExpectToldLackOf("angular unit", *whole, *system, &system->AngularUnit, Both);
    ExpectToldLackOf("heights", *whole, *system, &system->Vertical, Both);
    ExpectToldLackOf("height unit", *whole, *system, &system->Vertical->HeightUnit, Both);
}

TEST(MissingPieces, AMapProjectedSystemTellsWhatItLacks) {
    TProjectedText text = On(Pulkovo1942(), TransverseMercator("9", "0.9996", "5e5"));
    text.datumAtRoot = true;
    auto const whole = Projected(text, &FillMapInfo);
    auto const system = Projected(text, &FillMapInfo);

    ExpectToldLackOfCommonPieces(*whole, system.get(), Compared, Written);
    ExpectToldLackOf("linear unit", *whole, *system, &system->LinearUnit, Both);
    ExpectToldLackOf("base", *whole, *system, &system->BaseGeodetic, Both);
    ExpectToldLackOf("projection", *whole, *system, &system->MapProjection, Both);
    ExpectToldLackOf("projection's unit", *whole, *system, &system->MapProjection->LinearUnit, Compared);
}

TEST(MissingPieces, AGeocentricSystemTellsWhatItLacks) {
    TGeocentricText text;
    text.base = Pulkovo1942();
    auto const whole = Live(text);
    auto const system = Live(text);

    ExpectToldLackOfCommonPieces(*whole, system.get(), Compared, Written);
    ExpectToldLackOf("linear unit", *whole, *system, &system->LinearUnit, Both);
}

TEST(MissingPieces, ATopocentricSystemTellsWhatItLacks) {
    TTopocentricText text;
    text.base = Pulkovo1942();
    auto const whole = Live(text);
    auto const system = Live(text);

    ExpectToldLackOf("core", *whole, *system, &system->CoreRefSystem, Compared);
    ExpectToldLackOf("linear unit", *whole, *system, &system->LinearUnit, Both);
    ExpectToldLackOf("base", *whole, *system, &system->BaseGeodetic, Written);
    ExpectToldLackOf("base's unit", *whole, *system, &system->BaseGeodetic->AngularUnit, Written);
}

TEST(MissingPieces, ALocalSystemTellsWhatItLacks) {
    auto const wholePlan = LiveCartesian(TLocalText());
    auto const plan = LiveCartesian(TLocalText());
    ExpectToldLackOf("core", *wholePlan, *plan, &plan->CoreRefSystem, Compared);
    ExpectToldLackOf("linear unit", *wholePlan, *plan, &plan->LinearUnit, Both);

    auto const wholeSphere = LiveCurved(Curved("6371000"));
    auto const sphere = LiveCurved(Curved("6371000"));
    ExpectToldLackOf("linear unit", *wholeSphere, *sphere, &sphere->LinearUnit, Both);
    ExpectToldLackOf("sphere's unit", *wholeSphere, *sphere, &sphere->SphereUnit, Written);
}

// Exports

TEST(MissingPieces, ADatumForMapInfoNeedsItsShiftAndItsMeridian) {
    auto const system = Geodetic(Pulkovo1942(), [](TStringTree* tree) {
        SetField(Child(Child(tree, 1107), 5610), 101004, "3"); // the ellipsoid's code
    });
    std::string text = "before";
    ASSERT_TRUE(system->ExportDatumToMIFMID(&text, true));
    text = "before";

    TShellDatumShift* const shift = std::exchange(system->DatumShift, nullptr);
    EXPECT_FALSE(system->ExportDatumToMIFMID(&text, true));
    system->DatumShift = shift;
    TShellPrimeMeridian* const meridian = std::exchange(system->PrimeMeridian, nullptr);
    EXPECT_FALSE(system->ExportDatumToMIFMID(&text, true));
    system->PrimeMeridian = meridian;
    TShellAngularUnit* const unit = std::exchange(meridian->AngularUnit, nullptr);
    EXPECT_FALSE(system->ExportDatumToMIFMID(&text, true));
    meridian->AngularUnit = unit;
    EXPECT_EQ(text, "before");
    EXPECT_TRUE(system->ExportDatumToMIFMID(&text, true));
}

TEST(MissingPieces, ACodedSystemWhoseGeoidHasNoNameFailsToExport) {
    TLevelGrid surface(10);
    auto const grid = Geodetic(WithZeroShift());
    auto const system = Projected(TransverseMercator("9", "1", "0"),
                                  [](TStringTree* tree) { SetField(tree, 102005, "32632"); });
    ASSERT_TRUE(system->SetGeoid("EGM2008", &surface, grid.get()));
    std::map<int, std::string> keys;
    EXPECT_TRUE(system->ExportToGeoTIFF(&keys, false));

    ASSERT_TRUE(system->SetGeoid("", &surface, grid.get()));
    EXPECT_FALSE(system->ExportToGeoTIFF(&keys, false));
}

// Settings

TEST(MissingPieces, AShiftThatCannotBeBuiltKeepsItsFlag) {
    auto const system = Geodetic(Pulkovo1942());
    auto* const shift = dynamic_cast<TShellBursaWolfInvRotDatumShift*>(system->DatumShift);
    ASSERT_NE(shift, nullptr);
    std::string const dx = std::exchange(shift->ShiftX, "no number");

    EXPECT_THROW(system->SetNonLinearDatum(true), std::runtime_error);
    EXPECT_FALSE(shift->NonLinear);

    shift->ShiftX = dx;
    EXPECT_TRUE(system->SetNonLinearDatum(true));
    EXPECT_TRUE(shift->NonLinear);
}

TEST(MissingPieces, AProxyThatCannotBeDescribedIsNotSet) {
    auto const system = Geodetic(WithZeroShift());
    var_a<TShellReferenceSystem*> const proxy = newobj_a(Create(Pulkovo1942()).release());
    TStringTree* const tree = proxy->SavedTree;
    tree->fields.Append(tree->CreateField(1020, 0, "a second name", "name")); // a copy ends here

    EXPECT_FALSE(system->SetProxyRefSys(proxy));
    EXPECT_FALSE(system->ContainsProxyRefSys());
    EXPECT_EQ(system->SavedTree->FindSubtree(1112, 0), nullptr);
}

// Texts

/** Tells of more bytes than there can be. Without members of its own, since it is ended as a plain field. */
class TImmenseField : public TStringField {
public:
    static unsigned long length;
    unsigned long WriteToString(char*, unsigned long, unsigned long) const override { return length; }
};
unsigned long TImmenseField::length = 0;

TEST(MissingPieces, ADescriptionLongerThanMemoryGivesNoText) {
    auto const system = Geodetic(WithZeroShift());
    unsigned long const rest = system->SavedTree->WriteToString(nullptr, 0, 0);
    system->SavedTree->fields.Append(new TImmenseField);

    for (unsigned long const length : {~0ul, ~0ul - 1, ~0ul / 2 + 1}) {
        TImmenseField::length = length - rest;
        std::string text = "before";
        EXPECT_FALSE(system->WriteToString(text)) << length;
        EXPECT_EQ(text, "before");
    }
}

TEST(MissingPieces, ASystemWithoutADescriptionHasNoSettingsAndDerivesNothing) {
    auto const system = ProjectedFromXml(XmlOf(*Projected(TransverseMercator("9", "1", "0"))));
    ASSERT_EQ(system->SavedTree, nullptr);
    TStringTree tree;

    EXPECT_EQ(system->GetGeoidSetting(), "");
    EXPECT_TRUE(system->CheckGeoid());
    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, Texts("1", "2", "3")));
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
    EXPECT_EQ(system->CreateCopy(), nullptr);
    EXPECT_EQ(system->WriteToString(nullptr), 0u);
    EXPECT_EQ(tree.fields.Size(), 0u);
}

} // namespace
} // namespace KvRefSystem
