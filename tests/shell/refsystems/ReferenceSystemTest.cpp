#include "shell/refsystems/ReferenceSystem.h"

#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* BaseMessage = "TShellReferenceSystem::TShellReferenceSystem(TStringTree *tree)";

/** What the geodetic constructor throws for WGS 84 after a change of its tree; empty when it builds. */
std::string ThrownAfter(std::function<void(TStringTree*)> const& change,
                        TGeodeticText const& text = WithZeroShift()) {
    TStringTree tree;
    FillGeodetic(&tree, text);
    change(&tree);
    try {
        TShellGeodeticReferenceSystem const system(&tree, nullptr);
        return std::string();
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
}

/** A named pairwise chain of one height shift of 1 metre. */
void AddPairwise(TStringTree* tree, int idx, std::string const& name) {
    TStringTree* const set = Child(Child(tree, 1109), 1110, idx);
    SetField(set, 7201, name);
    TStringTree* const record = Child(set, 7100);
    SetField(record, 7101, "6");
    SetField(record, 7107, "1");
}

TEST(ReferenceSystem, ReadsTheBaseFieldsOfTheDescription) {
    TStringTree tree;
    FillGeodetic(&tree, Pulkovo1942());
    SetField(&tree, 1022, "SK-42");
    SetField(&tree, 1025, "B", 0);
    SetField(&tree, 1025, "H", 2);
    SetField(&tree, 102005, "4284");
    SetField(&tree, 102800, "1");
    SetField(tree.FindSubtree(1107, 0), 102006, "6284");

    auto const system = Create(&tree);

    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->Type, rstGeodetic);
    EXPECT_EQ(system->Name, "Pulkovo 1942");
    EXPECT_EQ(system->Description, "");
    EXPECT_EQ(system->Abbreviation, "SK-42");
    EXPECT_EQ(system->AxisName[0], "B");
    EXPECT_EQ(system->AxisName[1], "");
    EXPECT_EQ(system->AxisName[2], "H");
    EXPECT_EQ(system->GeoTIFFCode, "4284");
    EXPECT_EQ(system->PanoramaCode, "1");
    EXPECT_EQ(system->DatumGeoTIFFCode, "6284");
    EXPECT_EQ(system->DatumName, "Test datum");
    EXPECT_NE(system->DatumShift, nullptr);
    EXPECT_NE(system->Transform, nullptr);
    EXPECT_EQ(system->Geoid, nullptr);
}

TEST(ReferenceSystem, EveryRequiredFieldIsMissed) {
    for (int const tag : {1100, 1020, 1021}) {
        EXPECT_EQ(ThrownAfter([&](TStringTree* tree) { tree->DeleteField(tag, 0); }), BaseMessage) << tag;
    }
}

TEST(ReferenceSystem, AnEmptyDescriptionCountsAsPresent) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { SetField(tree, 1021, ""); }), "");
}

TEST(ReferenceSystem, ADatumNeedsItsShift) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { tree->FindSubtree(1107, 0)->DeleteSubtree(1102, 0); }),
              BaseMessage);
}

TEST(ReferenceSystem, ADatumNeedsItsOwnEllipsoidEvenBesideOneAtTheRoot) {
    auto const change = [](TStringTree* tree) {
        TStringTree* const datum = tree->FindSubtree(1107, 0);
        datum->FindSubtree(5610, 0)->CopyTo(Child(tree, 1103));
        datum->DeleteSubtree(5610, 0);
    };

    EXPECT_EQ(ThrownAfter(change), BaseMessage);
}

TEST(ReferenceSystem, AShiftOfAnUnknownFormLeavesTheDatumUndefined) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    SetField(tree.FindSubtree(1107, 0)->FindSubtree(1102, 0)->FindSubtree(5443, 0), 5701, "9");

    auto const system = Create(&tree);

    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->DatumShift, nullptr);
    EXPECT_FALSE(system->CoreRefSystem->ContainsDatum());
}

TEST(ReferenceSystem, APairwiseChainNeedsAName) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { AddPairwise(tree, 0, ""); }), BaseMessage);
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) {
                  AddPairwise(tree, 0, "A");
                  tree->FindSubtree(1109, 0)->FindSubtree(1110, 0)->DeleteField(7201, 0);
              }),
              BaseMessage);
}

TEST(ReferenceSystem, ALaterPairwiseChainOfTheSameNameWins) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    AddPairwise(&tree, 0, "A");
    AddPairwise(&tree, 1, "A");
    SetField(tree.FindSubtree(1109, 0)->FindSubtree(1110, 1)->FindSubtree(7100, 0), 7107, "2");

    auto const system = Create(&tree);

    ASSERT_NE(system, nullptr);
    ASSERT_EQ(system->PairwiseTransforms.size(), 1U);
    auto const* const record =
        dynamic_cast<TShellRefSystemTransformShiftZParams const*>(system->GetPairwiseTransform("A", 0));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->dH, 2);
}

TEST(ReferenceSystem, ABrokenChainFailsWithTheChainsMessage) {
    EXPECT_EQ(ThrownAfter([](TStringTree* tree) { SetField(Child(Child(tree, 1108), 7100), 7101, "3"); }),
              "TShellRefSystemTransform::TShellRefSystemTransform(TStringTree *src)");
}

TEST(ReferenceSystem, AProxyOfAnUnknownKindIsNoProxy) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    SetField(Child(&tree, 1112), 1100, "9");

    auto const system = Create(&tree);

    ASSERT_NE(system, nullptr);
    EXPECT_FALSE(system->ContainsProxyRefSys());
    EXPECT_EQ(system->GetProxyRefSys().get(), nullptr);
    // The handle has a count all the same: the member's share and the one just given.
    EXPECT_EQ(system->GetProxyRefSys().use_count(), 2U);
}

TEST(ReferenceSystem, AProxyIsBuiltFromItsDescription) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    FillGeodetic(Child(&tree, 1112), Pulkovo1942());

    auto const system = Create(&tree);

    ASSERT_NE(system, nullptr);
    EXPECT_TRUE(system->ContainsProxyRefSys());
    EXPECT_EQ(system->GetProxyRefSysName(), "Pulkovo 1942");
}

TEST(ReferenceSystem, ProxiesOfProxiesAreRefusedBeyondThirtyTwoLevels) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    TStringTree* level = &tree;
    for (int depth = 0; depth < 33; ++depth) {
        level = Child(level, 1112);
        FillGeodetic(level, WithZeroShift());
    }

    EXPECT_THROW(Create(&tree), std::runtime_error);
    level->parent->DeleteSubtree(1112, 0);
    EXPECT_NE(Create(&tree), nullptr);
}

TEST(ReferenceSystem, SavesTheDescriptionUnderAHeaderWithATrailingBlank) {
    auto const system = Create(WithZeroShift());
    std::string text;

    ASSERT_TRUE(system->WriteToString(text));
    EXPECT_EQ(text.substr(0, text.find('\n')), "(0,0)saved reference system ");
}

TEST(ReferenceSystem, TheWrittenStringEndsWithTheNul) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    auto const system = Create(&tree);
    tree.header = "saved reference system ";
    std::string const expected = TextOf(tree);
    std::string text;

    ASSERT_TRUE(system->WriteToString(text));

    EXPECT_EQ(text.size(), expected.size() + 1);
    EXPECT_EQ(text, expected + '\0');
    EXPECT_EQ(system->WriteToString(nullptr), expected.size() + 1);
    std::vector<char> buffer(expected.size() + 1, '?');
    EXPECT_EQ(system->WriteToString(buffer.data()), expected.size() + 1);
    EXPECT_EQ(std::string(buffer.data()), expected);
}

TEST(ReferenceSystem, TheWrittenStringMakesAnEqualSystem) {
    auto const system = Create(Pulkovo1942());
    std::string text;
    ASSERT_TRUE(system->WriteToString(text));

    std::unique_ptr<TShellReferenceSystem> const read(CreateShellReferenceSystem(text, nullptr));

    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(*read == *system);
    std::string again;
    ASSERT_TRUE(read->WriteToString(again));
    EXPECT_EQ(again, text);
}

TEST(ReferenceSystem, ACopyComesFromTheDescription) {
    auto const system = Create(Pulkovo1942());
    system->Name = "changed on the object only";

    std::unique_ptr<TShellReferenceSystem> const copy(system->CreateCopy());

    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(*copy == *system);
    EXPECT_EQ(copy->Name, "Pulkovo 1942");
}

TEST(ReferenceSystem, KnowsItsKind) {
    auto const system = Create(WithZeroShift());

    EXPECT_TRUE(system->IsLatLon());
    EXPECT_FALSE(system->IsGeocentric());
    EXPECT_FALSE(system->IsProjected());
    EXPECT_FALSE(system->IsTopocentricHorizontal());
    for (int type = 1; type <= 6; ++type) {
        system->Type = static_cast<TReferenceSystemType>(type);
        EXPECT_EQ(system->IsGlobal(), type >= 3) << type;
    }
    system->Type = rstGeodetic;
}

TEST(ReferenceSystem, AnUnknownKindIsNeitherGlobalNorLocal) {
    auto const system = Create(WithZeroShift());
    for (int const type : {0, 7, -1}) {
        system->Type = static_cast<TReferenceSystemType>(type);
        try {
            system->IsGlobal();
            FAIL() << type;
        } catch (std::logic_error const& failure) {
            EXPECT_STREQ(failure.what(), "TShellReferenceSystem::IsGlobal");
        }
    }
}

TEST(ReferenceSystem, CodesAreTheLeadingDigitsOfTheirTexts) {
    auto const system = Create(WithZeroShift());
    struct TRow {
        char const* text;
        unsigned code;
    };
    // "%u" takes a sign and wraps: -5 is 2^32 - 5.
    for (TRow const& row :
         {TRow{"", 0}, {"4326", 4326}, {"4326abc", 4326}, {"x", 0}, {" 7", 7}, {"-5", 4294967291U}}) {
        system->GeoTIFFCode = row.text;
        system->PanoramaCode = row.text;
        EXPECT_EQ(system->GetGeoTIFFCode(), row.code) << row.text;
        EXPECT_EQ(system->GetPanoramaCode(), row.code) << row.text;
    }
}

TEST(ReferenceSystem, EqualGeometryIgnoresNamesAndUnits) {
    TGeodeticText renamed = Pulkovo1942();
    renamed.name = "another name";
    renamed.angularUnit = Grad();
    auto const first = Create(Pulkovo1942());
    auto const second = Create(renamed);
    auto const third = Create(WithZeroShift());

    EXPECT_TRUE(*first ^= *second);
    EXPECT_FALSE(*first == *second);
    EXPECT_FALSE(*first ^= *third);
}

TEST(ReferenceSystem, GivesTheEllipsoidsSemiAxesInMetres) {
    double a = 0;
    double b = 0;

    ASSERT_TRUE(Create(WithZeroShift())->GetEllipsoidSemiAxesMeters(&a, &b));
    EXPECT_EQ(a, 6378137.0);
    // b = a (1 - 1/298.257223563), the published 6356752.314245.
    EXPECT_NEAR(b, 6356752.314245179, 1e-8);
}

TEST(ReferenceSystem, HasNoSphereNoProjectionAndNoSemiAxesWithoutAnEllipsoid) {
    auto const system = Create(WithZeroShift());
    double radius = 7;

    EXPECT_FALSE(system->GetSphereRadius(&radius));
    EXPECT_EQ(radius, 7);
    EXPECT_EQ(system->GetMapProjectionName(), "");
    delete system->Ellipsoid;
    system->Ellipsoid = nullptr;
    EXPECT_FALSE(system->GetEllipsoidSemiAxesMeters(&radius, &radius));
    EXPECT_EQ(radius, 7);
}

TEST(ReferenceSystem, ResetKeepsKindProxyAndPairwiseKeys) {
    TStringTree tree;
    FillGeodetic(&tree, Pulkovo1942());
    AddPairwise(&tree, 0, "A");
    FillGeodetic(Child(&tree, 1112), WithZeroShift());
    auto const system = Create(&tree);

    system->Reset();

    EXPECT_EQ(system->Type, rstGeodetic);
    EXPECT_TRUE(system->ContainsProxyRefSys());
    ASSERT_EQ(system->PairwiseTransforms.count("A"), 1U);
    EXPECT_EQ(system->PairwiseTransforms["A"], nullptr);
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->Transform, nullptr);
    EXPECT_EQ(system->SavedTree, nullptr);
    EXPECT_EQ(system->Name, "");
    EXPECT_EQ(system->DatumName, "");
}

TEST(ReferenceSystem, WithoutADescriptionTheOperationsOnItFail) {
    auto const system = Create(WithZeroShift());
    TPtrVector<TStringTree>::Release(system->SavedTree);
    system->SavedTree = nullptr;
    std::string text = "kept";
    TStringTree tree;

    EXPECT_FALSE(system->WriteToString(text));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(system->WriteToString(nullptr), 0U);
    EXPECT_FALSE(system->WriteToXML(nullptr));
    EXPECT_EQ(system->CreateCopy(), nullptr);
    EXPECT_FALSE(system->InsertGeoidSetting("x"));
    EXPECT_EQ(system->GetGeoidSetting(), "");
    EXPECT_FALSE(system->InsertTransformsSettings());
    EXPECT_EQ(system->FindPairwiseTransformsSettings("A"), nullptr);
    EXPECT_FALSE(system->FillInternalRefSystemTree(&tree, TShellCoords()));
    EXPECT_EQ(system->FillPrimaryGeodeticRefSystemTree(&tree), 9);
}

static_assert(sizeof(TShellReferenceSystem) == 488);
static_assert(sizeof(TShellGeodeticReferenceSystem) == 512);

} // namespace
} // namespace KvRefSystem
