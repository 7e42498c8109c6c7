#include "tests/support/Descriptions.h"

#include "frame/NumberText.h"
#include "shell/refsystems/public/ReferenceSystemFactory.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace TestSupport {

namespace {

void FillEllipsoid(TStringTree* tree, TGeodeticText const& text) {
    SetField(tree, 5120, "Ellipsoid");
    SetField(tree, 5121, "");
    SetField(tree, 5110, text.majorAxis);
    SetField(tree, 5111, text.minorAxis);
    SetField(tree, 5114, text.inverseFlattening.empty() ? "0" : "1");
    SetField(tree, 5115, "0");
    if (!text.inverseFlattening.empty()) {
        SetField(tree, 5112, text.inverseFlattening);
    }
    FillUnit(Child(tree, 5113), Metre());
}

void FillShift(TStringTree* tree, TGeodeticText const& text) {
    SetField(Child(tree, 5443), 5701, KvRefSystem::FormatText("%d", text.shiftType));
    FillUnit(Child(tree, 5440), Metre());
    FillUnit(Child(tree, 5441), ArcSecond());
    FillUnit(Child(tree, 5442), PartsPerMillion());
    for (int part = 0; part < 7; ++part) {
        SetField(tree, 5461 + part, text.shift[part]);
    }
}

void FillMeridian(TStringTree* tree, TGeodeticText const& text) {
    SetField(tree, 5220, "Meridian");
    SetField(tree, 5221, "");
    SetField(tree, 5210, text.meridian);
    FillUnit(Child(tree, 5211), text.meridianUnit);
}

/** The datum, or the ellipsoid without one. */
void FillDatum(TStringTree* tree, TGeodeticText const& text) {
    if (text.shiftType == 0) {
        FillEllipsoid(Child(tree, 1103), text);
        return;
    }
    TStringTree* const datum = Child(tree, 1107);
    SetField(datum, 5620, text.datumName);
    FillShift(Child(datum, 1102), text);
    FillEllipsoid(Child(datum, 5610), text);
}

} // namespace

TUnitText Metre() {
    return {0, 1, "1", "1", "metre", "m"};
}

TUnitText Foot() {
    return {0, 1, "0.3048", "1", "foot", "ft"};
}

TUnitText Degree() {
    return {0, 2, "3.14159265358979312", "180", "degree", "deg"};
}

TUnitText Grad() {
    return {0, 2, "3.14159265358979312", "200", "grad", "gon"};
}

TUnitText Radian() {
    return {0, 2, "1", "1", "radian", "rad"};
}

TUnitText ArcSecond() {
    return {0, 2, "3.14159265358979312", "648000", "arc-second", "sec"};
}

TUnitText PartsPerMillion() {
    return {0, 3, "1", "1000000", "parts per million", "ppm"};
}

TUnitText Unity() {
    return {0, 3, "1", "1", "unity", "1"};
}

TUnitText HemisphereDegree() {
    return {8, 2, "3.14159265358979312", "180", "degree minute second hemisphere", "dms"};
}

TGeodeticText WithZeroShift() {
    TGeodeticText text;
    text.name = "WGS 84";
    text.shiftType = 1;
    return text;
}

TGeodeticText Pulkovo1942() {
    TGeodeticText text;
    text.name = "Pulkovo 1942";
    text.majorAxis = "6378245";
    text.inverseFlattening = "298.3";
    text.shiftType = 3;
    std::string const numbers[7] = {"23.57", "-140.95", "-79.8", "0", "-0.35", "-0.79", "-0.22"};
    std::copy(std::begin(numbers), std::end(numbers), text.shift);
    return text;
}

TProjectedText UtmZone(int zone, char hemisphere) {
    TProjectedText text;
    text.name = KvRefSystem::FormatText("UTM %d", zone) + hemisphere;
    text.type = 1002;
    text.parameters = {{6201, KvRefSystem::FormatText("%d", zone)}, {6202, std::string(1, hemisphere)}};
    return text;
}

TProjectedText TransverseMercator(std::string const& meridian, std::string const& scale,
                                  std::string const& falseEasting) {
    TProjectedText text;
    text.type = 1;
    text.parameters = {{6101, meridian}, {6102, "0"}, {6103, scale}, {6104, falseEasting}, {6105, "0"}};
    return text;
}

TLocalText Curved(std::string const& radius) {
    TLocalText text;
    text.type = 2;
    text.radius = radius;
    return text;
}

TStringTree* Child(TStringTree* tree, int tag, int idx, std::string const& header) {
    tree->InsertSubtree(header, tag, idx);
    return tree->FindSubtree(tag, idx);
}

void SetField(TStringTree* tree, int tag, std::string const& value, int idx) {
    tree->DeleteField(tag, idx);
    tree->InsertString("field", tag, idx, value);
}

void FillUnit(TStringTree* tree, TUnitText const& unit) {
    SetField(tree, 5301, KvRefSystem::FormatText("%d", unit.code));
    SetField(tree, 5312, KvRefSystem::FormatText("%d", unit.type));
    SetField(tree, 5310, unit.numerator);
    SetField(tree, 5311, unit.denominator);
    SetField(tree, 5320, unit.name);
    SetField(tree, 5321, unit.abbreviation);
    SetField(tree, 5322, "");
}

void FillGeodetic(TStringTree* tree, TGeodeticText const& text) {
    SetField(tree, 1020, text.name);
    SetField(tree, 1021, text.description);
    SetField(tree, 1100, "4");
    FillMeridian(Child(tree, 1101), text);
    FillUnit(Child(tree, 1106), text.angularUnit);
    FillUnit(Child(Child(tree, 1201), 1104), text.heightUnit);
    FillDatum(tree, text);
}

void FillProjection(TStringTree* tree, TProjectedText const& text) {
    SetField(tree, 6001, KvRefSystem::FormatText("%d", text.type));
    SetField(tree, 6020, text.projectionName);
    FillUnit(Child(tree, 6091), text.projectionLinearUnit);
    FillUnit(Child(tree, 6090), text.projectionAngularUnit);
    FillUnit(Child(tree, 6092), text.projectionScaleUnit);
    for (auto const& [tag, value] : text.parameters) {
        SetField(tree, tag, value);
    }
}

void FillProjected(TStringTree* tree, TProjectedText const& text) {
    SetField(tree, 1020, text.name);
    SetField(tree, 1021, text.description);
    SetField(tree, 1100, "5");
    TStringTree* const projection = Child(tree, 1300);
    FillProjection(projection, text);
    SetField(projection, 1400, KvRefSystem::FormatText("%d", text.flip));
    SetField(projection, 1401, KvRefSystem::FormatText("%d", text.firstSign), 0);
    SetField(projection, 1401, KvRefSystem::FormatText("%d", text.secondSign), 1);
    FillUnit(Child(tree, 1104), text.linearUnit);
    FillGeodetic(Child(tree, 1121), text.base);
    if (text.datumAtRoot) {
        FillMeridian(Child(tree, 1101), text.base);
        FillDatum(tree, text.base);
    }
}

void FillGeocentric(TStringTree* tree, TGeocentricText const& text) {
    SetField(tree, 1020, text.name);
    SetField(tree, 1021, text.description);
    SetField(tree, 1100, "3");
    FillMeridian(Child(tree, 1101), text.base);
    FillUnit(Child(tree, 1104), text.linearUnit);
    FillDatum(tree, text.base);
}

void FillTopocentric(TStringTree* tree, TTopocentricText const& text) {
    SetField(tree, 1020, text.name);
    SetField(tree, 1021, text.description);
    SetField(tree, 1100, "6");
    SetField(tree, 1400, KvRefSystem::FormatText("%d", text.swap));
    FillUnit(Child(tree, 1104), text.linearUnit);
    for (int axis = 0; axis < 3; ++axis) {
        SetField(tree, 1120, text.origin[axis], axis);
    }
    if (!text.azimuth.empty()) {
        SetField(tree, 1122, text.azimuth);
    }
    FillGeodetic(Child(tree, 1121), text.base);
}

void FillLocal(TStringTree* tree, TLocalText const& text) {
    SetField(tree, 1020, text.name);
    SetField(tree, 1021, text.description);
    SetField(tree, 1100, KvRefSystem::FormatText("%d", text.type));
    SetField(tree, 1400, KvRefSystem::FormatText("%d", text.swap));
    FillUnit(Child(tree, 1104), text.linearUnit);
    if (text.type == 1) {
        return;
    }
    TStringTree* const sphere = Child(tree, 1103);
    SetField(sphere, 5120, "Sphere");
    SetField(sphere, 5121, "");
    SetField(sphere, 5110, text.radius);
    SetField(sphere, 5111, text.radius);
    SetField(sphere, 5114, "0");
    SetField(sphere, 5115, "1");
    FillUnit(Child(sphere, 5113), text.radiusUnit);
    if (text.hasCentre) {
        SetField(tree, 1120, text.centre[0], 0);
        SetField(tree, 1120, text.centre[1], 1);
    }
}

void AddPlaneShift(TStringTree* tree, double shiftX, double shiftY) {
    TStringTree* const record = Child(Child(tree, 1108), 7100);
    record->InsertInteger("type", 7101, 0, 4);
    record->InsertDouble("dX", 7105, 0, shiftX);
    record->InsertDouble("dY", 7106, 0, shiftY);
    double const matrix[4] = {1, 0, 0, 1};
    for (int cell = 0; cell < 4; ++cell) {
        record->InsertDouble("matrix", 7109, cell, matrix[cell]);
    }
}

std::string TextOf(TStringTree const& tree) {
    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TGeodeticText const& text) {
    TStringTree tree;
    FillGeodetic(&tree, text);
    return Create(&tree);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TProjectedText const& text) {
    TStringTree tree;
    FillProjected(&tree, text);
    return Create(&tree);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TGeocentricText const& text) {
    TStringTree tree;
    FillGeocentric(&tree, text);
    return Create(&tree);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TTopocentricText const& text) {
    TStringTree tree;
    FillTopocentric(&tree, text);
    return Create(&tree);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TLocalText const& text) {
    TStringTree tree;
    FillLocal(&tree, text);
    return Create(&tree);
}

std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TStringTree* tree) {
    return std::unique_ptr<KvRefSystem::TShellReferenceSystem>(
        KvRefSystem::CreateShellReferenceSystem(tree, nullptr));
}

std::string ReadFile(std::string const& pathFromRoot) {
    std::ifstream file(std::string(VELLARI_SOURCE_DIR "/") + pathFromRoot, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + pathFromRoot);
    }
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string CatalogText(std::string const& name) {
    return ReadFile("catalog/" + name + ".txt");
}

} // namespace TestSupport
