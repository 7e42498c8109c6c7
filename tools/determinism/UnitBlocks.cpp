#include "tools/determinism/Block.h"

#include "tools/determinism/Describe.h"

#include <memory>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;
using KvRefSystem::TShellAngularUnit;
using KvRefSystem::TShellLinearUnit;

constexpr int TextsOfUnit = 2000;

constexpr TUnitRow AngularUnits[] = {
    Radian, Degrees, Grad, ArcSecond, DegreesMinutesSeconds, WithHemisphere, PackedSeconds, PackedMinutes};
constexpr TUnitRow LinearUnits[] = {Metre, Foot, UsFoot};

std::shared_ptr<TShellAngularUnit const> Angular(TUnitRow const& row) {
    KvRefSystem::TStringTree tree;
    FillUnit(&tree, row);
    return std::shared_ptr<TShellAngularUnit const>(KvRefSystem::CreateShellAngularUnit(&tree));
}

std::shared_ptr<TShellLinearUnit const> Linear(TUnitRow const& row) {
    KvRefSystem::TStringTree tree;
    FillUnit(&tree, row);
    return std::make_shared<TShellLinearUnit const>(&tree);
}

/** Prints a value in every way and reads each text again. */
void PrintTexts(TShellAngularUnit const& unit, TGenerator& numbers, TLine* line) {
    double const value = numbers.Between(-190, 190);
    int const precision = numbers.Whole(-1, 9);
    for (std::string const& text :
         {unit.ValueToStringLatitude(value, precision), unit.ValueToStringLongitude(value, precision),
          unit.RadiansToStringLongitude(numbers.Between(-3.2, 3.2), precision),
          unit.DegreesToStringLatitude(value, precision)}) {
        line->AddText(text);
        line->Add(unit.StringToValueLatitude(text), unit.StringToRadiansLongitude(text),
                  unit.StringToDegreesLongitude(text));
    }
}

/** Reads texts as people write them. */
void PrintTyped(TShellAngularUnit const& unit, TGenerator& numbers, TLine* line) {
    int const degrees = numbers.Whole(-179, 179);
    int const minutes = numbers.Whole(0, 59);
    int const wholeSeconds = numbers.Whole(0, 59);
    int const thousandths = numbers.Whole(0, 999);
    double const seconds = numbers.Between(0, 60);
    for (std::string const& text :
         {FormatText("%d %d %.5f", degrees, minutes, seconds),
          FormatText("%d\u00b0%d'%.3f\"W", degrees, minutes, seconds),
          FormatText("%d.%02d%02d%03d", degrees, minutes, wholeSeconds, thousandths),
          FormatText("%.17g", numbers.Between(-180, 180)), FormatText("%d,%d", degrees, minutes)}) {
        double value = 0;
        line->AddWord(unit.StringToValue(text, &value) ? "read" : "refused");
        line->Add(value);
    }
}

void PrintLengths(TShellLinearUnit const& unit, TGenerator& numbers, TLine* line) {
    double const value = numbers.Between(-1e7, 1e7);
    std::string const text = unit.ValueToString(value, numbers.Whole(-1, 12));
    line->AddText(text);
    double converted = unit.StringToValue(text);
    unit.Convert(*Linear(UsFoot), &converted);
    line->Add(unit.StringToValue(text), converted);
}

} // namespace

void AddUnits(TBlocks* blocks) {
    for (TUnitRow const& row : AngularUnits) {
        auto const unit = Angular(row);
        std::string const name = std::string("unit ") + row.Name;
        blocks->push_back({name + ", written and read", TextsOfUnit,
                           [unit](TGenerator& numbers, TLine* line) { PrintTexts(*unit, numbers, line); }});
        blocks->push_back({name + ", as people write", TextsOfUnit,
                           [unit](TGenerator& numbers, TLine* line) { PrintTyped(*unit, numbers, line); }});
        for (TUnitRow const& target : AngularUnits) {
            blocks->push_back({name + " to " + target.Name, TextsOfUnit / 10,
                               [unit, other = Angular(target)](TGenerator& numbers, TLine* line) {
                                   std::string text = FormatText("%.9f", numbers.Between(0, 90));
                                   std::string result;
                                   KvRefSystem::ConvertLatitude(unit.get(), text, other.get(), &result);
                                   line->AddText(result);
                                   KvRefSystem::ConvertLongitude(other.get(), result, unit.get(), &text);
                                   line->AddText(text);
                               }});
        }
    }
    for (TUnitRow const& row : LinearUnits) {
        auto const unit = Linear(row);
        blocks->push_back({std::string("unit ") + row.Name, TextsOfUnit,
                           [unit](TGenerator& numbers, TLine* line) { PrintLengths(*unit, numbers, line); }});
    }
}

} // namespace VellariDeterminism
