#include "tests/memory/Fingerprint.h"
#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "core/projections/MapProjection.h"
#include "hostkit/XmlIni.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;

std::string Describe(TShellReferenceSystem const& system) {
    return FingerprintOf(system);
}

TOperation FromText(TSubject const& subject) {
    return Makes<TShellReferenceSystem>(
        subject.name + " from text", Null,
        [text = subject.text] {
            std::unique_ptr<TShellReferenceSystem> system;
            // The argument is the caller's: a copy of it that can't be made isn't the factory's failure.
            std::string argument;
            try {
                argument = text;
            } catch (std::bad_alloc const&) {
                return system;
            }
            system.reset(CreateShellReferenceSystem(std::move(argument), nullptr));
            return system;
        },
        &Describe);
}

TOperation FromTree(TSubject const& subject) {
    std::shared_ptr<TStringTree> const tree = TreeOf(subject.text);
    return Makes<TShellReferenceSystem>(
        subject.name + " from a tree", BadAlloc | RuntimeError,
        [tree] {
            return std::unique_ptr<TShellReferenceSystem>(CreateShellReferenceSystem(tree.get(), nullptr));
        },
        &Describe);
}

TOperation FromXml(TSubject const& subject) {
    auto const begin = [document = XmlOfText(subject.text)] {
        auto const reader = std::make_shared<VellariHostKit::TXmlIniReader>();
        reader->LoadString(document);
        auto const system = std::make_shared<std::unique_ptr<TShellReferenceSystem>>();
        return TRun{[reader, system] {
                        system->reset(CreateShellReferenceSystem(reader.get(), nullptr));
                        return *system ? Done : Null;
                    },
                    [system] { return *system ? FingerprintOf(**system) : std::string("none"); }};
    };
    return {subject.name + " from XML", BadAlloc | RuntimeError, begin};
}

/** The name in letters, digits and underscores. */
std::string TestName(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](unsigned char byte) { return std::isalnum(byte) == 0; }, '_');
    return name;
}

/** The subjects whose XML form makes a system again: of the projections only Transverse Mercator does. */
std::vector<TSubject> ReadableFromXml() {
    std::vector<TSubject> readable;
    for (TSubject const& subject : AllSubjects()) {
        try {
            VellariHostKit::TXmlIniReader reader;
            reader.LoadString(XmlOfText(subject.text));
            std::unique_ptr<TShellReferenceSystem> const system(CreateShellReferenceSystem(&reader, nullptr));
            if (system) {
                readable.push_back(subject);
            }
        } catch (std::runtime_error const&) {
            // The kinds of this subject have no XML constructor.
        }
    }
    return readable;
}

class CreatingSweep : public testing::TestWithParam<TSubject> {};

INSTANTIATE_TEST_SUITE_P(Subjects, CreatingSweep, testing::ValuesIn(AllSubjects()),
                         [](auto const& subject) { return TestName(subject.param.name); });

TEST_P(CreatingSweep, TheTextFactoryAnswersNull) {
    Sweep("creating", FromText(GetParam()));
}

TEST_P(CreatingSweep, TheTreeFactoryThrows) {
    Sweep("creating", FromTree(GetParam()));
}

TEST(CreatingFromXmlSweep, TheXmlFactoryThrows) {
    std::vector<TSubject> const subjects = ReadableFromXml();
    EXPECT_GE(subjects.size(), 30u);
    for (TSubject const& subject : subjects) {
        Sweep("creating", FromXml(subject));
    }
}

} // namespace
} // namespace MemorySweep
