#include "shell/projections/MapProjection.h"

#include "tests/shell/projections/ProjectionTestKit.h"

#include <typeinfo>

namespace {

using namespace ProjectionTestKit;

constexpr char const* xmlMessage = "TShellMapProjection::TShellMapProjection(TKvXIniReader *xml)";

/** A document of a Transverse Mercator with all that the root knows. */
MemoryXIni::TNode FullDocument(int type = 1) {
    MemoryXIni::TNode root = Document(type, {{"LongitudeOfNatiralOrigin", "9"},
                                             {"LatitudeOfNaturalOrigin", "0"},
                                             {"ScaleFactorAtNaturalOrigin", "999600"},
                                             {"FalseEasting", "500000"},
                                             {"FalseNorthing", "0"}});
    root.children.push_back({"MapProjGeoTIFFCode", "16001", false, {}});
    root.children.push_back({"MapProjGeoTIFFType", "1", false, {}});
    return root;
}

TOwned CreateFrom(MemoryXIni::TNode document) {
    MemoryXIni::TReader reader(&document);
    TOwned shell(CreateShellMapProjection(&reader));
    EXPECT_EQ(reader.Depth(), 0U);
    return shell;
}

// --- The factory -------------------------------------------------------------------------------------------

TEST(ShellMapProjectionXml, FactoryCreatesATransverseMercator) {
    auto const shell = CreateFrom(FullDocument());
    ASSERT_NE(shell, nullptr);
    EXPECT_NE(dynamic_cast<TShellTransverseMercatorMapProjection*>(shell.get()), nullptr);
    EXPECT_EQ(shell->Type, 1);
    EXPECT_EQ(shell->GeoTIFFCode, "16001");
    EXPECT_EQ(shell->GeoTIFFType, "1");
    EXPECT_EQ(MemberOf(*shell, 1, 6101), "9");
}

TEST(ShellMapProjectionXml, FactoryKnowsNoOtherType) {
    for (TShellClass const& shellClass : AllClasses()) {
        if (shellClass.type == 1 || !shellClass.fromXml || shellClass.type == 23) {
            continue;
        }
        MemoryXIni::TNode const document = Saved(*Create(shellClass.type));
        EXPECT_EQ(CreateFrom(document), nullptr) << shellClass.name;
        // The constructor stands ready all the same.
        EXPECT_NE(Load(shellClass.type, document), nullptr) << shellClass.name;
    }
    for (int const type : {0, -1, 13, 14, 15, 17, 18, 23, 101, 1001, 1002, 1003, 1004, 1313}) {
        EXPECT_EQ(CreateFrom(FullDocument(type)), nullptr) << type;
    }
}

TEST(ShellMapProjectionXml, FactoryIsNullForWhatDoesntLoad) {
    EXPECT_EQ(CreateShellMapProjection(nullptr), nullptr);
    EXPECT_EQ(CreateFrom(MemoryXIni::TNode()), nullptr);
    MemoryXIni::TNode withoutParameters = FullDocument();
    withoutParameters.Drop("MapProjParameters");
    EXPECT_EQ(CreateFrom(withoutParameters), nullptr);
    MemoryXIni::TNode badUnit = FullDocument();
    badUnit.Find("MapProjParamLinearUnit").Drop("UnitCoefToBase");
    EXPECT_EQ(CreateFrom(badUnit), nullptr);
}

TEST(ShellMapProjectionXml, AMissingParameterLoadsAndHasNoCore) {
    MemoryXIni::TNode document = FullDocument();
    document.Find("MapProjParameters").Drop("FalseNorthing");
    auto const shell = CreateFrom(document);
    ASSERT_NE(shell, nullptr);
    EXPECT_EQ(CoreOf(*shell), nullptr);
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(ShellMapProjectionXml, UnitsAndCodesMayBeMissing) {
    MemoryXIni::TNode document = FullDocument();
    for (char const* const name : {"MapProjParamLinearUnit", "MapProjParamAngularUnit",
                                   "MapProjParamScaleUnit", "MapProjGeoTIFFCode", "MapProjGeoTIFFType"}) {
        document.Drop(name);
    }
    auto const shell = Load(1, document);
    EXPECT_EQ(shell->LinearUnit, nullptr);
    EXPECT_EQ(shell->AngularUnit, nullptr);
    EXPECT_EQ(shell->ScaleUnit, nullptr);
    EXPECT_EQ(shell->GeoTIFFCode, "");
    EXPECT_EQ(shell->GeoTIFFType, "");
    EXPECT_EQ(CoreOf(*shell), nullptr);
}

TEST(ShellMapProjectionXml, AnUnknownTypeThrows) {
    for (char const* const type : {"0", "19", "x", ""}) {
        MemoryXIni::TNode document = FullDocument();
        document.Find("MapProjType").text = type;
        EXPECT_EQ(MessageOf([&] { Load(1, document); }), xmlMessage) << type;
    }
    MemoryXIni::TNode without = FullDocument();
    without.Drop("MapProjType");
    EXPECT_EQ(MessageOf([&] { Load(1, without); }), xmlMessage);
    EXPECT_EQ(MessageOf([] { ClassOf(1).fromXml(nullptr); }), xmlMessage);
}

TEST(ShellMapProjectionXml, TheTypeNeedntBeThatOfTheClass) {
    // Kept: only the factory looks at it.
    auto const shell = Load(1, FullDocument(5));
    EXPECT_EQ(shell->Type, 5);
    EXPECT_EQ(MemberOf(*shell, 1, 6101), "9");
    EXPECT_EQ(Load(1, FullDocument(18))->Type, 16);
}

TEST(ShellMapProjectionXml, AUnitThatDoesntLoadThrows) {
    for (char const* const unit :
         {"MapProjParamLinearUnit", "MapProjParamAngularUnit", "MapProjParamScaleUnit"}) {
        MemoryXIni::TNode document = FullDocument();
        document.Find(unit).Find("UnitType").text = "0";
        EXPECT_EQ(MessageOf([&] { Load(1, document); }), xmlMessage) << unit;
    }
    // Each of another kind.
    std::pair<char const*, char const*> const wrongKinds[] = {
        {"MapProjParamLinearUnit", "2"}, {"MapProjParamAngularUnit", "3"}, {"MapProjParamScaleUnit", "1"}};
    for (auto const& [unit, kind] : wrongKinds) {
        MemoryXIni::TNode document = FullDocument();
        document.Find(unit).Find("UnitType").text = kind;
        EXPECT_EQ(MessageOf([&] { Load(1, document); }), xmlMessage) << unit;
    }
}

/** Fails to leave the section number `failing`. */
class TStuckReader : public MemoryXIni::TReader {
public:
    using TReader::TReader;
    bool LeaveSection(unsigned long handle) override {
        return TReader::LeaveSection(handle) && ++left != failing;
    }

    int failing = 0;

private:
    int left = 0;
};

TEST(ShellMapProjectionXml, ASectionThatDoesntCloseThrows) {
    for (int const section : {1, 2, 3}) {
        MemoryXIni::TNode document = FullDocument();
        TStuckReader reader(&document);
        reader.failing = section;
        EXPECT_EQ(MessageOf([&] { ClassOf(1).fromXml(&reader); }), xmlMessage) << section;
    }
}

TEST(ShellMapProjectionXml, AReaderThatThrowsIsAFailedLoad) {
    MemoryXIni::TNode document = FullDocument();
    MemoryXIni::TReader counting(&document);
    TOwned const whole(CreateShellMapProjection(&counting));
    ASSERT_NE(whole, nullptr);
    for (unsigned long operation = 1; operation <= counting.operations; ++operation) {
        MemoryXIni::TReader reader(&document);
        reader.failingOperation = operation;
        TOwned const shell(CreateShellMapProjection(&reader));
        EXPECT_EQ(shell, nullptr) << operation;
        EXPECT_EQ(reader.Depth(), 0U) << operation;
    }
}

TEST(ShellMapProjectionXml, AnglesAreReadAsPlainNumbersInEveryNotation) {
    MemoryXIni::TNode document = FullDocument();
    MemoryXIni::TNode& unit = document.Find("MapProjParamAngularUnit");
    unit.children.push_front({"UnitCode", "7", false, {}});
    auto const shell = Load(1, document);
    EXPECT_EQ(shell->AngularUnit->Code, 7);
    TShellAngularUnit const& angular = *shell->AngularUnit;
    EXPECT_EQ(typeid(angular), typeid(TShellAngularUnit));
    EXPECT_EQ(angular.StringToValue("55 30 36"), 55.0);
}

TEST(ShellMapProjectionXml, LoadingAgainReplacesUnitsAndCodesAndKeepsTheName) {
    auto const shell = Create(1, {{6020, "A name"}, {102007, "1"}, {102008, "2"}});
    MemoryXIni::TNode document = Document(1, {}, {&metre, nullptr, nullptr});
    document.children.push_back({"MapProjGeoTIFFType", "7", false, {}});
    MemoryXIni::TReader reader(&document);
    EXPECT_TRUE(shell->LoadFromXML(&reader));
    EXPECT_EQ(shell->Name, "A name");
    EXPECT_EQ(shell->LinearUnit->Name, "metre");
    EXPECT_EQ(shell->AngularUnit, nullptr);
    EXPECT_EQ(shell->ScaleUnit, nullptr);
    EXPECT_EQ(shell->GeoTIFFCode, "");
    EXPECT_EQ(shell->GeoTIFFType, "7");
}

TEST(ShellMapProjectionXml, ALoadThatFailsHasResetTheObject) {
    auto const shell = Create(1, {{6020, "A name"}});
    MemoryXIni::TNode document;
    MemoryXIni::TReader reader(&document);
    EXPECT_FALSE(shell->LoadFromXML(&reader));
    EXPECT_EQ(shell->LinearUnit, nullptr);
    EXPECT_EQ(MemberOf(*shell, 1, 6101), "");
    EXPECT_EQ(shell->Name, "A name");
}

// --- Writing -----------------------------------------------------------------------------------------------

TEST(ShellMapProjectionXml, IsWrittenInItsOrder) {
    auto const shell = Create(1, {{6020, "A name"}, {102007, "16001"}, {102008, "1"}});
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    ASSERT_TRUE(shell->SaveToXML(&writer));
    EXPECT_EQ(Keys(root),
              (std::vector<std::string>{"MapProjType", "MapProjParamLinearUnit", "MapProjParamAngularUnit",
                                        "MapProjParamScaleUnit", "MapProjGeoTIFFCode", "MapProjGeoTIFFType",
                                        "MapProjParameters"}));
    EXPECT_EQ(root.Find("MapProjType").text, "1");
    EXPECT_EQ(root.Find("MapProjParamLinearUnit").Find("UnitName").text, "foot");
    EXPECT_EQ(root.Find("MapProjParamAngularUnit").Find("UnitName").text, "grad");
    EXPECT_EQ(root.Find("MapProjParamScaleUnit").Find("UnitName").text, "ppm");
    EXPECT_EQ(root.Find("MapProjGeoTIFFCode").text, "16001");
    EXPECT_EQ(root.Find("MapProjGeoTIFFType").text, "1");
}

TEST(ShellMapProjectionXml, WhatIsMissingIsntWritten) {
    EXPECT_EQ(Keys(Saved(*Create(1, {}, {nullptr, nullptr, nullptr}))),
              (std::vector<std::string>{"MapProjType", "MapProjParameters"}));
    EXPECT_EQ(Keys(Saved(*Create(1, {{102008, "1"}}, {&metre, nullptr, &millionth}))),
              (std::vector<std::string>{"MapProjType", "MapProjParamLinearUnit", "MapProjParamScaleUnit",
                                        "MapProjGeoTIFFType", "MapProjParameters"}));
}

TEST(ShellMapProjectionXml, TheNameIsntWritten) {
    MemoryXIni::TNode document = Saved(*Create(1, {{6020, "A name"}}));
    EXPECT_EQ(Load(1, document)->Name, "");
}

TEST(ShellMapProjectionXml, TransverseMercatorSurvivesADocument) {
    auto const shell = Create(1, {{102007, "16001"}, {102008, "1"}});
    auto const loaded = CreateFrom(Saved(*shell));
    ASSERT_NE(loaded, nullptr);
    EXPECT_TRUE(*loaded == *shell);
    EXPECT_TRUE(*CoreOf(*loaded) == *CoreOf(*shell));
}

} // namespace
