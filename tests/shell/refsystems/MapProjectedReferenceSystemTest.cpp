#include "shell/refsystems/MapProjectedReferenceSystem.h"

#include "core/projections/TransverseMercator.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "shell/projections/LocalGrids.h"
#include "shell/projections/ParameterisedProjections.h"
#include "shell/projections/TransverseCylinders.h"
#include "shell/projections/ZonedProjections.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* ShortMessage =
    "TShellMapProjectedReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)";

std::string ThrownAfter(std::function<void(TStringTree*)> const& change,
                        TProjectedText const& text = UtmZone(31, 'N')) {
    return ThrownText([&] { Projected(text, change); });
}

TStringTree* ProjectionOf(TStringTree* tree) {
    return tree->FindSubtree(1300, 0);
}

/** The text with one parameter of the projection replaced. */
TProjectedText WithParameter(TProjectedText text, int tag, std::string const& value) {
    text.parameters.emplace_back(tag, value);
    return text;
}

/** Offset of a member in its object. */
template <class Object, class Member>
std::ptrdiff_t OffsetOf(Object const& object, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&object);
}

// Construction

TEST(MapProjectedReferenceSystem, IsOfGeoTiffTypeOneWhateverTheTreeSays) {
    auto const system = Projected(UtmZone(31, 'N'), [](TStringTree* tree) { SetField(tree, 102001, "2"); });

    EXPECT_EQ(system->GeoTIFFType, "1");
}

TEST(MapProjectedReferenceSystem, ReadsThePlacementOfItsAxes) {
    auto const plain = Projected(UtmZone(31, 'N'));
    auto const placed = Projected(Placed(UtmZone(31, 'N'), 7, -1, 2));

    EXPECT_FALSE(plain->FlipAxes);
    EXPECT_EQ(plain->FirstAxisSign, 1);
    EXPECT_EQ(plain->SecondAxisSign, 1);
    EXPECT_TRUE(placed->FlipAxes); // any number but zero
    EXPECT_EQ(placed->FirstAxisSign, -1);
    EXPECT_EQ(placed->SecondAxisSign, 2);
}

TEST(MapProjectedReferenceSystem, WithoutTheProjectionsSubtreeTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1300, 0); }), ShortMessage);
}

TEST(MapProjectedReferenceSystem, EveryFieldOfThePlacementIsRequired) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteField(1400, 0); }), ShortMessage);
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteField(1401, 0); }), ShortMessage);
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteField(1401, 1); }), ShortMessage);
}

TEST(MapProjectedReferenceSystem, ThePlacementStandsWithTheProjectionAndNotAtTheRoot) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) {
                  ProjectionOf(tree)->DeleteField(1400, 0);
                  SetField(tree, 1400, "0");
              }),
              ShortMessage);
}

TEST(MapProjectedReferenceSystem, WithoutATypeOfProjectionTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteField(6001, 0); }), ShortMessage);
}

TEST(MapProjectedReferenceSystem, AnUnknownTypeOfProjectionGivesTheShortMessage) {
    for (char const* const type :
         {"0", "-1", "19", "20", "27", "100", "102", "1000", "1005", "1202", "1314"}) {
        EXPECT_EQ(ThrownAfter([&](TStringTree* tree) { SetField(ProjectionOf(tree), 6001, type); }),
                  ShortMessage)
            << type;
    }
}

TEST(MapProjectedReferenceSystem, WithoutLinearUnitOrBaseSystemTheShortMessageComes) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1104, 0); }), ShortMessage);
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteSubtree(1121, 0); }), ShortMessage);
}

TEST(MapProjectedReferenceSystem, AProjectionWithoutACoreFormGivesTheShortMessage) {
    TProjectedText const mercator = TransverseMercator("9", "0.9996", "500000");
    for (char const* const text : {"x", "", " "}) {
        EXPECT_EQ(ThrownAfter({}, WithParameter(mercator, 6101, text)), ShortMessage) << text;
    }
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteSubtree(6090, 0); }, mercator),
              ShortMessage);
    // No region 17 and no block H are known; the descriptions of both are read.
    EXPECT_EQ(ThrownAfter({}, WithParameter(OfType(1003), 6205, "17")), ShortMessage);
    EXPECT_EQ(ThrownAfter({}, WithParameter(OfType(1004), 6204, "H")), ShortMessage);
}

TEST(MapProjectedReferenceSystem, ComponentsFailWithTheirOwnMessages) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5320, 0); }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->FindSubtree(1121, 0)->DeleteSubtree(1201, 0); }),
              "TShellGeodeticReferenceSystem(TStringTree *tree, TKvProgressHandler *prh)");
    EXPECT_EQ(ThrownAfter({}, UtmZone(0, 'N')),
              "TShellUTMMapProjection::TShellUTMMapProjection(TStringTree *tree)");
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { ProjectionOf(tree)->DeleteField(6201, 0); }),
              "TShellUTMMapProjection::TShellUTMMapProjection(TStringTree *tree)");
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->DeleteField(1020, 0); }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
}

TEST(MapProjectedReferenceSystem, UnitAndBaseAreReadBeforeTheProjection) {
    auto const breakUnit = [](TStringTree* tree) { tree->FindSubtree(1104, 0)->DeleteField(5320, 0); };
    auto const breakBase = [](TStringTree* tree) { tree->FindSubtree(1121, 0)->DeleteField(1020, 0); };

    EXPECT_EQ(ThrownAfter([&](TStringTree* tree) {
                  breakUnit(tree);
                  breakBase(tree);
              }),
              "TShellUnit::TShellUnit(TStringTree *tree)");
    EXPECT_EQ(ThrownAfter([&](TStringTree* tree) {
                  breakBase(tree);
                  tree->DeleteSubtree(1300, 0);
              }),
              "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)");
    // The placement comes before the type of the projection, and that before its parameters.
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) {
                  ProjectionOf(tree)->DeleteField(1401, 1);
                  ProjectionOf(tree)->DeleteField(6201, 0);
              }),
              ShortMessage);
}

TEST(MapProjectedReferenceSystem, TheKindOfTheBaseIsNotLookedAt) {
    auto const system = Projected(UtmZone(31, 'N'),
                                  [](TStringTree* tree) { SetField(tree->FindSubtree(1121, 0), 1100, "3"); });

    EXPECT_EQ(system->BaseGeodetic->Type, rstGeocentric);
    EXPECT_NE(system->CoreRefSystem, nullptr);
}

TEST(MapProjectedReferenceSystem, ARecordOfAChainWithoutACoreFormFails) {
    // A table of corrections that doesn't parse is found when the core is made.
    auto const addTable = [](TStringTree* chain) {
        TStringTree* const record = Child(chain, 7100);
        SetField(record, 7101, "5");
        SetField(record, 7121, "no table");
        SetField(record, 7122, "no table");
        SetField(record, 7125, "1");
    };

    EXPECT_EQ(ThrownAfter([&](TStringTree* tree) { addTable(Child(tree, 1108)); }),
              "TShellRefSystemTransform::CreateCoreTransform");
    EXPECT_EQ(ThrownAfter([&](TStringTree* tree) {
                  TStringTree* const set = Child(Child(tree, 1109), 1110);
                  SetField(set, 7201, "pair");
                  addTable(set);
              }),
              "TShellRefSystemTransform::CreateCoreTransform");
}

TEST(MapProjectedReferenceSystem, AChainWhoseCoreFormHasNoMemoryGivesTheLongMessage) {
    TStringTree tree;
    FillProjected(&tree, UtmZone(31, 'N'));
    TStringTree* const set = Child(Child(&tree, 1109), 1110);
    SetField(set, 7201, "pair");
    std::vector<std::string> messages;
    for (int const which : {1, 2, 3, 4}) {
        messages.push_back(ThrownText([&] {
            KvRefSystemTests::FailNothrowAllocation(which);
            TProjectedSystem const system(&tree, nullptr);
        }));
        KvRefSystemTests::FailNothrowAllocation(0);
    }

    // The base's own chain, the system's own and the pairwise one; there are no more.
    std::string const longMessage =
        "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TStringTree "
        "*tree, TKvProgressHandler *prh)";
    EXPECT_EQ(messages, (std::vector<std::string>{
                            "TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TStringTree "
                            "*tree, TKvProgressHandler *prh)",
                            longMessage, longMessage, "nothing thrown"}));
}

TEST(MapProjectedReferenceSystem, TheCoreHasTheBaseAndTheProjectionOnItsEllipsoid) {
    auto const system = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));
    auto const& core = dynamic_cast<TMapProjectedReferenceSystem const&>(*system->CoreRefSystem);

    EXPECT_EQ(core.Type, rstMapProjected);
    EXPECT_EQ(core.GeodeticSystem->Ellipsoid->SemiMajorAxis, 6378245.0);
    EXPECT_TRUE(core.ContainsDatum());
    EXPECT_EQ(system->BaseGeodeticCore, system->BaseGeodetic->CoreRefSystem);
    EXPECT_NE(core.GeodeticSystem, system->BaseGeodeticCore); // a copy of its own
    EXPECT_TRUE(*core.GeodeticSystem == *system->BaseGeodeticCore);
    // A degree of latitude along the meridian of the zone, from the equator on the Krassowsky ellipsoid: the
    // arc integral is 110576.367567 m, times 0.9996; cs2cs +proj=utm +zone=31 +ellps=krass says the same.
    TCoords point{3 * 0.017453292519943295, 0.017453292519943295, 0, false};
    core.Projection->GeodeticToProjected(&point);
    EXPECT_NEAR(point.X, 500000, 1e-6);
    EXPECT_NEAR(point.Y, 110532.137020, 1e-4);
}

TEST(MapProjectedReferenceSystem, BaseMembersTellWhatTheRootSays) {
    auto const ordinary = Projected(On(Pulkovo1942(), UtmZone(31, 'N')));
    TProjectedText text = On(Pulkovo1942(), UtmZone(31, 'N'));
    text.datumAtRoot = true;
    auto const withRoot = Projected(text);

    EXPECT_EQ(ordinary->DatumShift, nullptr);
    EXPECT_EQ(ordinary->GetDatumShift(), nullptr);
    EXPECT_EQ(ordinary->Ellipsoid, nullptr);
    EXPECT_EQ(ordinary->PrimeMeridian, nullptr);
    EXPECT_EQ(ordinary->DatumName, "");
    EXPECT_NE(ordinary->BaseGeodetic->DatumShift, nullptr);
    EXPECT_NE(withRoot->DatumShift, nullptr);
    EXPECT_EQ(withRoot->GetDatumShift(), withRoot->DatumShift);
    EXPECT_EQ(withRoot->DatumName, "Test datum");
}

struct TClassOfType {
    int type;
    std::type_info const* shell;
    int coreType;
};

template <class Shell>
TClassOfType Row(int type, int coreType) {
    return {type, &typeid(Shell), coreType};
}

TEST(MapProjectedReferenceSystem, EveryTypeHasItsClass) {
    std::vector<TClassOfType> const rows = {
        Row<TShellTransverseMercatorMapProjection>(1, 1),
        Row<TShellObliqueMercatorMapProjection>(2, 2),
        Row<TShellHotineObliqueMercatorMapProjection>(3, 3),
        Row<TShellNZMGMapProjection>(4, 4),
        Row<TShellAlbersEqualAreaConicMapProjection>(5, 5),
        Row<TShellLambertConicConformal2SPMapProjection>(6, 6),
        Row<TShellLambertConicConformal1SPMapProjection>(7, 7),
        Row<TShellCassiniSoldnerMapProjection>(8, 8),
        Row<TShellMercator2SPMapProjection>(9, 9),
        Row<TShellMercator1SPMapProjection>(10, 10),
        Row<TShellObliqueStereographicMapProjection>(11, 11),
        Row<TShellPolarStereographicMapProjection>(12, 12),
        Row<TShellQuasiStereographicMapProjection>(13, 13),
        Row<TShellPolyconicMapProjection>(14, 14),
        Row<TShellGaussBoagaMapProjection>(15, 15),
        Row<TShellKrovakMapProjection>(16, 16),
        Row<TShellHattMapProjection>(17, 17),
        Row<TShellKrovakMapProjection>(18, 16), // an older number of the same method
        Row<TShellPolarStereographicBasicMapProjection>(21, 21),
        Row<TShellPolarStereographicNaturalOriginMapProjection>(22, 21), // its core is that of 21
        Row<TShellPolarStereographicFalseOriginMapProjection>(23, 23),
        Row<TShellLambertAzimuthalEqualAreaMapProjection>(24, 24),
        Row<TShellEquidistantConicMapProjection>(25, 25),
        Row<TShellOrthographicMapProjection>(26, 26),
        Row<TShellGaussKrugerWideMapProjection>(101, 101),
        Row<TShellGaussKruger6MapProjection>(1001, 1), // zones build a Transverse Mercator
        Row<TShellUTMMapProjection>(1002, 1),
        Row<TShellMSKxxMapProjection>(1003, 1),
        Row<TShellSK63MapProjection>(1004, 1),
        Row<TShellLambertConicConformal2SPBelgiumMapProjection>(1201, 1201),
        Row<TShellSphericalMercatorMapProjection>(1313, 1313),
    };
    for (TClassOfType const& row : rows) {
        auto const system = Projected(OfType(row.type));
        TShellMapProjection const& projection = *system->MapProjection;
        EXPECT_EQ(std::string(typeid(projection).name()), row.shell->name()) << row.type;
        EXPECT_EQ(projection.Type, row.type == 18 ? 16 : row.type);
        auto const& core = dynamic_cast<TMapProjectedReferenceSystem const&>(*system->CoreRefSystem);
        EXPECT_EQ(core.Projection->Type, row.coreType) << row.type;
    }
}

// Answers

TEST(MapProjectedReferenceSystem, IsLeftByOrderAndSigns) {
    struct TRow {
        int flip;
        int first;
        int second;
        bool left;
    };
    for (TRow const& row : {TRow{0, 1, 1, false},
                            {0, -1, 1, true},
                            {0, 1, -1, true},
                            {0, -1, -1, false},
                            {0, 0, 0, false},
                            {0, 1, 2, true},
                            {1, 1, 1, true},
                            {1, -1, 1, false},
                            {1, 1, -1, false},
                            {1, -1, -1, true},
                            {1, 0, 0, true},
                            {1, 1, 2, false}}) {
        auto const system = Projected(Placed(UtmZone(31, 'N'), row.flip, row.first, row.second));
        EXPECT_EQ(system->IsLeft(), row.left) << row.flip << " " << row.first << " " << row.second;
    }
}

TEST(MapProjectedReferenceSystem, DirectionsByOrderAndSigns) {
    struct TRow {
        int flip;
        int first;
        int second;
        TCardinalDirection expectedFirst;
        TCardinalDirection expectedSecond;
    };
    for (TRow const& row : {TRow{0, 1, 1, cdEast, cdNorth},
                            {0, -1, 1, cdWest, cdNorth},
                            {0, 1, -1, cdEast, cdSouth},
                            {0, 0, 0, cdWest, cdSouth}, // below 1
                            {0, 2, 3, cdEast, cdNorth},
                            {1, 1, 1, cdNorth, cdEast},
                            {1, -1, 1, cdSouth, cdEast},
                            {1, 1, -1, cdNorth, cdWest},
                            {1, 0, 0, cdSouth, cdWest}}) {
        auto const system = Projected(Placed(UtmZone(31, 'N'), row.flip, row.first, row.second));
        TCardinalDirection first = cdNone;
        TCardinalDirection second = cdNone;
        EXPECT_TRUE(system->GetAxesDirections(&first, &second));
        EXPECT_EQ(first, row.expectedFirst) << row.flip << " " << row.first << " " << row.second;
        EXPECT_EQ(second, row.expectedSecond) << row.flip << " " << row.first << " " << row.second;
    }
}

TEST(MapProjectedReferenceSystem, AnswersForItsUnits) {
    TProjectedText text = UtmZone(31, 'N');
    text.linearUnit = {0, 1, "1000", "1", "kilometre", "km"};
    text.base.heightUnit = Foot();
    auto const system = Projected(text);

    EXPECT_EQ(system->GetPlaneUnitCoefToBase(), 1000);
    EXPECT_EQ(system->GetPlaneUnitName(), "kilometre");
    EXPECT_EQ(system->GetPlaneUnitShortName(), "km");
    EXPECT_EQ(system->GetPlaneUnitDefPrec(), 6); // millimetres
    EXPECT_EQ(system->GetHeightUnitCoefToBase(), 0.3048);
    EXPECT_EQ(system->GetHeightUnitName(), "foot");
    EXPECT_EQ(system->GetHeightUnitShortName(), "ft");
    EXPECT_EQ(system->GetHeightUnitDefPrec(), 3);
}

TEST(MapProjectedReferenceSystem, AUnitWithoutAnAbbreviationIsShownByItsName) {
    TProjectedText text = UtmZone(31, 'N');
    text.linearUnit.abbreviation = "";
    text.base.heightUnit.abbreviation = "";
    auto const system = Projected(text);

    EXPECT_EQ(system->GetPlaneUnitShortName(), "metre");
    EXPECT_EQ(system->GetHeightUnitShortName(), "metre");
}

TEST(MapProjectedReferenceSystem, AnswersForItsKind) {
    auto const system = Projected(UtmZone(31, 'N'));
    double radius = 7;

    EXPECT_TRUE(system->IsProjected());
    EXPECT_TRUE(system->IsGlobal());
    EXPECT_FALSE(system->IsLatLon());
    EXPECT_FALSE(system->IsGeocentric());
    EXPECT_EQ(system->GetMapProjectionName(), "Test method");
    EXPECT_FALSE(system->GetSphereRadius(&radius));
    EXPECT_EQ(radius, 7);
    EXPECT_EQ(system->CalculateArea({{{0, 0, 0}}, {{0, 1, 0}}, {{1, 1, 0}}}), 0.0);
}

TEST(MapProjectedReferenceSystem, ThePanoramaCodeNamesItsZone) {
    auto const system = Projected(UtmZone(31, 'N'));
    struct TRow {
        char const* code;
        char const* name;
    };
    for (TRow const& row : {TRow{"80011001", "PZ-90.11 Zone 1"},
                            {"80011060", "PZ-90.11 Zone 60"},
                            {"80020001", "GSK-2011 Zone 1"},
                            {"80020060", "GSK-2011 Zone 60"},
                            {" 80020007 ", "GSK-2011 Zone 7"},
                            {"80011012x", "PZ-90.11 Zone 12"},
                            {"80011000", ""},
                            {"80011061", ""},
                            {"80020000", ""},
                            {"80020061", ""},
                            {"", ""},
                            {"x80011001", ""},
                            {"-80011001", ""},
                            {"0x4C4DF29", ""},
                            {"99999999999999999999999", ""}}) {
        system->PanoramaCode = row.code;
        EXPECT_EQ(system->GetPanoramaName(), row.name) << row.code;
    }
}

// Equality

TEST(MapProjectedReferenceSystem, EqualityLooksAtEachComponent) {
    TProjectedText const text = On(Pulkovo1942(), UtmZone(31, 'N'));
    auto const system = Projected(text);
    auto const differs = [&](TProjectedText const& other) {
        auto const second = Projected(other);
        return !(*system == *second) && !(*second == *system);
    };

    EXPECT_TRUE(*system == *Projected(text));
    EXPECT_TRUE(differs(On(Pulkovo1942(), UtmZone(32, 'N'))));
    EXPECT_TRUE(differs(On(Pulkovo1942(), UtmZone(31, 'S'))));
    EXPECT_TRUE(differs(On(WithZeroShift(), UtmZone(31, 'N'))));
    EXPECT_TRUE(differs(Placed(text, 1, 1, 1)));
    EXPECT_TRUE(differs(Placed(text, 0, -1, 1)));
    EXPECT_TRUE(differs(Placed(text, 0, 1, -1)));
    TProjectedText feet = text;
    feet.linearUnit = Foot();
    EXPECT_TRUE(differs(feet));
    // The core is the same; what differs is the unit of the base's angles or heights.
    TProjectedText grads = text;
    grads.base.angularUnit = Grad();
    EXPECT_TRUE(differs(grads));
    EXPECT_TRUE(*system ^= *Projected(grads));
    TProjectedText highFeet = text;
    highFeet.base.heightUnit = Foot();
    EXPECT_TRUE(differs(highFeet));
}

TEST(MapProjectedReferenceSystem, ParametersAreComparedAsTexts) {
    auto const system = Projected(TransverseMercator("9", "0.9996", "500000"));
    auto const other = Projected(TransverseMercator("9.0", "0.9996", "500000"));

    EXPECT_FALSE(*system == *other);
    EXPECT_TRUE(*system ^= *other);
}

TEST(MapProjectedReferenceSystem, NamesAndCodesDoNotCount) {
    TProjectedText named = UtmZone(31, 'N');
    named.name = "another";
    named.description = "told otherwise";
    named.projectionName = "another method";
    auto const first = Projected(UtmZone(31, 'N'));
    auto const second = Projected(named, [](TStringTree* tree) { SetField(tree, 102005, "32631"); });

    EXPECT_TRUE(*first == *second);
}

TEST(MapProjectedReferenceSystem, AnotherKindIsNotEqual) {
    auto const system = Projected(UtmZone(31, 'N'));
    auto const geodetic = Create(TGeodeticText());

    EXPECT_FALSE(*system == *geodetic);
    EXPECT_FALSE(*geodetic == *system);
    EXPECT_FALSE(*system ^= *geodetic);
    TShellReferenceSystem const& base = *system;
    EXPECT_TRUE(base == *system);
    EXPECT_TRUE(*system == base);
}

// State

TEST(MapProjectedReferenceSystem, AResetKeepsTheOrderAndTheSignsOfTheAxes) {
    auto const system = Projected(Placed(UtmZone(31, 'N'), 1, -1, 2));
    TGeodeticReferenceSystem const* const baseCore = system->BaseGeodeticCore;

    system->Reset();

    EXPECT_EQ(system->MapProjection, nullptr);
    EXPECT_EQ(system->LinearUnit, nullptr);
    EXPECT_EQ(system->BaseGeodetic, nullptr);
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->SavedTree, nullptr);
    EXPECT_EQ(system->Transform, nullptr);
    EXPECT_EQ(system->Name, "");
    EXPECT_EQ(system->BaseGeodeticCore, baseCore);
    EXPECT_TRUE(system->FlipAxes);
    EXPECT_EQ(system->FirstAxisSign, -1);
    EXPECT_EQ(system->SecondAxisSign, 2);
    EXPECT_EQ(system->GetMapProjectionName(), "");
    EXPECT_TRUE(system->IsProjected());
    system->Reset();
}

TEST(MapProjectedReferenceSystem, AnEmptiedObjectReportsInsteadOfAnswering) {
    auto const system = Projected(UtmZone(31, 'N'));
    auto const other = Projected(UtmZone(31, 'N'));
    system->Reset();
    double shell[3] = {1, 2, 3};
    TCoords core;
    TShellCoords texts;

    EXPECT_THROW(system->GetPlaneUnitCoefToBase(), std::runtime_error);
    EXPECT_THROW(system->GetHeightUnitName(), std::runtime_error);
    EXPECT_THROW(system->CoordsShellToCore(shell, &core), std::runtime_error);
    EXPECT_THROW(system->CoordsCoreToShell(core, &texts), std::runtime_error);
    EXPECT_FALSE(system->InputCoords(texts, nullptr, nullptr, shell));
    EXPECT_FALSE(*system == *other);
    EXPECT_FALSE(*other == *system);
}

// Hosts are compiled against these places.
TEST(MapProjectedReferenceSystem, MembersStandInTheirOrder) {
    auto const system = Projected(UtmZone(31, 'N'));

    // The base ends at 488.
    EXPECT_EQ(OffsetOf(*system, system->MapProjection), 488);
    EXPECT_EQ(OffsetOf(*system, system->LinearUnit), 496);
    EXPECT_EQ(OffsetOf(*system, system->BaseGeodetic), 504);
    EXPECT_EQ(OffsetOf(*system, system->BaseGeodeticCore), 512);
    EXPECT_EQ(OffsetOf(*system, system->FlipAxes), 520);
    EXPECT_EQ(OffsetOf(*system, system->FirstAxisSign), 524);
    EXPECT_EQ(OffsetOf(*system, system->SecondAxisSign), 528);
    EXPECT_EQ(sizeof(*system), 536U);
}

} // namespace
} // namespace KvRefSystem
