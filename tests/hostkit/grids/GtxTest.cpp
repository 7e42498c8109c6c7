#include "tests/hostkit/Failure.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/hostkit/grids/GridFiles.h"

#include "hostkit/grids/GeoidGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include <sys/stat.h>

using GridFiles::GtxText;
using GridFiles::TGtxHeader;
using VellariHostKit::TGeoidGrid;

namespace {

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

std::vector<float> const FourNodes = {1, 2, 3, 4};

/** GTX files that can't be read; the errors begin with the file's name. */
class Gtx : public testing::Test {
protected:
    /** @return what is said about a file of these bytes, without the part that is always the same. */
    std::string ReasonOf(std::string const& bytes) const {
        std::string const file = Folder.Put("grid.gtx", bytes);
        std::string const failure = FailureOf([&] { TGeoidGrid const grid(file); });
        std::string const beginning = file + ": can't be read as a geoid grid: ";
        return failure.starts_with(beginning) ? failure.substr(beginning.size()) : "unexpected: " + failure;
    }

    TempFolder const Folder;
};

TEST_F(Gtx, AMissingFileIsAnErrorThatNamesIt) {
    std::string const file = Folder.File("missing.gtx");
    EXPECT_EQ(FailureOf([&] { TGeoidGrid const grid(file); }),
              file + ": can't be read: No such file or directory");
    EXPECT_EQ(FailureOf([] { TGeoidGrid const grid(""); }), ": can't be read: No such file or directory");
}

TEST_F(Gtx, OnlyAPlainFileHoldsAGrid) {
    std::string const folder = Folder.File("");
    EXPECT_EQ(FailureOf([&] { TGeoidGrid const grid(folder); }), folder + ": can't be read: Is a directory");
    EXPECT_EQ(FailureOf([] { TGeoidGrid const grid("/dev/zero"); }),
              "/dev/zero: can't be read: it is no plain file");
    // Nobody writes into the pipe: waiting for it would never end.
    std::string const pipe = Folder.File("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(FailureOf([&] { TGeoidGrid const grid(pipe); }), pipe + ": can't be read: it is no plain file");
}

TEST_F(Gtx, AFileNameMayHoldAnything) {
    std::string const file = Folder.Put("a grid, of Moscow's; \"new\" @ё.bin", GtxText({}, FourNodes));
    double undulation = 0.0;
    EXPECT_TRUE(TGeoidGrid(file).Undulation(11, 51, &undulation));
    EXPECT_EQ(undulation, 4.0);
}

TEST_F(Gtx, AFileWithoutAWholeHeaderIsRefused) {
    std::string const whole = GtxText({}, FourNodes);
    for (std::size_t const size : {0U, 1U, 3U, 39U}) {
        EXPECT_EQ(ReasonOf(whole.substr(0, size)),
                  "it has " + std::to_string(size) + " bytes; the header of a GTX file has 40");
    }
}

TEST_F(Gtx, TheSizeMustBeThatOfTheHeader) {
    std::string const whole = GtxText({}, FourNodes);
    EXPECT_EQ(ReasonOf(whole.substr(0, 40)), "its 2 rows of 2 nodes call for 56 bytes, it has 40");
    EXPECT_EQ(ReasonOf(whole.substr(0, 55)), "its 2 rows of 2 nodes call for 56 bytes, it has 55");
    EXPECT_EQ(ReasonOf(whole + "x"), "its 2 rows of 2 nodes call for 56 bytes, it has 57");
    // A text's bytes make counts, too.
    EXPECT_EQ(ReasonOf(std::string(100, 'a')),
              "its 1633771873 rows of 1633771873 nodes call for 10676842132023712556 bytes, it has 100");
}

TEST_F(Gtx, AbsurdCountsAreRefusedBeforeAnythingIsAllocated) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1e-8, 1e-8, most, most}, FourNodes)),
              "its 2147483647 rows of 2147483647 nodes call for 18446744056529682476 bytes, it has 56");
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, 1, -2, -2}, FourNodes)),
              "it has -2 rows of -2 nodes; at least 2 of 2 are needed");
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, 1, std::numeric_limits<std::int32_t>::min(), 2}, FourNodes)),
              "it has -2147483648 rows of 2 nodes; at least 2 of 2 are needed");
    // A file with holes has the size that its header calls for and takes no room.
    std::string const file = Folder.Put("large.gtx", GtxText({50, 10, 1e-4, 1e-4, 20000, 20000}, {}));
    std::filesystem::resize_file(file, 40 + 4 * std::uint64_t{20000} * 20000);
    EXPECT_EQ(
        FailureOf([&] { TGeoidGrid const grid(file); }),
        file + ": can't be read as a geoid grid: it has 20000 rows of 20000 nodes; 268435456 nodes are the "
               "most");
}

TEST_F(Gtx, OneRowOrColumnIsNoGrid) {
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, 1, 1, 4}, FourNodes)),
              "it has 1 rows of 4 nodes; at least 2 of 2 are needed");
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, 1, 4, 1}, FourNodes)),
              "it has 4 rows of 1 nodes; at least 2 of 2 are needed");
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, 1, 0, 4}, {})),
              "it has 0 rows of 4 nodes; at least 2 of 2 are needed");
}

TEST_F(Gtx, StepsMustBeAboveZero) {
    std::string const reason = " of latitude; they must be above 0 and at most 360 and 180";
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 0, 1, 2, 2}, FourNodes)),
              "its steps are 1 degrees of longitude and 0" + reason);
    EXPECT_EQ(ReasonOf(GtxText({50, 10, 1, -0.25, 2, 2}, FourNodes)),
              "its steps are -0.25 degrees of longitude and 1" + reason);
    EXPECT_EQ(ReasonOf(GtxText({50, 10, Nan, 1, 2, 2}, FourNodes)),
              "its steps are 1 degrees of longitude and nan" + reason);
    EXPECT_EQ(ReasonOf(GtxText({50, 10, Infinity, 1, 2, 2}, FourNodes)),
              "its steps are 1 degrees of longitude and inf" + reason);
    EXPECT_EQ(ReasonOf(GtxText({50, 0, 1, 361, 2, 2}, FourNodes)),
              "its steps are 361 degrees of longitude and 1" + reason);
}

TEST_F(Gtx, TheGridMustLieOnTheEarth) {
    EXPECT_EQ(ReasonOf(GtxText({89, 10, 2, 1, 3, 2}, {1, 2, 3, 4, 5, 6})),
              "it spans latitudes 89 to 93 degrees, beyond the poles");
    EXPECT_EQ(ReasonOf(GtxText({-91.5, 10, 1, 1, 2, 2}, FourNodes)),
              "it spans latitudes -91.5 to -90.5 degrees, beyond the poles");
    EXPECT_EQ(ReasonOf(GtxText({Nan, 10, 1, 1, 2, 2}, FourNodes)),
              "it spans latitudes nan to nan degrees, beyond the poles");
    EXPECT_EQ(ReasonOf(GtxText({50, 1e300, 1, 1, 2, 2}, FourNodes)),
              "it spans longitudes 1e+300 to 1e+300 degrees; -720 to 720 may be used");
    EXPECT_EQ(ReasonOf(GtxText({50, -Infinity, 1, 1, 2, 2}, FourNodes)),
              "it spans longitudes -inf to -inf degrees; -720 to 720 may be used");
    EXPECT_EQ(ReasonOf(GtxText({50, 0, 1, 360, 2, 4}, {1, 2, 3, 4, 5, 6, 7, 8})),
              "it spans longitudes 0 to 1080 degrees; -720 to 720 may be used");
    // A border of one row beyond the pole helps to interpolate and does no harm.
    EXPECT_EQ(ReasonOf(GtxText({89.5, 10, 1, 1, 2, 2}, FourNodes)), "unexpected: (nothing was thrown)");
}

TEST_F(Gtx, AGridWithoutAnyUndulationIsRefused) {
    EXPECT_EQ(ReasonOf(GtxText({}, {-88.8888F, -9999, -88.8888F, 1e30F})),
              "none of its nodes has an undulation");
}

TEST_F(Gtx, NumbersInTheOtherOrderOfBytesAreNoGrid) {
    std::string text = GtxText({}, FourNodes);
    for (std::size_t const field : {0U, 8U, 16U, 24U}) {
        std::reverse(text.begin() + static_cast<std::ptrdiff_t>(field),
                     text.begin() + static_cast<std::ptrdiff_t>(field + 8));
    }
    for (std::size_t const field : {32U, 36U}) {
        std::reverse(text.begin() + static_cast<std::ptrdiff_t>(field),
                     text.begin() + static_cast<std::ptrdiff_t>(field + 4));
    }
    // 2 is 0x02000000 then.
    EXPECT_EQ(ReasonOf(text),
              "its 33554432 rows of 33554432 nodes call for 4503599627370536 bytes, it has 56");
}

} // namespace
