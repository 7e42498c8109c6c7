#include "tests/shell/projections/ProjectionTestKit.h"

namespace {

using namespace ProjectionTestKit;

/** Texts that aren't a number in any unit. */
constexpr char const* badTexts[] = {"", " ", "\t \n", "x", "-", "."};

/** What an export of a class reads: all keys of the description but these. */
struct TExport {
    char const* name;
    bool (*works)(TShellMapProjection const&);
    std::set<int> types;
    std::map<int, std::set<int>> unread; ///< by type
};

bool HasMif(TShellMapProjection const& shell) {
    return MifOf(shell) != "false";
}

bool HasWkt(TShellMapProjection const& shell) {
    return WktOf(shell) != "false";
}

bool HasGeoKeys(TShellMapProjection const& shell) {
    return GeoKeysOf(shell).count(0) == 0;
}

bool HasCore(TShellMapProjection const& shell) {
    return CoreOf(shell) != nullptr;
}

std::set<int> AllTypes() {
    std::set<int> types;
    for (TShellClass const& shellClass : AllClasses()) {
        types.insert(shellClass.type);
    }
    return types;
}

/** The scale factor isn't part of the polyconic WKT, nor the angle to the skew grid of the Hotine MIF. */
std::vector<TExport> const& Exports() {
    static std::vector<TExport> const exports = {
        {"core", &HasCore, AllTypes(), {}},
        {"WKT", &HasWkt, {1, 4, 14, 1313}, {{14, {6111}}}},
        {"MIF", &HasMif, {1, 3, 4, 5, 6, 1201, 7, 11, 12, 13, 14, 21, 22}, {{3, {6110}}}},
        {"GeoTIFF", &HasGeoKeys, {1, 2, 3, 4, 5, 6, 1201, 7, 8, 24, 26, 9, 10, 11, 13, 14, 21, 22}, {}},
    };
    return exports;
}

bool IsRead(TExport const& use, int type, int key) {
    auto const unread = use.unread.find(type);
    return key != PoleKey && (unread == use.unread.end() || unread->second.count(key) == 0);
}

TEST(ParameterisedProjections, ABadTextFailsWhereverItIsRead) {
    for (TExport const& use : Exports()) {
        for (int const type : use.types) {
            SCOPED_TRACE(use.name + (' ' + ClassOf(type).name));
            EXPECT_TRUE(use.works(*Create(type)));
            for (int const key : ClassOf(type).keys) {
                for (char const* const text : badTexts) {
                    if (IsRead(use, type, key)) {
                        EXPECT_FALSE(use.works(*Create(type, {{key, text}}))) << key << " '" << text << "'";
                    }
                }
            }
        }
    }
}

TEST(ParameterisedProjections, WithoutTheUnitOfAParameterNothingWorks) {
    for (TExport const& use : Exports()) {
        for (int const type : use.types) {
            SCOPED_TRACE(use.name + (' ' + ClassOf(type).name));
            bool needsLength = false;
            bool needsScale = false;
            for (int const key : ClassOf(type).keys) {
                needsLength = needsLength || (IsRead(use, type, key) && IsLengthKey(key));
                needsScale = needsScale || (IsRead(use, type, key) && IsScaleKey(key));
            }
            EXPECT_EQ(use.works(*Create(type, {}, {nullptr, &grad, &millionth})), !needsLength);
            EXPECT_FALSE(use.works(*Create(type, {}, {&foot, nullptr, &millionth})));
            EXPECT_EQ(use.works(*Create(type, {}, {&foot, &grad, nullptr})), !needsScale);
            EXPECT_FALSE(use.works(*Create(type, {}, {nullptr, nullptr, nullptr})));
        }
    }
}

TEST(ParameterisedProjections, WhatFollowsANumberDoesntCount) {
    // The units read the number at the beginning of a text.
    for (TShellClass const& shellClass : AllClasses()) {
        for (int const key : shellClass.keys) {
            std::string const text = TextOf(key) + (key == PoleKey ? "" : " and more");
            auto const core = CoreOf(*Create(shellClass.type, {{key, text}}));
            ASSERT_NE(core, nullptr) << shellClass.name << key;
            EXPECT_TRUE(*core == *CoreOf(*Create(shellClass.type))) << shellClass.name << key;
        }
    }
}

TEST(ParameterisedProjections, BlankSexagesimalTextsFailToo) {
    for (char const* const text : {"", " ", "\t"}) {
        auto const shell = Create(8, {{6102, text}}, {&metre, &degreeMinuteSecond, &millionth});
        EXPECT_EQ(CoreOf(*shell), nullptr);
        EXPECT_EQ(GeoKeysOf(*shell), (TGeoKeys{{0, "false"}}));
    }
}

TEST(ParameterisedProjections, ATextEndsAtANullCharacterAndIsEmptyBeforeIt) {
    using namespace std::string_literals;
    // The units read up to it, and take an empty text for a success.
    for (std::string const& text : {"\0"s, "\0005"s, " \0 5"s}) {
        for (TUnit const* const angular : {&degree, &degreeMinuteSecond}) {
            TUnits const units = {&metre, angular, &millionth};
            for (int const key : ClassOf(1).keys) {
                auto const shell = Create(1, {{key, text}}, units);
                EXPECT_EQ(CoreOf(*shell), nullptr) << key;
                EXPECT_EQ(WktOf(*shell), "false") << key;
                EXPECT_EQ(MifOf(*shell), "false") << key;
                EXPECT_EQ(GeoKeysOf(*shell), (TGeoKeys{{0, "false"}})) << key;
            }
        }
    }
    EXPECT_TRUE(*CoreOf(*Create(8, {{6104, "5\0x"s}})) == *CoreOf(*Create(8, {{6104, "5"}})));
}

TEST(ParameterisedProjections, HugeTextsAndNumbersDontBreakAnything) {
    std::string const huge(100000, '9');
    for (TShellClass const& shellClass : AllClasses()) {
        for (int const key : shellClass.keys) {
            if (key == PoleKey) {
                continue;
            }
            for (std::string const& text :
                 {huge, std::string("1e308"), std::string("-inf"), std::string("nan")}) {
                auto const shell = Create(shellClass.type, {{key, text}});
                // Whatever they give: nothing is thrown, and what fails writes nothing.
                EXPECT_NO_THROW({
                    CoreOf(*shell);
                    MifOf(*shell);
                    WktOf(*shell);
                    GeoKeysOf(*shell);
                }) << shellClass.name
                   << key;
            }
        }
    }
}

TEST(NZMGShell, MifOfALongLengthHasTwentyFiveDigits) {
    auto const shell = Create(4, {{6106, "173"}, {6102, "-41"}, {6104, "1e300"}}, plainUnits);
    EXPECT_EQ(MifOf(*shell), ", 173, -41, 1.00000000000000005250476e+300, -328.25");
}

} // namespace
