#include "tests/shell/projections/ProjectionTestKit.h"

#include <stdexcept>
#include <utility>

namespace {

using namespace ProjectionTestKit;

/** A key of a document and the key of its meaning. */
using TXmlKeys = std::vector<std::pair<std::string, int>>;

/** A class's keys in the order of reading and of writing. */
struct TXmlForm {
    int type;
    TXmlKeys read;
    TXmlKeys written;
};

TXmlForm Same(int type, TXmlKeys const& keys) {
    return {type, keys, keys};
}

TXmlKeys CentreKeys(TXmlKeys const& lengths) {
    TXmlKeys keys = {{"LongitudeOfProjectionCentre", 6108},
                     {"LatitudeOfProjectionCentre", 6107},
                     {"AzimuthOfInitialLine", 6109},
                     {"AngleFromRectifiedToSkewGrid", 6110},
                     {"ScaleFactorOnInitialLine", 6111}};
    keys.insert(keys.end(), lengths.begin(), lengths.end());
    return keys;
}

TXmlForm LambertForm(int type) {
    return {type,
            {{"LatitudeOfFirstStandardParallel", 6114},
             {"LatitudeOfSecondStandardParallel", 6115},
             {"LatitudeOfFalseOrigin", 6116},
             {"LongitudeOfFalseOrigin", 6117},
             {"EastingAtFalseOrigin", 6118},
             {"NorthingAtFalseOrigin", 6119}},
            {{"LatitudeOfFalseOrigin", 6116},
             {"LongitudeOfFalseOrigin", 6117},
             {"LatitudeOfFirstStandardParallel", 6114},
             {"LatitudeOfSecondStandardParallel", 6115},
             {"EastingAtFalseOrigin", 6118},
             {"NorthingAtFalseOrigin", 6119}}};
}

std::vector<TXmlForm> MakeForms() {
    TXmlKeys const latitudeFirst = {{"LatitudeOfNaturalOrigin", 6102},
                                    {"LongitudeOfNatiralOrigin", 6106},
                                    {"FalseEasting", 6104},
                                    {"FalseNorthing", 6105}};
    auto const withScale = [&](int scaleKey) {
        TXmlKeys keys = latitudeFirst;
        keys.insert(keys.begin() + 2, {"ScaleFactorAtNaturalOrigin", scaleKey});
        return keys;
    };
    TXmlKeys const polar = {{"LongitudeOfNatiralOrigin", 6106},
                            {"Pole", PoleKey},
                            {"ScaleFactorAtNaturalOrigin", 6120},
                            {"FalseEasting", 6104},
                            {"FalseNorthing", 6105}};
    return {
        Same(1, {{"LongitudeOfNatiralOrigin", 6101},
                 {"LatitudeOfNaturalOrigin", 6102},
                 {"ScaleFactorAtNaturalOrigin", 6103},
                 {"FalseEasting", 6104},
                 {"FalseNorthing", 6105}}),
        Same(2, CentreKeys({{"EastingAtProjectionCentre", 6112}, {"NorthingAtProjectionCentre", 6113}})),
        Same(3, CentreKeys({{"FalseEasting", 6104}, {"FalseNorthing", 6105}})),
        {4,
         {{"LongitudeOfNatiralOrigin", 6106},
          {"LatitudeOfNaturalOrigin", 6102},
          {"FalseEasting", 6104},
          {"FalseNorthing", 6105}},
         latitudeFirst},
        {5,
         {{"LongitudeOfFalseOrigin", 6101},
          {"LatitudeOfFalseOrigin", 6102},
          {"LatitudeOfFirstStandardParallel", 6114},
          {"LatitudeOfSecondStandardParallel", 6115},
          {"EastingAtFalseOrigin", 6104},
          {"NorthingAtFalseOrigin", 6105}},
         {{"LatitudeOfFalseOrigin", 6102},
          {"LongitudeOfFalseOrigin", 6101},
          {"LatitudeOfFirstStandardParallel", 6114},
          {"LatitudeOfSecondStandardParallel", 6115},
          {"EastingAtFalseOrigin", 6104},
          {"NorthingAtFalseOrigin", 6105}}},
        LambertForm(6),
        Same(7, withScale(6111)),
        Same(8, latitudeFirst),
        Same(9, {{"LatitudeOfFirstStandardParallel", 6114},
                 {"LongitudeOfNatiralOrigin", 6106},
                 {"FalseEasting", 6104},
                 {"FalseNorthing", 6105}}),
        Same(10, withScale(6120)),
        Same(11, withScale(6120)),
        Same(12, {{"LongitudeOfNatiralOrigin", 6106},
                  {"LatitudeOfNaturalOrigin", 6102},
                  {"ScaleFactorAtNaturalOrigin", 6120},
                  {"FalseEasting", 6104},
                  {"FalseNorthing", 6105}}),
        {16,
         {{"latitude_of_projection_centre", 6107},
          {"longitude_of_origin", 6106},
          {"azimuth_of_initial_line", 6109},
          {"latitude_of_pseudo_standard_parallel", 6121},
          {"scale_factor_on_pseudo_standard_parallel", 6122},
          {"FalseEasting", 6104},
          {"FalseNorthing", 6105}},
         {{"LatitudeOfProjectionCentre", 6107},
          {"LongitudeOfOrigin", 6106},
          {"AzimuthOfInitialLine", 6109},
          {"LatitudeOfPseudoStandardParallel", 6121},
          {"ScaleFactorOnPseudoStandardParallel", 6122},
          {"FalseEasting", 6104},
          {"FalseNorthing", 6105}}},
        Same(21, polar),
        Same(22, polar),
        Same(24, latitudeFirst),
        {25,
         {{"LatitudeOfFirstStandardParallel", 6114},
          {"LatitudeOfSecondStandardParallel", 6115},
          {"LatitudeOfOrigin", 6116},
          {"LongitudeOOrigin", 6117},
          {"FalseEasting", 6118},
          {"FalseNorthing", 6119}},
         {{"LatitudeOfOrigin", 6116},
          {"LongitudeOfOrigin", 6117},
          {"LatitudeOfFirstStandardParallel", 6114},
          {"LatitudeOfSecondStandardParallel", 6115},
          {"FalseEasting", 6118},
          {"FalseNorthing", 6119}}},
        Same(26, latitudeFirst),
        LambertForm(1201),
    };
}

std::vector<TXmlForm> const& Forms() {
    static std::vector<TXmlForm> const forms = MakeForms();
    return forms;
}

using TXmlTexts = std::vector<std::pair<std::string, std::string>>;

/** The parameters of a document, the last key first: their order doesn't count. */
TXmlTexts TextsFor(TXmlKeys const& keys) {
    TXmlTexts texts;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        texts.emplace_back(key->first, TextOf(key->second));
    }
    return texts;
}

/** Remembers the keys that were asked for within the section of the parameters; may fail to leave it. */
class TWatchingReader : public MemoryXIni::TReader {
public:
    using TReader::TReader;

    bool LeaveSection(unsigned long handle) override {
        bool const left = TReader::LeaveSection(handle);
        --leavesThatWork;
        return left && leavesThatWork >= 0;
    }

    std::vector<std::string> asked;
    int leavesThatWork = 1000;

protected:
    unsigned long FindItem(char const* key, unsigned long from) override {
        unsigned long const item = TReader::FindItem(key, from);
        if (std::string(key) == "MapProjParameters") {
            asked.clear();
        } else {
            asked.emplace_back(key);
        }
        return item;
    }
};

std::vector<std::string> NamesOf(TXmlKeys const& keys) {
    std::vector<std::string> names;
    for (auto const& [name, meaning] : keys) {
        names.push_back(name);
    }
    return names;
}

/** The section of the parameters that a shell writes, as keys and texts. */
TXmlTexts Written(TShellMapProjection const& shell) {
    MemoryXIni::TNode const root = Saved(shell);
    EXPECT_EQ(Keys(root).back(), "MapProjParameters");
    TXmlTexts texts;
    for (MemoryXIni::TNode const& item : root.children.back().children) {
        texts.emplace_back(item.name, item.text);
    }
    return texts;
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(ParameterisedProjectionsXml, TextsAreReadByTheirKeys) {
    for (TXmlForm const& form : Forms()) {
        SCOPED_TRACE(ClassOf(form.type).name);
        auto const shell = Load(form.type, Document(form.type, TextsFor(form.read)));
        EXPECT_EQ(shell->Type, form.type);
        for (auto const& [name, meaning] : form.read) {
            if (meaning != PoleKey) {
                EXPECT_EQ(MemberOf(*shell, form.type, meaning), TextOf(meaning)) << name;
            }
        }
        if (form.type != 12) {
            EXPECT_TRUE(*shell == *Create(form.type));
        }
        EXPECT_NE(CoreOf(*shell), nullptr);
    }
}

TEST(ParameterisedProjectionsXml, TextsAreReadInTheirOrderAndByNoOtherKeys) {
    for (TXmlForm const& form : Forms()) {
        MemoryXIni::TNode document = Document(form.type, TextsFor(form.read));
        TWatchingReader reader(&document);
        auto const shell = ClassOf(form.type).fromXml(&reader);
        EXPECT_EQ(reader.asked, NamesOf(form.read)) << form.type;
        EXPECT_EQ(reader.Depth(), 0U);
    }
}

TEST(ParameterisedProjectionsXml, TheLongitudeIsReadByItsOddSpellingOnly) {
    for (TXmlForm const& form : Forms()) {
        TXmlTexts texts = TextsFor(form.read);
        int meaning = 0;
        for (auto const& [name, key] : form.read) {
            meaning = name == "LongitudeOfNatiralOrigin" ? key : meaning;
        }
        if (meaning == 0) {
            continue;
        }
        for (auto& [name, text] : texts) {
            if (name == "LongitudeOfNatiralOrigin") {
                name = "LongitudeOfNaturalOrigin";
            }
        }
        auto const shell = Load(form.type, Document(form.type, texts));
        EXPECT_EQ(MemberOf(*shell, form.type, meaning), "") << form.type;
        EXPECT_EQ(CoreOf(*shell), nullptr) << form.type;
    }
}

TEST(ParameterisedProjectionsXml, AMissingKeyIsAnEmptyTextAndNoFailure) {
    for (TXmlForm const& form : Forms()) {
        for (auto const& [missing, meaning] : form.read) {
            if (meaning == PoleKey) {
                continue;
            }
            TXmlTexts texts;
            for (auto const& [name, text] : TextsFor(form.read)) {
                if (name != missing) {
                    texts.emplace_back(name, text);
                }
            }
            auto const shell = Load(form.type, Document(form.type, texts));
            EXPECT_EQ(MemberOf(*shell, form.type, meaning), "") << form.type << missing;
            bool const isUnused = form.type == 12 && meaning == LatitudeKey;
            EXPECT_EQ(CoreOf(*shell) != nullptr, isUnused) << form.type << missing;
        }
    }
}

TEST(ParameterisedProjectionsXml, AMissingSectionThrowsTheTextOfTheClass) {
    for (TXmlForm const& form : Forms()) {
        MemoryXIni::TNode document = Document(form.type, {});
        document.Drop("MapProjParameters");
        EXPECT_EQ(MessageOf([&] { Load(form.type, document); }), ClassOf(form.type).XmlMessage());
    }
}

TEST(ParameterisedProjectionsXml, ASectionThatDoesntCloseThrowsTheTextOfTheClass) {
    for (TXmlForm const& form : Forms()) {
        MemoryXIni::TNode document = Document(form.type, TextsFor(form.read), {nullptr, nullptr, nullptr});
        TWatchingReader reader(&document);
        reader.leavesThatWork = 0;
        EXPECT_EQ(MessageOf([&] { ClassOf(form.type).fromXml(&reader); }), ClassOf(form.type).XmlMessage());
    }
}

TEST(ParameterisedProjectionsXml, ABaseThatDoesntLoadThrowsTheTextOfTheBase) {
    for (TShellClass const& shellClass : AllClasses()) {
        if (!shellClass.fromXml) {
            continue;
        }
        MemoryXIni::TNode document = Document(shellClass.type, {});
        document.Drop("MapProjType");
        EXPECT_EQ(MessageOf([&] { Load(shellClass.type, document); }),
                  "TShellMapProjection::TShellMapProjection(TKvXIniReader *xml)");
    }
}

TEST(ParameterisedProjectionsXml, LoadingAgainReplacesAllTexts) {
    for (TXmlForm const& form : Forms()) {
        auto const shell = Create(form.type);
        MemoryXIni::TNode document = Document(form.type, {{"FalseEasting", "12"}}, plainUnits);
        MemoryXIni::TReader reader(&document);
        EXPECT_TRUE(shell->LoadFromXML(&reader)) << form.type;
        for (int const key : ClassOf(form.type).texts) {
            std::string const text = MemberOf(*shell, form.type, key);
            EXPECT_TRUE(text.empty() || text == "12") << form.type << ' ' << key << ' ' << text;
        }
        EXPECT_EQ(shell->LinearUnit->Name, "metre");
    }
}

TEST(ParameterisedProjectionsXml, LoadingWithoutTheSectionIsFalse) {
    for (TXmlForm const& form : Forms()) {
        auto const shell = Create(form.type);
        MemoryXIni::TNode document = Document(form.type, {});
        document.Drop("MapProjParameters");
        MemoryXIni::TReader reader(&document);
        EXPECT_FALSE(shell->LoadFromXML(&reader)) << form.type;
        EXPECT_EQ(reader.Depth(), 0U);
        EXPECT_FALSE(shell->LoadFromXML(nullptr)) << form.type;
    }
}

// --- Writing -----------------------------------------------------------------------------------------------

TEST(ParameterisedProjectionsXml, TextsAreWrittenInTheOrderOfWriting) {
    for (TXmlForm const& form : Forms()) {
        TXmlTexts expected;
        for (auto const& [name, meaning] : form.written) {
            std::string const text = form.type == 12 && meaning == LatitudeKey ? "" : TextOf(meaning);
            expected.emplace_back(name, meaning == PoleKey ? "North" : text);
        }
        EXPECT_EQ(Written(*Create(form.type)), expected) << form.type;
    }
}

TEST(ParameterisedProjectionsXml, EmptyTextsAreWrittenToo) {
    auto const shell = Create(8, {{6102, ""}, {6106, ""}, {6104, ""}, {6105, ""}});
    EXPECT_EQ(Written(*shell), (TXmlTexts{{"LatitudeOfNaturalOrigin", ""},
                                          {"LongitudeOfNatiralOrigin", ""},
                                          {"FalseEasting", ""},
                                          {"FalseNorthing", ""}}));
}

TEST(ParameterisedProjectionsXml, EveryFailedWriteIsReported) {
    for (TXmlForm const& form : Forms()) {
        SCOPED_TRACE(form.type);
        ExpectEveryFailedWriteIsReported(*Create(form.type, {{102007, "16001"}, {102008, "1"}}));
        EXPECT_FALSE(Create(form.type)->SaveToXML(nullptr));
    }
}

TEST(ParameterisedProjectionsXml, WhatIsWrittenIsReadBackWhereTheKeysAgree) {
    for (TXmlForm const& form : Forms()) {
        if (form.type == 16 || form.type == 25) {
            continue;
        }
        auto const shell = Create(form.type, {{102007, "16001"}, {102008, "1"}});
        EXPECT_TRUE(*Load(form.type, Saved(*shell)) == *shell) << form.type;
    }
}

TEST(PolarStereographicShell, LatitudeComesThroughXml) {
    auto const shell = Load(12, Document(12, {{"LatitudeOfNaturalOrigin", "80"}}));
    EXPECT_EQ(MemberOf(*Load(12, Saved(*shell)), 12, LatitudeKey), "80");
    // It counts in the comparison.
    EXPECT_FALSE(*shell == *Load(12, Document(12, {{"LatitudeOfNaturalOrigin", "80.0"}})));
}

// --- What doesn't come back --------------------------------------------------------------------------------

TEST(EquidistantConicShell, XmlLosesTheLongitudeOfOrigin) {
    auto const shell = Create(25);
    auto const loaded = Load(25, Saved(*shell));
    EXPECT_EQ(MemberOf(*loaded, 25, 6117), "");
    for (int const key : {6114, 6115, 6116, 6118, 6119}) {
        EXPECT_EQ(MemberOf(*loaded, 25, key), TextOf(key));
    }
    EXPECT_NE(CoreOf(*shell), nullptr);
    EXPECT_EQ(CoreOf(*loaded), nullptr);
}

TEST(KrovakShell, XmlLosesTheAnglesAndTheScale) {
    auto const loaded = Load(16, Saved(*Create(16)));
    for (int const key : {6107, 6106, 6109, 6121, 6122}) {
        EXPECT_EQ(MemberOf(*loaded, 16, key), "") << key;
    }
    EXPECT_EQ(MemberOf(*loaded, 16, 6104), TextOf(6104));
    EXPECT_EQ(MemberOf(*loaded, 16, 6105), TextOf(6105));
    EXPECT_EQ(CoreOf(*loaded), nullptr);
}

TEST(ParameterisedProjectionsXml, FourClassesHaveNoParametersInXml) {
    for (int const type : {13, 14, 17, 1313}) {
        SCOPED_TRACE(type);
        auto const shell = Create(type, {{102007, "16001"}, {102008, "1"}});
        MemoryXIni::TNode document = Saved(*shell);
        EXPECT_EQ(Keys(document), (std::vector<std::string>{
                                      "MapProjType", "MapProjParamLinearUnit", "MapProjParamAngularUnit",
                                      "MapProjParamScaleUnit", "MapProjGeoTIFFCode", "MapProjGeoTIFFType"}));
        MemoryXIni::TReader reader(&document);
        EXPECT_TRUE(shell->LoadFromXML(&reader));
        EXPECT_EQ(shell->Type, type);
        EXPECT_EQ(shell->GeoTIFFCode, "16001");
        for (int const key : ClassOf(type).texts) {
            EXPECT_EQ(MemberOf(*shell, type, key), "") << key;
        }
        EXPECT_EQ(CoreOf(*shell), nullptr);
    }
}

TEST(PolarStereographicFalseOriginShell, XmlAlwaysFails) {
    auto const shell = Create(23);
    MemoryXIni::TNode root;
    MemoryXIni::TWriter writer(&root);
    EXPECT_FALSE(shell->SaveToXML(&writer));
    EXPECT_TRUE(root.children.empty());

    MemoryXIni::TNode document = Document(23, {{"LongitudeOfNatiralOrigin", "1"},
                                               {"Pole", "North"},
                                               {"LatitudeOfFirstStandardParallel", "70"},
                                               {"FalseEasting", "0"},
                                               {"FalseNorthing", "0"}});
    MemoryXIni::TReader reader(&document);
    EXPECT_FALSE(shell->LoadFromXML(&reader));
    EXPECT_EQ(reader.operations, 0U);
    EXPECT_TRUE(*shell == *Create(23));
    EXPECT_EQ(MessageOf([&] { Load(23, document); }), ClassOf(23).XmlMessage());
}

// --- The pole ----------------------------------------------------------------------------------------------

/** A document of a polar class with everything, and that text of the pole. */
MemoryXIni::TNode PolarDocument(int type, std::string const& pole) {
    return Document(type, {{"LongitudeOfNatiralOrigin", "30"},
                           {"Pole", pole},
                           {"ScaleFactorAtNaturalOrigin", "994000"},
                           {"FalseEasting", "0"},
                           {"FalseNorthing", "0"}});
}

TEST(PolarShells, XmlKnowsThePoleInAnyCase) {
    for (int const type : {21, 22}) {
        for (char const* const text : {"N", "n", "North", "nORTH", "nobody"}) {
            EXPECT_EQ(PoleOf(*Load(type, PolarDocument(type, text))), poleNorth) << text;
        }
        for (char const* const text : {"S", "s", "South", "SOUTH", "sn"}) {
            EXPECT_EQ(PoleOf(*Load(type, PolarDocument(type, text))), poleSouth) << text;
        }
    }
}

TEST(PolarShells, AnotherPoleInXmlThrowsTheTextOfTheClass) {
    for (int const type : {21, 22}) {
        for (char const* const text : {"x", " N", "1", "-"}) {
            EXPECT_EQ(MessageOf([&] { Load(type, PolarDocument(type, text)); }), ClassOf(type).XmlMessage())
                << text;
            auto const shell = Create(type);
            MemoryXIni::TNode document = PolarDocument(type, text);
            MemoryXIni::TReader reader(&document);
            EXPECT_FALSE(shell->LoadFromXML(&reader)) << text;
            EXPECT_EQ(reader.Depth(), 0U);
        }
    }
}

TEST(PolarShells, AnEmptyPoleInXmlLeavesThePoleAsItIs) {
    for (int const type : {21, 22}) {
        for (char const* const pole : {"N", "S"}) {
            auto const shell = Create(type, {{PoleKey, pole}});
            MemoryXIni::TNode document = PolarDocument(type, "");
            MemoryXIni::TReader reader(&document);
            EXPECT_TRUE(shell->LoadFromXML(&reader));
            EXPECT_EQ(PoleOf(*shell), std::string(pole) == "N" ? poleNorth : poleSouth);
            EXPECT_EQ(MemberOf(*shell, type, 6106), "30");
        }
        MemoryXIni::TNode without = PolarDocument(type, "");
        without.Find("MapProjParameters").Drop("Pole");
        EXPECT_EQ(PoleOf(*Load(type, without)), TPole(0));
    }
}

TEST(PolarShells, ResetLeavesThePole) {
    for (int const type : {21, 22, 23}) {
        auto const shell = Create(type, {{PoleKey, "S"}});
        shell->Reset();
        EXPECT_EQ(PoleOf(*shell), poleSouth) << type;
    }
}

TEST(PolarShells, ThePoleIsWrittenAsAWord) {
    for (int const type : {21, 22}) {
        EXPECT_EQ(Written(*Create(type, {{PoleKey, "N"}}))[1],
                  std::pair(std::string("Pole"), std::string("North")));
        EXPECT_EQ(Written(*Create(type, {{PoleKey, "S"}}))[1],
                  std::pair(std::string("Pole"), std::string("South")));
    }
}

TEST(PolarShells, SavingAPoleOfNeitherValueIsALogicError) {
    for (int const type : {21, 22}) {
        auto const shell = Load(type, PolarDocument(type, ""));
        MemoryXIni::TNode root;
        MemoryXIni::TWriter writer(&root);
        EXPECT_EQ(Thrown<std::logic_error>([&] { shell->SaveToXML(&writer); }),
                  "bool " + ClassOf(type).name + "::SaveToXML(TKvXIniWriter *XML_writer) const");
        // The section was closed on the way.
        EXPECT_EQ(writer.Depth(), 0U);
    }
}

} // namespace
