#include "tests/fuzz/targets/ComposedSystem.h"

#include "frame/NumberText.h"
#include "tests/support/Descriptions.h"

#include <initializer_list>
#include <iterator>
#include <vector>

namespace Fuzz {

namespace {

using namespace TestSupport;
using KvRefSystem::FormatText;

/** A parameter with texts that a surveyor would write; other texts come from the bytes. */
struct TParameter {
    int tag;
    char const* common[4];
};

constexpr TParameter parameters[] = {
    {6101, {"39", "0", "-75", "179.5"}},
    {6102, {"0", "45", "-90", "52.15"}},
    {6103, {"0.9996", "1", "0", "2"}},
    {6104, {"500000", "0", "-1e6", "1e12"}},
    {6105, {"0", "10000000", "-5300000", "1e-3"}},
    {6106, {"5.387", "42.5", "-180", "0"}},
    {6107, {"49.5", "4", "0", "-89"}},
    {6108, {"115", "24.8", "-2.5", "180"}},
    {6109, {"53.315", "30.288", "90", "0"}},
    {6110, {"53.13", "0", "-30", "90"}},
    {6111, {"0.99984", "1", "0.9999", "-1"}},
    {6112, {"590476.87", "0", "1e5", "-1e7"}},
    {6113, {"442857.65", "0", "1e5", "-1e7"}},
    {6114, {"44", "33", "0", "-90"}},
    {6115, {"49", "45", "33", "-33"}},
    {6116, {"46.5", "0", "90", "-45"}},
    {6117, {"3", "-96", "10", "180"}},
    {6118, {"700000", "0", "4321000", "150000.013"}},
    {6119, {"6600000", "0", "3210000", "5400088.438"}},
    {6120, {"0.9999079", "0.994", "1", "0"}},
    {6121, {"78.5", "0", "90", "-78.5"}},
    {6122, {"0.9999", "1", "0", "-2"}},
    {6201, {"37", "1", "60", "7"}},
    {6202, {"N", "S", "X", ""}},
    {6203, {"N", "S", "north", ""}},
    {6204, {"C", "X", "A", ""}},
    {6205, {"50", "77", "1", "999"}},
    {6206, {"3", "6", "1.5", "0"}},
};

constexpr int methods[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,   10,   11,   12,   13,   14,   15,  16,
                           17, 18, 21, 22, 23, 24, 25, 26, 101, 1001, 1002, 1003, 1004, 1201, 1313};

std::string CommonOr(TInputBytes* bytes, std::initializer_list<char const*> common) {
    std::size_t const chosen = bytes->Below(common.size() * 2);
    return chosen < common.size() ? common.begin()[chosen] : bytes->NumberText();
}

TUnitText AngularUnit(TInputBytes* bytes) {
    TUnitText unit = bytes->Below(4) == 0 ? Grad() : Degree();
    constexpr int codes[] = {0, 0, 0, 0, 7, 8, 10, 11};
    unit.code = codes[bytes->Below(std::size(codes))];
    return unit;
}

TUnitText LinearUnit(TInputBytes* bytes) {
    TUnitText unit = bytes->Below(4) == 0 ? Foot() : Metre();
    if (bytes->Below(16) == 15) {
        unit.numerator = bytes->NumberText();
    }
    return unit;
}

TGeodeticText GeodeticText(TInputBytes* bytes) {
    TGeodeticText const ready[] = {TGeodeticText(), WithZeroShift(), Pulkovo1942()};
    TGeodeticText text = ready[bytes->Below(std::size(ready))];
    std::uint8_t const changes = bytes->Byte();
    if (changes & 1) {
        text.majorAxis = CommonOr(bytes, {"6378137", "6371000", "1", "0", "-6378137"});
        text.minorAxis = CommonOr(bytes, {"6356752", "6371000", "1", "", "7000000"});
        text.inverseFlattening = CommonOr(bytes, {"", "298.3", "1e30", "1", "0", "-300"});
    }
    if (changes & 2) {
        text.meridian = CommonOr(bytes, {"2.5969213", "-17.6662", "180", "360", "0"});
        text.meridianUnit = AngularUnit(bytes);
    }
    if (changes & 4) {
        text.shiftType = static_cast<int>(bytes->Below(5));
        for (std::string& number : text.shift) {
            number = CommonOr(bytes, {"0", "23.57", "-140.95", "1e9", "-1000000"});
        }
    }
    if (changes & 8) {
        text.angularUnit = AngularUnit(bytes);
        text.heightUnit = LinearUnit(bytes);
    }
    return text;
}

TProjectedText ProjectedText(TInputBytes* bytes) {
    TProjectedText text;
    text.type = methods[bytes->Below(std::size(methods))];
    std::uint8_t const changes = bytes->Byte();
    // A method takes its own and passes over the others.
    for (TParameter const& parameter : parameters) {
        std::uint8_t const chosen = (changes & 1) != 0 ? bytes->Byte() : 0;
        std::string const value = chosen >= 0xC0 ? bytes->NumberText() : parameter.common[chosen % 4];
        text.parameters.emplace_back(parameter.tag, value);
    }
    if (changes & 2) {
        text.base = GeodeticText(bytes);
    }
    if (changes & 4) {
        text.projectionAngularUnit = AngularUnit(bytes);
        text.projectionLinearUnit = LinearUnit(bytes);
        text.linearUnit = LinearUnit(bytes);
    }
    text.flip = (changes & 8) != 0 ? 1 : 0;
    text.firstSign = (changes & 16) != 0 ? -1 : 1;
    text.secondSign = (changes & 32) != 0 ? -1 : 1;
    text.datumAtRoot = (changes & 64) != 0;
    return text;
}

/** A plane correction by tables, a plane shift or one of the height. */
void AddChain(TInputBytes* bytes, TStringTree* tree) {
    switch (bytes->Below(3)) {
    case 0: {
        double const right = bytes->Number();
        double const up = bytes->Number();
        AddPlaneShift(tree, right, up);
        break;
    }
    case 1: {
        TStringTree* const record = Child(Child(tree, 1108), 7100);
        SetField(record, 7101, "6");
        SetField(record, 7107, bytes->NumberText());
        break;
    }
    default: {
        TStringTree* const record = Child(Child(tree, 1108), 7100);
        SetField(record, 7101, "5");
        SetField(record, 7121, "2 2 " + bytes->NumberText() + " 0 0 1 2 3 " + bytes->NumberText());
        SetField(record, 7122, "1 1 1 0 0 " + bytes->NumberText());
        SetField(record, 7125, CommonOr(bytes, {"1", "-1", "0.01"}));
        break;
    }
    }
}

void ComposeKind(TInputBytes* bytes, TStringTree* tree) {
    constexpr std::uint8_t mostlyProjected[] = {5, 5, 5, 5, 4, 4, 3, 6, 1, 2};
    switch (mostlyProjected[bytes->Below(std::size(mostlyProjected))]) {
    case 1:
    case 2: {
        TLocalText text;
        text.type = 1 + static_cast<int>(bytes->Below(2));
        text.swap = static_cast<int>(bytes->Below(2));
        text.linearUnit = LinearUnit(bytes);
        text.radius = CommonOr(bytes, {"6371000", "1", "0"});
        text.hasCentre = bytes->Below(2) == 1;
        text.centre[0] = CommonOr(bytes, {"0", "1000", "-1e7"});
        text.centre[1] = CommonOr(bytes, {"0", "1000", "-1e7"});
        FillLocal(tree, text);
        break;
    }
    case 3: {
        TGeocentricText text;
        text.base = GeodeticText(bytes);
        text.linearUnit = LinearUnit(bytes);
        FillGeocentric(tree, text);
        break;
    }
    case 4:
        FillGeodetic(tree, GeodeticText(bytes));
        SetField(tree, 1111, bytes->Below(2) == 0 ? "0" : "1");
        break;
    case 6: {
        TTopocentricText text;
        text.base = GeodeticText(bytes);
        text.linearUnit = LinearUnit(bytes);
        text.swap = static_cast<int>(bytes->Below(2));
        text.origin[0] = CommonOr(bytes, {"55", "90", "-90", "0"});
        text.origin[1] = CommonOr(bytes, {"37", "180", "-180", "0"});
        text.origin[2] = CommonOr(bytes, {"200", "", "-7e6"});
        text.azimuth = CommonOr(bytes, {"", "30", "360"});
        FillTopocentric(tree, text);
        break;
    }
    default:
        FillProjected(tree, ProjectedText(bytes));
        break;
    }
}

} // namespace

void ComposeSystem(TInputBytes* bytes, KvRefSystem::TStringTree* tree) {
    ComposeKind(bytes, tree);
    std::uint8_t const extras = bytes->Byte();
    if (extras & 1) {
        AddChain(bytes, tree);
    }
    if ((extras & 6) == 6) {
        ComposeKind(bytes, Child(tree, 1112));
    }
}

std::size_t MethodCount() {
    return std::size(methods);
}

} // namespace Fuzz
