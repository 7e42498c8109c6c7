#include "frame/ModuleInitializer.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"
#include "shell/units/BuiltInUnits.h"

namespace KvRefSystem::Kinds {

namespace {

/** Status of the operations that fill a tree with a derived system. */
enum TFillStatus : int {
    fsDone = 0,
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

bool CopyDatumOrEllipsoid(TStringTree const& saved, TStringTree* tree) {
    return saved.FindSubtree(DescriptionTag::Datum, 0)
               ? CopySaved(saved, DescriptionTag::Datum, "datum", tree)
               : CopySaved(saved, DescriptionTag::Ellipsoid, "ellipsoid", tree);
}

bool FillGeodetic(TStringTree const* saved, TDerivedTexts const& texts, bool (*fillAngularUnit)(TStringTree*),
                  TStringTree* tree) {
    return saved && tree && InsertTexts(tree, texts) &&
           CopySaved(*saved, DescriptionTag::PrimeMeridian, "prime meridian", tree) &&
           InsertUnit(tree, "angular units", DescriptionTag::AngularUnit, fillAngularUnit) &&
           InsertMetreHeights(tree) && CopyDatumOrEllipsoid(*saved, tree);
}

/** A geocentric system takes the datum over; an ellipsoid alone tells it nothing, but must be there. */
bool FillGeocentric(TStringTree const* saved, TDerivedTexts const& texts, TStringTree* tree) {
    if (!saved || !tree || !InsertTexts(tree, texts) ||
        !CopySaved(*saved, DescriptionTag::PrimeMeridian, "prime meridian", tree) ||
        !InsertUnit(tree, "linear unit", DescriptionTag::LinearUnit, FillMeterTree)) {
        return false;
    }
    return saved->FindSubtree(DescriptionTag::Datum, 0)
               ? CopySaved(*saved, DescriptionTag::Datum, "datum", tree)
               : saved->FindSubtree(DescriptionTag::Ellipsoid, 0) != nullptr;
}

bool Fill(TShellReferenceSystem const& system, TPrimaryForm form, TStringTree* tree) {
    TStringTree const* const saved = system.SavedTree;
    if (form == pfGeodetic) {
        TDerivedTexts const texts = {"Geodetic", "Auto-generated", "geod", "4", {"Lat", "Lon", "H"}};
        return FillGeodetic(saved, texts, FillRadianTree, tree);
    }
    if (form == pfGeocentric) {
        TDerivedTexts const texts = {"Geocentric", "Auto-generated", "geoc", "3", {"X", "Y", "Z"}};
        return FillGeocentric(saved, texts, tree);
    }
    KvModule_Initializer const& module = KvModule_Initializer::getInst();
    TDerivedTexts const texts = {
        module.get_resource_string("global.LATITUDE_LONGITUDE") + " " + system.DatumName,
        "",
        "",
        "4",
        {module.get_resource_string("global.LATITUDE"), module.get_resource_string("global.LONGITUDE"), "H"}};
    return FillGeodetic(saved, texts, FillDegreeTree, tree);
}

} // namespace

int FillPrimary(TShellReferenceSystem const& system, TPrimaryForm form, TStringTree* tree) {
    return Fill(system, form, tree) ? fsDone : fsFailed;
}

} // namespace KvRefSystem::Kinds
