#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "hostkit/XmlIni.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* XmlMessage =
    "TShellGeodeticReferenceSystem::TShellGeodeticReferenceSystem(TKvXIniReader *xml)";

std::string XmlOf(TShellReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(system.SaveToXML(&writer));
    return writer.ToString();
}

std::unique_ptr<TShellReferenceSystem> Read(std::string const& document) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);
    return std::unique_ptr<TShellReferenceSystem>(CreateShellReferenceSystem(&reader, nullptr));
}

std::string ThrownText(std::string const& document) {
    try {
        Read(document);
        return "nothing thrown";
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
}

/** The document with everything from `from` to the end of `to` cut out. */
std::string Without(std::string document, std::string const& from, std::string const& to) {
    auto const begin = document.find(from);
    auto const end = document.find(to, begin);
    EXPECT_NE(begin, std::string::npos) << from;
    EXPECT_NE(end, std::string::npos) << to;
    return document.erase(begin, end + to.size() - begin);
}

TEST(ReferenceSystemXml, AGeodeticSystemSurvives) {
    auto const system = Create(Pulkovo1942());
    system->AxisName[0] = "B";
    system->AxisName[1] = "L";
    system->AxisName[2] = "H";
    system->GeoTIFFCode = "4284";
    system->PanoramaCode = "1";
    system->DatumGeoTIFFCode = "6284";

    auto const read = Read(XmlOf(*system));

    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->Name, "Pulkovo 1942");
    EXPECT_EQ(read->AxisName[0], "B");
    EXPECT_EQ(read->AxisName[1], "L");
    EXPECT_EQ(read->AxisName[2], "H");
    EXPECT_EQ(read->GeoTIFFCode, "4284");
    EXPECT_EQ(read->GeoTIFFType, "2");
    EXPECT_EQ(read->PanoramaCode, "1");
    EXPECT_EQ(read->DatumName, "Test datum");
    EXPECT_EQ(read->DatumGeoTIFFCode, "6284");
    EXPECT_TRUE(*read ^= *system);
    EXPECT_TRUE(*read == *system);
}

TEST(ReferenceSystemXml, WritesTheKeysInTheirOrder) {
    auto const system = Create(Pulkovo1942());
    system->Description = "d";
    system->Abbreviation = "a";
    system->AxisName[0] = "1";
    system->AxisName[1] = "2";
    system->AxisName[2] = "3";
    system->GeoTIFFCode = "4";
    system->PanoramaCode = "5";
    system->DatumGeoTIFFCode = "6";
    std::string const document = XmlOf(*system);
    std::size_t position = 0;
    for (char const* const key : {"<RefSystemType>",
                                  "<RefSystemName>",
                                  "<RefSystemDescription>",
                                  "<RefSystemAbbreviation>",
                                  "<RefSystemAxisName1>",
                                  "<RefSystemAxisName2>",
                                  "<RefSystemAxisName3>",
                                  "<RefSystemGeoTIFFCode>",
                                  "<RefSystemGeoTIFFType>",
                                  "<RefSystemPanoramaCode>",
                                  "<RefSystemDatum>",
                                  "<RefSystemDatumName>",
                                  "<RefSystemDatumGeoTIFFCode>",
                                  "<RefSystemEllipsoid>",
                                  "<RefSystemDatumShift>",
                                  "</RefSystemDatum>",
                                  "<RefSystemPrimeMeridian>",
                                  "<RefSystemTransform",
                                  "<RefSystemPositiveLongitude>",
                                  "<RefSystemAngularUnit>",
                                  "<RefSystemVertical>"}) {
        std::size_t const found = document.find(key);
        EXPECT_NE(found, std::string::npos) << key;
        EXPECT_GT(found, position) << key;
        position = found;
    }
}

TEST(ReferenceSystemXml, AnEllipsoidWithoutADatumStandsAtTheTopLevel) {
    auto const system = Create(TGeodeticText());
    std::string const document = XmlOf(*system);

    auto const read = Read(document);

    EXPECT_EQ(document.find("RefSystemDatum"), std::string::npos);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->DatumShift, nullptr);
    EXPECT_TRUE(*read == *system);
}

TEST(ReferenceSystemXml, CarriesNoChainsNoProxyAndNoDescription) {
    TStringTree tree;
    FillGeodetic(&tree, WithZeroShift());
    AddPlaneShift(&tree, 0.1, 0.2);
    FillGeodetic(Child(&tree, 1112), Pulkovo1942());
    auto const system = Create(&tree);

    auto const read = Read(XmlOf(*system));

    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->SavedTree, nullptr);
    ASSERT_NE(read->Transform, nullptr);
    EXPECT_EQ(read->Transform->GetFirstTransform(), nullptr);
    EXPECT_FALSE(read->ContainsProxyRefSys());
    EXPECT_TRUE(read->CoreRefSystem->Transforms.TransformList.empty());
}

TEST(ReferenceSystemXml, AnUnknownKindGivesNull) {
    for (char const* const type : {"0", "7", "-1", "x"}) {
        EXPECT_EQ(Read("<Vellari><RefSystemType>" + std::string(type) + "</RefSystemType></Vellari>"),
                  nullptr)
            << type;
    }
    EXPECT_EQ(Read("<Vellari><RefSystemName>n</RefSystemName></Vellari>"), nullptr);
}

TEST(ReferenceSystemXml, EveryRequiredSectionIsMissed) {
    std::string const document = XmlOf(*Create(Pulkovo1942()));
    struct TRow {
        char const* from;
        char const* to;
    };
    for (TRow const& row : {TRow{"<RefSystemDatumShift>", "</RefSystemDatumShift>"},
                            {"<RefSystemEllipsoid>", "</RefSystemEllipsoid>"},
                            {"<RefSystemAngularUnit>", "</RefSystemAngularUnit>"},
                            {"<RefSystemVertical>", "</RefSystemVertical>"},
                            {"<VerticalLinearUnit>", "</VerticalLinearUnit>"},
                            {"<DatumShiftType>", "</DatumShiftType>"}}) {
        EXPECT_EQ(ThrownText(Without(document, row.from, row.to)), XmlMessage) << row.from;
    }
}

TEST(ReferenceSystemXml, ASystemWithoutAnyEllipsoidFails) {
    std::string const document = XmlOf(*Create(TGeodeticText()));

    EXPECT_EQ(ThrownText(Without(document, "<RefSystemEllipsoid>", "</RefSystemEllipsoid>")), XmlMessage);
}

TEST(ReferenceSystemXml, AFailedLoadResetsTheObject) {
    auto const system = Create(Pulkovo1942());
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString("<Vellari><RefSystemType>9</RefSystemType><RefSystemName>n</RefSystemName></Vellari>");

    EXPECT_FALSE(system->LoadFromXML(&reader));
    EXPECT_EQ(system->Name, "");
    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->Ellipsoid, nullptr);
}

TEST(ReferenceSystemXml, AKindOfAnotherNumberDoesNotLoadAsGeodetic) {
    std::string document = XmlOf(*Create(Pulkovo1942()));
    document.replace(document.find("<RefSystemType>4"), 16, "<RefSystemType>3");
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);
    auto const system = Create(WithZeroShift());

    EXPECT_FALSE(system->LoadFromXML(&reader));
}

TEST(ReferenceSystemXml, ReservedSectionsArePassedOver) {
    std::string document = XmlOf(*Create(Pulkovo1942()));
    std::string const reserved = "<RefSystemHeightSystem><Anything>1</Anything></RefSystemHeightSystem>";
    document.insert(document.find("<RefSystemPrimeMeridian>"), reserved);

    EXPECT_NE(Read(document), nullptr);
}

TEST(ReferenceSystemXml, TheGeoTiffTypeOfTheDocumentWins) {
    std::string document = XmlOf(*Create(Pulkovo1942()));
    std::string const cut = Without(document, "<RefSystemGeoTIFFType>", "</RefSystemGeoTIFFType>");

    EXPECT_EQ(Read(document)->GeoTIFFType, "2");
    EXPECT_EQ(Read(cut)->GeoTIFFType, "");
}

TEST(ReferenceSystemXml, TheDescriptionTreeHasAFormOfItsOwn) {
    auto const system = Create(Pulkovo1942());
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->WriteToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    TStringTree tree;
    ASSERT_TRUE(tree.ReadFromXML(&reader, 0, nullptr));

    auto const read = Create(&tree);

    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(*read == *system);
    EXPECT_EQ(tree.header, "saved reference system ");
}

} // namespace
} // namespace KvRefSystem
