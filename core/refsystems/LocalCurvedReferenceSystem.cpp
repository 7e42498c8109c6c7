#include "core/refsystems/LocalCurvedReferenceSystem.h"

#include "core/refsystems/LocalTargetDetail.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

/** Square of the distance from the centre, square metres. */
double SquaredDistance(TLocalCurvedReferenceSystem const& system, TCoords const& point) {
    double const dX = point.X - system.CenterX;
    double const dY = point.Y - system.CenterY;
    return dX * dX + dY * dY;
}

} // namespace

TLocalCurvedReferenceSystem::TLocalCurvedReferenceSystem(
    TReferenceSystemCartesianOrientation orientation, double const& radius, double const& centerX,
    double const& centerY, TRefSystemTransformsSet const& transforms,
    std::map<std::string, TRefSystemTransformsSet> const& pairwise)
    : TReferenceSystem(rstLocalCurved, transforms, pairwise),
      LocalCartesianSystem(new TLocalCartesianReferenceSystem(orientation, TRefSystemTransformsSet(), {})),
      Radius(radius),
      CenterX(centerX),
      CenterY(centerY) {}

TLocalCurvedReferenceSystem::TLocalCurvedReferenceSystem(TLocalCurvedReferenceSystem const& source)
    : TReferenceSystem(source),
      LocalCartesianSystem(new TLocalCartesianReferenceSystem(*source.LocalCartesianSystem)),
      Radius(source.Radius),
      CenterX(source.CenterX),
      CenterY(source.CenterY) {}

TLocalCurvedReferenceSystem::~TLocalCurvedReferenceSystem() {
    delete LocalCartesianSystem;
}

TLocalCartesianReferenceSystem const* TLocalCurvedReferenceSystem::RelatedLocalCartesianRefSystem() const {
    return LocalCartesianSystem;
}

TLocalCurvedReferenceSystem const* TLocalCurvedReferenceSystem::RelatedLocalCurvedRefSystem() const {
    return this;
}

bool TLocalCurvedReferenceSystem::operator==(TReferenceSystem const& other) const {
    auto const* const system = AsSameClass(*this, other);
    return system != nullptr && *LocalCartesianSystem == *system->LocalCartesianSystem &&
           Radius == system->Radius && CenterX == system->CenterX && CenterY == system->CenterY &&
           Transforms == system->Transforms;
}

bool TLocalCurvedReferenceSystem::PreservesHeights(TReferenceSystem const& dst) const {
    TLocalCurvedReferenceSystem const* const system =
        dst.Type == rstLocalCurved ? dst.RelatedLocalCurvedRefSystem() : nullptr;
    if (system == nullptr) {
        throw std::logic_error("@PreservesHeights(): invalid refsystem type.");
    }
    // Kept: orientations aren't compared, although a swap moves heights when the centre's two numbers differ.
    return Radius == system->Radius && CenterX == system->CenterX && CenterY == system->CenterY &&
           Transforms.PreservesHeights() && dst.Transforms.PreservesHeights();
}

void TLocalCurvedReferenceSystem::OperateCoordsBase(TReferenceSystem const& dst, TCoords* coords) const {
    try {
        TLocalTarget const target(dst);
        ConvertCurvedToCartesian(coords);
        target.Reach(*LocalCartesianSystem, coords);
    } catch (...) {
        // Kept: hosts know a local source by this text, whatever failed behind it.
        throw std::logic_error(TLocalTarget::Failure);
    }
}

void TLocalCurvedReferenceSystem::OperateCoordsBaseWorld(TCoords*, bool) const {}

void TLocalCurvedReferenceSystem::GetAxisStepsBase(double* steps) const {
    steps[0] = 1.0;
    steps[1] = 1.0;
    steps[2] = 1.0;
}

void TLocalCurvedReferenceSystem::ConvertCurvedToCartesian(TCoords* coords) const {
    coords->Z += -0.5 * SquaredDistance(*this, *coords) / Radius;
}

void TLocalCurvedReferenceSystem::ConvertCartesianToCurved(TCoords* coords) const {
    coords->Z += 0.5 * SquaredDistance(*this, *coords) / Radius;
}

} // namespace KvRefSystem
