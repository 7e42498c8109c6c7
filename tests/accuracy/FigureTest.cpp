#include "tools/accuracy/Figure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

using namespace VellariAccuracy;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Figure, IsRoundedUpToTwoDigits) {
    EXPECT_EQ(FigureText(0.00101), "0.0011");
    EXPECT_EQ(FigureText(0.00100), "0.0010");
    EXPECT_EQ(FigureText(0.412), "0.42");
    EXPECT_EQ(FigureText(0.995), "1.0");
    EXPECT_EQ(FigureText(9.91), "10");
    EXPECT_EQ(FigureText(21.2), "22");
    EXPECT_EQ(FigureText(2499363.5), "2.5e6");
    EXPECT_EQ(FigureText(999001), "1e6");
    EXPECT_EQ(FigureText(15991), "16000");
    EXPECT_EQ(FigureText(8.51e-5), "8.6e-5");
    EXPECT_EQ(FigureText(9.91e-5), "0.00010");
    EXPECT_EQ(FigureText(2e-5), "2e-5");
}

TEST(Figure, IsAMicrometreAtLeast) {
    EXPECT_EQ(FigureText(0), "1e-6");
    EXPECT_EQ(FigureText(9.99e-7), "1e-6");
    EXPECT_EQ(FigureText(1.01e-6), "1.1e-6");
}

TEST(Figure, HasAnotherLeastNumberWhereTheTableSaysSo) {
    EXPECT_EQ(FigureText(2.31e-9, LeastCartesian), "2.4e-9");
    EXPECT_EQ(FigureText(0, LeastCartesian), "1e-9");
    EXPECT_EQ(FigureText(6.6e-15, LeastAngle), "6.6e-15");
    EXPECT_EQ(FigureText(1e-17, LeastAngle), "1e-16");
    double figure = 0;
    EXPECT_TRUE(ReadFigure("2.4e-9", &figure, LeastCartesian));
    EXPECT_EQ(figure, 2.4e-9);
    EXPECT_FALSE(ReadFigure("2.4e-10", &figure, LeastCartesian));
    EXPECT_FALSE(ReadFigure("2.4e-9", &figure));
}

TEST(Figure, SaysWhenThereIsNoNumber) {
    EXPECT_EQ(FigureText(NotANumber), "none");
    EXPECT_EQ(FigureText(Infinity), "none");
}

TEST(Figure, HoldsWhatItWasMadeOfAndLittleMore) {
    std::mt19937_64 random(26);
    std::uniform_real_distribution<double> exponents(-6, 11);
    for (int i = 0; i < 20000; ++i) {
        double const metres = std::pow(10, exponents(random));
        std::string const text = FigureText(metres);
        double figure = 0;
        ASSERT_TRUE(ReadFigure(text, &figure)) << text;
        ASSERT_TRUE(Holds(metres, figure)) << text;
        ASSERT_LE(figure, metres * 1.1000001) << text;
        ASSERT_EQ(FigureText(figure), text);
    }
}

TEST(Figure, ReadsNothingButFigures) {
    double figure = 7;
    for (char const* const text : {"", " ", "-", "0.001", "1.0e-6", "123", "0.0011 ", "+0.0011", "-0.0011",
                                   "nan", "None", "1e-7", "0x1p3", "0.0011m"}) {
        EXPECT_FALSE(ReadFigure(text, &figure)) << text;
    }
    EXPECT_EQ(figure, 7);
    EXPECT_TRUE(ReadFigure("none", &figure));
    EXPECT_TRUE(std::isnan(figure));
}

TEST(Figure, HoldsNoNumberOnlyWhereItSaysSo) {
    EXPECT_TRUE(Holds(NotANumber, NotANumber));
    EXPECT_TRUE(Holds(Infinity, NotANumber));
    EXPECT_FALSE(Holds(1, NotANumber));
    EXPECT_FALSE(Holds(NotANumber, 1));
    EXPECT_FALSE(Holds(Infinity, 1));
    EXPECT_FALSE(Holds(1.01, 1));
    EXPECT_TRUE(Holds(1, 1));
}

} // namespace
