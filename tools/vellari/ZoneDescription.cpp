#include "tools/vellari/ZoneDescription.h"

#include "tools/vellari/Catalog.h"

#include <Vellari/Vellari.h>

#include <iterator>
#include <optional>
#include <stdexcept>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** Where the register has codes of zones 1, 2, 3 ... one after another. */
struct TRegisterCodes {
    int beforeFirst = 0; ///< code of a zone less its number; 0: none
    int first = 0;       ///< first zone with a code
    int last = 0;
};

/** What a family is made of. */
struct TFamilyFacts {
    TZoneFamily family;
    char const* entry; ///< geodetic entry of the catalogue
    TMapProjectionType projection;
    bool isNorthingFirst;
    bool hasExchangeForms; ///< whether MapInfo and GeoTIFF can express it
    TRegisterCodes north;  ///< systems
    TRegisterCodes south;
    TRegisterCodes northProjection;
    TRegisterCodes southProjection;
};

// EPSG's systems, and the projections' codes of the GeoTIFF format.
constexpr TFamilyFacts families[] = {
    {zfUtm, "wgs-84", mptUTM, false, true, {32600, 1, 60}, {32700, 1, 60}, {16000, 1, 60}, {16100, 1, 60}},
    {zfPulkovoZone, "pulkovo-1942", mptGaussKruger6, true, true, {28400, 4, 32}, {}, {}, {}},
    {zfGskZone, "gsk-2011", mptGaussKruger6, true, true, {20900, 4, 32}, {}, {}, {}},
    {zfRegionalGrid, "pulkovo-1942", mptMSKxx, true, false, {}, {}, {}, {}},
    {zfBlockGrid, "pulkovo-1942", mptSK63, true, false, {}, {}, {}, {}},
};

/** Panorama's codes of the GSK-2011 zones. */
constexpr TRegisterCodes gskPanorama = {80020000, 1, 60};

TFamilyFacts const& FactsOf(TZone const& zone) {
    for (TFamilyFacts const& row : families) {
        if (row.family == zone.family) {
            return row;
        }
    }
    throw std::logic_error("a family of zones without facts");
}

std::optional<int> CodeOf(TRegisterCodes const& codes, int zone) {
    if (codes.beforeFirst == 0 || zone < codes.first || zone > codes.last) {
        return std::nullopt;
    }
    return codes.beforeFirst + zone;
}

// --- Texts -------------------------------------------------------------------------------------------------

/** Degrees from Greenwich, -177 to 177. */
int CentralMeridian(TZone const& zone) {
    if (zone.family == zfUtm) {
        return 6 * zone.zone - 183;
    }
    return zone.zone <= 30 ? 6 * zone.zone - 3 : 6 * zone.zone - 363;
}

std::string ProjectionName(TZone const& zone) {
    switch (zone.family) {
    case zfUtm:
        return FormatText("UTM zone %d%c", zone.zone, zone.isNorth ? 'N' : 'S');
    case zfPulkovoZone:
    case zfGskZone:
        return FormatText("Gauss-Kruger zone %d%s", zone.zone, zone.isNorth ? "" : "S");
    case zfRegionalGrid:
        return FormatText("MSK-%02d zone %d", zone.region, zone.zone);
    case zfBlockGrid:
        return FormatText("SK-63 block %c zone %d", zone.block, zone.zone);
    }
    return "";
}

std::string SystemName(TZone const& zone, TStringTree const& base) {
    bool const isNamedByItself = zone.family == zfRegionalGrid || zone.family == zfBlockGrid;
    std::string baseName;
    base.GetString(1020, 0, &baseName);
    return (isNamedByItself ? "" : baseName + " / ") + ProjectionName(zone);
}

std::string Abbreviation(TZone const& zone) {
    char const* const hemisphere = zone.isNorth ? "" : "S";
    switch (zone.family) {
    case zfUtm:
        return FormatText("UTM %d%c", zone.zone, zone.isNorth ? 'N' : 'S');
    case zfPulkovoZone:
        return FormatText("SK-42 zone %d%s", zone.zone, hemisphere);
    case zfGskZone:
        return FormatText("GSK-2011 zone %d%s", zone.zone, hemisphere);
    case zfRegionalGrid:
        return FormatText("MSK-%02d-%d", zone.region, zone.zone);
    case zfBlockGrid:
        return FormatText("SK-63 %c-%d", zone.block, zone.zone);
    }
    return "";
}

std::string Description(TZone const& zone, std::optional<int> epsg) {
    std::string const code = epsg ? FormatText("EPSG:%d. ", *epsg) : "";
    switch (zone.family) {
    case zfUtm:
        return code + FormatText("Central meridian %d degrees, scale factor 0.9996.", CentralMeridian(zone));
    case zfPulkovoZone:
    case zfGskZone:
        return code + FormatText("Central meridian %d degrees; the zone number leads the easting.",
                                 CentralMeridian(zone));
    case zfRegionalGrid:
        return FormatText("Local grid of region %d, zone %d of %s degrees.", zone.region, zone.zone,
                          zone.width.c_str());
    case zfBlockGrid:
        return FormatText("System of 1963, block %c, zone %d of %s degrees.", zone.block, zone.zone,
                          zone.width.c_str());
    }
    return "";
}

// --- The tree ----------------------------------------------------------------------------------------------

/** One field of a tree. */
struct TFieldRow {
    int tag;
    int idx;
    char const* label;
    std::string text;
};

void InsertRows(TStringTree* tree, std::initializer_list<TFieldRow> rows) {
    for (TFieldRow const& row : rows) {
        tree->InsertString(row.label, row.tag, row.idx, row.text);
    }
}

TStringTree* Subtree(TStringTree* tree, int tag, char const* label) {
    tree->InsertSubtree(label, tag, 0);
    return tree->FindSubtree(tag, 0);
}

/** Copies `source`, if there is one, into a new subtree. */
void CopyAs(TStringTree const* source, TStringTree* tree, int tag, char const* label) {
    if (source) {
        source->CopyTo(Subtree(tree, tag, label));
    }
}

TStringTree const* Below(TStringTree const* tree, int tag) {
    return tree ? tree->FindSubtree(tag, 0) : nullptr;
}

void InsertScaleUnit(TStringTree* unit) {
    InsertRows(unit, {{5301, 0, "code", "0"},
                      {5312, 0, "type", "3"},
                      {5310, 0, "f_b", "1"},
                      {5311, 0, "f_c", "1"},
                      {5320, 0, "name", "unity"},
                      {5321, 0, "abbr", ""},
                      {5322, 0, "desc", ""}});
}

void InsertZoneFields(TStringTree* projection, TZone const& zone) {
    projection->InsertInteger("zone", 6201, 0, zone.zone);
    switch (zone.family) {
    case zfUtm:
    case zfPulkovoZone:
    case zfGskZone:
        projection->InsertString("hemisphere", 6202, 0, zone.isNorth ? "N" : "S");
        break;
    case zfRegionalGrid:
        projection->InsertInteger("region", 6205, 0, zone.region);
        projection->InsertString("zone width", 6206, 0, zone.width);
        break;
    case zfBlockGrid:
        projection->InsertString("block", 6204, 0, std::string(1, zone.block));
        projection->InsertString("zone width", 6206, 0, zone.width);
        break;
    }
}

void FillProjection(TStringTree* projection, TZone const& zone, TStringTree const& base) {
    TFamilyFacts const& facts = FactsOf(zone);
    projection->InsertInteger("type", 6001, 0, facts.projection);
    projection->InsertString("name", 6020, 0, ProjectionName(zone));
    InsertZoneFields(projection, zone);
    InsertRows(projection, {{1400, 0, "flip axes", facts.isNorthingFirst ? "1" : "0"},
                            {1401, 0, "axis sign", "1"},
                            {1401, 1, "axis sign", "1"}});
    if (facts.hasExchangeForms) {
        if (std::optional<int> const code =
                CodeOf(zone.isNorth ? facts.northProjection : facts.southProjection, zone.zone)) {
            projection->InsertInteger("geotiff code", 102007, 0, *code);
        }
        projection->InsertString("geotiff type", 102008, 0, "1");
    }
    CopyAs(Below(&base, 1106), projection, 6090, "angular unit");
    CopyAs(Below(Below(&base, 1201), 1104), projection, 6091, "linear unit");
    InsertScaleUnit(Subtree(projection, 6092, "scale unit"));
}

} // namespace

std::string DescribeZone(TZone const& zone) {
    TFamilyFacts const& facts = FactsOf(zone);
    EmbeddedFile const* const entry = FindCatalogEntry(facts.entry);
    if (!entry) {
        throw std::logic_error("a family of zones without its geodetic entry");
    }
    TStringTree base;
    base.ReadFromString(std::string(entry->text).c_str(), nullptr, nullptr);

    std::optional<int> const epsg = CodeOf(zone.isNorth ? facts.north : facts.south, zone.zone);
    std::string const name = SystemName(zone, base);
    TStringTree tree(0, 0, nullptr, name);
    InsertRows(&tree, {{1020, 0, "name", name},
                       {1021, 0, "desc", Description(zone, epsg)},
                       {1022, 0, "abbr", Abbreviation(zone)},
                       {1100, 0, "type", FormatText("%d", rstMapProjected)},
                       {1025, 0, "axis", facts.isNorthingFirst ? "Northing" : "Easting"},
                       {1025, 1, "axis", facts.isNorthingFirst ? "Easting" : "Northing"},
                       {1025, 2, "axis", "Height"}});
    if (epsg) {
        tree.InsertInteger("epsg", 102005, 0, *epsg);
    }
    if (zone.family == zfGskZone && zone.isNorth) {
        tree.InsertInteger("panorama", 102800, 0, *CodeOf(gskPanorama, zone.zone));
    }
    // Beside the base system also here, where operations on the description look for them.
    CopyAs(Below(&base, 1101), &tree, 1101, "prime meridian");
    CopyAs(Below(Below(&base, 1201), 1104), &tree, 1104, "linear unit");
    CopyAs(Below(&base, 1107), &tree, 1107, "datum");
    CopyAs(&base, &tree, 1121, "primary reference system");
    FillProjection(Subtree(&tree, 1300, "map projection"), zone, base);
    if (facts.hasExchangeForms) {
        InsertRows(Subtree(&tree, 101000, "mapinfo"),
                   {{101001, 0, "projection", "8"}, {101002, 0, "unit", "m"}});
    }

    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    return text;
}

} // namespace VellariTool
