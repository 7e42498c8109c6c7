#include "frame/ModuleInitializer.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"
#include "shell/units/BuiltInUnits.h"

namespace KvRefSystem::Kinds {

namespace {

/** Status of the operations that fill a tree with a derived system. */
enum TFillStatus : int {
    fsDone = 0,
    fsNoDatum = 2,
    fsFailed = 9,
};

/** The texts of a derived system, in the order in which they are written. */
struct TDerivedTexts {
    std::string name;
    std::string description;
    std::string abbreviation;
    char const* type;
    std::string axes[3];
};

bool InsertTexts(TStringTree* tree, TDerivedTexts const& texts) {
    return tree->InsertString("name", DescriptionTag::Name, 0, texts.name) &&
           tree->InsertString("desc", DescriptionTag::Description, 0, texts.description) &&
           tree->InsertString("abbr", DescriptionTag::Abbreviation, 0, texts.abbreviation) &&
           tree->InsertString("type", DescriptionTag::Type, 0, texts.type) &&
           tree->InsertString("axis", DescriptionTag::Axis, 0, texts.axes[0]) &&
           tree->InsertString("axis", DescriptionTag::Axis, 1, texts.axes[1]) &&
           tree->InsertString("axis", DescriptionTag::Axis, 2, texts.axes[2]);
}

/** Copies a subtree of the saved description under the same tag. @return false without it. */
bool CopySaved(TStringTree const& saved, int tag, char const* header, TStringTree* tree) {
    TStringTree const* const source = saved.FindSubtree(tag, 0);
    return source && tree->InsertSubtree(header, tag, 0) && source->CopyTo(tree->FindSubtree(tag, 0));
}

bool InsertUnit(TStringTree* tree, char const* header, int tag, bool (*fill)(TStringTree*)) {
    return tree->InsertSubtree(header, tag, 0) && fill(tree->FindSubtree(tag, 0));
}

bool InsertMetreHeights(TStringTree* tree) {
    return tree->InsertSubtree("vertical reference system", DescriptionTag::VerticalSystem, 0) &&
           InsertUnit(tree->FindSubtree(DescriptionTag::VerticalSystem, 0), "height linear unit",
                      DescriptionTag::LinearUnit, FillMeterTree);
}

int Status(bool done) {
    return done ? fsDone : fsFailed;
}

int FillGeodetic(TStringTree const& saved, TDerivedTexts const& texts, bool (*fillAngularUnit)(TStringTree*),
                 TDatumRule rule, TStringTree* tree) {
    if (!InsertTexts(tree, texts) ||
        !CopySaved(saved, DescriptionTag::PrimeMeridian, "prime meridian", tree) ||
        !InsertUnit(tree, "angular units", DescriptionTag::AngularUnit, fillAngularUnit) ||
        !InsertMetreHeights(tree)) {
        return fsFailed;
    }
    if (saved.FindSubtree(DescriptionTag::Datum, 0)) {
        return Status(CopySaved(saved, DescriptionTag::Datum, "datum", tree));
    }
    return rule == drDatumOnly ? fsNoDatum
                               : Status(CopySaved(saved, DescriptionTag::Ellipsoid, "ellipsoid", tree));
}

/** A geocentric system takes the datum over; an ellipsoid alone tells it nothing, but must be there. */
int FillGeocentric(TStringTree const& saved, TDerivedTexts const& texts, TDatumRule rule, TStringTree* tree) {
    if (!InsertTexts(tree, texts) ||
        !CopySaved(saved, DescriptionTag::PrimeMeridian, "prime meridian", tree) ||
        !InsertUnit(tree, "linear unit", DescriptionTag::LinearUnit, FillMeterTree)) {
        return fsFailed;
    }
    if (saved.FindSubtree(DescriptionTag::Datum, 0)) {
        return Status(CopySaved(saved, DescriptionTag::Datum, "datum", tree));
    }
    return Status(rule == drDatumOrEllipsoid && saved.FindSubtree(DescriptionTag::Ellipsoid, 0));
}

} // namespace

int FillPrimary(TStringTree const* saved, std::string const& datumName, TPrimaryForm form, TStringTree* tree,
                TDatumRule rule) {
    if (!saved || !tree) {
        return fsFailed;
    }
    if (form == pfGeodetic) {
        TDerivedTexts const texts = {"Geodetic", "Auto-generated", "geod", "4", {"Lat", "Lon", "H"}};
        return FillGeodetic(*saved, texts, FillRadianTree, rule, tree);
    }
    if (form == pfGeocentric) {
        TDerivedTexts const texts = {"Geocentric", "Auto-generated", "geoc", "3", {"X", "Y", "Z"}};
        return FillGeocentric(*saved, texts, rule, tree);
    }
    KvModule_Initializer const& module = KvModule_Initializer::getInst();
    TDerivedTexts const texts = {
        module.get_resource_string("global.LATITUDE_LONGITUDE") + " " + datumName,
        "",
        "",
        "4",
        {module.get_resource_string("global.LATITUDE"), module.get_resource_string("global.LONGITUDE"), "H"}};
    return FillGeodetic(*saved, texts, FillDegreeTree, rule, tree);
}

} // namespace KvRefSystem::Kinds
