#include "tests/support/FailingXml.h"

#include "tests/shell/projections/ProjectionTestKit.h"
#include "tests/support/ProjectedSystems.h"

#include <gtest/gtest.h>

#include <memory>

/** Map projections, written and read while one operation of the writer or the reader fails. */
namespace KvRefSystem {
namespace {

using TestSupport::AllProjectionTypes;
using TestSupport::ExpectToldReadFailures;
using TestSupport::ExpectToldWriteFailures;

constexpr int FalseOrigin = 23; // has no XML form

TEST(FailingProjectionXml, EveryClassTellsOfAFailedWriteAndWritesNoMore) {
    for (int const type : AllProjectionTypes) {
        if (type == FalseOrigin) {
            continue;
        }
        SCOPED_TRACE(type);
        auto const system = TestSupport::Projected(TestSupport::OfType(type));
        system->MapProjection->GeoTIFFCode = "16032";
        system->MapProjection->GeoTIFFType = "1";
        ExpectToldWriteFailures(
            [&](TKvXIniWriter* writer) { return system->MapProjection->SaveToXML(writer); });
    }
}

TEST(FailingProjectionXml, EveryClassTellsOfASectionThatCannotBeEnteredOrLeft) {
    for (auto const& shellClass : ProjectionTestKit::AllClasses()) {
        if (!shellClass.fromXml || shellClass.type == FalseOrigin) {
            continue;
        }
        SCOPED_TRACE(shellClass.name);
        VellariHostKit::TXmlIniWriter writer;
        ASSERT_TRUE(ProjectionTestKit::Create(shellClass.type)->SaveToXML(&writer));
        ExpectToldReadFailures(writer.ToString(),
                               [&](TKvXIniReader* reader) { return shellClass.fromXml(reader) != nullptr; });
    }
}

TEST(FailingProjectionXml, TheFactoryTellsByNull) {
    VellariHostKit::TXmlIniWriter writer;
    ASSERT_TRUE(TestSupport::Projected(TestSupport::OfType(1))->MapProjection->SaveToXML(&writer));

    ExpectToldReadFailures(writer.ToString(), [](TKvXIniReader* reader) {
        std::unique_ptr<TShellMapProjection> const read(CreateShellMapProjection(reader));
        return read != nullptr;
    });
    EXPECT_EQ(CreateShellMapProjection(nullptr), nullptr);
}

} // namespace
} // namespace KvRefSystem
