#include "tests/memory/Fingerprint.h"

#include "core/refsystems/ReferenceSystem.h"
#include "frame/NumberText.h"
#include "hostkit/XmlIni.h"
#include "shell/refsystems/ReferenceSystem.h"
#include "tests/support/Descriptions.h"

#include <exception>
#include <vector>

namespace MemorySweep {

using namespace KvRefSystem;

namespace {

constexpr double points[][3] = {{0, 0, 0}, {1e5, 2e5, 30}, {0.9, 0.6, 100}, {55, 37, 200}};

std::string Numbers(double const* values) {
    return FormatText("%.17lg %.17lg %.17lg\n", values[0], values[1], values[2]);
}

std::string XmlOf(TShellReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    return system.SaveToXML(&writer) ? writer.ToString() : std::string("no XML");
}

} // namespace

std::string FingerprintOf(TRefSystemTransformsSet const& set) {
    std::vector<std::string> lines;
    set.Output(&lines);
    std::string text;
    for (std::string const& line : lines) {
        text += line + "\n";
    }
    return text;
}

std::string FingerprintOf(TShellRefSystemTransform const& chain) {
    std::size_t const cursor = chain.Cursor;
    TStringTree tree;
    bool const isWhole = chain.WriteToTree(&tree, "");
    chain.Cursor = cursor;
    return TestSupport::TextOf(tree) + (isWhole ? "" : "and no more");
}

std::string FingerprintOf(TReferenceSystem const& system) {
    std::string text = FormatText("core %d %d %d\n", static_cast<int>(system.Type), system.ContainsDatum(),
                                  system.NonlinearDatum());
    text += FingerprintOf(system.Transforms);
    for (auto const& [name, chain] : system.PairwiseTransforms) {
        text += name + "\n" + FingerprintOf(chain);
    }
    for (double const(&point)[3] : points) {
        TCoords coords{point[0], point[1], point[2], false};
        try {
            system.OperateCoordsWorld(&coords, true);
            double const moved[3] = {coords.X, coords.Y, coords.Z};
            text += Numbers(moved);
        } catch (std::exception const& failure) {
            text += std::string(failure.what()) + "\n";
        }
    }
    return text;
}

std::string FingerprintOf(TShellReferenceSystem const& system) {
    std::string text = FormatText("type %d\n", static_cast<int>(system.Type));
    for (std::string const* const member :
         {&system.Name, &system.Description, &system.Abbreviation, &system.AxisName[0], &system.AxisName[1],
          &system.AxisName[2], &system.GeoTIFFCode, &system.GeoTIFFType, &system.DatumGeoTIFFCode,
          &system.PanoramaCode, &system.DatumName}) {
        text += "<" + *member + ">\n";
    }
    text += system.SavedTree ? TestSupport::TextOf(*system.SavedTree) : std::string("no description\n");
    text += system.Transform ? FingerprintOf(*system.Transform) : std::string("no chain\n");
    for (auto const& [name, chain] : system.PairwiseTransforms) {
        text += name + ": " + (chain ? FingerprintOf(*chain) : std::string("none\n"));
    }
    text += "geoid <" + system.GetGeoidID() + "> setting <" + system.GetGeoidSetting() + ">\n";
    text += "proxy <" + system.GetProxyRefSysStr() + ">\n";
    text += XmlOf(system);
    if (!system.CoreRefSystem) {
        return text + "no core\n";
    }
    text += FingerprintOf(*system.CoreRefSystem);
    for (double const(&point)[3] : points) {
        double coords[3] = {point[0], point[1], point[2]};
        try {
            system.OperateShellCoords(system, coords, false);
            text += Numbers(coords);
        } catch (std::exception const& failure) {
            text += std::string(failure.what()) + "\n";
        }
    }
    return text;
}

} // namespace MemorySweep
