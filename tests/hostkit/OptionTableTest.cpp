#include "Failure.h"

#include "frame/imported/OptionTable.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

template <class T>
using Changes = std::vector<std::pair<std::string, T>>;

} // namespace

TEST(OptionTable, KeepsOptionsOfFourTypes) {
    TKvOptionTable table;
    EXPECT_GT(table.RegisterOption<double>("planet/ellipsoid/a", 6378137.0, {}), 0);
    EXPECT_GT(table.RegisterOption<int>("i", 3, {}), 0);
    EXPECT_GT(table.RegisterOption<bool>("b", true, {}), 0);
    EXPECT_GT(table.RegisterOption<std::string>("s", "text", {}), 0);
    EXPECT_EQ(table.GetS<double>("planet/ellipsoid/a"), 6378137.0);
    EXPECT_EQ(table.GetS<int>("i"), 3);
    EXPECT_TRUE(table.GetS<bool>("b"));
    EXPECT_EQ(table.GetS<std::string>("s"), "text");
}

TEST(OptionTable, EachRegistrationHasItsOwnNumber) {
    TKvOptionTable table;
    int const first = table.RegisterOption<int>("i", 3, {});
    int const second = table.RegisterOption<int>("i", 3, {});
    int const third = table.RegisterOption<int>("j", 3, {});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(third, 3);
}

TEST(OptionTable, ASecondRegistrationKeepsTheValueAndGainsTheHandler) {
    TKvOptionTable table;
    Changes<int> changes;
    auto const handler = [&](std::string const& name, int const& value) {
        changes.emplace_back(name, value);
    };
    table.RegisterOption<int>("i", 3, handler);
    table.SetS<int>("i", 4);
    table.RegisterOption<int>("i", 99, handler);
    EXPECT_EQ(table.GetS<int>("i"), 4);
    table.SetS<int>("i", 5);
    EXPECT_EQ(changes, (Changes<int>{{"i", 4}, {"i", 5}, {"i", 5}}));
}

TEST(OptionTable, HandlersAreCalledOnlyForANewValue) {
    TKvOptionTable table;
    Changes<double> changes;
    table.RegisterOption<double>(
        "d", 1.0, [&](std::string const& name, double const& value) { changes.emplace_back(name, value); });
    table.SetS<double>("d", 1.0);
    EXPECT_TRUE(changes.empty());
    table.SetS<double>("d", std::nan(""));
    table.SetS<double>("d", std::nan(""));
    EXPECT_EQ(changes.size(), 1u);
    table.SetS<double>("d", 1.0);
    EXPECT_EQ(changes.size(), 2u);
}

TEST(OptionTable, HandlersRunInTheOrderOfRegistrationOutsideOfTheLock) {
    TKvOptionTable table;
    std::string order;
    table.RegisterOption<std::string>("s", "", [&](std::string const&, std::string const& value) {
        order += "1" + value;
        // A handler may use the table, also to change the same option.
        if (value == "a") {
            table.SetS<std::string>("s", "b");
        }
    });
    table.RegisterOption<std::string>(
        "s", "", [&](std::string const&, std::string const& value) { order += "2" + value; });
    table.SetS<std::string>("s", "a");
    EXPECT_EQ(order, "1a1b2b2a");
    EXPECT_EQ(table.GetS<std::string>("s"), "b");
}

TEST(OptionTable, AReferenceStaysValidWithItsValue) {
    TKvOptionTable table;
    table.RegisterOption<std::string>("s", "first", {});
    std::string const& first = table.GetS<std::string>("s");
    table.SetS<std::string>("s", "second");
    table.SetS<std::string>("s", "third");
    EXPECT_EQ(first, "first");
    table.SetS<std::string>("s", "first");
    EXPECT_EQ(&table.GetS<std::string>("s"), &first);
}

TEST(OptionTable, UnknownNamesThrow) {
    TKvOptionTable table;
    EXPECT_EQ(FailureOf([&] { table.GetS<double>("planet/x"); }),
              "the option \"planet/x\" is not registered");
    EXPECT_EQ(FailureOf([&] { table.SetS<int>("planet/x", 1); }),
              "the option \"planet/x\" is not registered");
}

TEST(OptionTable, AnotherTypeThrows) {
    TKvOptionTable table;
    table.RegisterOption<double>("d", 1.0, {});
    table.RegisterOption<std::string>("s", "", {});
    table.RegisterOption<bool>("b", true, {});
    table.RegisterOption<int>("i", 1, {});
    EXPECT_EQ(FailureOf([&] { table.GetS<int>("d"); }), "the option \"d\" is a double, not a int");
    EXPECT_EQ(FailureOf([&] { table.SetS<bool>("s", true); }), "the option \"s\" is a string, not a bool");
    EXPECT_EQ(FailureOf([&] { table.RegisterOption<std::string>("b", "", {}); }),
              "the option \"b\" is a bool, not a string");
    EXPECT_EQ(FailureOf([&] { table.GetS<double>("i"); }), "the option \"i\" is a int, not a double");
}

TEST(OptionTable, MayBeUsedFromSeveralThreads) {
    TKvOptionTable table;
    std::atomic<int> changes{0};
    table.RegisterOption<int>("i", 0, [&](std::string const&, int const&) { ++changes; });
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&, number] {
            for (int round = 1; round <= 300; ++round) {
                table.SetS<int>("i", round % 7);
                int const value = table.GetS<int>("i");
                EXPECT_GE(value, 0);
                EXPECT_LT(value, 7);
                table.RegisterOption<std::string>("s" + std::string(static_cast<std::size_t>(number), 's'),
                                                  "", {});
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GT(changes, 0);
}

TEST(OptionTableAccess, GivesTheApplicationsTableForOneOnly) {
    TKvOptionTable* const table = GlobalOT.GetTable(1);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(GlobalOT.GetTable(1), table);
    EXPECT_EQ(GlobalOT.GetTable(0), nullptr);
    EXPECT_EQ(GlobalOT.GetTable(2), nullptr);
    EXPECT_EQ(GlobalOT.GetTable(-1), nullptr);
}

TEST(OptionTableAccess, TheTableIsReachedThroughTheFirstVirtualOperation) {
    // Hosts call slot 0, so no other virtual operation, not even a destructor, may stand before it.
    using Slot = TKvOptionTable* (*)(TKvOptionTableAccess*, int);
    Slot const* const slots = *reinterpret_cast<Slot const* const*>(&GlobalOT);
    EXPECT_EQ(slots[0](&GlobalOT, 1), GlobalOT.GetTable(1));
}
