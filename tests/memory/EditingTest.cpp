#include "tests/memory/Fingerprint.h"
#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "hostkit/XmlIni.h"
#include "tests/support/CartesianSystems.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;
using namespace TestSupport;

using TSystem = TShellReferenceSystem;

std::string const longId = "a geoid's name that is long enough for memory of its own.grd###-0.25";
std::string const newName = "a new pair's name that is long enough for memory of its own";

/** What the edits of a system take. */
struct TArguments {
    TLevelGrid grid{30};
    std::unique_ptr<TSystem> gridSystem = Create(Pulkovo1942());
    var_a<TSystem*> proxy = newobj_a(Create(WithZeroShift()).release());
    TShellRefSystemTransformShiftZParams height = HeightShift(7);
};

TArguments& Arguments() {
    static TArguments arguments;
    return arguments;
}

std::string Describe(TSystem const& system) {
    return FingerprintOf(system);
}

/** What an edit may leave after a failure, other than the system as it was. */
enum class TLapse {
    None,
    CoreStays, ///< a false of the last step keeps the others: the core goes on with its chains
    GeoidIsGone,
    ProxyIsGone,
    DatumIsGone, ///< a shift that the core can't copy leaves it without one
    ChainIsGone, ///< a false of the last step ends a new chain; what is described of it stays
};

/** One edit: what it does, and how it may end without memory. */
struct TEdit {
    char const* name;
    unsigned onFailure;
    bool (*edit)(TSystem*);
    TLapse lapse = TLapse::None;
};

/** Leads to the state that the edit may leave. */
void Lapse(TEdit const& edit, TSystem* system) {
    switch (edit.lapse) {
    case TLapse::GeoidIsGone:
        system->ClearGeoid();
        break;
    case TLapse::ProxyIsGone:
        system->ClearProxyRefSys();
        break;
    case TLapse::CoreStays: {
        TRefSystemTransformsSet own = system->CoreRefSystem->Transforms;
        auto pairwise = system->CoreRefSystem->PairwiseTransforms;
        edit.edit(system);
        system->CoreRefSystem->Transforms.Swap(own);
        system->CoreRefSystem->PairwiseTransforms.swap(pairwise);
        break;
    }
    case TLapse::DatumIsGone:
        system->GetDatumShift()->SetNonLinear(true);
        system->CoreRefSystem->ReplaceDatumShift(nullptr);
        break;
    case TLapse::ChainIsGone:
        edit.edit(system);
        system->CoreRefSystem->PairwiseTransforms.erase(newName);
        DestroyTransformChain(system->PairwiseTransforms.at(newName));
        system->PairwiseTransforms.erase(newName);
        break;
    case TLapse::None:
        break;
    }
}

bool SetLevel(TSystem* system) {
    return system->SetGeoid(longId, &Arguments().grid, Arguments().gridSystem.get());
}

// The core's own failures are stated as exceptions with a text, and a set that can't be made as a false.
constexpr unsigned byEnd = False | BadAlloc | RuntimeError;

TEdit const edits[] = {
    {"AppendTransform", byEnd, [](TSystem* s) { return s->AppendTransform(&Arguments().height); },
     TLapse::CoreStays},
    {"DeleteTransform", byEnd, [](TSystem* s) { return s->DeleteTransform(1); }, TLapse::CoreStays},
    {"ReplaceTransform", byEnd, [](TSystem* s) { return s->ReplaceTransform(1, Arguments().height); },
     TLapse::CoreStays},
    {"SwapTransforms", byEnd, [](TSystem* s) { return s->SwapTransforms(0, 2); }, TLapse::CoreStays},
    {"ClearTransforms", byEnd, [](TSystem* s) { return s->ClearTransforms(); }, TLapse::CoreStays},
    {"ClearTransformsSettings", byEnd,
     [](TSystem* s) {
         s->ClearTransformsSettings();
         return true;
     }},
    {"InsertTransformsSettings", byEnd, [](TSystem* s) { return s->InsertTransformsSettings(); }},
    {"InsertCoreTransforms", byEnd, [](TSystem* s) { return s->InsertCoreTransforms(); }},
    {"AppendPairwiseTransform", byEnd,
     [](TSystem* s) { return s->AppendPairwiseTransform("pair", &Arguments().height); }, TLapse::CoreStays},
    {"AppendPairwiseTransform of a new name", byEnd,
     [](TSystem* s) { return s->AppendPairwiseTransform(newName, &Arguments().height); },
     TLapse::ChainIsGone},
    {"DeletePairwiseTransform", byEnd, [](TSystem* s) { return s->DeletePairwiseTransform("pair", 0); },
     TLapse::CoreStays},
    {"ReplacePairwiseTransform", byEnd,
     [](TSystem* s) { return s->ReplacePairwiseTransform("pair", 0, Arguments().height); },
     TLapse::CoreStays},
    {"SwapPairwiseTransforms", byEnd, [](TSystem* s) { return s->SwapPairwiseTransforms("pair", 0, 0); },
     TLapse::CoreStays},
    {"ClearPairwiseTransforms", byEnd, [](TSystem* s) { return s->ClearPairwiseTransforms("pair"); }},
    {"ClearPairwiseTransformsSettings", byEnd,
     [](TSystem* s) { return s->ClearPairwiseTransformsSettings("pair"); }},
    {"InsertPairwiseTransformsSettings", byEnd,
     [](TSystem* s) { return s->InsertPairwiseTransformsSettings("pair"); }},
    {"InsertCorePairwiseTransforms", byEnd,
     [](TSystem* s) { return s->InsertCorePairwiseTransforms("pair"); }},
    {"ClearAllPairwiseTransforms", byEnd, [](TSystem* s) { return s->ClearAllPairwiseTransforms(); }},
    {"SetGeoid", RuntimeError, &SetLevel, TLapse::GeoidIsGone},
    {"ClearGeoid", byEnd,
     [](TSystem* s) {
         s->ClearGeoid();
         return true;
     }},
    {"InsertGeoidSetting", False | BadAlloc, [](TSystem* s) { return s->InsertGeoidSetting(longId); }},
    {"SetProxyRefSys", False | BadAlloc, [](TSystem* s) { return s->SetProxyRefSys(Arguments().proxy); },
     TLapse::ProxyIsGone},
    {"InsertProxyRefSysToTree", False | BadAlloc,
     [](TSystem* s) { return s->InsertProxyRefSysToTree(nullptr); }},
    {"SetNonLinearDatum", byEnd, [](TSystem* s) { return s->SetNonLinearDatum(true); }, TLapse::DatumIsGone},
    {"ClearProxyRefSys", byEnd,
     [](TSystem* s) {
         s->ClearProxyRefSys();
         return true;
     }},
};

/** Only these two kinds have heights that a geoid can be told from. */
bool TakesGeoid(TSystem const& system) {
    return system.IsLatLon() || system.IsProjected();
}

/** The system with a geoid where it takes one, so that each edit has something to lose. */
std::unique_ptr<TSystem> WithGeoid(std::string const& text) {
    std::unique_ptr<TSystem> system = SystemOf(text);
    if (TakesGeoid(*system)) {
        system->SetGeoid("short", &Arguments().grid, Arguments().gridSystem.get());
    }
    return system;
}

class EditingSweep : public testing::TestWithParam<TSubject> {};

INSTANTIATE_TEST_SUITE_P(Kinds, EditingSweep, testing::ValuesIn(WholeSystems()),
                         [](auto const& subject) { return subject.param.name; });

TEST_P(EditingSweep, AnEditEndsAsStatedAndLeavesTheSystemAsItWas) {
    std::unique_ptr<TSystem> const subject = SystemOf(GetParam().text);
    bool const takesGeoid = TakesGeoid(*subject);
    bool const hasDatum = subject->SetNonLinearDatum(true);
    for (TEdit const& edit : edits) {
        if ((edit.lapse == TLapse::GeoidIsGone && !takesGeoid) ||
            (edit.lapse == TLapse::DatumIsGone && !hasDatum)) {
            continue;
        }
        std::function<void(TSystem*)> lapse;
        if (edit.lapse != TLapse::None) {
            lapse = [&edit](TSystem* system) { Lapse(edit, system); };
        }
        Sweep("editing",
              Edits<TSystem>(
                  GetParam().name + ", " + edit.name, edit.onFailure,
                  [text = GetParam().text] { return WithGeoid(text); }, edit.edit, &Describe, lapse));
    }
}

} // namespace
} // namespace MemorySweep
