#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/fuzz/targets/Promises.h"
#include "tests/fuzz/targets/Targets.h"
#include "tools/vellari/SystemLoader.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/ZoneDescription.h"
#include "tools/vellari/ZoneShorthand.h"

namespace Fuzz {

namespace {

using namespace VellariTool;

/** What is wrong is told in one line that a terminal may show. */
void RequireOneLine(std::string const& message) {
    for (char const byte : message) {
        Require(static_cast<unsigned char>(byte) >= ' ' && byte != '\x7F', "a message has no control bytes",
                message);
    }
}

} // namespace

void RunZones(std::string_view input) {
    RequireOneLine(SuggestZoneShorthand(input));
    if (!IsZoneShorthand(input)) {
        return;
    }
    TZone zone;
    try {
        zone = ParseZoneShorthand(input);
    } catch (TToolError const& error) {
        RequireOneLine(error.what());
        return;
    }
    TLoadedSystem const loaded = BuildSystem("zone", DescribeZone(zone), suTransform);
    double point[3] = {};
    Require(KvRefSystem::TransformCoords(loaded.system.get(), 0, 0, 0, loaded.system.get(), &point[0],
                                         &point[1], &point[2]),
            "a zone that has a shorthand has coordinates", input);
}

std::vector<std::string> ZonesSeeds() {
    std::vector<std::string> seeds;
    for (TZoneForm const& form : ZoneForms()) {
        seeds.emplace_back(form.example);
        seeds.emplace_back(form.pattern);
        seeds.emplace_back(form.prefix);
    }
    for (char const* const text : {"utm:60S", "UTM:0N", "gk:61", "gsk:-1", "msk:50:2:6", "msk:77:1:1.5",
                                   "sk63:C:1:6", "sk63:c:99999999999", "utm37n", "umt:37N", "msk:50:2:1e-300",
                                   "msk:50:999999999:3.6e-7", "sk63:X:1:0x10", "msk::", "utm:"}) {
        seeds.emplace_back(text);
    }
    return seeds;
}

} // namespace Fuzz
