#include "core/refsystems/GeodeticReferenceSystem.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

constexpr char const* XmlMessage =
    "TShellMapProjectedReferenceSystem::TShellMapProjectedReferenceSystem(TKvXIniReader *xml)";

TProjectedText Mercator() {
    return On(Pulkovo1942(), TransverseMercator("9", "0.9996", "500000"));
}

std::string ThrownBy(std::string const& document) {
    return ThrownText([&] { ProjectedFromXml(document); });
}

/** The document with the value of the last element of a name replaced: that of the system itself. */
std::string WithValue(std::string document, std::string const& key, std::string const& value) {
    auto const begin = document.rfind("<" + key + ">") + key.size() + 2;
    auto const end = document.find("</" + key + ">", begin);
    return document.replace(begin, end - begin, value);
}

TEST(MapProjectedXml, ATransverseMercatorSystemSurvives) {
    TProjectedText text = Placed(Mercator(), 1, -1, 2);
    text.linearUnit = Foot();
    text.base.heightUnit = Foot();
    auto const system = Projected(text);
    system->AxisName[0] = "N";
    system->PanoramaCode = "80011001";
    system->GeoTIFFCode = "32632";

    auto const read = ProjectedFromXml(XmlOf(*system));

    EXPECT_EQ(read->Type, rstMapProjected);
    EXPECT_EQ(read->Name, "Test projection");
    EXPECT_EQ(read->AxisName[0], "N");
    EXPECT_EQ(read->GeoTIFFCode, "32632");
    EXPECT_EQ(read->GeoTIFFType, "1");
    EXPECT_EQ(read->GetPanoramaName(), "PZ-90.11 Zone 1");
    EXPECT_TRUE(read->FlipAxes);
    EXPECT_EQ(read->FirstAxisSign, -1);
    EXPECT_EQ(read->SecondAxisSign, 2);
    EXPECT_EQ(read->BaseGeodetic->DatumName, "Test datum");
    EXPECT_EQ(read->BaseGeodeticCore, read->BaseGeodetic->CoreRefSystem);
    EXPECT_EQ(read->LinearUnit->Name, "foot");
    EXPECT_TRUE(*read == *system);
    EXPECT_TRUE(*read ^= *system);
}

TEST(MapProjectedXml, TheNameOfTheProjectionIsNotCarried) {
    auto const read = ProjectedFromXml(XmlOf(*Projected(Mercator())));

    EXPECT_EQ(read->GetMapProjectionName(), "");
}

TEST(MapProjectedXml, ThePublicFactoryReadsIt) {
    auto const system = Projected(Mercator());
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*system));

    std::unique_ptr<TShellReferenceSystem> const read(CreateShellReferenceSystem(&reader, nullptr));

    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(*read == *system);
}

TEST(MapProjectedXml, ASystemFromXmlHasAnEmptyChainAndNoDescription) {
    TStringTree tree;
    FillProjected(&tree, Mercator());
    AddPlaneShift(&tree, 10, 20);
    auto const system = Create(&tree);

    auto const read = ProjectedFromXml(XmlOf(*system));

    EXPECT_EQ(read->SavedTree, nullptr);
    ASSERT_NE(read->Transform, nullptr);
    EXPECT_EQ(read->Transform->GetFirstTransform(), nullptr);
    EXPECT_TRUE(read->PairwiseTransforms.empty());
    EXPECT_TRUE(read->CoreRefSystem->Transforms.TransformList.empty());
    ASSERT_NE(read->BaseGeodetic->Transform, nullptr);
}

TEST(MapProjectedXml, ASystemFromXmlTransforms) {
    auto const system = Projected(Mercator());
    auto const read = ProjectedFromXml(XmlOf(*system));
    auto const geodetic = Create(WithZeroShift());
    double expected[3] = {};
    double actual[3] = {};

    ASSERT_TRUE(
        TransformCoords(geodetic.get(), 50, 10, 100, system.get(), &expected[0], &expected[1], &expected[2]));
    ASSERT_TRUE(TransformCoords(geodetic.get(), 50, 10, 100, read.get(), &actual[0], &actual[1], &actual[2]));

    EXPECT_EQ(actual[0], expected[0]);
    EXPECT_EQ(actual[1], expected[1]);
    EXPECT_EQ(actual[2], expected[2]);
}

TEST(MapProjectedXml, OtherProjectionsAreWrittenButNotReadAgain) {
    for (int const type : AllProjectionTypes) {
        if (type == 1 || type == 23) {
            continue;
        }
        EXPECT_EQ(ThrownBy(XmlOf(*Projected(OfType(type)))), XmlMessage) << type;
    }
}

TEST(MapProjectedXml, APolarProjectionByAFalseOriginIsNotEvenWritten) {
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(Projected(OfType(23))->SaveToXML(&writer));
}

TEST(MapProjectedXml, PlacementHasDefaults) {
    std::string document = XmlOf(*Projected(Placed(Mercator(), 1, -1, -1)));
    for (char const* const key : {"RefSystemFlipAxes", "RefSystemFirstAxisSign", "RefSystemSecondAxisSign"}) {
        document = Without(document, "<" + std::string(key) + ">", "</" + std::string(key) + ">");
    }

    auto const read = ProjectedFromXml(document);

    EXPECT_FALSE(read->FlipAxes);
    EXPECT_EQ(read->FirstAxisSign, 1);
    EXPECT_EQ(read->SecondAxisSign, 1);
}

TEST(MapProjectedXml, EverySectionIsRequired) {
    std::string const document = XmlOf(*Projected(Mercator()));
    for (char const* const key : {"RefSystemBaseGeodetic", "RefSystemMapProjection", "RefSystemLinearUnit"}) {
        EXPECT_EQ(ThrownBy(Without(document, "<" + std::string(key) + ">", "</" + std::string(key) + ">")),
                  XmlMessage)
            << key;
    }
}

TEST(MapProjectedXml, EverySectionMustBeWhole) {
    std::string const document = XmlOf(*Projected(Mercator()));
    struct TRow {
        char const* from;
        char const* to;
    };
    for (TRow const& row : {TRow{"<RefSystemAngularUnit>", "</RefSystemAngularUnit>"},
                            {"<RefSystemVertical>", "</RefSystemVertical>"},
                            {"<MapProjType>", "</MapProjType>"},
                            {"<MapProjParameters>", "</MapProjParameters>"}}) {
        EXPECT_EQ(ThrownBy(Without(document, row.from, row.to)), XmlMessage) << row.from;
    }
}

TEST(MapProjectedXml, AProjectionWithoutACoreFormFailsInTheSameWords) {
    std::string const document = XmlOf(*Projected(Mercator()));

    // An absent parameter is read as an empty one, which has no value.
    EXPECT_EQ(ThrownBy(Without(document, "<FalseNorthing>", "</FalseNorthing>")), XmlMessage);
    EXPECT_EQ(ThrownBy(WithValue(document, "FalseNorthing", "x")), XmlMessage);
    EXPECT_EQ(ThrownBy(Without(document, "<MapProjParamScaleUnit>", "</MapProjParamScaleUnit>")), XmlMessage);
}

TEST(MapProjectedXml, AnotherKindDoesNotLoadAsMapProjected) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*Create(Pulkovo1942())));
    auto const system = Projected(Mercator());

    EXPECT_FALSE(system->LoadFromXML(&reader));
    EXPECT_EQ(ThrownBy(XmlOf(*Create(Pulkovo1942()))), XmlMessage);
}

TEST(MapProjectedXml, AFailedLoadLeavesAnEmptyObject) {
    std::string const document = XmlOf(*Projected(Mercator()));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(Without(document, "<RefSystemBaseGeodetic>", "</RefSystemBaseGeodetic>"));
    auto const system = Projected(Mercator());

    EXPECT_FALSE(system->LoadFromXML(&reader));

    EXPECT_EQ(system->CoreRefSystem, nullptr);
    EXPECT_EQ(system->BaseGeodetic, nullptr);
}

TEST(MapProjectedXml, ALiveObjectLoadsWithoutACore) {
    // Reading fills the members; the core is the constructor's.
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(XmlOf(*Projected(Placed(Mercator(), 1, 1, -1))));
    auto const system = Projected(UtmZone(31, 'N'));

    EXPECT_TRUE(system->LoadFromXML(&reader));

    EXPECT_TRUE(system->FlipAxes);
    EXPECT_EQ(system->SecondAxisSign, -1);
    EXPECT_NE(system->MapProjection, nullptr);
    EXPECT_EQ(system->CoreRefSystem, nullptr);
}

TEST(MapProjectedXml, WritesTheKeysInTheirOrder) {
    std::string const document = XmlOf(*Projected(Mercator()));
    std::size_t position = 0;
    for (char const* const key :
         {"<RefSystemType>5", "<RefSystemName>", "<RefSystemTransform", "<RefSystemBaseGeodetic>",
          "</RefSystemBaseGeodetic>", "<RefSystemMapProjection>", "<MapProjType>",
          "</RefSystemMapProjection>", "<RefSystemFlipAxes>", "<RefSystemFirstAxisSign>",
          "<RefSystemSecondAxisSign>", "<RefSystemLinearUnit>"}) {
        std::size_t const found = document.find(key, position);
        ASSERT_NE(found, std::string::npos) << key;
        position = found;
    }
}

TEST(MapProjectedXml, ReadsUnitProjectionAndBaseInThisOrder) {
    /** Notes which of the three sections are asked for. */
    class TNotingReader : public VellariHostKit::TXmlIniReader {
    public:
        std::vector<std::string> asked;

    protected:
        unsigned long FindItem(char const* key, unsigned long from) override {
            std::string const name = key;
            bool const noted = name == "RefSystemLinearUnit" || name == "RefSystemMapProjection" ||
                               name == "RefSystemBaseGeodetic" || name == "RefSystemFlipAxes" ||
                               name == "RefSystemFirstAxisSign" || name == "RefSystemSecondAxisSign";
            if (noted && std::find(asked.begin(), asked.end(), name) == asked.end()) {
                asked.push_back(name);
            }
            return TXmlIniReader::FindItem(key, from);
        }
    };

    TNotingReader reader;
    reader.LoadString(XmlOf(*Projected(Mercator())));
    TProjectedSystem const system(&reader, nullptr);

    EXPECT_EQ(reader.asked, (std::vector<std::string>{"RefSystemLinearUnit", "RefSystemMapProjection",
                                                      "RefSystemBaseGeodetic", "RefSystemFlipAxes",
                                                      "RefSystemFirstAxisSign", "RefSystemSecondAxisSign"}));
}

TEST(MapProjectedXml, AFailingWriterIsNoticedAtEveryWrite) {
    auto const system = Projected(Mercator());

    /** Fails at one write, and counts. */
    class TFailingWriter : public VellariHostKit::TXmlIniWriter {
    public:
        explicit TFailingWriter(int failing) : remaining(failing) {}
        int remaining;

    protected:
        bool WriteText(std::string const& key, std::string const& text) override {
            return remaining-- != 0 && TXmlIniWriter::WriteText(key, text);
        }
    };

    TFailingWriter counter(-1);
    ASSERT_TRUE(system->SaveToXML(&counter));
    int const writes = -1 - counter.remaining;
    ASSERT_GT(writes, 60);
    for (int failing = 0; failing < writes; ++failing) {
        TFailingWriter writer(failing);
        EXPECT_FALSE(system->SaveToXML(&writer)) << failing;
    }
}

TEST(MapProjectedXml, AnEmptiedObjectIsNotWritten) {
    auto const system = Projected(Mercator());
    system->Reset();
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(system->SaveToXML(&writer));
}

} // namespace
} // namespace KvRefSystem
