#include "frame/NumberText.h"
#include "hostkit/XmlIni.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"
#include "tests/fuzz/targets/InputBytes.h"
#include "tests/fuzz/targets/NumberNotation.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tests/support/Descriptions.h"

#include <cmath>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace Fuzz {

namespace {

using namespace KvRefSystem;

/** A unit and its kind. */
struct TKind {
    int type; ///< 1 length, 2 angle, 3 scale
    int code;
    char const* numerator;
    char const* denominator;
};

constexpr TKind kinds[] = {
    {1, 0, "1", "1"},
    {1, 0, "0.3048", "1"},
    {2, 0, "3.14159265358979312", "180"},
    {2, 0, "3.14159265358979312", "200"},
    {2, 0, "1", "1"},
    {2, anDegreeMinuteSecond, "3.14159265358979312", "180"},
    {2, anDegreeMinuteSecondHemisphere, "3.14159265358979312", "180"},
    {2, anSexagesimalDegree, "3.14159265358979312", "180"},
    {2, anDegreeDecimalMinute, "3.14159265358979312", "180"},
    {3, 0, "1", "1000000"},
};

/** How a value is printed and read: plainly, or as a latitude or longitude. */
enum TView : std::size_t { vPlain, vLatitude, vLongitude, ViewCount };

/** Shared, since a unit isn't ended through its root class. */
std::shared_ptr<TShellUnit const> Create(TKind const& kind) {
    TStringTree tree;
    TestSupport::FillUnit(&tree, {kind.code, kind.type, kind.numerator, kind.denominator, "unit", "u"});
    switch (kind.type) {
    case 1:
        return std::make_shared<TShellLinearUnit const>(&tree);
    case 2:
        return std::shared_ptr<TShellAngularUnit const>(CreateShellAngularUnit(&tree));
    default:
        return std::make_shared<TShellScaleUnit const>(&tree);
    }
}

bool Parse(TShellUnit const& unit, TView view, std::string const& text, double* value) {
    auto const* const angle = dynamic_cast<TShellAngularUnit const*>(&unit);
    if (!angle || view == vPlain) {
        return unit.StringToValue(text, value);
    }
    return view == vLatitude ? angle->StringToValueLatitude(text, value)
                             : angle->StringToValueLongitude(text, value);
}

std::string Print(TShellUnit const& unit, TView view, double value, int precision) {
    auto const* const angle = dynamic_cast<TShellAngularUnit const*>(&unit);
    if (!angle || view == vPlain) {
        return unit.ValueToString(value, precision);
    }
    return view == vLatitude ? angle->ValueToStringLatitude(value, precision)
                             : angle->ValueToStringLongitude(value, precision);
}

void PrintAndRead(TShellUnit const& unit, TView view, double value, int precision) {
    std::string const text = Print(unit, view, value, precision);
    // Lengths and angles take the precision; a scale always has all digits.
    std::optional<double> const tolerance =
        ReadBackTolerance(unit.Code, value, unit.Type == 3 ? -1 : precision);
    if (!tolerance) {
        return;
    }
    double read = 0;
    bool const isRead = Parse(unit, view, text, &read);
    if (!isRead || !IsReadBack(unit.Code, value, read, *tolerance)) {
        Require(false, "a printed number is read as it was",
                FormatText("%.17g as \"", value) + text +
                    FormatText("\" by code %d: %s, %.17g", unit.Code, isRead ? "read" : "not read", read));
    }
}

/** The forms in degrees go the same way; they throw what the plain ones throw. */
void AskDegrees(TShellAngularUnit const& unit, std::string const& text, double value, int precision) {
    Succeeds<std::runtime_error>([&] { unit.StringToDegrees(text); });
    Succeeds<std::runtime_error>([&] { unit.StringToDegreesLatitude(text); });
    Succeeds<std::runtime_error>([&] { unit.StringToRadiansLongitude(text); });
    unit.DegreesToStringLatitude(value, precision);
    unit.RadiansToStringLongitude(value, precision);
    std::string result;
    Succeeds<std::runtime_error>([&] { ConvertLatitude(&unit, text, &unit, &result); });
}

/** A unit comes back from XML. */
void WriteAndLoad(TShellUnit const& unit) {
    VellariHostKit::TXmlIniWriter writer;
    Require(unit.SaveToXML(&writer), "a unit is written");
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(writer.ToString());
    if (unit.Type == 1) {
        Require(TShellLinearUnit(&reader) == unit, "a length comes back from XML");
    } else if (unit.Type == 3) {
        Require(TShellScaleUnit(&reader) == unit, "a scale comes back from XML");
    } else {
        std::unique_ptr<TShellAngularUnit> const angle(CreateShellAngularUnit(&reader));
        Require(*angle == unit, "an angle comes back from XML");
    }
}

} // namespace

/** Input: kind, view, precision, value; what is left is a text to be read. */
void RunUnits(std::string_view input) {
    constexpr int MostPrecision = 80;
    TInputBytes bytes(input);
    std::shared_ptr<TShellUnit const> const unit = Create(kinds[bytes.Below(std::size(kinds))]);
    auto view = static_cast<TView>(bytes.Below(ViewCount));
    if (unit->Code == anDegreeMinuteSecondHemisphere && view == vPlain) {
        view = vLatitude; // it can't be printed without its axis
    }
    int const precision = static_cast<int>(bytes.Below(MostPrecision)) - 1;
    double const value = bytes.Number();
    std::string const text(bytes.Rest());

    WriteAndLoad(*unit);
    PrintAndRead(*unit, view, value, precision);
    double read = 0;
    if (Parse(*unit, view, text, &read)) {
        PrintAndRead(*unit, view, read, precision);
    }
    if (auto const* const angle = dynamic_cast<TShellAngularUnit const*>(unit.get())) {
        AskDegrees(*angle, text, value, precision);
    }
}

std::vector<std::string> UnitsSeeds() {
    std::vector<std::string> seeds;
    char const* const texts[] = {
        "55.75",        "-1e-3",          "55 45 07.2", "- 0 30 00",         "55.4507",
        "55 45 07.2 N", "37d36'56.4\" W", "55.455",     "359 59 59.9999999", "179.59599"};
    for (std::size_t kind = 0; kind < std::size(kinds); ++kind) {
        for (std::size_t text = 0; text < std::size(texts); ++text) {
            std::string const head = {static_cast<char>(kind), static_cast<char>(text % ViewCount),
                                      static_cast<char>(text), static_cast<char>(kind + text)};
            seeds.push_back(head + texts[text]);
        }
    }
    return seeds;
}

} // namespace Fuzz
