#include "Failure.h"
#include "TempFolder.h"

#include "hostkit/EmbeddedResources.h"
#include "hostkit/ResourceStore.h"
#include "hostkit/Utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using VellariHostKit::TResourceStore;

namespace {

std::string TextOf(TResourceStore const& store, std::string const& key,
                   std::string const& module = "Vellari") {
    std::string const* const text = store.Find(module, key);
    return text ? *text : "(unknown)";
}

struct Row {
    char const* key;
    char const* english;
    char const* russian;
};

constexpr Row rows[] = {
    {"global.UNIT_NAME_METRE", "metre", "метр"},
    {"global.UNIT_ABBR_METRE", "m", "м"},
    {"global.UNIT_NAME_DEGREE", "degree", "градус"},
    {"global.UNIT_ABBR_DEGREE", "°", "°"},
    {"global.LATITUDE_LONGITUDE", "Latitude/Longitude", "Широта/Долгота"},
    {"global.LATITUDE", "Latitude", "Широта"},
    {"global.LONGITUDE", "Longitude", "Долгота"},
};

} // namespace

TEST(ResourceStore, AnswersAllKeysOfTheLibraryInBothLanguages) {
    TResourceStore store;
    EXPECT_EQ(store.Language(), "en");
    for (Row const& row : rows) {
        EXPECT_EQ(TextOf(store, row.key), row.english);
    }
    store.SetLanguage("ru");
    EXPECT_EQ(store.Language(), "ru");
    for (Row const& row : rows) {
        EXPECT_EQ(TextOf(store, row.key), row.russian);
    }
    EXPECT_EQ(store.Languages(), (std::vector<std::string>{"en", "ru"}));
}

TEST(ResourceStore, EmbeddedTextsAreThoseOfTheFile) {
    std::string const file = VELLARI_SOURCE_DIR "/hostkit/resources/texts.txt";
    EXPECT_EQ(TempFolder::Read(file), VellariHostKit::embeddedResources());
    EXPECT_EQ(VellariHostKit::FindInvalidUtf8(VellariHostKit::embeddedResources()), std::string_view::npos);
}

TEST(ResourceStore, KnowsNothingOfOtherModulesAndKeys) {
    TResourceStore const store;
    EXPECT_EQ(store.Find("Vellari", "global.NO_SUCH_KEY"), nullptr);
    EXPECT_EQ(store.Find("Vellari", ""), nullptr);
    EXPECT_EQ(store.Find("Other", "global.LATITUDE"), nullptr);
}

TEST(ResourceStore, AddressesStayValidAfterASwitchAndAReplacement) {
    TResourceStore store;
    std::string const* const english = store.Find("Vellari", "global.LATITUDE");
    store.SetLanguage("ru");
    store.LoadText("en Vellari global.LATITUDE = Lat", "test");
    EXPECT_EQ(*english, "Latitude");
    store.SetLanguage("en");
    EXPECT_EQ(TextOf(store, "global.LATITUDE"), "Lat");
    EXPECT_EQ(*english, "Latitude");
}

TEST(ResourceStore, AnUnknownLanguageIsAnErrorThatNamesTheKnownOnes) {
    TResourceStore store;
    store.SetLanguage("ru");
    EXPECT_EQ(FailureOf([&] { store.SetLanguage("de"); }),
              "there are no texts in the language \"de\"; there are \"en\", \"ru\"");
    EXPECT_EQ(store.Language(), "ru");
}

TEST(ResourceStore, AMissingTextIsTheEnglishOne) {
    TResourceStore store;
    store.LoadText("de Vellari global.LATITUDE = Breite", "test");
    store.SetLanguage("de");
    EXPECT_EQ(TextOf(store, "global.LATITUDE"), "Breite");
    EXPECT_EQ(TextOf(store, "global.LONGITUDE"), "Longitude");
}

TEST(ResourceStore, FilesAddModulesAndMayHaveCommentsAndEscapes) {
    TempFolder const folder;
    std::string const file = folder.Put("more.txt", "\xEF\xBB\xBF# comment\r\n\r\n"
                                                    "en Other a.B = one = two \\\\ \\n\\t \r\n"
                                                    "  en\tOther\ta.EMPTY =\n"
                                                    "en Other a.B2=x");
    TResourceStore store;
    store.LoadFile(file);
    EXPECT_EQ(TextOf(store, "a.B", "Other"), "one = two \\ \n\t");
    EXPECT_EQ(TextOf(store, "a.EMPTY", "Other"), "");
    EXPECT_EQ(TextOf(store, "a.B2", "Other"), "x");
    EXPECT_EQ(TextOf(store, "global.LATITUDE"), "Latitude");
}

TEST(ResourceStore, AMistakeNamesFileAndLineAndChangesNothing) {
    TempFolder const folder;
    std::string const file =
        folder.Put("bad.txt", "en Vellari global.LATITUDE = changed\n\nen Vellari oops\n");
    TResourceStore store;
    EXPECT_EQ(FailureOf([&] { store.LoadFile(file); }),
              file + ", line 3: \"en Vellari oops\" is not of the form LANGUAGE MODULE KEY = TEXT");
    EXPECT_EQ(TextOf(store, "global.LATITUDE"), "Latitude");
}

TEST(ResourceStore, RefusesLinesOfAnotherForm) {
    TResourceStore store;
    for (char const* const line :
         {"a", "= x", "en Vellari = x", "en Vellari two keys = x", "en Vellari key text"}) {
        EXPECT_EQ(FailureOf([&] { store.LoadText(line, "test"); }),
                  std::string("test, line 1: \"") + line +
                      "\" is not of the form LANGUAGE MODULE KEY = TEXT");
    }
}

TEST(ResourceStore, RefusesBytesThatAreNotText) {
    TResourceStore store;
    EXPECT_EQ(FailureOf([&] { store.LoadText("# fine\nen Vellari k = \xCC\xE5\n", "test"); }),
              "test, line 2: the line is not UTF-8 text");
    EXPECT_EQ(FailureOf([&] { store.LoadText(std::string("en Vellari k = a\0b", 18), "test"); }),
              "test, line 1: the line is not UTF-8 text");
}

TEST(ResourceStore, AFileThatCannotBeReadIsAnErrorThatNamesIt) {
    TempFolder const folder;
    TResourceStore store;
    std::string const missing = folder.File("missing.txt");
    EXPECT_EQ(FailureOf([&] { store.LoadFile(missing); }),
              missing + ": can't be read: No such file or directory");
}

TEST(ResourceStore, MayBeUsedFromSeveralThreads) {
    TResourceStore store;
    std::vector<std::thread> threads;
    for (int number = 0; number < 3; ++number) {
        threads.emplace_back([&] {
            for (int round = 0; round < 1000; ++round) {
                std::string const text = TextOf(store, "global.UNIT_NAME_METRE");
                EXPECT_TRUE(text == "metre" || text == "метр");
            }
        });
    }
    for (int round = 0; round < 200; ++round) {
        store.SetLanguage(round % 2 ? "en" : "ru");
        store.LoadText("en Other k = v", "test");
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(ResourceStore, TheProcessHasOneStore) {
    EXPECT_EQ(&TResourceStore::Process(), &TResourceStore::Process());
}
