#include "shell/refsystems/KindsDetail.h"

#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"

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

bool ParseTexts(TShellCoords const& texts, int count, TTextUnit const& unit, double* shell) {
    TShellUnit const& reader = unit.text ? *unit.text : unit.own;
    for (int axis = 0; axis < count; ++axis) {
        if (!reader.StringToValue(texts.Coord[axis], &shell[axis])) {
            return false;
        }
    }
    for (int axis = 0; axis < count && unit.text; ++axis) {
        unit.text->Convert(unit.own, &shell[axis]);
    }
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

bool SameCore(TShellReferenceSystem const& one, TShellReferenceSystem const& other) {
    return one.CoreRefSystem && other.CoreRefSystem && one.CoreRefSystem->operator==(*other.CoreRefSystem);
}

bool SameUnit(TShellUnit const* one, TShellUnit const* other) {
    return one && other && one->operator==(*other);
}

bool NoAxesDirections(TCardinalDirection* first, TCardinalDirection* second) {
    *first = cdNone;
    *second = cdNone;
    return false;
}

TReferenceSystemCartesianOrientation OrientationOfField(int swap) {
    return swap == 0 ? rscoRight : rscoLeft;
}

bool ReadOrientation(TKvXIniReader* reader, TReferenceSystemCartesianOrientation* orientation) {
    constexpr int none = -1;
    int const value = ReadXmlInt(reader, "RefSystemOrientation", none);
    if (value != rscoLeft && value != rscoRight) {
        return false;
    }
    *orientation = static_cast<TReferenceSystemCartesianOrientation>(value);
    return true;
}

bool ReadUnit(TKvXIniReader* reader, char const* key, TShellLinearUnit** unit) {
    try {
        TXmlReadSection section(reader, key);
        if (!section) {
            return false;
        }
        *unit = new TShellLinearUnit(reader);
        return section.Leave();
    } catch (...) {
        return false;
    }
}

bool WriteUnit(TKvXIniWriter* writer, char const* key, TShellLinearUnit const* unit) {
    return unit && WriteXmlSection(writer, key, [&] { return unit->SaveToXML(writer); });
}

TStringTree const* BaseOf(TStringTree const* saved) {
    return saved ? saved->FindSubtree(DescriptionTag::PrimarySystem, 0) : nullptr;
}

bool InsertOriginOf(TShellReferenceSystem const& system, TShellCoords const& origin, TStringTree* base,
                    TStringTree* tree) {
    std::unique_ptr<TShellReferenceSystem> const baseSystem(CreateShellReferenceSystem(base, nullptr));
    // An empty text of the height leaves its number alone: the origin then lies on the ellipsoid.
    double point[3] = {0, 0, 0};
    if (!baseSystem || !system.InputCoords(origin, nullptr, nullptr, point)) {
        return false;
    }
    system.OperateShellCoords(*baseSystem, point, false);
    TShellCoords texts;
    baseSystem->OutputCoords(point, &texts, nullptr, -1, nullptr, -1);
    for (int axis = 0; axis < 3; ++axis) {
        if (!tree->InsertString("origin", DescriptionTag::Origin, axis, texts.Coord[axis])) {
            return false;
        }
    }
    return true;
}

} // namespace KvRefSystem::Kinds
