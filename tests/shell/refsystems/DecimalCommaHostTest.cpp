#include "shell/refsystems/GeodeticReferenceSystem.h"

#include "hostkit/XmlIni.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <string>

namespace KvRefSystem {
namespace {

using namespace TestSupport;

/** A host that has set a locale with a decimal comma. */
class DecimalCommaHost : public testing::Test {
protected:
    void SetUp() override {
        before = std::setlocale(LC_ALL, nullptr);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr)
            << "the locale de_DE.UTF-8 is not installed";
        char text[16] = {};
        std::snprintf(text, sizeof text, "%.1f", 0.5);
        ASSERT_STREQ(text, "0,5");
    }

    void TearDown() override { std::setlocale(LC_ALL, before.c_str()); }

    /** Everything that a system prints, in one text. */
    static std::string Printed() {
        std::string all;
        auto const system = Create(Pulkovo1942());
        TShellRefSystemTransformShiftZParams shift;
        shift.dH = 0.25;
        EXPECT_TRUE(system->AppendTransform(&shift));
        std::string text;
        EXPECT_TRUE(system->WriteToString(text));
        all += text;
        VellariHostKit::TXmlIniWriter writer;
        EXPECT_TRUE(system->SaveToXML(&writer));
        all += writer.ToString();
        for (bool const compound : {false, true}) {
            EXPECT_TRUE(system->ExportToWKT(&text, compound, false));
            all += text;
        }
        std::map<int, std::string> keys;
        EXPECT_TRUE(system->ExportToGeoTIFF(&keys, true));
        for (auto const& [key, value] : keys) {
            all += value + ";";
        }
        double const point[3] = {55.75, 37.62, 150.125};
        TShellCoords texts;
        system->OutputCoordsDef(point, &texts);
        all += texts.Coord[0] + texts.Coord[1] + texts.Coord[2];
        TShellCoords const numbers(1.5, 2.5, 3.5);
        all += numbers.Coord[0] + numbers.Coord[1] + numbers.Coord[2];
        return all;
    }

    std::string before;
};

TEST_F(DecimalCommaHost, PrintsTheSameByteForByte) {
    std::string const withComma = Printed();
    std::setlocale(LC_ALL, "C");

    EXPECT_EQ(withComma, Printed());
}

TEST_F(DecimalCommaHost, ReadsWhatIsWrittenWithAPoint) {
    auto const system = Create(Pulkovo1942());
    auto const target = Create(WithZeroShift());
    std::string text;
    ASSERT_TRUE(system->WriteToString(text));
    std::unique_ptr<TShellReferenceSystem> const fromText(CreateShellReferenceSystem(text, nullptr));
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(system->SaveToXML(&writer));
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    std::unique_ptr<TShellReferenceSystem> const fromXml(CreateShellReferenceSystem(&reader, nullptr));

    for (TShellReferenceSystem const* const read : {fromText.get(), fromXml.get()}) {
        ASSERT_NE(read, nullptr);
        EXPECT_TRUE(*read == *system);
        double latitude = 0;
        double longitude = 0;
        double height = 0;
        ASSERT_TRUE(TransformCoords(read, 55.75, 37.62, 150, target.get(), &latitude, &longitude, &height));
        // The value of cs2cs, as where a point is transformed without any locale.
        EXPECT_NEAR(latitude, 55.750042613104, 1e-11);
        EXPECT_NEAR(longitude, 37.618125891889, 1e-11);
    }
    TShellCoords texts;
    texts.Coord[0] = "55.75";
    texts.Coord[1] = "37.62";
    texts.Coord[2] = "150.5";
    double shell[3] = {};
    ASSERT_TRUE(system->InputCoords(texts, nullptr, nullptr, shell));
    EXPECT_EQ(shell[0], 55.75);
    EXPECT_EQ(shell[2], 150.5);
}

} // namespace
} // namespace KvRefSystem
