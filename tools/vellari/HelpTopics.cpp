#include "tools/vellari/HelpTopics.h"

#include "tools/vellari/NameMatch.h"
#include "tools/vellari/OutputFile.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/UnitsCommand.h"

namespace VellariTool {

namespace {

struct THelpTopic {
    std::string_view name;
    std::string_view title;
    std::string_view text;
};

constexpr THelpTopic helpTopics[] = {
    {"transform", "moving points",
     R"(vellari transform SOURCE TARGET [POINTS] [-o FILE]

Reads points in the system SOURCE, line by line, and writes them in the system
TARGET. POINTS is a CSV file; without it, or as "-", standard input is read.

  -o FILE                write FILE instead of standard output; the file
                         appears complete or stays as it was
  --precision N          decimals of all coordinates, 0 to 20; of the seconds
                         or minutes in sexagesimal notations; without it each
                         unit's own (degrees 9, metres 3)
  --height-precision N   decimals of heights alone
  --on-error mark        a line that fails has empty coordinates (default)
  --on-error skip        it is left out
  --on-error stop        the run ends there; a FILE of -o stays as it was
  --header auto          a header when the input has one (default)
  --header always|never  a header in any case, or none

Lines that fail are reported on standard error with number, text and reason,
the first 20 one by one, and counted at the end; the exit status is then 1.

  printf '55.75,37.62,150\n' | vellari transform pulkovo-1942 wgs-84
  printf '55.75,37.62,150\n' | vellari transform wgs-84 utm:37N

See also: vellari help points, vellari help systems
)"},
    {"gost", "the transformation of the standard",
     R"(vellari gost --from DATUM --to DATUM [POINTS] [--edition YEAR] [--type TYPE]

Moves points as GOST R 51794 does, with its own parameters and formulas. POINTS
and the options -o, --precision, --height-precision, --on-error and --header are
those of `vellari transform`.

  --from, --to DATUM   wgs84, pulkovo42, pulkovo95, pz90, pz90.02, pz90.11,
                       gsk2011, itrf2008; pulkovo-1942, SK-42 and so on are the
                       same
  --edition YEAR       2008 (default), 2001 or 2017
  --type TYPE          coordinates of both sides: geodetic (default: latitude,
                       longitude in degrees, height), geocentric (x, y, z) or
                       projected (northing, easting with the number of the
                       six-degree zone in front, height)
  --from-type TYPE     those of the points alone
  --to-type TYPE       those of the result alone
  --parameters         only tells semi-axes and the seven parameters from the
                       datum of --from to WGS 84

The edition of 2001 knows PZ-90, WGS 84, Pulkovo 1942 and 1995, that of 2008
also PZ-90.02. That of 2017 has parameters for all, but no way from datum to
datum: only the ellipsoid changes, which a message tells. Projected coordinates
are those of Pulkovo 1942 and 1995, in zones 1 to 60 from 0 to 360 degrees.
Points at geocentric Y below 0, longitudes 180 to 360, come out with another
longitude than their own; a message counts them.

  printf '55,37,200\n' | vellari gost --from pulkovo42 --to wgs84
  vellari gost --parameters --from pulkovo42 --edition 2001
)"},
    {"systems", "how to name a system",
     R"(A system is an entry of the catalogue (`vellari list`), a zone or a description
file. Names of entries and zones may have letters of either case; what is none
is the path of a file. Write ./NAME for a file that is called like one of them.

Zones:
  utm:37N       WGS 84 / UTM zone 37, N or S; easting first; zones 1 to 60
  gk:7          Pulkovo 1942 / Gauss-Kruger zone 7, of six degrees; gk:7S in the
                south; northing first; zones 1 to 60
  gsk:7         GSK-2011 / Gauss-Kruger zone 7, in the same way
  msk:50:2      MSK, local grid of region 50, zone 2 of three degrees; northing
                first; msk:50:2:6 with zones of six degrees
  sk63:C:1      SK-63, block C, zone 1 of three degrees; northing first;
                sk63:C:1:6 with zones of six degrees

A description file holds the text that `vellari show SYSTEM --as text` prints:
one field a line, (tag,index)[count]label TAB value; TABs at the beginning of a
line nest it, blanks don't, and every subtree ends with a line of its TABs.
What is missing in a description is reported with tag and subtree.

  vellari show SYSTEM                what the system is
  vellari show SYSTEM --as text      its description, byte for byte
  vellari show SYSTEM --as xml       the description's tree as XML

`vellari help formats` tells the forms for other programs.
)"},
    {"formats", "what show prints",
     R"(vellari show SYSTEM --as FORMAT

  summary       one fact a line (default)
  text          the description, byte for byte
  xml           the description's tree as XML
  wkt           WKT of 2001
  wkt-compound  the same with the heights, in geodetic systems and grids
  mif           the CoordSys clause of MapInfo
  geotiff       the keys of GeoTIFF, one a line: number, name, value
  panorama      the keys of Panorama, in the same way

A system without a form in a language is an error whose line tells the part that
has none. An earth-bound system without MapInfo settings has a clause that names
only its unit; a message tells what is missing.
)"},
    {"points", "the form of points",
     R"(One point a line: latitude, longitude and height, then any further columns,
which are carried along as they stand. In a grid the first two are easting and
northing, in the order that the system has; `vellari show SYSTEM` tells it.

  separator   comma, semicolon, TAB or blanks, found by the first point
  header      the first line when neither of its coordinates looks like a
              number; the result then has a header with names and units:
              latitude_deg,longitude_deg,height_m or, in a grid,
              easting_m,northing_m,height_m
              other kinds have x_m,y_m,z_m (geocentric), east_m,north_m,up_m
              (topocentric), x_m,y_m,h_m (local)
  numbers     decimal point, exponent allowed; the whole field must be a number
  angles      in a system with degrees, minutes and seconds: 55 45 07.2 N,
              55d45m07.2s N, 55°45'07.2"N; with blanks inside the columns need
              commas, semicolons or TABs
  height      may be empty or missing: the height of the result is empty then;
              geocentric, topocentric and local systems need all three
  quotes      one pair of double quotes around a coordinate doesn't count

Among blanks an empty field is written and read as *.
Empty lines pass through. A byte order mark and CR LF line ends are read; the
result has neither. A line may have 1 MiB.
)"},
    {"relations", "comparing, axes, areas",
     R"(vellari compare A B

Tells whether the datums of two systems are equal, different, unknown (a shift
is missing) or incompatible (one system isn't tied to the earth), whether a
point keeps its height, and whether geometry and systems are equal; systems of
equal geometry may differ in their units.

vellari axes SYSTEM [LAT LON]

Tells to which points of the compass the first two axes lead. At a place, in
degrees on the system's own datum and from its prime meridian, it also tells for
each coordinate how far one unit leads, at which bearing from north over east,
and at which elevation.

vellari area SYSTEM [POLYGON] [--precision N]

Tells the area of a polygon in square metres. POLYGON is a file of its corners
in order, in the form of points; the first corner may stand at the end again.
Only geodetic systems have areas. The corners' mean height counts. Where there
is no area, 0 is printed, a message tells why, and the exit status is 1.

  printf '55.75,37.60\n55.75,37.64\n55.77,37.63\n' | vellari area wgs-84
)"},
    {"units", "units of length and angle",
     R"(vellari units VALUE --from UNIT --to UNIT [--precision N] [--axis AXIS]

Converts a length to a length or an angle to an angle. Without --precision the
result has the unit's own number of decimals. A result with a hemisphere letter
needs --axis latitude or --axis longitude, unless VALUE has a letter.

  vellari units 1 --from nautical-mile --to metre
  vellari units '55 45 07.2 N' --from dms-hemisphere --to degree

)"},
    {"exit-status", "what the exit status tells",
     R"(0  all is done
1  some points could not be transformed, the rest is done; or a polygon has no
   area
2  wrong usage, a system that cannot be built, a file that cannot be read or
   written; one line on standard error tells which, and what would be right

A reader of the output that goes away early, as head does, is no error.
)"},
};

/** @return the topics, one a line. */
std::string TopicList() {
    std::string text = "Topics:\n";
    for (THelpTopic const& topic : helpTopics) {
        std::string line = "  vellari help " + std::string(topic.name);
        line.append(line.size() < 30 ? 30 - line.size() : 1, ' ');
        text += line + std::string(topic.title) + "\n";
    }
    return text + "\n`vellari --help` lists the commands, `vellari COMMAND --help` their options.\n";
}

} // namespace

std::string HelpTopicNames() {
    std::string names;
    for (THelpTopic const& topic : helpTopics) {
        names += (names.empty() ? "" : ", ") + std::string(topic.name);
    }
    return names;
}

int RunHelp(std::string const& topic) {
    if (topic.empty()) {
        PrintText(TopicList());
        return esDone;
    }
    for (THelpTopic const& row : helpTopics) {
        if (LowerCase(topic) == row.name) {
            PrintText(std::string(row.text) + (row.name == "units" ? UnitsTable() : ""));
            return esDone;
        }
    }
    throw TToolError("there is no help on " + Quoted(topic) + "; topics are " + HelpTopicNames());
}

} // namespace VellariTool
