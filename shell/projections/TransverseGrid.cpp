#include "core/projections/TransverseMercator.h"
#include "frame/NumberText.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ReportFailureDetail.h"
#include "shell/projections/TransverseGridDetail.h"

#include <limits>

namespace KvRefSystem::TransverseGrid {

namespace {

constexpr double Equator = 0;

} // namespace

TMapProjection* CreateTransverseMercator(TEllipsoidSemiAxes const* semiAxes, TGrid const& grid) {
    if (!semiAxes) {
        throw TUnusableProjection();
    }
    double const centralMeridian = ParameterText::ToRadians(grid.CentralMeridian);
    TTransverseMercatorMapProjectionParameters const parameters(centralMeridian, Equator, grid.ScaleFactor,
                                                                grid.FalseEasting, grid.FalseNorthing);
    return new TTransverseMercatorMapProjection(semiAxes, &parameters);
}

std::string WktParameters(TGrid const& grid) {
    ParameterText::TWktParameters parameters;
    parameters.Add("latitude_of_origin", Equator);
    parameters.Add("central_meridian", grid.CentralMeridian);
    parameters.Add("scale_factor", grid.ScaleFactor);
    parameters.Add("false_easting", grid.FalseEasting);
    parameters.Add("false_northing", grid.FalseNorthing);
    return parameters.Text;
}

std::optional<int> ReadCount(TStringTree const& tree, int tag) {
    std::string text;
    long long number = 0;
    // 18 characters always fit the wide type, so that no text is beyond what the scan defines.
    if (!tree.GetString(tag, 0, &text) || ScanText(text.c_str(), "%18lld", &number) != 1 || number < 1 ||
        number > std::numeric_limits<int>::max()) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

std::optional<double> ReadPositive(TStringTree const& tree, int tag) {
    std::string text;
    double number = 0;
    if (!tree.GetString(tag, 0, &text) || ScanText(text.c_str(), "%lf", &number) != 1 || !(number > 0)) {
        return std::nullopt;
    }
    return number;
}

} // namespace KvRefSystem::TransverseGrid
