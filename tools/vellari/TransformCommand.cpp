#include "tools/vellari/TransformCommand.h"

#include "tools/vellari/GeoidOption.h"
#include "tools/vellari/SystemKinds.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"

namespace VellariTool {

namespace {

/** @return "rd-new, a map-projected system". */
std::string NameWithKind(TLoadedSystem const& loaded) {
    return loaded.name + ", a " + KindName(loaded.system->Type) + " system";
}

/** @throws TToolError for a local and an earth-bound system. */
void CheckThatARoadLeads(TLoadedSystem const& source, TLoadedSystem const& target) {
    if (source.system->IsGlobal() == target.system->IsGlobal()) {
        return;
    }
    TLoadedSystem const& local = source.system->IsGlobal() ? target : source;
    TLoadedSystem const& earth = source.system->IsGlobal() ? source : target;
    throw TToolError("no road leads between " + NameWithKind(local) + ", and " + NameWithKind(earth) +
                     ": the first one isn't tied to the earth");
}

/** With a geoid on either side the third column tells what its heights stand over. */
std::array<TAxisText, 3> AxisTextsOf(TLoadedSystem const& loaded, TTransformOptions const& options,
                                     TPrecision const& precision) {
    std::array<TAxisText, 3> texts = AxisTexts(*loaded.system, precision);
    bool const hasHeight = loaded.system->IsLatLon() || loaded.system->IsProjected();
    if (hasHeight && !(options.geoidOfSource.empty() && options.geoidOfTarget.empty())) {
        texts[2].Rename(HeightNameOf(*loaded.system));
    }
    return texts;
}

} // namespace

int RunTransform(TTransformOptions const& options) {
    TLoadedSystem source = LoadSystem(options.source, suTransform);
    TLoadedSystem target = LoadSystem(options.target, suTransform);
    CheckThatARoadLeads(source, target);
    TGeoidOption const geoidOfSource(options.geoidOfSource, "--geoid-source", &source);
    TGeoidOption const geoidOfTarget(options.geoidOfTarget, "--geoid-target", &target);
    TPointOperation operation(*source.system, *target.system);
    return RunPoints(options, &operation, AxisTextsOf(source, options, {}),
                     AxisTextsOf(target, options, options.precision));
}

} // namespace VellariTool
