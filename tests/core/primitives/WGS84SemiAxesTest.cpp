#include "core/primitives/WGS84SemiAxes.h"

#include "frame/imported/OptionTable.h"
#include "hostkit/ProcessHooks.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using KvRefSystem::GetWGS84SemiAxes;

/** Lets the library run inside an application for the length of a test and undoes the options. */
class WGS84SemiAxes : public testing::Test {
protected:
    ~WGS84SemiAxes() override {
        VellariHostKit::SetApplication(nullptr);
        try {
            Options().SetS<double>("planet/ellipsoid/a", 6378137.0);
            Options().SetS<double>("planet/ellipsoid/b", 6356752.314245179);
        } catch (std::runtime_error const&) {
            // Never registered.
        }
    }

    static TKvOptionTable& Options() { return *GlobalOT.GetTable(1); }

    int application = 0;
};

bool IsRegistered(TKvOptionTable const& options, char const* name) {
    try {
        options.GetS<double>(name);
    } catch (std::runtime_error const&) {
        return false;
    }
    return true;
}

TEST_F(WGS84SemiAxes, AreTheConstantsWithoutAnApplicationAndTouchNoOption) {
    VellariHostKit::SetApplication(nullptr);
    bool const registeredBefore = IsRegistered(Options(), "planet/ellipsoid/a");
    if (registeredBefore) {
        Options().SetS<double>("planet/ellipsoid/a", 1.0);
    }
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(b, 6356752.314245179);
    EXPECT_EQ(IsRegistered(Options(), "planet/ellipsoid/a"), registeredBefore);
}

TEST_F(WGS84SemiAxes, AreTheDefaultsOfTheOptionsInsideAnApplication) {
    VellariHostKit::SetApplication(&application);
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(b, 6356752.314245179);
    EXPECT_EQ(Options().GetS<double>("planet/ellipsoid/a"), 6378137.0);
    EXPECT_EQ(Options().GetS<double>("planet/ellipsoid/b"), 6356752.314245179);
}

TEST_F(WGS84SemiAxes, FollowTheOptionsInsideAnApplication) {
    VellariHostKit::SetApplication(&application);
    double a = 0;
    double b = 0;
    GetWGS84SemiAxes(&a, &b);
    // Mars, in metres.
    Options().SetS<double>("planet/ellipsoid/a", 3396190.0);
    Options().SetS<double>("planet/ellipsoid/b", 3376200.0);
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 3396190.0);
    EXPECT_EQ(b, 3376200.0);
    // Registering at every call doesn't undo what the host chose.
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 3396190.0);

    VellariHostKit::SetApplication(nullptr);
    GetWGS84SemiAxes(&a, &b);
    EXPECT_EQ(a, 6378137.0);
    EXPECT_EQ(b, 6356752.314245179);
}

} // namespace
