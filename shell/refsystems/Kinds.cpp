#include "shell/refsystems/KindsDetail.h"

#include <memory>

namespace KvRefSystem::Kinds {

std::string ShortName(TShellUnit const& unit) {
    return unit.Abbreviation.empty() ? unit.Name : unit.Abbreviation;
}

bool ParseText(std::string const& text, TTextUnit const& unit, double* value) {
    if (!unit.text) {
        return unit.own.StringToValue(text, value);
    }
    if (!unit.text->StringToValue(text, value)) {
        return false;
    }
    unit.text->Convert(unit.own, value);
    return true;
}

std::string PrintText(double value, TTextUnit const& unit, int precision) {
    if (!unit.text) {
        return unit.own.ValueToString(value, precision);
    }
    unit.own.Convert(*unit.text, &value);
    return unit.text->ValueToString(value, precision);
}

bool InsertOwnChain(TShellReferenceSystem* system, TAxisOrder const& axes) {
    if (!system->CoreRefSystem) {
        return false;
    }
    if (!system->Transform) {
        system->CoreRefSystem->Transforms.ClearTransforms();
        return true;
    }
    std::unique_ptr<TRefSystemTransformsSet> const set(
        system->Transform->CreateCoreTransform(axes.flip, axes.firstSign, axes.secondSign));
    if (!set) {
        return false;
    }
    system->CoreRefSystem->Transforms.Swap(*set);
    return true;
}

bool InsertPairwiseChain(TShellReferenceSystem* system, std::string const& name, TAxisOrder const& axes) {
    if (!system->CoreRefSystem) {
        return false;
    }
    TShellRefSystemTransform const* const chain = system->FindPairwiseTransforms(name);
    if (!chain) {
        system->CoreRefSystem->RemovePairwiseTransforms(name);
        return true;
    }
    std::unique_ptr<TRefSystemTransformsSet> const set(
        chain->CreateCoreTransform(axes.flip, axes.firstSign, axes.secondSign));
    if (!set) {
        return false;
    }
    // A name that the core has already keeps its first set there: kept, since hosts remove before they
    // replace.
    system->CoreRefSystem->SetPairwiseTransforms(name, *set);
    return true;
}

} // namespace KvRefSystem::Kinds
