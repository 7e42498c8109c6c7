#include "frame/XmlSectionsDetail.h"

#include "hostkit/XmlIni.h"
#include "tests/frame/MemoryXIni.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace KvRefSystem {
namespace {

/** Has sections and lets nobody in, as a reader that runs out of memory. */
class TClosedReader : public MemoryXIni::TReader {
public:
    using TReader::TReader;
    unsigned long EnterSection(unsigned long) override { return 0; }
};

/** Throws where it is to report. */
class TLockedReader : public MemoryXIni::TReader {
public:
    using TReader::TReader;
    bool LeaveSection(unsigned long) override { throw std::logic_error("locked"); }
};

std::string MessageOfEntering(TKvXIniReader* reader, char const* key) {
    try {
        TXmlReadSection section(reader, key);
        return section ? "entered" : "nothing there";
    } catch (std::runtime_error const& failure) {
        return failure.what();
    }
}

TEST(XmlSections, AWrittenSectionIsClosedWhenItsContentThrows) {
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_THROW(WriteXmlSection(&writer, "Section", []() -> bool { throw std::runtime_error("inside"); }),
                 std::runtime_error);

    // The document can only be asked for while no section is open.
    EXPECT_NE(writer.ToString().find("Section"), std::string::npos);
}

TEST(XmlSections, AWrittenSectionIsClosedWhenItsContentFails) {
    VellariHostKit::TXmlIniWriter writer;

    EXPECT_FALSE(WriteXmlSection(&writer, "Section", [] { return false; }));
    EXPECT_NE(writer.ToString().find("Section"), std::string::npos);
}

TEST(XmlSections, AReadSectionIsLeftWhenAnExceptionPasses) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString("<Vellari><Section><Inside>1</Inside></Section><After>2</After></Vellari>");

    try {
        TXmlReadSection section(&reader, "Section");
        ASSERT_TRUE(static_cast<bool>(section));
        EXPECT_EQ(ReadXmlInt(&reader, "Inside", 0), 1);
        throw std::runtime_error("inside");
    } catch (std::runtime_error const&) {
        EXPECT_EQ(ReadXmlText(&reader, "After"), "2");
    }
}

TEST(XmlSections, TheFirstOfTwoFailuresPassesWhenTheSectionCannotBeLeftEither) {
    MemoryXIni::TNode root;
    root.isSection = true;
    root.children.push_back({"Section", "", true, {}});
    TLockedReader reader(&root);
    TLockedReader another(&root);

    try {
        TXmlReadSection section(&reader, "Section");
        throw std::runtime_error("inside");
    } catch (std::runtime_error const& failure) {
        EXPECT_STREQ(failure.what(), "inside");
    }
    EXPECT_THROW(
        {
            TXmlReadSection section(&another, "Section");
            section.Leave();
        },
        std::logic_error);
}

TEST(XmlSections, AMissingSectionIsFalseAndLeavesNothing) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString("<Vellari><After>2</After></Vellari>");

    TXmlReadSection section(&reader, "Section");

    EXPECT_FALSE(static_cast<bool>(section));
    EXPECT_TRUE(section.Leave());
    EXPECT_EQ(ReadXmlInt(&reader, "Section", 7), 7);
}

TEST(XmlSections, ASectionThatIsThereAndCannotBeEnteredIsAnError) {
    MemoryXIni::TNode root;
    root.isSection = true;
    root.children.push_back({"Section", "", true, {}});
    root.children.push_back({"Value", "1", false, {}});
    TClosedReader closed(&root);
    MemoryXIni::TReader open(&root);

    EXPECT_EQ(MessageOfEntering(&closed, "Section"), "a section can't be entered: Section");
    EXPECT_EQ(MessageOfEntering(&closed, "Value"), "nothing there");
    EXPECT_EQ(MessageOfEntering(&closed, "Other"), "nothing there");
    EXPECT_EQ(MessageOfEntering(&open, "Section"), "entered");
}

} // namespace
} // namespace KvRefSystem
