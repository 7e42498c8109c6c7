#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/CassiniSoldner.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/GaussBoaga.h"
#include "core/projections/GaussKrugerWide.h"
#include "core/projections/Hatt.h"
#include "core/projections/Krovak.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/LambertConicConformal.h"
#include "core/projections/Mercator.h"
#include "core/projections/NZMG.h"
#include "core/projections/ObliqueMercator.h"
#include "core/projections/ObliqueStereographic.h"
#include "core/projections/Orthographic.h"
#include "core/projections/PolarStereographic.h"
#include "core/projections/Polyconic.h"
#include "core/projections/QuasiStereographic.h"
#include "core/projections/SphericalMercator.h"
#include "core/projections/TransverseMercator.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <vector>

namespace {

using namespace KvRefSystem;

constexpr TEllipsoidSemiAxes Wgs84 = {6378137.0, 6356752.314245179};

/** A record of any projection: angles and factors that all of them take, in the order of its constructor. */
template <class Record>
Record Filled() {
    if constexpr (std::is_constructible_v<Record, TPole, double, double, double, double>) {
        return Record(poleNorth, 0.5, 0.9, 2.0, 3.0);
    } else if constexpr (std::is_constructible_v<Record, TPole, double, double, double>) {
        return Record(poleNorth, 0.5, 2.0, 3.0);
    } else if constexpr (std::is_constructible_v<Record, double, double>) {
        return Record(0.5, 0.6);
    } else if constexpr (std::is_constructible_v<Record, double, double, double>) {
        return Record(0.5, 2.0, 3.0);
    } else if constexpr (std::is_constructible_v<Record, double, double, double, double>) {
        return Record(0.5, 0.9, 2.0, 3.0);
    } else if constexpr (std::is_constructible_v<Record, double, double, double, double, double>) {
        return Record(0.5, 0.6, 0.9, 2.0, 3.0);
    } else if constexpr (std::is_constructible_v<Record, double, double, double, double, double, double>) {
        return Record(0.5, 0.6, 0.7, 0.8, 2.0, 3.0);
    } else {
        return Record(0.5, 0.6, 0.7, 0.8, 0.9, 2.0, 3.0);
    }
}

using TProjections = std::vector<std::unique_ptr<TMapProjection>>;

template <class Projection, class Record>
void Add(TProjections* projections) {
    Record const record = Filled<Record>();
    projections->push_back(std::make_unique<Projection>(&Wgs84, &record));
}

#define ADD(name) Add<T##name##MapProjection, T##name##MapProjectionParameters>(&projections)

TProjections OneOfEachClass() {
    TProjections projections;
    ADD(AlbersEqualAreaConic);
    ADD(CassiniSoldner);
    ADD(EquidistantConic);
    ADD(GaussBoaga);
    ADD(GaussKrugerWide);
    ADD(Hatt);
    ADD(HotineObliqueMercator);
    ADD(Krovak);
    ADD(LambertAzimuthalEqualArea);
    ADD(LambertConicConformal1SP);
    ADD(LambertConicConformal2SP);
    Add<TLambertConicConformal2SPBelgiumMapProjection, TLambertConicConformal2SPMapProjectionParameters>(
        &projections);
    ADD(Mercator1SP);
    ADD(Mercator2SP);
    ADD(NZMG);
    ADD(ObliqueMercator);
    ADD(ObliqueStereographic);
    ADD(Orthographic);
    ADD(PolarStereographic);
    ADD(PolarStereographicBasic);
    ADD(PolarStereographicFalseOrigin);
    ADD(PolarStereographicNaturalOrigin);
    ADD(Polyconic);
    ADD(QuasiStereographic);
    ADD(SphericalMercator);
    ADD(TransverseMercator);
    return projections;
}

#undef ADD

TEST(ProjectionEquality, HoldsWithinAClassAndBetweenNoTwo) {
    TProjections const first = OneOfEachClass();
    TProjections const second = OneOfEachClass();
    for (std::size_t i = 0; i < first.size(); ++i) {
        for (std::size_t j = 0; j < second.size(); ++j) {
            EXPECT_EQ(*first[i] == *second[j], i == j) << first[i]->Type << " and " << second[j]->Type;
        }
    }
}

} // namespace
