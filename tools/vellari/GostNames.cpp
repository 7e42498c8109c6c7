#include "tools/vellari/GostNames.h"

#include "tools/vellari/NameMatch.h"
#include "tools/vellari/ToolError.h"

#include <cstddef>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

template <class Value>
struct TGostName {
    Value value;
    std::string_view name;
    std::string_view title;
    std::string_view other; ///< another name, may be empty
};

constexpr TGostName<TGOST51794Datum> datums[] = {
    {gdWGS84, "wgs84", "WGS 84", ""},
    {gdPulkovo42, "pulkovo42", "Pulkovo 1942", "sk42"},
    {gdPulkovo95, "pulkovo95", "Pulkovo 1995", "sk95"},
    {gdPZ90, "pz90", "PZ-90", ""},
    {gdPZ90_02, "pz90.02", "PZ-90.02", ""},
    {gdPZ90_11, "pz90.11", "PZ-90.11", ""},
    {gdGSK2011, "gsk2011", "GSK-2011", ""},
    {gdITRF2008, "itrf2008", "ITRF2008", ""},
};

constexpr TGostName<TGOST51794RefsystemType> types[] = {
    {grtGeocentric, "geocentric", "geocentric", "xyz"},
    {grtGeodetic, "geodetic", "geodetic", "blh"},
    {grtProjected, "projected", "projected", "gk"},
};

constexpr TGostName<TGOST51794Version> editions[] = {
    {gv2001, "2001", "2001", ""},
    {gv2008, "2008", "2008", ""},
    {gv2017, "2017", "2017", ""},
};

/** @return the letters and digits alone, in lower case: "PZ-90.02" and "pz90.02" are one. */
std::string Bare(std::string_view name) {
    std::string bare;
    for (char const sign : LowerCase(std::string(name))) {
        bool const isSeparator = sign == '-' || sign == '.' || sign == '_' || sign == ' ';
        bare += isSeparator ? "" : std::string(1, sign);
    }
    return bare;
}

template <class Value, std::size_t Count>
std::string Names(TGostName<Value> const (&rows)[Count]) {
    std::string names;
    for (TGostName<Value> const& row : rows) {
        names += (names.empty() ? "" : ", ") + std::string(row.name);
    }
    return names;
}

template <class Value, std::size_t Count>
Value Find(TGostName<Value> const (&rows)[Count], std::string const& option, char const* what,
           std::string const& name) {
    std::string const bare = Bare(name);
    for (TGostName<Value> const& row : rows) {
        if (bare == Bare(row.name) || bare == Bare(row.title) || (!row.other.empty() && bare == row.other)) {
            return row.value;
        }
    }
    throw TToolError(option + " " + Quoted(name) + " is not " + what + " of the standard; right is " +
                     Names(rows));
}

} // namespace

TGOST51794Datum GostDatum(std::string const& option, std::string const& name) {
    return Find(datums, option, "a datum", name);
}

TGOST51794RefsystemType GostType(std::string const& option, std::string const& name) {
    return Find(types, option, "a coordinate type", name);
}

TGOST51794Version GostEdition(std::string const& name) {
    return Find(editions, "--edition", "an edition", name);
}

std::string GostDatumTitle(TGOST51794Datum datum) {
    for (TGostName<TGOST51794Datum> const& row : datums) {
        if (row.value == datum) {
            return std::string(row.title);
        }
    }
    return "unknown";
}

std::string GostDatumNames() {
    return Names(datums);
}

} // namespace VellariTool
