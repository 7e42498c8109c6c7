#include "core/transforms/FloatTable.h"

#include "frame/imported/Progress.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using FloatTable = KvRefSystem::T2DTable<float>;

// Hosts are compiled against this layout.
static_assert(sizeof(FloatTable) == 56);

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

/** Three columns 1 4, 2 5, 3 6 from (200, 100) on, 10 apart. */
constexpr char Sample[] = "2 3 10 100 200 1 2 3 4 5 6";

bool Load(FloatTable* table, std::string const& text) {
    return table->LoadFromString2(text, nullptr);
}

std::unique_ptr<FloatTable> Loaded(std::string const& text) {
    auto table = std::make_unique<FloatTable>();
    EXPECT_TRUE(Load(table.get(), text)) << text;
    return table;
}

void ExpectEmpty(FloatTable const& table) {
    EXPECT_EQ(table.SizeX, 0u);
    EXPECT_EQ(table.SizeY, 0u);
    EXPECT_EQ(table.StepX, 0.0f);
    EXPECT_EQ(table.StepY, 0.0f);
    EXPECT_EQ(table.OriginX, 0.0f);
    EXPECT_EQ(table.OriginY, 0.0f);
    EXPECT_EQ(table.MinValue, std::numeric_limits<float>::max());
    EXPECT_EQ(table.MaxValue, std::numeric_limits<float>::min());
    EXPECT_EQ(table.Rows, nullptr);
    EXPECT_EQ(table.Crc, 0u);
    EXPECT_FALSE(table.CrcValid);
}

/** Writes down what it is told. */
class TProgressRecorder : public TKvProgressHandler {
public:
    void OnStart(unsigned long steps) override { starts.push_back(steps); }
    void OnProgress(unsigned long done) override {
        progress.push_back(done);
        if (throwing) {
            throw std::runtime_error("stopped by the user");
        }
    }
    void OnStop() override { ++stops; }

    std::vector<unsigned long> starts;
    std::vector<unsigned long> progress;
    int stops = 0;
    bool throwing = false;
};

// --- State -------------------------------------------------------------------------------------------------

TEST(FloatTable, BeginsEmptyWithTheLeastValueAboveTheGreatest) {
    FloatTable const table;
    ExpectEmpty(table);
    EXPECT_GT(table.MinValue, table.MaxValue);
    EXPECT_GT(table.MaxValue, 0.0f);
}

TEST(FloatTable, MembersLieInTheStatedOrder) {
    FloatTable const table;
    auto const offset = [&table](void const* member) {
        return static_cast<char const*>(member) - reinterpret_cast<char const*>(&table);
    };
    EXPECT_EQ(offset(&table.SizeX), 8);
    EXPECT_EQ(offset(&table.SizeY), 12);
    EXPECT_EQ(offset(&table.StepX), 16);
    EXPECT_EQ(offset(&table.StepY), 20);
    EXPECT_EQ(offset(&table.OriginX), 24);
    EXPECT_EQ(offset(&table.OriginY), 28);
    EXPECT_EQ(offset(&table.MinValue), 32);
    EXPECT_EQ(offset(&table.MaxValue), 36);
    EXPECT_EQ(offset(&table.Rows), 40);
    EXPECT_EQ(offset(&table.Crc), 48);
    EXPECT_EQ(offset(&table.CrcValid), 52);
}

TEST(FloatTable, SetupMakesATableOfZeros) {
    FloatTable table;
    table.Setup(3, 2, 10.0f, 20.0f, -1.0f, -2.0f);
    EXPECT_EQ(table.SizeX, 3u);
    EXPECT_EQ(table.SizeY, 2u);
    EXPECT_EQ(table.StepX, 10.0f);
    EXPECT_EQ(table.StepY, 20.0f);
    EXPECT_EQ(table.OriginX, -1.0f);
    EXPECT_EQ(table.OriginY, -2.0f);
    EXPECT_GT(table.MinValue, table.MaxValue);
    EXPECT_FALSE(table.CrcValid);
    for (unsigned x = 0; x < 3; ++x) {
        for (unsigned y = 0; y < 2; ++y) {
            EXPECT_EQ(table.Rows[x][y], 0.0f);
        }
    }
}

TEST(FloatTable, SetupForgetsWhatWasThere) {
    auto const table = Loaded(Sample);
    table->Setup(1, 1, 1.0f, 1.0f, 0.0f, 0.0f);
    EXPECT_EQ(table->SizeX, 1u);
    EXPECT_EQ(table->MinValue, std::numeric_limits<float>::max());
    EXPECT_EQ(table->MaxValue, std::numeric_limits<float>::min());
    EXPECT_FALSE(table->CrcValid);
    EXPECT_EQ(table->Crc, 0u);
    EXPECT_EQ(table->Rows[0][0], 0.0f);
}

TEST(FloatTable, SetupMayTakeItsOwnNumbers) {
    FloatTable table;
    table.Setup(1, 1, 10.0f, 20.0f, -1.0f, -2.0f);
    table.Setup(2, 2, table.StepY, table.StepX, table.OriginY, table.OriginX);
    EXPECT_EQ(table.StepX, 20.0f);
    EXPECT_EQ(table.StepY, 10.0f);
    EXPECT_EQ(table.OriginX, -2.0f);
    EXPECT_EQ(table.OriginY, -1.0f);
}

TEST(FloatTable, SetupOfNoColumnsIsSafe) {
    FloatTable table;
    table.Setup(0, 5, 1.0f, 1.0f, 0.0f, 0.0f);
    EXPECT_EQ(table.InterpolateValue(1.0f, 1.0f), 0.0f);
    FloatTable const copy(table);
    EXPECT_TRUE(copy == table);
    table.Setup(5, 0, 1.0f, 1.0f, 0.0f, 0.0f);
    EXPECT_EQ(table.InterpolateValue(1.0f, 1.0f), 0.0f);
    FloatTable const second(table);
    EXPECT_TRUE(second == table);
}

TEST(FloatTable, CopyIsDeepAndWhole) {
    auto const table = Loaded(Sample);
    FloatTable const copy(*table);
    EXPECT_EQ(copy.SizeX, 3u);
    EXPECT_EQ(copy.SizeY, 2u);
    EXPECT_EQ(copy.StepX, 10.0f);
    EXPECT_EQ(copy.StepY, 10.0f);
    EXPECT_EQ(copy.OriginX, 200.0f);
    EXPECT_EQ(copy.OriginY, 100.0f);
    EXPECT_EQ(copy.MinValue, 1.0f);
    EXPECT_EQ(copy.MaxValue, 6.0f);
    EXPECT_EQ(copy.Crc, 0xaff2ec06u);
    EXPECT_TRUE(copy.CrcValid);
    EXPECT_NE(copy.Rows, table->Rows);
    EXPECT_NE(copy.Rows[0], table->Rows[0]);
    EXPECT_TRUE(copy == *table);
    table->Rows[2][1] = 0.0f;
    EXPECT_EQ(copy.Rows[2][1], 6.0f);
}

TEST(FloatTable, CopyOfAnEmptyTableIsEmpty) {
    FloatTable const empty;
    FloatTable const copy(empty);
    ExpectEmpty(copy);
    EXPECT_TRUE(copy == empty);
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(FloatTable, ReadsRowAfterRowByRisingY) {
    auto const table = Loaded(Sample);
    EXPECT_EQ(table->SizeX, 3u);
    EXPECT_EQ(table->SizeY, 2u);
    EXPECT_EQ(table->OriginX, 200.0f);
    EXPECT_EQ(table->OriginY, 100.0f);
    float const expected[3][2] = {{1, 4}, {2, 5}, {3, 6}};
    for (unsigned x = 0; x < 3; ++x) {
        for (unsigned y = 0; y < 2; ++y) {
            EXPECT_EQ(table->Rows[x][y], expected[x][y]);
        }
    }
    EXPECT_EQ(table->MinValue, 1.0f);
    EXPECT_EQ(table->MaxValue, 6.0f);
}

TEST(FloatTable, UsesOneStepForBothAxes) {
    auto const table = Loaded("1 1 2.5 0 0 7");
    EXPECT_EQ(table->StepX, 2.5f);
    EXPECT_EQ(table->StepY, 2.5f);
}

TEST(FloatTable, CrcRunsOverTheColumns) {
    // Python: zlib.crc32 over the little-endian floats column by column.
    auto const table = Loaded(Sample);
    EXPECT_TRUE(table->CrcValid);
    EXPECT_EQ(table->Crc, 0xaff2ec06u);
    EXPECT_EQ(Loaded("3 3 1 0 0 0.1 -2.5 3e5 -0.0 7 8 1e-3 42 -1")->Crc, 0x8a11295cu);
}

TEST(FloatTable, AnyOfFourCharactersSeparates) {
    auto const table = Loaded("\r\n2\t\t3 \n 10\r\n100   200\n1 2 3\r\n4 5 6\r\n");
    EXPECT_EQ(table->Crc, 0xaff2ec06u);
}

TEST(FloatTable, RefusesATextWithoutTokens) {
    FloatTable table;
    EXPECT_FALSE(Load(&table, ""));
    EXPECT_FALSE(Load(&table, " \r\n\t "));
    ExpectEmpty(table);
}

TEST(FloatTable, RefusesABadField) {
    for (char const* const text : {
             "0 3 10 100 200 1 2 3 4 5 6",                     // ny of 0
             "2 0 10 100 200 1 2 3 4 5 6",                     // nx of 0
             "-2 3 10 100 200 1 2 3 4 5 6",                    // negative counts
             "2 -3 10 100 200 1 2 3 4 5 6",                    //
             "-2 -3 10 100 200 1 2 3 4 5 6",                   //
             "two 3 10 100 200 1 2 3 4 5 6",                   // not a number
             "2.0 3 10 100 200 1 2 3 4 5 6",                   // not a whole one
             "2 3x 10 100 200 1 2 3 4 5 6",                    //
             "4294967298 3 10 100 200 1 2 3 4",                // beyond an int
             "2 3 0 100 200 1 2 3 4 5 6",                      // a step of 0
             "2 3 -10 100 200 1 2 3 4 5 6",                    // a negative step
             "2 3 nan 100 200 1 2 3 4 5 6",                    //
             "2 3 ten 100 200 1 2 3 4 5 6",                    // a step that can't be read
             "2 3 10 north 200 1 2 3 4 5 6",                   // origins that can't be read
             "2 3 10 100 east 1 2 3 4 5 6",                    //
             "2 3 10 100,5 200 1 2 3 4 5 6",                   // not the decimal point
             "2 3 10 1.7976931348623157e+308 200 1 2 3 4 5 6", // the number that stands for unreadable
             "2 3 10",                                         // fields missing
             "2 3 10 100",                                     //
         }) {
        FloatTable table;
        EXPECT_FALSE(Load(&table, text)) << text;
        ExpectEmpty(table);
    }
}

TEST(FloatTable, RefusesATokenTooFewBeforeItTouchesTheTable) {
    FloatTable table;
    EXPECT_FALSE(Load(&table, "2 3 10 100 200 1 2 3 4 5"));
    EXPECT_FALSE(Load(&table, "2 3 10 100 200 1 2 3 4                                5"));
    ExpectEmpty(table);
    EXPECT_FALSE(Load(&table, "1 1 10 100 200"));
    ExpectEmpty(table);
}

TEST(FloatTable, SurplusTokensPass) {
    auto const table = Loaded(std::string(Sample) + " 7 and more");
    EXPECT_EQ(table->Crc, 0xaff2ec06u);
    EXPECT_EQ(table->MaxValue, 6.0f);
}

TEST(FloatTable, RefusesCountsThatTheTextCannotHold) {
    for (char const* const text : {
             "65536 65536 1 0 0",           // 2^32 and 5 more: 5 tokens in 32 bits
             "65536 65536 1 0 0 1 2 3",     //
             "2147483647 2147483647 1 0 0", //
             "1 2147483647 1 0 0 1",        //
             "2147483647 2 1 0 0 1 2 3 4",  //
             "1000000 1 1 0 0 1",           //
         }) {
        FloatTable table;
        EXPECT_FALSE(Load(&table, text)) << text;
        ExpectEmpty(table);
    }
}

TEST(FloatTable, ACountAboveWhatTheTextCanHoldIsRefusedBeforeTheWorkStarts) {
    // Seven tokens need thirteen characters; these are twelve.
    TProgressRecorder progress;
    FloatTable table;
    EXPECT_FALSE(table.LoadFromString2("1 2 1 0 0 1 ", &progress));
    EXPECT_TRUE(progress.starts.empty());
    // Thirteen could hold them: only the splitting tells that one is missing.
    EXPECT_FALSE(table.LoadFromString2("1 2 1 0 0 1  ", &progress));
    EXPECT_EQ(progress.starts.size(), 1u);
}

TEST(FloatTable, EndsAtAZeroByte) {
    FloatTable table;
    std::string text = Sample;
    text += '\0';
    text += " 7";
    EXPECT_TRUE(Load(&table, text));
    text = "2 3 10 100 200 1 2 3 4 5 ";
    text += '\0';
    text += "6 7 8 9";
    EXPECT_FALSE(Load(&table, text));
}

TEST(FloatTable, BadValueEndsTheReadingAndKeepsWhatCameBefore) {
    FloatTable table;
    EXPECT_FALSE(Load(&table, "2 3 10 100 200 1 2 3 4 bad 6"));
    EXPECT_EQ(table.SizeX, 3u);
    EXPECT_EQ(table.SizeY, 2u);
    EXPECT_EQ(table.Rows[0][0], 1.0f);
    EXPECT_EQ(table.Rows[1][0], 2.0f);
    EXPECT_EQ(table.Rows[2][0], 3.0f);
    EXPECT_EQ(table.Rows[0][1], 4.0f);
    EXPECT_EQ(table.Rows[1][1], 0.0f);
    EXPECT_EQ(table.Rows[2][1], 0.0f); // not read
    EXPECT_FALSE(table.CrcValid);
    EXPECT_EQ(table.Crc, 0u);
}

TEST(FloatTable, BadValueCountsAsZeroForTheLeastAndTheGreatest) {
    FloatTable table;
    EXPECT_FALSE(Load(&table, "1 3 10 100 200 5 6 bad"));
    EXPECT_EQ(table.MinValue, 0.0f);
    EXPECT_EQ(table.MaxValue, 6.0f);
    FloatTable negative;
    EXPECT_FALSE(Load(&negative, "1 2 10 100 200 -5 1x"));
    EXPECT_EQ(negative.MinValue, -5.0f);
    EXPECT_EQ(negative.MaxValue, 0.0f);
}

TEST(FloatTable, NegativeValuesHaveANegativeGreatest) {
    // The greatest value begins above all of these; the first value replaces both bounds.
    auto const table = Loaded("1 3 10 100 200 -5 -6 -4");
    EXPECT_EQ(table->MinValue, -6.0f);
    EXPECT_EQ(table->MaxValue, -4.0f);
}

TEST(FloatTable, FailedReadingIsNeverMarkedValid) {
    auto const table = Loaded(Sample);
    EXPECT_FALSE(Load(table.get(), "nothing"));
    EXPECT_FALSE(table->CrcValid);
    EXPECT_EQ(table->SizeX, 3u);
    EXPECT_EQ(table->Rows[2][1], 6.0f);
}

TEST(FloatTable, ReadingReplacesWhatWasThere) {
    auto const table = Loaded(Sample);
    EXPECT_TRUE(Load(table.get(), "1 1 5 6 7 8"));
    EXPECT_EQ(table->SizeX, 1u);
    EXPECT_EQ(table->SizeY, 1u);
    EXPECT_EQ(table->StepX, 5.0f);
    EXPECT_EQ(table->OriginX, 7.0f);
    EXPECT_EQ(table->OriginY, 6.0f);
    EXPECT_EQ(table->MinValue, 8.0f);
    EXPECT_EQ(table->MaxValue, 8.0f);
    EXPECT_TRUE(table->CrcValid);
}

TEST(FloatTable, ValuesAreReadAsFloats) {
    // 1 + 2^-24 + 2^-60 lies above the middle between two floats; by way of a double it would end on it and
    // then go to the even neighbour 1.
    auto const table = Loaded("1 1 1 0 0 1.000000059604644776257986737988403547");
    EXPECT_EQ(table->Rows[0][0], 1.00000011920928955078125f);
}

TEST(FloatTable, EveryPrefixOfATextEndsWell) {
    std::string const text = "2 3 1e1 100 200 1 2 3 4 5 66";
    for (std::size_t length = 0; length + 1 < text.size(); ++length) {
        FloatTable table;
        EXPECT_FALSE(Load(&table, text.substr(0, length))) << length;
    }
}

TEST(FloatTable, ReadingTellsTheProgress) {
    FloatTable table;
    TProgressRecorder recorder;
    EXPECT_TRUE(table.LoadFromString2(Sample, &recorder));
    EXPECT_EQ(recorder.starts, (std::vector<unsigned long>{11 + 2}));
    EXPECT_EQ(recorder.progress, (std::vector<unsigned long>{1, 2}));
    EXPECT_EQ(recorder.stops, 1);
}

TEST(FloatTable, ProgressStopsOnEveryWayOut) {
    FloatTable table;
    TProgressRecorder recorder;
    EXPECT_FALSE(table.LoadFromString2("2 3 10 100 200 1 2 3 4 5 ", &recorder));
    EXPECT_FALSE(table.LoadFromString2("2 3 10 100 200 1 2 3 4          5", &recorder));
    EXPECT_FALSE(table.LoadFromString2("2 3 10 100 200 1 2 3 4 bad 6", &recorder));
    EXPECT_EQ(recorder.starts.size(), static_cast<std::size_t>(recorder.stops));
    EXPECT_GE(recorder.stops, 2);
}

TEST(FloatTable, ExceptionsInReadingBecomeFalse) {
    FloatTable table;
    TProgressRecorder recorder;
    recorder.throwing = true;
    EXPECT_FALSE(table.LoadFromString2(Sample, &recorder));
    EXPECT_FALSE(table.CrcValid);
    EXPECT_EQ(recorder.stops, 1);
}

// --- Lookup ------------------------------------------------------------------------------------------------

TEST(FloatTable, InterpolatesBetweenFourValues) {
    // By hand.
    auto const table = Loaded(Sample);
    EXPECT_EQ(table->InterpolateValue(205.0f, 105.0f), 3.0f);
    EXPECT_EQ(table->InterpolateValue(210.0f, 100.0f), 2.0f);
    EXPECT_EQ(table->InterpolateValue(202.5f, 100.0f), 1.25f);
    EXPECT_EQ(table->InterpolateValue(200.0f, 102.5f), 1.75f);
    EXPECT_EQ(table->InterpolateValue(212.5f, 107.5f), 4.5f);
    auto const saddle = Loaded("2 2 1 0 0 0 10 20 100");
    EXPECT_EQ(saddle->InterpolateValue(0.5f, 0.25f), 0.75f * 5.0f + 0.25f * 60.0f);
}

TEST(FloatTable, LastGridLineGivesTheLastColumn) {
    auto const table = Loaded(Sample);
    EXPECT_EQ(table->InterpolateValue(220.0f, 100.0f), 3.0f);
    EXPECT_EQ(table->InterpolateValue(220.0f, 105.0f), 4.5f);
    EXPECT_EQ(table->InterpolateValue(220.0f, 110.0f), 6.0f);
    EXPECT_EQ(table->InterpolateValue(200.0f, 110.0f), 4.0f);
}

TEST(FloatTable, LastGridLineStillBelongsToTheLastCell) {
    // So the column before it takes part with the weight 0, which an infinity doesn't survive.
    auto const table = Loaded(Sample);
    table->Rows[1][0] = Infinity;
    EXPECT_TRUE(std::isnan(table->InterpolateValue(220.0f, 100.0f)));
    EXPECT_TRUE(std::isnan(table->InterpolateValue(1e9f, 100.0f)));
}

TEST(FloatTable, OutsideTheNearestEdgeCounts) {
    auto const table = Loaded(Sample);
    EXPECT_EQ(table->InterpolateValue(0.0f, 0.0f), 1.0f);
    EXPECT_EQ(table->InterpolateValue(1e9f, 1e9f), 6.0f);
    EXPECT_EQ(table->InterpolateValue(215.0f, 100.0f), 2.5f);
    EXPECT_EQ(table->InterpolateValue(215.0f, -1e9f), 2.5f);
    EXPECT_EQ(table->InterpolateValue(-1e9f, 105.0f), 2.5f);
    EXPECT_EQ(table->InterpolateValue(1e9f, 105.0f), 4.5f);
    EXPECT_EQ(table->InterpolateValue(205.0f, 1e9f), 4.5f);
}

TEST(FloatTable, InfinitiesAndNaNsStayInTheTable) {
    auto const table = Loaded(Sample);
    EXPECT_EQ(table->InterpolateValue(Infinity, Infinity), 6.0f);
    EXPECT_EQ(table->InterpolateValue(-Infinity, -Infinity), 1.0f);
    // A NaN isn't beyond the origin.
    EXPECT_EQ(table->InterpolateValue(NotANumber, NotANumber), 1.0f);
    EXPECT_EQ(table->InterpolateValue(std::numeric_limits<float>::max(), 100.0f), 3.0f);
}

TEST(FloatTable, EmptyTableIsZeroEverywhere) {
    FloatTable const table;
    EXPECT_EQ(table.InterpolateValue(1.0f, 2.0f), 0.0f);
}

TEST(FloatTable, SingleRowsAndColumnsCountEverywhere) {
    auto const row = Loaded("1 3 10 100 200 1 2 3");
    EXPECT_EQ(row->InterpolateValue(205.0f, 0.0f), 1.5f);
    EXPECT_EQ(row->InterpolateValue(205.0f, 105.0f), 1.5f);
    EXPECT_EQ(row->InterpolateValue(1e9f, 1e9f), 3.0f);
    auto const column = Loaded("3 1 10 100 200 1 2 3");
    EXPECT_EQ(column->InterpolateValue(0.0f, 105.0f), 1.5f);
    EXPECT_EQ(column->InterpolateValue(205.0f, 105.0f), 1.5f);
    EXPECT_EQ(column->InterpolateValue(1e9f, 1e9f), 3.0f);
    auto const single = Loaded("1 1 10 100 200 7");
    EXPECT_EQ(single->InterpolateValue(0.0f, 0.0f), 7.0f);
    EXPECT_EQ(single->InterpolateValue(205.0f, 105.0f), 7.0f);
    EXPECT_EQ(single->InterpolateValue(1e9f, 1e9f), 7.0f);
}

TEST(FloatTable, LookupIsInFloat) {
    // 2^24 + 1 isn't a float: the place is that of 2^24.
    auto const table = Loaded("2 2 1 0 16777216 1 2 1 2");
    EXPECT_EQ(table->InterpolateValue(static_cast<float>(16777217.0), 0.0f), 1.0f);
    EXPECT_EQ(table->InterpolateValue(static_cast<float>(16777218.0), 0.0f), 2.0f);
}

TEST(FloatTable, WeightsAndSumsAreFloats) {
    // In Python, rounding to float after every step of the formula; with doubles it is 734.96905518.
    auto const table = Loaded("2 2 1 0 0 298 855 967 608");
    EXPECT_EQ(table->InterpolateValue(0.797f, 0.114f), 734.9689331054688f);
}

TEST(FloatTable, OddStepsStayInTheTable) {
    FloatTable table;
    table.Setup(2, 2, 0.0f, -1.0f, 0.0f, 0.0f);
    table.Rows[0][0] = 1.0f;
    table.Rows[1][0] = 2.0f;
    table.Rows[0][1] = 3.0f;
    table.Rows[1][1] = 4.0f;
    EXPECT_EQ(table.InterpolateValue(5.0f, 5.0f), 2.0f);
    EXPECT_EQ(table.InterpolateValue(-5.0f, -5.0f), 1.0f);
    // The distance in infinite steps is a NaN, which ends at the last cell.
    table.StepX = Infinity;
    table.StepY = Infinity;
    EXPECT_EQ(table.InterpolateValue(Infinity, Infinity), 4.0f);
    // A step that is too small for a float is 0 in the table.
    EXPECT_EQ(Loaded("2 2 1e-300 0 0 1 2 3 4")->InterpolateValue(5.0f, 5.0f), 4.0f);
}

TEST(FloatTable, TheOriginBelongsToTheFirstCellWhateverTheStep) {
    FloatTable table;
    // From the origin on, the distance in steps of 0 is a NaN, which would end at the last cell.
    table.Setup(2, 2, 0.0f, 0.0f, 10.0f, 20.0f);
    table.Rows[0][0] = 1.0f;
    table.Rows[1][0] = 2.0f;
    table.Rows[0][1] = 3.0f;
    table.Rows[1][1] = 4.0f;
    EXPECT_EQ(table.InterpolateValue(10.0f, 20.0f), 1.0f);
    EXPECT_EQ(table.InterpolateValue(11.0f, 20.0f), 2.0f);
    EXPECT_EQ(table.InterpolateValue(10.0f, 21.0f), 3.0f);
}

// --- Equality ----------------------------------------------------------------------------------------------

TEST(FloatTable, ReadTwiceFromOneTextIsEqual) {
    auto const first = Loaded(Sample);
    auto const second = Loaded(Sample);
    EXPECT_EQ(first->Crc, second->Crc);
    EXPECT_TRUE(*first == *second);
}

TEST(FloatTable, EqualityComparesEveryNumber) {
    auto const table = Loaded(Sample);
    for (char const* const text : {
             "3 2 10 100 200 1 2 3 4 5 6", //
             "2 3 20 100 200 1 2 3 4 5 6", //
             "2 3 10 101 200 1 2 3 4 5 6", //
             "2 3 10 100 201 1 2 3 4 5 6", //
             "2 3 10 100 200 0 2 3 4 5 6", // another least value
             "2 3 10 100 200 1 2 3 4 5 7", // another greatest value
             "2 3 10 100 200 1 2 4 3 5 6", // the same values elsewhere
         }) {
        EXPECT_FALSE(*table == *Loaded(text)) << text;
        EXPECT_FALSE(*Loaded(text) == *table) << text;
    }
    float FloatTable::*const numbers[] = {&FloatTable::StepX,   &FloatTable::StepY,    &FloatTable::OriginX,
                                          &FloatTable::OriginY, &FloatTable::MinValue, &FloatTable::MaxValue};
    for (auto const number : numbers) {
        FloatTable other(*table);
        other.*number += 1.0f;
        EXPECT_FALSE(*table == other);
    }
}

TEST(FloatTable, CrcRefusesOnlyWhenBothAreValid) {
    auto const table = Loaded(Sample);
    FloatTable other(*table);
    other.Crc ^= 1;
    EXPECT_FALSE(*table == other);
    other.CrcValid = false;
    EXPECT_TRUE(*table == other);
    EXPECT_TRUE(other == *table);
}

TEST(FloatTable, EqualCrcsDoNotMakeTablesEqual) {
    auto const table = Loaded(Sample);
    FloatTable other(*table);
    other.Rows[1][1] = 5.5f;
    EXPECT_FALSE(*table == other);
}

TEST(FloatTable, TableBuiltWithoutReadingIsComparedByItsValues) {
    auto const table = Loaded(Sample);
    FloatTable built;
    built.Setup(3, 2, 10.0f, 10.0f, 200.0f, 100.0f);
    built.MinValue = 1.0f;
    built.MaxValue = 6.0f;
    EXPECT_FALSE(*table == built);
    for (unsigned x = 0; x < 3; ++x) {
        built.Rows[x][0] = static_cast<float>(x + 1);
        built.Rows[x][1] = static_cast<float>(x + 4);
    }
    EXPECT_FALSE(built.CrcValid);
    EXPECT_TRUE(*table == built);
    EXPECT_TRUE(built == *table);
}

TEST(FloatTable, ZerosOfBothSignsDifferByTheirCrc) {
    // Kept: the CRC looks at the bytes.
    auto const plus = Loaded("1 2 1 0 0 0.0 1");
    auto const minus = Loaded("1 2 1 0 0 -0.0 1");
    EXPECT_EQ(plus->Rows[0][0], minus->Rows[0][0]);
    EXPECT_FALSE(*plus == *minus);
    minus->CrcValid = false;
    EXPECT_TRUE(*plus == *minus);
}

TEST(FloatTable, NaNValuesAreNeverEqual) {
    auto const table = Loaded(Sample);
    table->Rows[1][1] = NotANumber;
    EXPECT_FALSE(*table == *table);
}

} // namespace
