#include "tools/determinism/Describe.h"

#include <stdexcept>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;
using KvRefSystem::TShellReferenceSystem;
using KvRefSystem::TStringTree;

void Put(TStringTree* tree, int tag, std::string const& value, int index = 0) {
    tree->InsertString("", tag, index, value);
}

void Put(TStringTree* tree, int tag, int value, int index = 0) {
    Put(tree, tag, FormatText("%d", value), index);
}

TStringTree* Child(TStringTree* tree, int tag) {
    tree->InsertSubtree("", tag, 0);
    return tree->FindSubtree(tag, 0);
}

void FillEllipsoid(TStringTree* tree, std::string const& major, std::string const& minor,
                   std::string const& inverseFlattening) {
    Put(tree, 5120, "Ellipsoid");
    Put(tree, 5121, "");
    Put(tree, 5110, major);
    Put(tree, 5111, minor);
    Put(tree, 5114, inverseFlattening.empty() ? 0 : 1);
    Put(tree, 5115, inverseFlattening.empty() ? 1 : 0);
    if (!inverseFlattening.empty()) {
        Put(tree, 5112, inverseFlattening);
    }
    FillUnit(Child(tree, 5113), Metre);
}

void FillMeridian(TStringTree* tree, TGeodetic const& text) {
    Put(tree, 5220, "Meridian");
    Put(tree, 5221, "");
    Put(tree, 5210, text.Meridian);
    FillUnit(Child(tree, 5211), text.MeridianUnit);
}

/** The datum, or the ellipsoid without one. */
void FillDatum(TStringTree* tree, TGeodetic const& text) {
    if (text.ShiftForm == 0) {
        FillEllipsoid(Child(tree, 1103), text.MajorAxis, "", text.InverseFlattening);
        return;
    }
    TStringTree* const datum = Child(tree, 1107);
    Put(datum, 5620, "Datum");
    TStringTree* const shift = Child(datum, 1102);
    Put(Child(shift, 5443), 5701, text.ShiftForm);
    FillUnit(Child(shift, 5440), Metre);
    FillUnit(Child(shift, 5441), ArcSecond);
    FillUnit(Child(shift, 5442), Millionth);
    for (int part = 0; part < 7; ++part) {
        Put(shift, 5461 + part, text.Shift[static_cast<std::size_t>(part)]);
    }
    FillEllipsoid(Child(datum, 5610), text.MajorAxis, "", text.InverseFlattening);
}

void FillHead(TStringTree* tree, int kind) {
    Put(tree, 1020, "System");
    Put(tree, 1021, "");
    Put(tree, 1100, kind);
}

void FillGeodetic(TStringTree* tree, TGeodetic const& text) {
    FillHead(tree, KvRefSystem::rstGeodetic);
    FillMeridian(Child(tree, 1101), text);
    FillUnit(Child(tree, 1106), text.AngularUnit);
    FillUnit(Child(Child(tree, 1201), 1104), text.HeightUnit);
    FillDatum(tree, text);
}

TSystem SystemOf(TStringTree* tree) {
    TSystem system(KvRefSystem::CreateShellReferenceSystem(tree, nullptr));
    if (!system) {
        throw std::logic_error("a description that gives no system");
    }
    return system;
}

} // namespace

TGeodetic Pulkovo() {
    TGeodetic text;
    text.MajorAxis = "6378245";
    text.InverseFlattening = "298.3";
    text.ShiftForm = KvRefSystem::dstBursaWolfInvRot;
    text.Shift = {"23.57", "-140.95", "-79.8", "0", "-0.35", "-0.79", "-0.22"};
    return text;
}

void FillUnit(TStringTree* tree, TUnitRow const& unit) {
    Put(tree, 5301, unit.Code);
    Put(tree, 5312, unit.Kind);
    Put(tree, 5310, unit.Numerator);
    Put(tree, 5311, unit.Denominator);
    Put(tree, 5320, unit.Name);
    Put(tree, 5321, "");
    Put(tree, 5322, "");
}

TSystem Build(TGeodetic const& text) {
    TStringTree tree;
    FillGeodetic(&tree, text);
    return SystemOf(&tree);
}

TSystem Build(TProjected const& text) {
    TStringTree tree;
    FillHead(&tree, KvRefSystem::rstMapProjected);
    TStringTree* const projection = Child(&tree, 1300);
    Put(projection, 6001, text.Type);
    Put(projection, 6020, "Method");
    FillUnit(Child(projection, 6091), Metre);
    FillUnit(Child(projection, 6090), Degrees);
    FillUnit(Child(projection, 6092), Factor);
    for (auto const& [tag, value] : text.Parameters) {
        Put(projection, tag, value);
    }
    Put(projection, 1400, text.Flip);
    Put(projection, 1401, text.FirstSign, 0);
    Put(projection, 1401, text.SecondSign, 1);
    FillUnit(Child(&tree, 1104), text.LinearUnit);
    FillGeodetic(Child(&tree, 1121), text.Base);
    return SystemOf(&tree);
}

TSystem Build(TCartesian const& text) {
    TStringTree tree;
    FillHead(&tree, text.Kind);
    Put(&tree, 1400, text.Swap);
    FillUnit(Child(&tree, 1104), text.LinearUnit);
    if (text.Kind == KvRefSystem::rstGeocentric) {
        FillMeridian(Child(&tree, 1101), text.Base);
        FillDatum(&tree, text.Base);
    } else if (text.Kind == KvRefSystem::rstTopocentricHorizontal) {
        for (int axis = 0; axis < 3; ++axis) {
            Put(&tree, 1120, text.Origin[static_cast<std::size_t>(axis)], axis);
        }
        Put(&tree, 1122, text.Azimuth);
        FillGeodetic(Child(&tree, 1121), text.Base);
    } else if (text.Kind == KvRefSystem::rstLocalCurved) {
        FillEllipsoid(Child(&tree, 1103), text.Radius, text.Radius, "");
        Put(&tree, 1120, text.Origin[0], 0);
        Put(&tree, 1120, text.Origin[1], 1);
    }
    return SystemOf(&tree);
}

TPoint WorldPlace(TGenerator& numbers) {
    double const latitude = numbers.Between(-85, 85);
    double const longitude = numbers.Between(-180, 180);
    return {latitude, longitude, numbers.Between(-500, 9000)};
}

TPoint EuropeanPlace(TGenerator& numbers) {
    double const latitude = numbers.Between(36, 70);
    double const longitude = numbers.Between(-9, 60);
    return {latitude, longitude, numbers.Between(-100, 4000)};
}

void Transform(TShellReferenceSystem const& from, TShellReferenceSystem const& to, TPoint* point) {
    TPoint result;
    if (!KvRefSystem::TransformCoords(&from, (*point)[0], (*point)[1], (*point)[2], &to, &result[0],
                                      &result[1], &result[2])) {
        throw std::runtime_error("no way between the systems");
    }
    *point = result;
}

void PrintPoint(TShellReferenceSystem const& system, TPoint const& point, TLine* line) {
    KvRefSystem::TShellCoords texts;
    system.OutputCoordsDef(point.data(), &texts);
    line->Add(point[0], point[1], point[2]);
    for (std::string const& text : texts.Coord) {
        line->AddText(text);
    }
}

void PrintThereAndBack(TShellReferenceSystem const& from, TShellReferenceSystem const& to, TPoint point,
                       TLine* line) {
    Transform(from, to, &point);
    PrintPoint(to, point, line);
    Transform(to, from, &point);
    line->Add(point[0], point[1], point[2]);
}

} // namespace VellariDeterminism
