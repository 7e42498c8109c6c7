#include "core/primitives/WGS84SemiAxes.h"
#include "core/refsystems/Coords.h"
#include "frame/ModuleInitializer.h"
#include "frame/imported/ModuleHooks.h"
#include "frame/imported/OptionTable.h"
#include "hostkit/ProcessHooks.h"
#include "hostkit/ResourceStore.h"
#include "hostkit/XmlIni.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/support/Systems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

TEST(HostKitInThreads, StartsAndStopsUnderTheHostsLockNestBesideWork) {
    KvModule_Initializer const& module = KvModule_Initializer::getInst();
    auto const from = Geodetic(Pulkovo1942());
    auto const to = Geodetic(WithZeroShift());
    Init_Vellari();
    auto const starts = module.get_reference_count();
    std::mutex lock;

    auto const outcome = AskTogether(100, [&](int) {
        bool isCounted = false;
        {
            std::lock_guard<std::mutex> const held(lock);
            Init_Vellari();
            isCounted = module.get_reference_count() > starts && module.get_module_file_name() != "";
        }
        TMoved moved = Move(*from, {55.75, 37.62, 150}, *to);
        std::string const name = module.get_resource_string("global.UNIT_NAME_METRE");
        {
            std::lock_guard<std::mutex> const held(lock);
            Deinit_Vellari();
        }
        moved.done = moved.done && isCounted && name == "metre";
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_TRUE(outcome.alone.done);
    EXPECT_NEAR(outcome.alone.point[0], 55.750042613104, 1e-9); // by cct
    EXPECT_EQ(module.get_reference_count(), starts);
    Deinit_Vellari();
}

TEST(HostKitInThreads, StopsToZeroUnderTheHostsLockBesideLookupsOfTexts) {
    KvModule_Initializer const& module = KvModule_Initializer::getInst();
    auto const before = module.get_reference_count();
    std::mutex lock;

    auto const outcome = AskTogether(100, [&](int) {
        {
            std::lock_guard<std::mutex> const held(lock);
            Init_Vellari();
            Deinit_Vellari();
        }
        return module.get_resource_string("global.LATITUDE", "none");
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone, "Latitude");
    EXPECT_EQ(module.get_reference_count(), before);
}

TEST(HostKitInThreads, TextsAreLookedUpWhileAThreadChangesLanguageAndTexts) {
    VellariHostKit::TResourceStore store;
    std::atomic<int> wrong{0};

    RunTogether([&](int number) {
        for (int pass = 0; pass < 200; ++pass) {
            if (number == 0) {
                store.SetLanguage(pass % 2 == 0 ? "ru" : "en");
                store.LoadText("en Host key.NAME = name", "<test>");
            } else {
                std::string const* const text = store.Find("Vellari", "global.UNIT_NAME_METRE");
                wrong += text && (*text == "metre" || *text == "метр") ? 0 : 1;
                wrong += store.Languages().size() == 2 && store.Language().size() == 2 ? 0 : 1;
            }
            std::string const* ofProcess = nullptr;
            wrong +=
                LoadResString("Vellari", "global.LONGITUDE", &ofProcess) && *ofProcess == "Longitude" ? 0 : 1;
        }
    });

    EXPECT_EQ(wrong, 0);
    ASSERT_NE(store.Find("Host", "key.NAME"), nullptr);
    EXPECT_EQ(*store.Find("Host", "key.NAME"), "name");
}

TEST(HostKitInThreads, TheEllipsoidOfTheOptionsIsReadWhileAThreadChangesIt) {
    int application = 0;
    VellariHostKit::SetApplication(&application);
    TKvOptionTable& options = *GlobalOT.GetTable(1);
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 6378137);
    std::atomic<int> wrong{0};

    RunTogether([&](int number) {
        for (int pass = 0; pass < 200; ++pass) {
            double major = 0;
            double minor = 0;
            GetWGS84SemiAxes(&major, &minor);
            wrong += (major == 6378137 || major == 6378200) && minor == b ? 0 : 1;
            if (number == 0) {
                options.SetS<double>("planet/ellipsoid/a", pass % 2 == 0 ? 6378200 : 6378137);
            }
        }
    });

    options.SetS<double>("planet/ellipsoid/a", 6378137);
    VellariHostKit::SetApplication(nullptr);
    EXPECT_EQ(wrong, 0);
}

TEST(HostKitInThreads, DebugLinesOfAllReachTheSink) {
    std::atomic<int> lines{0};
    std::atomic<int> wrong{0};
    VellariHostKit::SetDebugSink([&](std::string const& line) {
        ++lines;
        wrong += line == "core point 1.000000   2.000000   3.000000" ? 0 : 1;
    });

    RunTogether([](int) {
        for (int pass = 0; pass < 200; ++pass) {
            TCoords{1, 2, 3, false}.DebugOutput("core point");
        }
    });

    VellariHostKit::SetDebugSink(nullptr);
    EXPECT_EQ(lines, CrewSize * 200);
    EXPECT_EQ(wrong, 0);
}

TEST(HostKitInThreads, OneTreeIsReadByAll) {
    TStringTree tree;
    FillGeodetic(&tree, Pulkovo1942());
    TStringTree const& shared = tree;

    auto const outcome = AskTogether(20, [&](int) {
        std::vector<int> indices;
        shared.GetSubtreesIndexList(1107, &indices);
        std::string name;
        int kind = 0;
        bool const found = shared.GetString(1020, 0, &name) && shared.GetInteger(1100, 0, &kind) &&
                           shared.FindSubtree(1107, 0) != nullptr && shared.FindField(1100, 0) != nullptr;
        TStringTree copy;
        bool const copied = shared.CopyTo(&copy);
        VellariHostKit::TXmlIniWriter writer;
        bool const written = shared.WriteToXML(&writer);
        TStringTree read;
        read.ReadFromString(TextOf(shared).c_str(), nullptr, nullptr);
        return std::vector<std::string>{
            found && copied && written && kind == rstGeodetic && indices.size() == 1 ? "all" : "not all",
            name,
            TextOf(copy),
            TextOf(read),
            TextOf(shared),
            writer.ToString()};
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone[0], "all");
    EXPECT_EQ(outcome.alone[1], Pulkovo1942().name);
    EXPECT_EQ(outcome.alone[3], outcome.alone[4]);
}

TEST(HostKitInThreads, FilesAreReadAndWrittenByAll) {
    TempFolder const folder;
    std::string const path = folder.File("shared.xml");
    VellariHostKit::TXmlIniWriter first;
    first.WriteS<std::string>("key", "a text of some length");
    first.SaveFile(path);

    auto const outcome = AskTogether(10, [&](int) {
        VellariHostKit::TXmlIniWriter writer;
        writer.WriteS<std::string>("key", "a text of some length");
        writer.SaveFile(path);
        VellariHostKit::TXmlIniReader reader;
        reader.LoadFile(path);
        return reader.ReadE<std::string>(reader.FindFE("key", 0));
    });

    EXPECT_EQ(outcome.deviations, 0);
    EXPECT_EQ(outcome.alone, "a text of some length");
    EXPECT_EQ(folder.FileCount(), 1U); // nothing else is left
}

} // namespace
