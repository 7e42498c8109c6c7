#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"

#include "core/refsystems/EarthTarget.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace KvRefSystem {

namespace {

TGeodeticReferenceSystem* CopyBase(TGeodeticReferenceSystem const* geodetic) {
    if (geodetic == nullptr) {
        throw std::runtime_error(
            "TTopocentricHorizontalReferenceSystem::TTopocentricHorizontalReferenceSystem: geodetic system");
    }
    return new TGeodeticReferenceSystem(*geodetic);
}

template <std::size_t Count>
bool SameNumbers(double const (&first)[Count], double const (&second)[Count]) {
    return std::equal(first, first + Count, second);
}

} // namespace

TTopocentricHorizontalReferenceSystem::TTopocentricHorizontalReferenceSystem(
    TReferenceSystemCartesianOrientation orientation, double const& azimuth,
    TGeodeticReferenceSystem const* geodetic, TCoords const& origin,
    TRefSystemTransformsSet const& transforms, std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : TReferenceSystem(rstTopocentricHorizontal, transforms, pairwise),
      GeodeticSystem(CopyBase(geodetic)),
      Orientation(orientation) {
    double const a = GeodeticSystem->Ellipsoid->SemiMajorAxis;
    double const e2 = GeodeticSystem->Ellipsoid->EccentricitySquared;
    double const h = origin.Z;
    double const sl = std::sin(origin.X);
    double const cl = std::cos(origin.X);
    double const sp = std::sin(origin.Y);
    double const cp = std::cos(origin.Y);
    double const sa = std::sin(azimuth);
    double const ca = std::cos(azimuth);
    double const nu = a / std::sqrt(1.0 - e2 * sp * sp);

    Origin[0] = (nu + h) * cp * cl;
    Origin[1] = (nu + h) * cp * sl;
    Origin[2] = sp * (nu + h) - nu * e2 * sp;

    Rotation[0] = -sa * sl - sp * cl * ca;
    Rotation[1] = sp * cl * sa - sl * ca;
    Rotation[2] = cl * cp;
    Rotation[3] = cl * sa - sl * sp * ca;
    Rotation[4] = cl * ca + sl * sp * sa;
    Rotation[5] = sl * cp;
    Rotation[6] = cp * ca;
    Rotation[7] = -cp * sa;
    Rotation[8] = sp;

    // The product multiplied out: its large terms cancel here instead of in numbers.
    InverseShift[0] = cp * nu * e2 * sp * ca;
    InverseShift[1] = -cp * nu * e2 * sp * sa;
    InverseShift[2] = nu * e2 * sp * sp - (nu + h);
}

TTopocentricHorizontalReferenceSystem::TTopocentricHorizontalReferenceSystem(
    TTopocentricHorizontalReferenceSystem const& source)
    : TReferenceSystem(source),
      GeodeticSystem(new TGeodeticReferenceSystem(*source.GeodeticSystem)),
      Orientation(source.Orientation) {
    std::copy_n(source.Origin, 3, Origin);
    std::copy_n(source.InverseShift, 3, InverseShift);
    std::copy_n(source.Rotation, 9, Rotation);
}

TTopocentricHorizontalReferenceSystem::~TTopocentricHorizontalReferenceSystem() {
    delete GeodeticSystem;
}

TGeocentricReferenceSystem const* TTopocentricHorizontalReferenceSystem::RelatedGeocentricRefSystem() const {
    return GeodeticSystem->RelatedGeocentricRefSystem();
}

TGeodeticReferenceSystem const* TTopocentricHorizontalReferenceSystem::RelatedGeodeticRefSystem() const {
    return GeodeticSystem;
}

TTopocentricHorizontalReferenceSystem const*
TTopocentricHorizontalReferenceSystem::RelatedTopocentricHorizontalRefSystem() const {
    return this;
}

bool TTopocentricHorizontalReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    return system != nullptr && *GeodeticSystem == *system->GeodeticSystem &&
           SameNumbers(Origin, system->Origin) && SameNumbers(InverseShift, system->InverseShift) &&
           SameNumbers(Rotation, system->Rotation) && Transforms == system->Transforms;
}

bool TTopocentricHorizontalReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    TTopocentricHorizontalReferenceSystem const* const system =
        dst.Type == rstTopocentricHorizontal ? dst.RelatedTopocentricHorizontalRefSystem() : nullptr;
    if (system == nullptr) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    return *GeodeticSystem == *system->GeodeticSystem && SameNumbers(Origin, system->Origin) &&
           Transforms.PreservesHeights() && dst.Transforms.PreservesHeights();
}

bool TTopocentricHorizontalReferenceSystem::ContainsDatum() const {
    return GeodeticSystem->ContainsDatum();
}

bool TTopocentricHorizontalReferenceSystem::NonlinearDatum() const {
    return GeodeticSystem->NonlinearDatum();
}

void TTopocentricHorizontalReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst,
                                                              TCoords* coords) const {
    TEarthTarget const target(dst);
    ConvertTopocentricHorizontalToGeocentric(coords);
    target.Reach(*GeodeticSystem->GeocentricSystem, coords);
}

void TTopocentricHorizontalReferenceSystem::OperateCoordsBaseWorld(TCoords* coords,
                                                                   bool ApplyDatumShift) const {
    ConvertTopocentricHorizontalToGeocentric(coords);
    GeodeticSystem->GeocentricSystem->GeocentricTransformationWorld(coords, ApplyDatumShift);
}

void TTopocentricHorizontalReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1.0;
    steps[1] = 1.0;
    steps[2] = 1.0;
}

bool TTopocentricHorizontalReferenceSystem::ReplaceDatumShift(TDatumShift const* shift) {
    return GeodeticSystem->ReplaceDatumShift(shift);
}

void TTopocentricHorizontalReferenceSystem::ConvertTopocentricHorizontalToGeocentric(TCoords* coords) const {
    bool const left = Orientation == rscoLeft;
    double const u = left ? coords->X : coords->Y;
    double const v = left ? coords->Y : coords->X;
    double const z = coords->Z;
    coords->X = Rotation[0] * u + Rotation[1] * v + Rotation[2] * z + Origin[0];
    coords->Y = Rotation[3] * u + Rotation[4] * v + Rotation[5] * z + Origin[1];
    coords->Z = Rotation[6] * u + Rotation[7] * v + Rotation[8] * z + Origin[2];
}

void TTopocentricHorizontalReferenceSystem::ConvertGeocentricToTopocentricHorizontal(TCoords* coords) const {
    double const x = coords->X;
    double const y = coords->Y;
    double const z = coords->Z;
    double const u = Rotation[0] * x + Rotation[3] * y + Rotation[6] * z + InverseShift[0];
    double const v = Rotation[1] * x + Rotation[4] * y + Rotation[7] * z + InverseShift[1];
    bool const left = Orientation == rscoLeft;
    coords->X = left ? u : v;
    coords->Y = left ? v : u;
    coords->Z = Rotation[2] * x + Rotation[5] * y + Rotation[8] * z + InverseShift[2];
}

} // namespace KvRefSystem
