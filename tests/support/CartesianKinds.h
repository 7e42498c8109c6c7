#pragma once

#include "tests/support/CartesianSystems.h"
#include "tests/support/Systems.h"

#include <memory>
#include <ostream>
#include <string>
#include <utility>

/** The four kinds with three coordinates in one linear unit, as rows of tests that hold for each of them. */
namespace TestSupport {

using KvRefSystem::TShellReferenceSystem;

/** What every kind's description may hold besides its own: names, codes, chains and a proxy. */
inline void FillRest(TStringTree* tree) {
    SetField(tree, 1022, "short");
    for (int axis = 0; axis < 3; ++axis) {
        SetField(tree, 1025, "axis", axis);
    }
    SetField(tree, 102005, "4978");
    SetField(tree, 102800, "80020007");
    SetField(Child(tree, 101000), 101002, "m");
    FillGeodetic(Child(tree, 1112), Pulkovo1942());
    KvRefSystem::TShellRefSystemTransform chain;
    chain.AddNextTransform(HeightShift(1));
    chain.WriteToTree(Child(tree, 1108), "");
    chain.WriteToTree(Child(Child(tree, 1109), 1110), "pair");
    chain.ClearTransforms();
}

inline void FillGeocentricKind(TStringTree* tree) {
    TGeocentricText text;
    text.base = Pulkovo1942();
    FillGeocentric(tree, text);
}

inline void FillTopocentricKind(TStringTree* tree) {
    TTopocentricText text;
    text.base = Pulkovo1942();
    text.azimuth = "30";
    text.swap = 1;
    text.origin[0] = "55";
    FillTopocentric(tree, text);
}

inline void FillCartesianKind(TStringTree* tree) {
    TLocalText text;
    text.swap = 1;
    FillLocal(tree, text);
}

inline void FillCurvedKind(TStringTree* tree) {
    TLocalText text = Curved("6371000");
    text.hasCentre = true;
    FillLocal(tree, text);
}

template <class System>
std::unique_ptr<TShellReferenceSystem> NewFromTree(TStringTree* tree) {
    return std::make_unique<System>(tree, nullptr);
}

template <class System>
std::unique_ptr<TShellReferenceSystem> NewFromXml(std::string const& document) {
    return FromXml<System>(document);
}

template <class System>
bool OneArgumentMif(TShellReferenceSystem const& system, std::string* text) {
    return dynamic_cast<System const&>(system).ExportToMIFMID(text);
}

template <class System>
void TakeUnit(TShellReferenceSystem* system) {
    delete std::exchange(dynamic_cast<System&>(*system).LinearUnit, nullptr);
}

/** One kind. */
struct TCartesianKind {
    char const* name;
    bool isGlobal;
    void (*fill)(TStringTree*);
    std::unique_ptr<TShellReferenceSystem> (*build)(TStringTree*);
    std::unique_ptr<TShellReferenceSystem> (*read)(std::string const&);
    bool (*exportMif)(TShellReferenceSystem const&, std::string*);
    void (*takeUnit)(TShellReferenceSystem*);
};

inline void PrintTo(TCartesianKind const& kind, std::ostream* out) {
    *out << kind.name;
}

template <class System>
TCartesianKind Kind(char const* name, bool isGlobal, void (*fill)(TStringTree*)) {
    return {name,
            isGlobal,
            fill,
            &NewFromTree<System>,
            &NewFromXml<System>,
            &OneArgumentMif<System>,
            &TakeUnit<System>};
}

inline TCartesianKind const CartesianKinds[] = {
    Kind<KvRefSystem::TShellGeocentricReferenceSystem>("Geocentric", true, &FillGeocentricKind),
    Kind<KvRefSystem::TShellTopocentricHorizontalReferenceSystem>("Topocentric", true, &FillTopocentricKind),
    Kind<KvRefSystem::TShellLocalCartesianReferenceSystem>("LocalCartesian", false, &FillCartesianKind),
    Kind<KvRefSystem::TShellLocalCurvedReferenceSystem>("LocalCurved", false, &FillCurvedKind),
};

inline std::unique_ptr<TShellReferenceSystem> Everything(TCartesianKind const& kind) {
    TStringTree tree;
    kind.fill(&tree);
    FillRest(&tree);
    return kind.build(&tree);
}

} // namespace TestSupport
