#include "tools/vellari/SystemSummary.h"

#include "tools/vellari/AxisText.h"
#include "tools/vellari/ProjectionNames.h"
#include "tools/vellari/SystemKinds.h"

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** Lines of "label  value"; what is empty is left out. */
class TFacts {
public:
    void Add(std::string_view label, std::string const& value) {
        if (value.empty()) {
            return;
        }
        constexpr std::size_t labelWidth = 20;
        text += label;
        text.append(label.size() < labelWidth ? labelWidth - label.size() : 1, ' ');
        text += value + "\n";
    }

    std::string const& Text() const { return text; }

private:
    std::string text;
};

/** "metre (m)"; without a unit a text that says so. */
std::string UnitText(TShellUnit const* unit) {
    if (!unit) {
        return "none";
    }
    std::string text = unit->Name;
    if (!unit->Abbreviation.empty() && unit->Abbreviation != unit->Name) {
        text += " (" + unit->Abbreviation + ")";
    }
    return unit->CoefToBase == 0.0 ? text + ", without a size" : text;
}

/** " deg", the sign behind a number. */
std::string UnitSign(TShellUnit const* unit) {
    if (!unit) {
        return "";
    }
    return " " + (unit->Abbreviation.empty() ? unit->Name : unit->Abbreviation);
}

/** @return the projection's unit of that kind, or null. */
TShellUnit const* UnitOf(TShellMapProjection const& projection, TShellUnitType kind) {
    switch (kind) {
    case utNone:
        break;
    case utLinear:
        return projection.LinearUnit;
    case utAngular:
        return projection.AngularUnit;
    case utScale:
        return projection.ScaleUnit;
    }
    return nullptr;
}

/** Seven texts with their units, as the description has them. */
struct TShiftTexts {
    std::string const* text[7];
    TShellUnit const* unit[7];
};

template <class TShift>
TShiftTexts TextsOf(TShift const& shift) {
    return {{&shift.ShiftX, &shift.ShiftY, &shift.ShiftZ, &shift.RotationX, &shift.RotationY,
             &shift.RotationZ, &shift.ScaleDifference},
            {shift.LinearUnit, shift.LinearUnit, shift.LinearUnit, shift.AngularUnit, shift.AngularUnit,
             shift.AngularUnit, shift.ScaleUnit}};
}

/** Adds the first `count` parameters of a shift. */
void AddShift(TFacts* facts, TShiftTexts const& texts, int count) {
    constexpr char const* labels[] = {"  shift X",    "  shift Y",    "  shift Z",         "  rotation X",
                                      "  rotation Y", "  rotation Z", "  scale difference"};
    for (int i = 0; i < count; ++i) {
        std::string const number = texts.text[i]->empty() ? "0" : *texts.text[i];
        facts->Add(labels[i], number + UnitSign(texts.unit[i]));
    }
}

/** Adds the datum's name and its shift. */
void AddDatum(TFacts* facts, TShellReferenceSystem const& system) {
    facts->Add("datum", system.DatumName);
    TShellDatumShift const* const shift = system.DatumShift;
    if (auto const* const three = dynamic_cast<TShellMolodenskyDatumShift const*>(shift)) {
        facts->Add("shift to WGS 84", "three parameters");
        AddShift(
            facts,
            {{&three->ShiftX, &three->ShiftY, &three->ShiftZ, nullptr, nullptr, nullptr, nullptr},
             {three->LinearUnit, three->LinearUnit, three->LinearUnit, nullptr, nullptr, nullptr, nullptr}},
            3);
    } else if (auto const* const vector = dynamic_cast<TShellBursaWolfDatumShift const*>(shift)) {
        facts->Add("shift to WGS 84", std::string("seven parameters, position vector rotation") +
                                          (vector->NonLinear ? ", exact" : ""));
        AddShift(facts, TextsOf(*vector), 7);
    } else if (auto const* const frame = dynamic_cast<TShellBursaWolfInvRotDatumShift const*>(shift)) {
        facts->Add("shift to WGS 84", std::string("seven parameters, coordinate frame rotation") +
                                          (frame->NonLinear ? ", exact" : ""));
        AddShift(facts, TextsOf(*frame), 7);
    } else {
        facts->Add("shift to WGS 84", "none");
    }
}

/** Adds the ellipsoid as it was given, and its axes in metres. */
void AddEllipsoid(TFacts* facts, TShellReferenceSystem const& system) {
    TShellEllipsoid const* const ellipsoid = system.Ellipsoid;
    if (!ellipsoid) {
        return;
    }
    facts->Add("ellipsoid", ellipsoid->Name);
    std::string const sign = UnitSign(ellipsoid->LinearUnit);
    facts->Add("  semi-major axis", ellipsoid->MajorSemiAxis.empty() ? "" : ellipsoid->MajorSemiAxis + sign);
    facts->Add("  semi-minor axis", ellipsoid->MinorSemiAxis.empty() ? "" : ellipsoid->MinorSemiAxis + sign);
    facts->Add("  inv. flattening", ellipsoid->InverseFlattening);
    double major = 0;
    double minor = 0;
    if (system.GetEllipsoidSemiAxesMeters(&major, &minor)) {
        facts->Add("  axes in metres", FormatText("%.4f, %.4f", major, minor));
    }
}

/** Adds the codes of registers. @param earth system whose datum counts; `system` itself or its base. */
void AddCodes(TFacts* facts, TShellReferenceSystem const& system, TShellReferenceSystem const& earth) {
    facts->Add("EPSG code", system.GeoTIFFCode);
    facts->Add("EPSG of base system", &earth == &system ? "" : earth.GeoTIFFCode);
    facts->Add("EPSG code of datum", earth.DatumGeoTIFFCode);
    if (earth.Ellipsoid && earth.Ellipsoid->GeoTIFFCode != 0) {
        facts->Add("EPSG of ellipsoid", FormatText("%d", earth.Ellipsoid->GeoTIFFCode));
    }
    if (earth.PrimeMeridian && earth.PrimeMeridian->GeoTIFFCode != 0) {
        facts->Add("EPSG of meridian", FormatText("%d", earth.PrimeMeridian->GeoTIFFCode));
    }
    facts->Add("Panorama code", system.PanoramaCode);
}

/** Adds the projection with its parameters as the description has them, and the base system. */
void AddProjection(TFacts* facts, TLoadedSystem const& loaded,
                   TShellMapProjectedReferenceSystem const& grid) {
    facts->Add("order of axes",
               AxisNameOf(grid, 0) + ", " + AxisNameOf(grid, 1) + ", " + AxisNameOf(grid, 2));
    TShellMapProjection const& projection = *grid.MapProjection;
    facts->Add("projection",
               grid.GetMapProjectionName().empty() ? "without a name" : grid.GetMapProjectionName());
    facts->Add("  method", ProjectionMethodName(projection.Type));
    TStringTree tree;
    tree.ReadFromString(loaded.text.c_str(), nullptr, nullptr);
    TStringTree const* const fields = tree.FindSubtree(1300, 0);
    for (TMapProjectionParameter const& parameter : GetMapProjectionParameters(projection.Type)) {
        std::string value;
        if (fields && fields->GetString(parameter.Key, 0, &value)) {
            facts->Add("  parameter", ParameterName(parameter) + ": " + value +
                                          UnitSign(UnitOf(projection, parameter.Unit)));
        }
    }
    facts->Add("base system", grid.BaseGeodetic->Name);
    facts->Add("  description", grid.BaseGeodetic->Description);
}

/** "10, 20"; the parts that aren't empty. */
std::string Listed(std::string const* texts, int count) {
    std::string list;
    for (int i = 0; i < count; ++i) {
        list += (list.empty() || texts[i].empty() ? "" : ", ") + texts[i];
    }
    return list;
}

/** Adds the frame's origin and turn as the description has them, and the base system. */
void AddFrame(TFacts* facts, TShellTopocentricHorizontalReferenceSystem const& frame) {
    facts->Add("order of axes",
               AxisNameOf(frame, 0) + ", " + AxisNameOf(frame, 1) + ", " + AxisNameOf(frame, 2));
    facts->Add("orientation", frame.IsLeft() ? "left-handed" : "right-handed");
    facts->Add("origin", Listed(frame.OriginCoord, 3));
    facts->Add("azimuth",
               frame.Azimuth.empty() ? "" : frame.Azimuth + UnitSign(frame.BaseGeodetic->AngularUnit));
    facts->Add("base system", frame.BaseGeodetic->Name);
    facts->Add("  description", frame.BaseGeodetic->Description);
}

/** Adds the sphere of the curved kind. */
void AddSphere(TFacts* facts, TShellLocalCurvedReferenceSystem const& curved) {
    facts->Add("sphere's radius", curved.SphereRadiusText + UnitSign(curved.SphereUnit));
    facts->Add("centre", curved.NoOrigin ? "none" : Listed(curved.OriginCoord, 2));
}

/** What a description may carry beyond its geometry. */
void AddExtras(TFacts* facts, TShellReferenceSystem const& system) {
    int count = 0;
    while (system.GetTransform(count)) {
        ++count;
    }
    facts->Add("corrections", count == 0 ? "" : FormatText("%d", count));
    for (auto const& [name, chain] : system.PairwiseTransforms) {
        facts->Add("corrections to", name);
    }
    facts->Add("proxy", system.GetProxyRefSysName());
    facts->Add("geoid", system.GetGeoidSetting());
}

} // namespace

std::string SummaryOf(TLoadedSystem const& loaded) {
    TShellReferenceSystem const& system = *loaded.system;
    TFacts facts;
    facts.Add("name", system.Name);
    facts.Add("kind", KindName(system.Type));
    facts.Add("abbreviation", system.Abbreviation);
    facts.Add("description", system.Description);
    facts.Add("axes", Listed(system.AxisName, 3));
    auto const* const grid = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&system);
    auto const* const frame = dynamic_cast<TShellTopocentricHorizontalReferenceSystem const*>(&system);
    TShellReferenceSystem const& earth = grid ? *grid->BaseGeodetic : frame ? *frame->BaseGeodetic : system;
    if (auto const* const geodetic = dynamic_cast<TShellGeodeticReferenceSystem const*>(&system)) {
        facts.Add("angular unit", UnitText(geodetic->AngularUnit));
        facts.Add("height unit", UnitText(geodetic->Vertical ? geodetic->Vertical->HeightUnit : nullptr));
        facts.Add("longitudes", geodetic->PositiveLongitude ? "reported as positive numbers" : "");
    } else if (!grid) {
        facts.Add("unit", UnitText(OneUnitOf(system)));
    } else {
        TShellVerticalReferenceSystem const* const vertical = grid->BaseGeodetic->Vertical;
        facts.Add("plane unit", UnitText(grid->LinearUnit));
        facts.Add("height unit", UnitText(vertical ? vertical->HeightUnit : nullptr));
        AddProjection(&facts, loaded, *grid);
    }
    if (frame) {
        AddFrame(&facts, *frame);
    }
    if (!system.IsGlobal()) {
        facts.Add("orientation", system.IsLeft() ? "left-handed" : "right-handed");
        if (auto const* const curved = dynamic_cast<TShellLocalCurvedReferenceSystem const*>(&system)) {
            AddSphere(&facts, *curved);
        }
        facts.Add("place on the earth", "none");
        AddExtras(&facts, system);
        return facts.Text();
    }
    AddDatum(&facts, earth);
    AddEllipsoid(&facts, earth);
    if (TShellPrimeMeridian const* const meridian = earth.PrimeMeridian) {
        facts.Add("prime meridian", meridian->Name);
        facts.Add("  longitude", meridian->Longitude + UnitSign(meridian->AngularUnit));
    }
    AddCodes(&facts, system, earth);
    AddExtras(&facts, system);
    return facts.Text();
}

} // namespace VellariTool
