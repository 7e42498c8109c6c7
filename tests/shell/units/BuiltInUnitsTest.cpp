#include "shell/units/BuiltInUnits.h"

#include "UnitFixtures.h"

#include "frame/imported/ModuleHooks.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

using namespace KvRefSystem;
using namespace KvRefSystem::UnitTests;

namespace {

/** A host's texts; without them every key is unknown. */
bool hostHasTexts = true;

std::map<std::string, std::string> const& HostTexts() {
    static std::map<std::string, std::string> const texts = {
        {"global.UNIT_NAME_METRE", "host's metre"},
        {"global.UNIT_ABBR_METRE", "host's m"},
        {"global.UNIT_NAME_DEGREE", "host's degree"},
        {"global.UNIT_ABBR_DEGREE", "host's deg"},
    };
    return texts;
}

/** Takes the texts away until the end of a test. */
class TWithoutTexts {
public:
    TWithoutTexts() { hostHasTexts = false; }
    TWithoutTexts(TWithoutTexts const&) = delete;
    TWithoutTexts& operator=(TWithoutTexts const&) = delete;
    ~TWithoutTexts() { hostHasTexts = true; }
};

struct TWrittenField {
    int tag;
    std::string header;
    std::string value;

    bool operator==(TWrittenField const&) const = default;
};

std::vector<TWrittenField> FieldsOf(TStringTree const& tree) {
    std::vector<TWrittenField> written;
    for (unsigned long index = 0; index < tree.fields.Size(); ++index) {
        auto const* const field = tree.fields[index];
        EXPECT_EQ(field->idx, 0);
        EXPECT_EQ(field->count, 1u);
        written.push_back({field->tag, field->header, field->values[0]});
    }
    EXPECT_EQ(tree.subtrees.Size(), 0u);
    return written;
}

} // namespace

/** The test program is a host with a resource store of its own, which takes the place of the kit's. */
bool LoadResString(std::string const& module, std::string const& key, std::string const** text) {
    auto const found = HostTexts().find(key);
    if (!hostHasTexts || module != "Vellari" || found == HostTexts().end()) {
        return false;
    }
    *text = &found->second;
    return true;
}

TEST(BuiltInUnits, MetreHasItsFieldsInOrder) {
    TStringTree tree;
    EXPECT_TRUE(FillMeterTree(&tree));
    EXPECT_EQ(FieldsOf(tree), (std::vector<TWrittenField>{{5301, "code", "0"},
                                                          {5312, "type", "1"},
                                                          {5310, "f_b", "1"},
                                                          {5311, "f_c", "1"},
                                                          {5320, "name", "host's metre"},
                                                          {5321, "abbr", "host's m"},
                                                          {5322, "desc", ""},
                                                          {102002, "epsg", "9001"}}));
}

TEST(BuiltInUnits, RadianIsTheLetterPWithoutAGeoTIFFCode) {
    TStringTree tree;
    EXPECT_TRUE(FillRadianTree(&tree));
    EXPECT_EQ(FieldsOf(tree), (std::vector<TWrittenField>{{5301, "code", "0"},
                                                          {5312, "type", "2"},
                                                          {5310, "f_b", "1"},
                                                          {5311, "f_c", "1"},
                                                          {5320, "name", "p"},
                                                          {5321, "abbr", "p"},
                                                          {5322, "desc", ""}}));
}

TEST(BuiltInUnits, DegreeHasItsFieldsInOrder) {
    TStringTree tree;
    EXPECT_TRUE(FillDegreeTree(&tree));
    EXPECT_EQ(FieldsOf(tree), (std::vector<TWrittenField>{{5301, "code", "0"},
                                                          {5312, "type", "2"},
                                                          {5310, "f_b", "3.14159265358979312"},
                                                          {5311, "f_c", "180"},
                                                          {5320, "name", "host's degree"},
                                                          {5321, "abbr", "host's deg"},
                                                          {5322, "desc", ""},
                                                          {102003, "epsg", "9102"}}));
}

TEST(BuiltInUnits, UnknownTextsGiveEmptyNamesAndNoFailure) {
    TWithoutTexts const without;
    TStringTree metre;
    EXPECT_TRUE(FillMeterTree(&metre));
    TShellLinearUnit const metreUnit(&metre);
    EXPECT_EQ(metreUnit.Name, "");
    EXPECT_EQ(metreUnit.Abbreviation, "");
    TStringTree degree;
    EXPECT_TRUE(FillDegreeTree(&degree));
    TShellAngularUnit const degreeUnit(&degree);
    EXPECT_EQ(degreeUnit.Name, "");
    EXPECT_EQ(degreeUnit.Abbreviation, "");
}

TEST(BuiltInUnits, MetreReadsAsALinearUnit) {
    TStringTree tree;
    ASSERT_TRUE(FillMeterTree(&tree));
    TShellLinearUnit const unit(&tree);
    EXPECT_EQ(unit.Code, 0);
    EXPECT_EQ(unit.Type, utLinear);
    EXPECT_EQ(unit.CoefToBase, 1.0);
    EXPECT_EQ(unit.CoefFromBase, 1.0);
    EXPECT_EQ(unit.Precision, 3);
    EXPECT_EQ(unit.GeoTIFFCode, 9001);
    EXPECT_EQ(unit.MIFMIDCode, -1);
    EXPECT_EQ(unit.Name, "host's metre");
    EXPECT_EQ(unit.Description, "");
}

TEST(BuiltInUnits, DegreeReadsAsAPlainAngularUnit) {
    TStringTree tree;
    ASSERT_TRUE(FillDegreeTree(&tree));
    std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&tree));
    ASSERT_TRUE(unit);
    TShellAngularUnit const& read = *unit;
    EXPECT_EQ(typeid(read), typeid(TShellAngularUnit));
    EXPECT_EQ(unit->Code, 0);
    EXPECT_EQ(unit->CoefToBase, 0.017453292519943295);
    EXPECT_EQ(unit->CoefFromBase, 57.29577951308232);
    EXPECT_EQ(unit->Precision, 9);
    EXPECT_EQ(unit->GeoTIFFCode, 9102);
    EXPECT_EQ(unit->Abbreviation, "host's deg");
}

TEST(BuiltInUnits, RadianReadsAsAPlainAngularUnit) {
    TStringTree tree;
    ASSERT_TRUE(FillRadianTree(&tree));
    std::unique_ptr<TShellAngularUnit> const unit(CreateShellAngularUnit(&tree));
    ASSERT_TRUE(unit);
    EXPECT_EQ(unit->CoefToBase, 1.0);
    EXPECT_EQ(unit->Precision, 10);
    EXPECT_EQ(unit->GeoTIFFCode, 0);
    EXPECT_EQ(unit->Name, "p");
}

TEST(BuiltInUnits, SecondFillIsFalseAndChangesNothing) {
    for (auto* const fill : {&FillMeterTree, &FillRadianTree, &FillDegreeTree}) {
        TStringTree tree;
        ASSERT_TRUE(fill(&tree));
        auto const before = FieldsOf(tree);
        EXPECT_FALSE(fill(&tree));
        EXPECT_FALSE(FillMeterTree(&tree));
        EXPECT_FALSE(FillRadianTree(&tree));
        EXPECT_FALSE(FillDegreeTree(&tree));
        EXPECT_EQ(FieldsOf(tree), before);
    }
}

TEST(BuiltInUnits, TakenCodeAddsNothing) {
    TStringTree tree;
    tree.InsertString("mine", 5301, 0, "5");
    EXPECT_FALSE(FillMeterTree(&tree));
    EXPECT_EQ(FieldsOf(tree), (std::vector<TWrittenField>{{5301, "mine", "5"}}));
}

TEST(BuiltInUnits, FieldsBeforeATakenTagStay) {
    TStringTree tree;
    tree.InsertString("mine", 5311, 0, "5");
    EXPECT_FALSE(FillDegreeTree(&tree));
    EXPECT_EQ(FieldsOf(tree), (std::vector<TWrittenField>{{5311, "mine", "5"},
                                                          {5301, "code", "0"},
                                                          {5312, "type", "2"},
                                                          {5310, "f_b", "3.14159265358979312"}}));
    TStringTree last;
    last.InsertString("mine", 102002, 0, "5");
    EXPECT_FALSE(FillMeterTree(&last));
    EXPECT_EQ(FieldsOf(last).size(), 8u);
}

TEST(BuiltInUnits, NoTreeIsAFailure) {
    EXPECT_FALSE(FillMeterTree(nullptr));
    EXPECT_FALSE(FillRadianTree(nullptr));
    EXPECT_FALSE(FillDegreeTree(nullptr));
}
