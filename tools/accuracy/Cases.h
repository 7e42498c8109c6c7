#pragma once

#include "tools/accuracy/Domain.h"
#include "tools/accuracy/Table.h"

#include <Vellari/Vellari.h>

#include <span>
#include <string>
#include <vector>

namespace VellariAccuracy {

/** A figure of the earth. */
struct TEllipsoid {
    char const* Name;
    KvRefSystem::TEllipsoidSemiAxes Axes;
};

/** The figures that a case is measured on; the greatest difference of them counts. */
enum EEllipsoids : int {
    elAll,
    elInternational,
    elBessel,
};

/** What counts of the way back. */
enum EReverse : int {
    rvPlace,
    rvLatitude, ///< the latitude alone
};

/** One row of a table. */
struct TRow {
    TDomain Domain;
    char const* Reason; ///< of the greatest difference; empty: as the row above
    ESource Source = soMethod;
    EReverse Reverse = rvPlace;
};

/** A projection with its parameters, and PROJ's operation for the same. */
struct TCase {
    KvRefSystem::TMapProjectionType Type;
    std::vector<double> Values; ///< in the class's order: degrees, metres, ratios
    char const* Operation;      ///< of PROJ, without the ellipsoid
    EEllipsoids Ellipsoids;
    std::vector<TRow> Rows;
};

/** Cases that are read together. */
struct TFamily {
    char const* Title;
    std::vector<TCase> Cases;
};

std::span<TEllipsoid const> EllipsoidsOf(EEllipsoids ellipsoids);

/** All cases, each family in its file. */
std::vector<TFamily> Families();

std::vector<TCase> TransverseCases();
std::vector<TCase> CylinderCases();
std::vector<TCase> ConeCases();
std::vector<TCase> ObliqueConeCases();
std::vector<TCase> StereographicCases();
std::vector<TCase> PlaneCases();

} // namespace VellariAccuracy
