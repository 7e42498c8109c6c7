#include "tests/memory/Fingerprint.h"
#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "frame/NumberText.h"
#include "hostkit/XmlIni.h"
#include "shell/units/LinearUnit.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;

using TKeys = std::map<int, std::string>;
using TSystem = TShellReferenceSystem;

/** A text that a system writes; its old content stays after a failure. */
struct TTextExport {
    char const* name;
    unsigned onFailure;
    bool (*write)(TSystem const&, std::string*);
};

TTextExport const textExports[] = {
    {"WriteToString", False, [](TSystem const& s, std::string* text) { return s.WriteToString(*text); }},
    {"ExportToMIFMID", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportToMIFMID(text, false); }},
    {"ExportToMIFMID with the datum", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportToMIFMID(text, true); }},
    {"ExportToWKT", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportToWKT(text, false, false); }},
    {"ExportToWKT of all", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportToWKT(text, true, true); }},
    {"ExportAxesToWKT", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportAxesToWKT(text); }},
    {"ExportDatumToMIFMID", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportDatumToMIFMID(text, true); }},
    {"ExportDatumToWKT", BadAlloc,
     [](TSystem const& s, std::string* text) { return s.ExportDatumToWKT(text); }},
    {"names", BadAlloc,
     [](TSystem const& s, std::string* text) {
         std::string const names = s.GetMapProjectionName() + s.GetPlaneUnitName() +
                                   s.GetPlaneUnitShortName() + s.GetHeightUnitName() +
                                   s.GetHeightUnitShortName() + s.GetGeoidSetting() + s.GetGeoidID() +
                                   s.GetProxyRefSysName() + s.GetProxyGeoidSetting() + s.Name;
         *text = names;
         return true;
     }},
    {"the proxy's text", False | BadAlloc,
     [](TSystem const& s, std::string* text) {
         std::string const proxy = s.GetProxyRefSysStr();
         if (proxy.empty()) {
             return false; // the getter's own way to tell
         }
         *text = proxy;
         return true;
     }},
};

/** Keys that a system writes; those that were there stay as they are. */
struct TKeyExport {
    char const* name;
    bool (*write)(TSystem const&, TKeys*);
};

constexpr TKeyExport keyExports[] = {
    {"ExportToGeoTIFF", [](TSystem const& s, TKeys* keys) { return s.ExportToGeoTIFF(keys, false); }},
    {"ExportToGeoTIFF with the geoid",
     [](TSystem const& s, TKeys* keys) { return s.ExportToGeoTIFF(keys, true); }},
    {"ExportToGeoTIFFClassified",
     [](TSystem const& s, TKeys* keys) { return s.ExportToGeoTIFFClassified(keys); }},
    {"ExportToPanorama", [](TSystem const& s, TKeys* keys) { return s.ExportToPanorama(keys, true); }},
};

std::string DescribeKeys(TKeys const& keys) {
    std::string text;
    for (auto const& [key, value] : keys) {
        text += FormatText("%d ", key) + value + "\n";
    }
    return text;
}

std::string DescribeTree(TStringTree const& tree) {
    return TestSupport::TextOf(tree);
}

std::string DescribeCoords(TShellCoords const& coords) {
    return coords.Coord[0] + "|" + coords.Coord[1] + "|" + coords.Coord[2];
}

/** The subjects in whose exports every class of the shell takes part. */
std::vector<TSubject> Exported() {
    std::vector<TSubject> subjects = WholeSystems();
    for (auto const* const more : {&ProjectedSystems(), &DatumsAndUnits()}) {
        subjects.insert(subjects.end(), more->begin(), more->end());
    }
    return subjects;
}

class WritingSweep : public testing::Test {
protected:
    /** Sweeps an operation that has a form here; one without leaves nothing to lack memory for. */
    static bool SweepIfDone(TOperation const& operation) {
        TRun const run = operation.begin();
        bool isDone = false;
        try {
            isDone = run.act() == Done;
        } catch (std::exception const&) {
            // Such as a unit that this kind hasn't: the kind has no such export.
        }
        if (isDone) {
            Sweep("writing", operation);
        }
        return isDone;
    }
};

TEST_F(WritingSweep, ATextStaysAsItWas) {
    int forms = 0;
    for (TSubject const& subject : Exported()) {
        std::shared_ptr<TSystem> const system = SystemOf(subject.text);
        for (TTextExport const& row : textExports) {
            forms += SweepIfDone(
                FillsText(subject.name + ", " + row.name, row.onFailure,
                          [system, &row](std::string* text) { return row.write(*system, text); }));
        }
    }
    EXPECT_GT(forms, 200);
}

TEST_F(WritingSweep, KeysStayAsTheyWere) {
    int forms = 0;
    for (TSubject const& subject : Exported()) {
        std::shared_ptr<TSystem> const system = SystemOf(subject.text);
        for (TKeyExport const& row : keyExports) {
            TKeys const before = {{1, "a key that was there before, with memory of its own"}};
            forms += SweepIfDone(Fills<TKeys>(
                subject.name + ", " + row.name, BadAlloc, before,
                [system, &row](TKeys* keys) { return row.write(*system, keys); }, &DescribeKeys));
        }
    }
    EXPECT_GT(forms, 80);
}

TEST_F(WritingSweep, AnXmlDocumentIsRefused) {
    for (TSubject const& subject : WholeSystems()) {
        std::shared_ptr<TSystem> const system = SystemOf(subject.text);
        for (bool const isTree : {false, true}) {
            auto const begin = [system, isTree] {
                auto const writer = std::make_shared<VellariHostKit::TXmlIniWriter>();
                auto const isWhole = std::make_shared<bool>(false);
                return TRun{[=] {
                                *isWhole = isTree ? system->WriteToXML(writer.get())
                                                  : system->SaveToXML(writer.get());
                                return *isWhole ? Done : False;
                            },
                            [=] { return *isWhole ? writer->ToString() : std::string("not whole"); }};
            };
            EXPECT_TRUE(SweepIfDone({subject.name + (isTree ? ", WriteToXML" : ", SaveToXML"),
                                     isTree ? unsigned(False) : False | BadAlloc, begin}));
        }
    }
}

TEST_F(WritingSweep, AGeneratedDescriptionFailsWhole) {
    TShellCoords origin;
    origin.Coord[0] = origin.Coord[1] = origin.Coord[2] = "1";
    using TFill = std::function<bool(TSystem const&, TStringTree*)>;
    std::pair<char const*, TFill> const fills[] = {
        {"internal",
         [&](TSystem const& s, TStringTree* tree) { return s.FillInternalRefSystemTree(tree, origin); }},
        {"geodetic",
         [](TSystem const& s, TStringTree* tree) { return s.FillPrimaryGeodeticRefSystemTree(tree) == 0; }},
        {"degrees", [](TSystem const& s,
                       TStringTree* tree) { return s.FillPrimaryGeodeticRefSystemTreeDeg(tree) == 0; }},
        {"geocentric",
         [](TSystem const& s, TStringTree* tree) { return s.FillPrimaryGeocentricRefSystemTree(tree) == 0; }},
    };
    int forms = 0;
    for (TSubject const& subject : WholeSystems()) {
        std::shared_ptr<TSystem> const system = SystemOf(subject.text);
        for (auto const& row : fills) {
            TOperation operation = Edits<TOwnedTree>(
                subject.name + ", " + row.first, False | BadAlloc | RuntimeError,
                [] { return std::make_unique<TOwnedTree>(); },
                [&, system](TStringTree* tree) { return row.second(*system, tree); }, &DescribeTree);
            operation.anyState = true; // the tree is the caller's to end: steps that are done stay
            forms += SweepIfDone(operation);
        }
    }
    EXPECT_GT(forms, 15);
}

TEST_F(WritingSweep, CoordinatesAsTextStayAsTheyWere) {
    TShellCoords before;
    before.Coord[0] = before.Coord[1] = before.Coord[2] = "a text that was there before";
    double const point[3] = {1.25, 2.5, 3.75};
    for (TSubject const& subject : WholeSystems()) {
        std::shared_ptr<TSystem> const system = SystemOf(subject.text);
        EXPECT_TRUE(SweepIfDone(Fills<TShellCoords>(
            subject.name + ", OutputCoords", BadAlloc, before,
            [&](TShellCoords* texts) {
                system->OutputCoords(point, texts, nullptr, 40, nullptr, 40);
                return true;
            },
            &DescribeCoords)));
        EXPECT_TRUE(SweepIfDone(Fills<TShellCoords>(
            subject.name + ", CoordsCoreToShell", BadAlloc, before,
            [&](TShellCoords* texts) {
                system->CoordsCoreToShell(TCoords{0.123456789012345, 0.987654321098765, 1e9 / 7, false},
                                          texts);
                return true;
            },
            &DescribeCoords)));
    }
}

} // namespace
} // namespace MemorySweep
