#include "tools/vellari/ProjectionNames.h"

#include <string_view>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

struct TMethodName {
    TMapProjectionType type;
    char const* name;
};

constexpr TMethodName methodNames[] = {
    {mptTransverseMercator, "Transverse Mercator"},
    {mptObliqueMercator, "Oblique Mercator"},
    {mptHotineObliqueMercator, "Hotine Oblique Mercator"},
    {mptNZMG, "New Zealand Map Grid"},
    {mptAlbersEqualAreaConic, "Albers Equal Area"},
    {mptLambertConicConformal2SP, "Lambert Conic Conformal, two parallels"},
    {mptLambertConicConformal1SP, "Lambert Conic Conformal, one parallel"},
    {mptCassiniSoldner, "Cassini-Soldner"},
    {mptMercator2SP, "Mercator, by its standard parallel"},
    {mptMercator1SP, "Mercator, by its scale factor"},
    {mptObliqueStereographic, "Oblique Stereographic"},
    {mptPolarStereographic, "Polar Stereographic, north"},
    {mptQuasiStereographic, "Quasi-stereographic"},
    {mptPolyconic, "American Polyconic"},
    {mptGaussBoaga, "Gauss-Boaga"},
    {mptKrovak, "Krovak"},
    {mptHatt, "Hatt"},
    {mptPolarStereographicBasic, "Polar Stereographic, by its scale factor"},
    {mptPolarStereographicNaturalOrigin, "Polar Stereographic, by its natural origin"},
    {mptPolarStereographicFalseOrigin, "Polar Stereographic, by its standard parallel"},
    {mptLambertAzimuthalEqualArea, "Lambert Azimuthal Equal Area"},
    {mptEquidistantConic, "Equidistant Conic"},
    {mptOrthographic, "Orthographic"},
    {mptGaussKrugerWide, "Gauss-Kruger, wide"},
    {mptGaussKruger6, "Gauss-Kruger, zones of six degrees"},
    {mptUTM, "Universal Transverse Mercator"},
    {mptMSKxx, "MSK, local grid of a region"},
    {mptSK63, "SK-63, grid of a block"},
    {mptLambertConicConformal2SPBelgium, "Lambert Conic Conformal, Belgium 1972"},
    {mptSphericalMercator, "Mercator of the sphere"},
};

} // namespace

std::string ProjectionMethodName(int type) {
    for (TMethodName const& row : methodNames) {
        if (row.type == type) {
            return row.name;
        }
    }
    return "unknown";
}

std::string ParameterName(TMapProjectionParameter const& parameter) {
    std::string_view const meaning = parameter.Meaning;
    return std::string(meaning.substr(0, meaning.find(',')));
}

} // namespace VellariTool
