#include "frame/imported/ModuleHooks.h"
#include "frame/ModuleInitializer.h"
#include "hostkit/ProcessHooks.h"
#include "hostkit/ResourceStore.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

int mathStops = 0;

} // namespace

// This program's own hook, in the place of the kit's.
extern "C" void Deinit_LumMath() {
    ++mathStops;
}

TEST(ModuleHooks, AProgramsOwnHookReplacesTheKits) {
    mathStops = 0;
    Init_Vellari();
    Deinit_Vellari();
    EXPECT_EQ(mathStops, 1);
}

TEST(ModuleHooks, StartsAndStopsAreHarmlessInAnyNumber) {
    Init_QorDataUtils();
    Init_LumMath();
    Init_QorDataUtils();
    Deinit_QorDataUtils();
    Deinit_QorDataUtils();
    std::string const* text = nullptr;
    EXPECT_TRUE(LoadResString("Vellari", "global.LATITUDE", &text));
}

TEST(ModuleHooks, LoadResStringAsksTheStoreOfTheProcess) {
    std::string const* text = nullptr;
    ASSERT_TRUE(LoadResString("Vellari", "global.UNIT_NAME_METRE", &text));
    EXPECT_EQ(text, VellariHostKit::TResourceStore::Process().Find("Vellari", "global.UNIT_NAME_METRE"));
    EXPECT_EQ(*text, "metre");
}

TEST(ModuleHooks, LoadResStringLeavesTheTextAloneForAnUnknownKey) {
    std::string const before;
    std::string const* text = &before;
    EXPECT_FALSE(LoadResString("Vellari", "global.NO_SUCH_KEY", &text));
    EXPECT_FALSE(LoadResString("Other", "global.LATITUDE", &text));
    EXPECT_EQ(text, &before);
}

TEST(ModuleHooks, TheModuleFindsItsTexts) {
    KvRefSystem::KvModule_Initializer const& module = KvRefSystem::KvModule_Initializer::getInst();
    EXPECT_EQ(module.get_resource_string("global.LATITUDE_LONGITUDE"), "Latitude/Longitude");
    EXPECT_EQ(module.get_resource_string("no.such.key", "x"), "x");
}

TEST(ModuleHooks, DebugLinesGoToTheSink) {
    std::vector<std::string> lines;
    VellariHostKit::SetDebugSink([&](std::string const& line) { lines.push_back(line); });
    KvPrintDbgMsg(" X = 1");
    KvPrintDbgMsg("");
    VellariHostKit::SetDebugSink(nullptr);
    EXPECT_EQ(lines, (std::vector<std::string>{" X = 1", ""}));
}

TEST(ModuleHooks, DebugLinesGoToStandardErrorWithoutASink) {
    testing::internal::CaptureStderr();
    KvPrintDbgMsg("100% Широта");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% Широта\n");
}

TEST(ModuleHooks, ASinkMayReplaceItself) {
    int calls = 0;
    VellariHostKit::SetDebugSink([&](std::string const&) {
        ++calls;
        VellariHostKit::SetDebugSink([](std::string const&) {});
        ++calls;
    });
    KvPrintDbgMsg("one");
    KvPrintDbgMsg("two");
    VellariHostKit::SetDebugSink(nullptr);
    EXPECT_EQ(calls, 2);
}

TEST(ModuleHooks, TheSinkMayBeChangedWhileThreadsPrint) {
    std::atomic<int> lines{0};
    VellariHostKit::SetDebugSink([&](std::string const&) { ++lines; });
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&] {
            for (int line = 0; line < 500; ++line) {
                KvPrintDbgMsg("line");
            }
        });
    }
    for (int change = 0; change < 200; ++change) {
        VellariHostKit::SetDebugSink([&](std::string const&) { ++lines; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    VellariHostKit::SetDebugSink(nullptr);
    EXPECT_EQ(lines, 4 * 500);
}

TEST(ModuleHooks, TheApplicationIsNullUntilTheHostSetsIt) {
    EXPECT_EQ(KvApplication, nullptr);
    int application = 0;
    VellariHostKit::SetApplication(&application);
    EXPECT_EQ(KvApplication, &application);
    VellariHostKit::SetApplication(nullptr);
    EXPECT_EQ(KvApplication, nullptr);
}
