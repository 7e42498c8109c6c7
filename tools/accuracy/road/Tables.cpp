#include "tools/accuracy/road/Tables.h"

#include <utility>

namespace VellariAccuracy {

std::vector<TTable> RoadTables() {
    std::vector<TTable> tables = GeocentricTables();
    for (TTable& table : ShiftTables()) {
        tables.push_back(std::move(table));
    }
    tables.push_back(ProjectedTable());
    tables.push_back(GeoidTable());
    tables.push_back(LocalTable());
    return tables;
}

} // namespace VellariAccuracy
