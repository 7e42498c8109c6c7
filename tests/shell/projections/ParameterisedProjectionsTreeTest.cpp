#include "tests/shell/projections/ProjectionTestKit.h"

#include <cstddef>

namespace {

using namespace ProjectionTestKit;

TEST(ParameterisedProjections, ReadTheirTextsIntoTheirMembersInTheOrderOfTheKeys) {
    for (TShellClass const& shellClass : AllClasses()) {
        SCOPED_TRACE(shellClass.name);
        auto const shell = Create(shellClass.type);
        EXPECT_EQ(shell->Type, shellClass.type);
        for (int const key : shellClass.keys) {
            if (key != PoleKey) {
                EXPECT_EQ(MemberOf(*shell, shellClass.type, key), TextOf(key));
            }
        }
    }
}

/** The size that follows from the number of texts, each of 32 bytes, behind a base of 136 and a pole. */
template <class Shell>
void ExpectSize(int type) {
    TShellClass const& shellClass = ClassOf(type);
    EXPECT_EQ(sizeof(Shell), 136 + (shellClass.HasPole() ? 8 : 0) + 32 * shellClass.texts.size()) << type;
}

TEST(ParameterisedProjections, HaveNoOtherMembersThanTheirTexts) {
    ExpectSize<TShellTransverseMercatorMapProjection>(1);
    ExpectSize<TShellObliqueMercatorMapProjection>(2);
    ExpectSize<TShellHotineObliqueMercatorMapProjection>(3);
    ExpectSize<TShellNZMGMapProjection>(4);
    ExpectSize<TShellAlbersEqualAreaConicMapProjection>(5);
    ExpectSize<TShellLambertConicConformal2SPMapProjection>(6);
    ExpectSize<TShellLambertConicConformal1SPMapProjection>(7);
    ExpectSize<TShellCassiniSoldnerMapProjection>(8);
    ExpectSize<TShellMercator2SPMapProjection>(9);
    ExpectSize<TShellMercator1SPMapProjection>(10);
    ExpectSize<TShellObliqueStereographicMapProjection>(11);
    ExpectSize<TShellPolarStereographicMapProjection>(12);
    ExpectSize<TShellQuasiStereographicMapProjection>(13);
    ExpectSize<TShellPolyconicMapProjection>(14);
    ExpectSize<TShellKrovakMapProjection>(16);
    ExpectSize<TShellHattMapProjection>(17);
    ExpectSize<TShellPolarStereographicBasicMapProjection>(21);
    ExpectSize<TShellPolarStereographicNaturalOriginMapProjection>(22);
    ExpectSize<TShellPolarStereographicFalseOriginMapProjection>(23);
    ExpectSize<TShellLambertAzimuthalEqualAreaMapProjection>(24);
    ExpectSize<TShellEquidistantConicMapProjection>(25);
    ExpectSize<TShellOrthographicMapProjection>(26);
    ExpectSize<TShellLambertConicConformal2SPBelgiumMapProjection>(1201);
    ExpectSize<TShellSphericalMercatorMapProjection>(1313);
}

TEST(ParameterisedProjections, AMissingKeyThrowsTheTextOfTheClass) {
    for (TShellClass const& shellClass : AllClasses()) {
        for (int const key : shellClass.keys) {
            TStringTree tree;
            Fill(&tree, shellClass);
            tree.DeleteField(key, 0);
            EXPECT_EQ(MessageOf([&] { shellClass.fromTree(&tree); }), shellClass.TreeMessage()) << key;
        }
    }
}

TEST(ParameterisedProjections, ABaseThatFailsThrowsTheTextOfTheBase) {
    for (TShellClass const& shellClass : AllClasses()) {
        TStringTree tree;
        Fill(&tree, shellClass);
        tree.DeleteField(6001, 0);
        EXPECT_EQ(MessageOf([&] { shellClass.fromTree(&tree); }),
                  "TShellMapProjection::TShellMapProjection(LumCommonUtils::TStringTree *tree)")
            << shellClass.name;
    }
}

TEST(ParameterisedProjections, TextsAreTakenUnchecked) {
    for (TShellClass const& shellClass : AllClasses()) {
        for (int const key : shellClass.keys) {
            if (key == PoleKey) {
                continue;
            }
            for (char const* const text : {"", " ", "not a number"}) {
                EXPECT_EQ(MemberOf(*Create(shellClass.type, {{key, text}}), shellClass.type, key), text);
            }
        }
    }
}

TEST(ParameterisedProjections, FieldsOfOtherMethodsDontCount) {
    // A Hatt description knows two of these only.
    TStringTree tree;
    Fill(&tree, ClassOf(17));
    tree.InsertString("", 6101, 0, "x");
    tree.InsertString("", 6104, 0, "y");
    auto const shell = ClassOf(17).fromTree(&tree);
    EXPECT_TRUE(*shell == *Create(17));
}

TEST(KrovakShell, TheOlderType18IsA16) {
    TStringTree tree;
    Fill(&tree, ClassOf(16));
    Change(&tree, 6001, "18");
    auto const shell = ClassOf(16).fromTree(&tree);
    EXPECT_EQ(shell->Type, 16);
    EXPECT_TRUE(*shell == *Create(16));
    EXPECT_EQ(CoreOf(*shell)->Type, 16);
}

TEST(PolarStereographicShell, DescriptionHasNoLatitude) {
    TStringTree tree;
    Fill(&tree, ClassOf(12));
    tree.InsertString("", LatitudeKey, 0, "100");
    auto const shell = ClassOf(12).fromTree(&tree);
    EXPECT_EQ(MemberOf(*shell, 12, LatitudeKey), "");
    EXPECT_EQ(MemberOf(*shell, 12, 6120), TextOf(6120));
}

// --- The pole ----------------------------------------------------------------------------------------------

TEST(PolarShells, TheFirstCharacterOfTheDescriptionSelectsThePole) {
    for (int const type : {21, 22, 23}) {
        for (char const* const text : {"N", "North", "Nsouth"}) {
            EXPECT_EQ(PoleOf(*Create(type, {{PoleKey, text}})), poleNorth) << type << text;
        }
        for (char const* const text : {"S", "South", "S N"}) {
            EXPECT_EQ(PoleOf(*Create(type, {{PoleKey, text}})), poleSouth) << type << text;
        }
    }
}

TEST(PolarShells, DescriptionsKnowThePoleInUpperCaseOnly) {
    for (int const type : {21, 22, 23}) {
        for (char const* const text : {"n", "s", "north", "south", "", " N", "x", "1", "-"}) {
            EXPECT_EQ(MessageOf([&] {
                          Create(type, {{PoleKey, text}});
                      }),
                      ClassOf(type).TreeMessage())
                << text;
        }
    }
}

// --- Equality ----------------------------------------------------------------------------------------------

TEST(ParameterisedProjections, AreEqualWhenAllTheirTextsAre) {
    for (TShellClass const& shellClass : AllClasses()) {
        EXPECT_TRUE(*Create(shellClass.type) == *Create(shellClass.type)) << shellClass.name;
    }
}

TEST(ParameterisedProjections, OneTextMakesThemDifferent) {
    for (TShellClass const& shellClass : AllClasses()) {
        auto const shell = Create(shellClass.type);
        for (int const key : shellClass.keys) {
            auto const other = Create(shellClass.type, {{key, key == PoleKey ? "S" : "7"}});
            EXPECT_FALSE(*shell == *other) << shellClass.name << ' ' << key;
            EXPECT_FALSE(*other == *shell) << shellClass.name << ' ' << key;
        }
    }
}

TEST(ParameterisedProjections, TheSameNumberInAnotherTextIsDifferent) {
    for (TShellClass const& shellClass : AllClasses()) {
        for (int const key : shellClass.keys) {
            if (key == PoleKey) {
                continue;
            }
            auto const shell = Create(shellClass.type, {{key, "90"}});
            EXPECT_FALSE(*shell == *Create(shellClass.type, {{key, "90.0"}})) << shellClass.name << key;
            EXPECT_FALSE(*shell == *Create(shellClass.type, {{key, " 90"}})) << shellClass.name << key;
        }
    }
}

TEST(PolarShells, TwoTextsOfTheSamePoleAreEqual) {
    for (int const type : {21, 22, 23}) {
        EXPECT_TRUE(*Create(type, {{PoleKey, "N"}}) == *Create(type, {{PoleKey, "North"}})) << type;
    }
}

TEST(ParameterisedProjections, CompareTypeCodesAndUnits) {
    for (TShellClass const& shellClass : AllClasses()) {
        SCOPED_TRACE(shellClass.name);
        int const type = shellClass.type;
        auto const shell = Create(type);
        EXPECT_FALSE(*shell == *Create(type, {}, {&metre, &grad, &millionth}));
        EXPECT_FALSE(*shell == *Create(type, {}, {&foot, &degree, &millionth}));
        EXPECT_FALSE(*shell == *Create(type, {}, {&foot, &grad, nullptr}));
        EXPECT_FALSE(*shell == *Create(type, {}, {nullptr, &grad, &millionth}));
        EXPECT_FALSE(*Create(type, {}, {&foot, nullptr, &millionth}) == *shell);
        EXPECT_FALSE(*shell == *Create(type, {{102007, "16001"}}));
        EXPECT_FALSE(*shell == *Create(type, {{102008, "1"}}));
        // The number alone makes a difference, too, as a document may hold another one.
        EXPECT_FALSE(*shell == *Create(type, {{6001, type == 1 ? "2" : "1"}}));
    }
}

TEST(ParameterisedProjections, NamesDontCount) {
    for (TShellClass const& shellClass : AllClasses()) {
        auto const named = Create(shellClass.type, {{6020, "A name"}});
        EXPECT_EQ(named->Name, "A name");
        EXPECT_TRUE(*named == *Create(shellClass.type, {{6020, "Another"}})) << shellClass.name;
        EXPECT_TRUE(*named == *Create(shellClass.type)) << shellClass.name;
    }
}

TEST(ParameterisedProjections, OfTwoClassesAreNeverEqual) {
    for (TShellClass const& one : AllClasses()) {
        for (TShellClass const& other : AllClasses()) {
            if (one.type != other.type) {
                EXPECT_FALSE(*Create(one.type) == *Create(other.type)) << one.name << ' ' << other.name;
            }
        }
    }
}

TEST(ParameterisedProjections, OfTwoClassesAreDifferentEvenWithOneNumber) {
    // Both have latitude, longitude, easting and northing, and claim to be a Cassini-Soldner.
    EXPECT_FALSE(*Create(8) == *Create(24, {{6001, "8"}}));
    EXPECT_FALSE(*Create(24, {{6001, "8"}}) == *Create(8));
}

// --- Reset -------------------------------------------------------------------------------------------------

TEST(ParameterisedProjections, ResetEmptiesUnitsAndTextsAndKeepsNameAndCodes) {
    for (TShellClass const& shellClass : AllClasses()) {
        SCOPED_TRACE(shellClass.name);
        auto const shell = Create(shellClass.type, {{6020, "A name"}, {102007, "16001"}, {102008, "1"}});
        shell->Reset();
        EXPECT_EQ(shell->LinearUnit, nullptr);
        EXPECT_EQ(shell->AngularUnit, nullptr);
        EXPECT_EQ(shell->ScaleUnit, nullptr);
        EXPECT_EQ(shell->Name, "A name");
        EXPECT_EQ(shell->GeoTIFFCode, "16001");
        EXPECT_EQ(shell->GeoTIFFType, "1");
        for (int const key : shellClass.texts) {
            EXPECT_EQ(MemberOf(*shell, shellClass.type, key), "") << key;
        }
        EXPECT_EQ(CoreOf(*shell), nullptr);
        shell->Reset();
        EXPECT_EQ(shell->LinearUnit, nullptr);
    }
}

} // namespace
