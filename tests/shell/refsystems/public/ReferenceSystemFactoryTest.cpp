#include "shell/refsystems/public/ReferenceSystemFactory.h"

#include "hostkit/XmlIni.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

std::string GoodText() {
    TStringTree tree;
    FillGeodetic(&tree, Pulkovo1942());
    AddPlaneShift(&tree, 0.1, 0.2);
    return TextOf(tree);
}

/** Whether the text made a system; the system is freed at once. */
bool Builds(std::string const& text) {
    std::unique_ptr<TShellReferenceSystem> const system(CreateShellReferenceSystem(text, nullptr));
    return system != nullptr;
}

TEST(ReferenceSystemFactory, BuildsFromAText) {
    EXPECT_TRUE(Builds(GoodText()));
}

TEST(ReferenceSystemFactory, ATextThatFailsAnywhereGivesNull) {
    EXPECT_FALSE(Builds(""));
    EXPECT_FALSE(Builds("\n"));
    EXPECT_FALSE(Builds("no description at all"));
    EXPECT_FALSE(Builds("(0,0)"));
    EXPECT_FALSE(Builds("(0,0)\n(1100,0)[1]type\t4\n\n"));
}

TEST(ReferenceSystemFactory, BuildsAllSixKinds) {
    TProjectedText const projected = UtmZone(31, 'N');
    std::unique_ptr<TShellReferenceSystem> const systems[] = {
        Create(TLocalText()),    Create(Curved("6371000")), Create(TGeocentricText()),
        Create(TGeodeticText()), Create(projected),         Create(TTopocentricText())};
    int kind = 0;
    for (auto const& system : systems) {
        ++kind;
        ASSERT_NE(system, nullptr) << kind;
        EXPECT_EQ(system->Type, kind);
        EXPECT_TRUE(Builds(TextOf(*system->SavedTree))) << kind;
        EXPECT_EQ(system->IsGlobal(), kind > 2) << kind;
    }
}

TEST(ReferenceSystemFactory, AKindDecidesWhatTheDescriptionMustHold) {
    for (char const* const kind : {"1", "2", "3", "5", "6"}) {
        TStringTree tree;
        FillGeodetic(&tree, WithZeroShift());
        SetField(&tree, 1100, kind);
        EXPECT_THROW(Create(&tree), std::runtime_error) << kind;
        EXPECT_FALSE(Builds(TextOf(tree))) << kind;
    }
}

TEST(ReferenceSystemFactory, XmlOfAnUnknownKindGivesNullAndABrokenOneThrows) {
    auto const system = Create(TLocalText());
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    std::string const document = writer.ToString();
    std::string const kind = "<RefSystemType>1<";
    for (char const* const value : {"0", "7", "-1"}) {
        std::string changed = document;
        changed.replace(changed.find(kind), kind.size(), std::string("<RefSystemType>") + value + "<");
        VellariHostKit::TXmlIniReader reader;
        reader.LoadString(changed);
        EXPECT_EQ(CreateShellReferenceSystem(&reader, nullptr), nullptr) << value;
    }
    for (char const* const value : {"2", "3", "4", "5", "6"}) {
        std::string changed = document;
        changed.replace(changed.find(kind), kind.size(), std::string("<RefSystemType>") + value + "<");
        changed.erase(changed.find("<RefSystemLinearUnit>"),
                      changed.find("</Vellari>") - changed.find("<RefSystemLinearUnit>"));
        VellariHostKit::TXmlIniReader reader;
        reader.LoadString(changed);
        EXPECT_THROW(delete CreateShellReferenceSystem(&reader, nullptr), std::runtime_error) << value;
    }
}

TEST(ReferenceSystemFactory, AnUnknownKindGivesNull) {
    for (char const* const kind : {"0", "7", "-1", "four", ""}) {
        TStringTree tree;
        FillGeodetic(&tree, WithZeroShift());
        SetField(&tree, 1100, kind);
        EXPECT_EQ(Create(&tree), nullptr) << kind;
        EXPECT_FALSE(Builds(TextOf(tree))) << kind;
    }
}

TEST(ReferenceSystemFactory, ATreeWithoutAKindGivesNullAndABrokenOneThrows) {
    TStringTree withoutKind;
    FillGeodetic(&withoutKind, WithZeroShift());
    withoutKind.DeleteField(1100, 0);
    TStringTree withoutName;
    FillGeodetic(&withoutName, WithZeroShift());
    withoutName.DeleteField(1020, 0);

    EXPECT_EQ(Create(&withoutKind), nullptr);
    EXPECT_THROW(Create(&withoutName), std::runtime_error);
    EXPECT_FALSE(Builds(TextOf(withoutName)));
}

TEST(ReferenceSystemFactory, NullSourcesGiveNull) {
    EXPECT_EQ(CreateShellReferenceSystem(static_cast<TStringTree*>(nullptr), nullptr), nullptr);
    EXPECT_EQ(CreateShellReferenceSystem(static_cast<TKvXIniReader*>(nullptr), nullptr), nullptr);
}

TEST(ReferenceSystemFactory, EveryPrefixOfAGoodTextEndsWellAndSoon) {
    std::string const text = GoodText();
    std::clock_t const begin = std::clock();
    std::size_t built = 0;

    for (std::size_t length = 0; length < text.size(); ++length) {
        built += Builds(text.substr(0, length)) ? 1U : 0U;
    }

    // What stands last is the own chain: only prefixes that reach into it hold all that is required.
    EXPECT_LT(built, text.size() / 4);
    EXPECT_LT(std::clock() - begin, 60 * CLOCKS_PER_SEC);
}

TEST(ReferenceSystemFactory, SingleByteChangesOfAGoodTextEndWell) {
    std::string const text = GoodText();
    std::mt19937 random(20260101);
    std::uniform_int_distribution<std::size_t> position(0, text.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    std::size_t built = 0;

    for (int change = 0; change < 4000; ++change) {
        std::string changed = text;
        changed[position(random)] = static_cast<char>(byte(random));
        built += Builds(changed) ? 1U : 0U;
    }

    // Many changes hit labels and names, which don't count, so a good part still builds; not all do.
    EXPECT_GT(built, 0U);
    EXPECT_LT(built, 4000U);
}

TEST(ReferenceSystemFactory, AbsurdCountsTagsAndDepthsEndSoon) {
    std::string deep;
    for (std::size_t level = 0; level < 400; ++level) {
        deep += std::string(level, '\t') + "(1112,0)x\n";
    }
    std::vector<std::string> texts = {"(0,0)\n(1,0)[18446744073709551615]h\tA\n\n",
                                      "(0,0)\n(1,0)[-1]h\tA\n\n", "(99999999999999999999,0)\n\n",
                                      "(0,0)\n(1,0)[4000000000]h\n"};
    texts.push_back(deep);
    texts.emplace_back(100000, '\t');
    texts.emplace_back(100000, '(');
    texts.emplace_back(100000, 'x').insert(0, "(0,0)");
    for (std::string const& text : texts) {
        std::clock_t const begin = std::clock();
        EXPECT_FALSE(Builds(text)) << text.substr(0, 40);
        EXPECT_LT(std::clock() - begin, CLOCKS_PER_SEC) << text.substr(0, 40);
    }
}

TEST(ReferenceSystemFactory, RandomBytesEndWell) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int pass = 0; pass < 500; ++pass) {
        std::string text = "(0,0)\n";
        for (int index = 0; index < 300; ++index) {
            text += static_cast<char>(byte(random));
        }
        EXPECT_FALSE(Builds(text));
    }
}

TEST(ReferenceSystemFactory, EveryPrefixOfAGoodXmlDocumentIsAnErrorOfTheReader) {
    auto const system = Create(Pulkovo1942());
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    std::string const document = writer.ToString();
    std::size_t const end = document.rfind("</Vellari>");

    for (std::size_t length = 0; length < end; length += 7) {
        VellariHostKit::TXmlIniReader reader;
        EXPECT_THROW(reader.LoadString(document.substr(0, length)), std::runtime_error) << length;
    }
}

TEST(ReferenceSystemFactory, SingleByteChangesOfAGoodXmlDocumentEndWell) {
    auto const system = Create(Pulkovo1942());
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    std::string const document = writer.ToString();
    std::mt19937 random(11);
    std::uniform_int_distribution<std::size_t> position(0, document.size() - 1);
    std::uniform_int_distribution<int> byte(32, 126);
    int built = 0;
    int refused = 0;

    for (int change = 0; change < 1500; ++change) {
        std::string changed = document;
        changed[position(random)] = static_cast<char>(byte(random));
        try {
            VellariHostKit::TXmlIniReader reader;
            reader.LoadString(changed);
            std::unique_ptr<TShellReferenceSystem> const read(CreateShellReferenceSystem(&reader, nullptr));
            built += read ? 1 : 0;
        } catch (std::runtime_error const&) {
            ++refused;
        }
    }

    EXPECT_GT(built, 0);
    EXPECT_GT(refused, 0);
}

} // namespace
} // namespace KvRefSystem
