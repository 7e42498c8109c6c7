#include "Failure.h"

#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace LumCommonUtils;
using VellariHostKit::TXmlIniReader;
using VellariHostKit::TXmlIniWriter;

namespace {

/** A writer that keeps the texts of its values, and refuses what it is told to refuse. */
class RecordingWriter : public TKvXIniWriter {
public:
    std::vector<std::string> values;
    bool accepts = true;

    unsigned long BeginSection(std::string const&) override { return accepts ? 1 : 0; }
    bool EndSection(unsigned long) override { return true; }
    void EndSectionE(unsigned long) override {}
    void SetAttributeMode(bool) override {}
    void RaiseError() override { throw std::runtime_error("refused"); }

protected:
    bool WriteText(std::string const& key, std::string const& text) override {
        values.push_back(key + "=" + text);
        return accepts;
    }
    unsigned long BeginSectionCompact(std::string const&) override { return accepts ? 2 : 0; }
};

/** A reader of one section with these value texts under the keys k. */
class ListReader : public TKvXIniReader {
public:
    std::vector<std::string> texts;

    explicit ListReader(std::vector<std::string> values) : texts(std::move(values)) {}
    unsigned long ItemCount() override { return texts.size(); }
    bool IsSection(unsigned long) override { return false; }
    unsigned long EnterSection(unsigned long) override { return 0; }
    bool LeaveSection(unsigned long) override { return false; }
    unsigned long EnterSectionE(unsigned long) override { throw std::runtime_error("no section"); }
    void LeaveSectionE(unsigned long) override {}

protected:
    unsigned long FindItem(char const* key, unsigned long from) override {
        return std::string(key) == "k" && from < texts.size() ? from : NotFound;
    }
    bool ReadText(unsigned long item, std::string* text) override {
        if (item >= texts.size()) {
            return false;
        }
        *text = texts[item];
        return true;
    }
};

} // namespace

TEST(XIniWriter, WritesValuesAsTexts) {
    RecordingWriter writer;
    EXPECT_TRUE(writer.WriteS<int>("i", -2147483647 - 1));
    EXPECT_TRUE(writer.WriteS<bool>("b", true));
    EXPECT_TRUE(writer.WriteS<bool>("b", false));
    EXPECT_TRUE(writer.WriteS<double>("d", 0.1));
    EXPECT_TRUE(writer.WriteS<double>("d", 1.0 / 3.0));
    EXPECT_TRUE(writer.WriteS<double>("d", -0.0));
    EXPECT_TRUE(writer.WriteS<double>("d", 6378137.0));
    EXPECT_TRUE(writer.WriteS<std::string>("", "a b"));
    // 1/3 needs 16 digits.
    EXPECT_EQ(writer.values, (std::vector<std::string>{"i=-2147483648", "b=true", "b=false", "d=0.1",
                                                       "d=0.3333333333333333", "d=-0", "d=6378137", "=a b"}));
}

TEST(XIniWriter, ReportsAFailedWrite) {
    RecordingWriter writer;
    writer.accepts = false;
    EXPECT_FALSE(writer.WriteS<int>("i", 1));
    EXPECT_EQ(FailureOf([&] { writer.BeginSectionSE("s"); }), "the section \"s\" can't be opened");
    EXPECT_EQ(FailureOf([&] { writer.BeginSectionCompactSE("s"); }),
              "the compact section \"s\" can't be opened");
}

TEST(XIniHelpers, WriteOnlyWhenTheirConditionHoldsAndAreTrueWhenTheySkip) {
    RecordingWriter writer;
    EXPECT_TRUE(WriteNonZeroInt(&writer, "k", 0));
    EXPECT_TRUE(WriteNonNegativeInt(&writer, "k", -1));
    EXPECT_TRUE(WriteNotEmptyString(&writer, "k", ""));
    EXPECT_TRUE(writer.values.empty());
    EXPECT_TRUE(WriteNonZeroInt(&writer, "k", -3));
    EXPECT_TRUE(WriteNonNegativeInt(&writer, "k", 0));
    EXPECT_TRUE(WriteNotEmptyString(&writer, "k", " "));
    EXPECT_EQ(writer.values, (std::vector<std::string>{"k=-3", "k=0", "k= "}));
}

TEST(XIniHelpers, GiveWhatTheWriterGave) {
    RecordingWriter writer;
    writer.accepts = false;
    EXPECT_FALSE(WriteNonZeroInt(&writer, "k", 1));
    EXPECT_FALSE(WriteNonNegativeInt(&writer, "k", 0));
    EXPECT_FALSE(WriteNotEmptyString(&writer, "k", "x"));
    EXPECT_TRUE(WriteNonZeroInt(&writer, "k", 0));
}

TEST(XIniReader, ReadGivesTheFallbackForWhatIsMissingOrNotReadable) {
    ListReader reader({"12", "x", "true", "1.5", ""});
    unsigned long const nothing = TKvXIniReader::NotFound;
    EXPECT_EQ(reader.Read<int>(0, 7), 12);
    EXPECT_EQ(reader.Read<int>(1, 7), 7);
    EXPECT_EQ(reader.Read<int>(3, 7), 7);
    EXPECT_EQ(reader.Read<int>(5, 7), 7);
    EXPECT_EQ(reader.Read<int>(nothing, 7), 7);
    EXPECT_TRUE(reader.Read<bool>(2, false));
    EXPECT_TRUE(reader.Read<bool>(0, true));
    EXPECT_FALSE(reader.Read<bool>(nothing, false));
    EXPECT_EQ(reader.Read<double>(3, 7.0), 1.5);
    EXPECT_EQ(reader.Read<double>(4, 7.0), 7.0);
    EXPECT_EQ(reader.Read<std::string>(1, "d"), "x");
    EXPECT_EQ(reader.Read<std::string>(4, "d"), "");
    EXPECT_EQ(reader.Read<std::string>(nothing, "d"), "d");
}

TEST(XIniReader, TheFormsInEThrow) {
    ListReader reader({"12", "x"});
    EXPECT_EQ(reader.ReadE<int>(0), 12);
    EXPECT_EQ(reader.ReadE<double>(0), 12.0);
    EXPECT_EQ(reader.ReadE<std::string>(1), "x");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<int>(1); }), "item 1 is \"x\" instead of a whole number");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<bool>(0); }), "item 0 is \"12\" instead of true or false");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<double>(1); }), "item 1 is \"x\" instead of a number");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<int>(2); }), "item 2 holds no value");
    EXPECT_EQ(FailureOf([&] { reader.ReadE<std::string>(TKvXIniReader::NotFound); }),
              "there is no such item");
    EXPECT_EQ(FailureOf([&] { reader.FindFE("other", 0); }), "there is no item \"other\"");
    EXPECT_EQ(FailureOf([&] { reader.EnterSectionSE("k"); }), "there is no section \"k\"");
}

TEST(XIniReader, FindsFromAPositionOn) {
    ListReader reader({"12", "x"});
    EXPECT_EQ(reader.FindF("k", 0), 0u);
    EXPECT_EQ(reader.FindF("k", 1), 1u);
    EXPECT_EQ(reader.FindF("k", 2), TKvXIniReader::NotFound);
    EXPECT_EQ(reader.FindFE("k", 1), 1u);
}

TEST(XIni, NumbersSurviveExactly) {
    std::vector<double> const numbers = {0.0,    -0.0,
                                         0.1,    2.0 / 3.0,
                                         5e-324, std::numeric_limits<double>::max(),
                                         1e23,   std::numeric_limits<double>::infinity()};
    TXmlIniWriter writer;
    for (double const number : numbers) {
        ASSERT_TRUE(writer.WriteS<double>("d", number));
    }
    ASSERT_TRUE(writer.WriteS<double>("d", std::nan("")));
    TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    for (unsigned long item = 0; item < numbers.size(); ++item) {
        EXPECT_EQ(reader.Read<double>(item, 7.0), numbers[item]);
        EXPECT_EQ(std::signbit(reader.Read<double>(item, 7.0)), std::signbit(numbers[item]));
    }
    EXPECT_TRUE(std::isnan(reader.Read<double>(numbers.size(), 7.0)));
}
