#include "tests/memory/Subjects.h"

#include "shell/refsystems/public/ReferenceSystemFactory.h"
#include "tests/support/CartesianKinds.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <stdexcept>

namespace MemorySweep {

using namespace KvRefSystem;
using namespace TestSupport;

namespace {

std::string const longName = "a label that is too long for a string without memory of its own";

std::string DescriptionOf(std::function<void(TStringTree*)> const& fill) {
    TStringTree tree;
    fill(&tree);
    return TextOf(tree);
}

/** A record of a grid that lies in a system of its own. */
TShellRefSystemTransform2DGridParams PlacedGrid() {
    TShellRefSystemTransform2DGridParams grid;
    grid.dE = "2 2 1000000 0 0 1 2 3 4";
    grid.dN = "2 2 1000000 0 0 4 3 2 1";
    grid.coef = 1;
    grid.refsys = DescriptionOf([](TStringTree* tree) {
        FillProjected(tree, On(Pulkovo1942(), TransverseMercator("9", "1", "500000")));
    });
    return grid;
}

/** Every record in the own chain; two pairs, since only the first one is found again by its name. */
void FillChains(TStringTree* tree) {
    TShellRefSystemTransform chain;
    for (auto const& record : Records()) {
        chain.AddNextTransform(*record);
    }
    chain.WriteToTree(Child(tree, 1108), "");
    chain.ClearTransforms();
    chain.AddNextTransform(HeightShift(2));
    chain.WriteToTree(Child(Child(tree, 1109), 1110, 0), "pair");
    chain.WriteToTree(Child(Child(tree, 1109), 1110, 1), longName);
    chain.ClearTransforms();
}

void FillWhole(TStringTree* tree) {
    FillRest(tree);
    tree->DeleteSubtree(1108, 0);
    tree->DeleteSubtree(1109, 0);
    SetField(tree, 1021, longName);
    FillChains(tree);
    tree->InsertInteger("Positive longitude", 1107, 0, 1);
}

TGeodeticText ShiftedBy(int type) {
    TGeodeticText text = Pulkovo1942();
    text.shiftType = type;
    return text;
}

} // namespace

std::vector<std::shared_ptr<TShellRefSystemTransformParams>> const& Records() {
    static auto const records = [] {
        auto affine = std::make_shared<TShellRefSystemTransform2DAffineParams>(true);
        affine->a13 = 10;
        affine->SetNameDecsription(longName, longName);
        auto grid = std::make_shared<TShellRefSystemTransform2DGridParams>();
        grid->dE = "2 2 1000000 0 0 1 2 3 4";
        grid->dN = "2 2 1000000 0 0 4 3 2 1";
        grid->coef = 1;
        auto height = std::make_shared<TShellRefSystemTransformShiftZParams>(HeightShift(1));
        return std::vector<std::shared_ptr<TShellRefSystemTransformParams>>{affine, grid, height};
    }();
    return records;
}

std::vector<TSubject> const& WholeSystems() {
    static auto const subjects = [] {
        std::vector<TSubject> made;
        for (TCartesianKind const& kind : CartesianKinds) {
            made.push_back({kind.name, DescriptionOf([&](TStringTree* tree) {
                                kind.fill(tree);
                                FillWhole(tree);
                            })});
        }
        made.push_back({"Geodetic", DescriptionOf([](TStringTree* tree) {
                            FillGeodetic(tree, Pulkovo1942());
                            FillWhole(tree);
                        })});
        made.push_back({"MapProjected", DescriptionOf([](TStringTree* tree) {
                            TProjectedText text = On(Pulkovo1942(), TransverseMercator("9", "0.9996", "5e5"));
                            text.datumAtRoot = true;
                            FillProjected(tree, Placed(text, 1, 1, -1));
                            FillWhole(tree);
                        })});
        return made;
    }();
    return subjects;
}

std::vector<TSubject> const& ProjectedSystems() {
    static auto const subjects = [] {
        std::vector<TSubject> made;
        for (int const type : AllProjectionTypes) {
            made.push_back({"projection " + std::to_string(type), DescriptionOf([&](TStringTree* tree) {
                                FillProjected(tree, On(WithZeroShift(), OfType(type)));
                            })});
        }
        return made;
    }();
    return subjects;
}

std::vector<TSubject> const& DatumsAndUnits() {
    static auto const subjects = [] {
        std::vector<TSubject> made;
        for (int const type : {0, 1, 2, 3}) {
            for (bool const exact : {false, true}) {
                made.push_back({"datum shift " + std::to_string(type) + (exact ? ", exact" : ""),
                                DescriptionOf([&](TStringTree* tree) {
                                    FillGeodetic(tree, ShiftedBy(type));
                                    if (exact && type > 0) {
                                        SetField(Child(Child(tree, 1107), 1102), 5469, "1");
                                    }
                                })});
            }
        }
        made.push_back({"PlacedGrid", DescriptionOf([](TStringTree* tree) {
                            FillProjected(tree, UtmZone(32, 'N'));
                            TShellRefSystemTransform chain;
                            chain.AddNextTransform(PlacedGrid());
                            chain.WriteToTree(Child(tree, 1108), "");
                            chain.ClearTransforms();
                        })});
        for (int const notation : {0, 7, 8, 10, 11}) {
            made.push_back({"notation " + std::to_string(notation), DescriptionOf([&](TStringTree* tree) {
                                TGeodeticText text = WithZeroShift();
                                text.angularUnit.code = notation;
                                text.meridianUnit = Grad();
                                text.meridian = "2.5969213";
                                text.heightUnit = Foot();
                                FillGeodetic(tree, text);
                            })});
        }
        return made;
    }();
    return subjects;
}

std::vector<TSubject> const& CatalogEntries() {
    static auto const subjects = [] {
        std::vector<TSubject> made;
        for (auto const& file : std::filesystem::directory_iterator(VELLARI_SOURCE_DIR "/catalog")) {
            if (file.path().extension() == ".txt") {
                made.push_back(
                    {"catalogue " + file.path().stem().string(), CatalogText(file.path().stem().string())});
            }
        }
        std::sort(made.begin(), made.end(),
                  [](TSubject const& one, TSubject const& other) { return one.name < other.name; });
        return made;
    }();
    return subjects;
}

std::vector<TSubject> AllSubjects() {
    std::vector<TSubject> all;
    for (auto const* const subjects :
         {&WholeSystems(), &ProjectedSystems(), &DatumsAndUnits(), &CatalogEntries()}) {
        all.insert(all.end(), subjects->begin(), subjects->end());
    }
    return all;
}

std::unique_ptr<TShellReferenceSystem> SystemOf(std::string const& text) {
    std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(text, nullptr));
    if (!system) {
        throw std::logic_error("no system comes from " + text);
    }
    return system;
}

std::unique_ptr<TOwnedTree> TreeOf(std::string const& text) {
    auto tree = std::make_unique<TOwnedTree>();
    tree->ReadFromString(text.c_str(), nullptr, nullptr);
    return tree;
}

std::string XmlOfText(std::string const& text) {
    VellariHostKit::TXmlIniWriter writer;
    if (!SystemOf(text)->SaveToXML(&writer)) {
        throw std::runtime_error("the system has no XML form");
    }
    return writer.ToString();
}

} // namespace MemorySweep
