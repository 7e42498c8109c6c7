#include "tools/accuracy/road/ExactPlaces.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace VellariAccuracy;

constexpr char ellipsoid[] = "ellipsoid 6378137 6356752.314245179 WGS 84\n";
constexpr char place[] = "0.5 -1e-09 -6e+06 1.25 2.25 3.25 0.50 -0.00 -6000000.00\n";

std::string FailureOf(std::string const& text) {
    try {
        ParseExactPlaces(text, "e.txt");
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
    return "none";
}

std::string AfterEllipsoid(char const* line) {
    return std::string(ellipsoid).append(line);
}

TEST(ExactPlaces, AreReadWithTheEllipsoidBeforeThem) {
    std::string text = "# made\n";
    text.append(ellipsoid).append(place).append("ellipsoid 2 1 other\n").append(place);
    std::vector<TExactPlace> const places = ParseExactPlaces(text, "e.txt");
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(places[0].Axes.b, 6356752.314245179);
    EXPECT_EQ(places[1].Axes.a, 2);
    EXPECT_EQ(places[0].Place[1], -1e-9);
    EXPECT_EQ(places[0].Place[2], -6e6);
    EXPECT_EQ(places[0].Point[2], "3.25");
    EXPECT_EQ(places[0].Back[2], "-6000000.00");
}

TEST(ExactPlaces, FailuresNameTheirLine) {
    EXPECT_EQ(FailureOf(place), "e.txt:1: a place before the first ellipsoid");
    EXPECT_EQ(FailureOf(AfterEllipsoid("1 2 3\n")), "e.txt:2: 3 numbers instead of 9");
    EXPECT_EQ(FailureOf(AfterEllipsoid("1 2 x 1 2 3 1 2 3\n")), "e.txt:2: \"x\" is no number");
    EXPECT_EQ(FailureOf("# made\nellipsoid 1\n"), "e.txt:2: an ellipsoid without its axes");
    EXPECT_EQ(FailureOf(""), "e.txt: no place in it; \"vellari_reference --write\" makes it anew");
    EXPECT_EQ(FailureOf(ellipsoid), "e.txt: no place in it; \"vellari_reference --write\" makes it anew");
}

} // namespace
