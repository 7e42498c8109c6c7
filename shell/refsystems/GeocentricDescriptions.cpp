#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/KindsDetail.h"

#include <cmath>

namespace KvRefSystem {

namespace {

/** Copies a subtree of the saved description to a new one. @return false without it, or when it is taken. */
bool Copy(TStringTree const* source, TStringTree* tree, char const* header, int tag) {
    return source && tree->InsertSubtree(header, tag, 0) && source->CopyTo(tree->FindSubtree(tag, 0));
}

/** Names, meridian and units of the generated geodetic system; heights are in the system's linear unit. */
bool FillBase(TStringTree const& saved, TStringTree* base) {
    TStringTree const* const meridian = saved.FindSubtree(DescriptionTag::PrimeMeridian, 0);
    TStringTree const* const unit = saved.FindSubtree(DescriptionTag::LinearUnit, 0);
    return base->InsertString("name", DescriptionTag::Name, 0, "Geodetic") &&
           base->InsertString("desc", DescriptionTag::Description, 0, "Auto-generated") &&
           base->InsertString("abbr", DescriptionTag::Abbreviation, 0, "geod") &&
           base->InsertString("type", DescriptionTag::Type, 0, "4") &&
           base->InsertString("axis", DescriptionTag::Axis, 0, "Lat") &&
           base->InsertString("axis", DescriptionTag::Axis, 1, "Lon") &&
           base->InsertString("axis", DescriptionTag::Axis, 2, "H") &&
           Copy(meridian, base, "prime meridian", DescriptionTag::PrimeMeridian) &&
           Copy(meridian->FindSubtree(DescriptionTag::MeridianAngularUnit, 0), base, "angular units",
                DescriptionTag::AngularUnit) &&
           base->InsertSubtree("vertical reference system", DescriptionTag::VerticalSystem, 0) &&
           Copy(unit, base->FindSubtree(DescriptionTag::VerticalSystem, 0), "height linear unit",
                DescriptionTag::LinearUnit);
}

/** @return the distance of a point from the earth's centre in `unit`, as text. @throws as the texts. */
std::string DistanceFromCentre(TShellLinearUnit const& unit, TShellCoords const& point) {
    double squares = 0;
    for (std::string const& text : point.Coord) {
        double const metres = unit.StringToValue(text) * unit.CoefToBase;
        squares += metres * metres;
    }
    return unit.ValueToString(std::sqrt(squares) * unit.CoefFromBase, -1);
}

/** A sphere through the origin, for a system that has no datum to offer. */
bool FillSphere(TStringTree const& saved, std::string const& radius, TStringTree* base) {
    if (!base->InsertSubtree("ellipsoid (generated sphere)", DescriptionTag::Ellipsoid, 0)) {
        return false;
    }
    TStringTree* const sphere = base->FindSubtree(DescriptionTag::Ellipsoid, 0);
    return sphere->InsertString("name", DescriptionTag::EllipsoidName, 0, "sphere") &&
           sphere->InsertString("desc", DescriptionTag::EllipsoidDescription, 0, "auto-generated") &&
           sphere->InsertString("A", DescriptionTag::SemiMajorAxis, 0, radius) &&
           sphere->InsertString("B", DescriptionTag::SemiMinorAxis, 0, radius) &&
           sphere->InsertString("by flattening", DescriptionTag::HasInverseFlattening, 0, "0") &&
           sphere->InsertString("sphere", DescriptionTag::IsSphere, 0, "0") &&
           Copy(saved.FindSubtree(DescriptionTag::LinearUnit, 0), sphere, "ellipsoid linear units",
                DescriptionTag::EllipsoidLinearUnit);
}

} // namespace

bool TShellGeocentricReferenceSystem::FillInternalRefSystemTree(TStringTree* tree,
                                                                TShellCoords const& origin) const {
    if (!SavedTree || !LinearUnit || !TShellReferenceSystem::FillInternalRefSystemTree(tree, origin) ||
        !tree->InsertSubtree("primary reference system", DescriptionTag::PrimarySystem, 0)) {
        return false;
    }
    TStringTree* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    if (!FillBase(*SavedTree, base)) {
        return false;
    }
    TStringTree const* const datum = SavedTree->FindSubtree(DescriptionTag::Datum, 0);
    bool const filled = datum ? Copy(datum, base, "datum shift", DescriptionTag::Datum)
                              : FillSphere(*SavedTree, DistanceFromCentre(*LinearUnit, origin), base);
    return filled && Kinds::InsertOriginOf(*this, origin, base, tree);
}

int TShellGeocentricReferenceSystem::FillPrimaryGeodeticRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodetic, tree, Kinds::drDatumOnly);
}

int TShellGeocentricReferenceSystem::FillPrimaryGeodeticRefSystemTreeDeg(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeodeticDegrees, tree, Kinds::drDatumOnly);
}

int TShellGeocentricReferenceSystem::FillPrimaryGeocentricRefSystemTree(TStringTree* tree) const {
    return Kinds::FillPrimary(SavedTree, DatumName, Kinds::pfGeocentric, tree, Kinds::drDatumOnly);
}

} // namespace KvRefSystem
