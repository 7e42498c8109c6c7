#pragma once

#include <Vellari/Vellari.h>

#include <string>

namespace VellariTool {

/** One point in shell order; without a height the third number doesn't count. */
struct TPoint {
    double coord[3] = {0, 0, 0};
    bool hasHeight = false;
};

/** Moves points from one system to another. Borrows both; they must live as long. */
class TPointOperation {
public:
    TPointOperation(KvRefSystem::TShellReferenceSystem const& sourceSystem,
                    KvRefSystem::TShellReferenceSystem const& targetSystem);

    /**
     * Moves one point in place. A point without a height goes the way of one at height 0 and comes out
     * without one.
     * @param reason receives what went wrong. @return false for a latitude beyond a pole, a failure on the
     *         way or a result that isn't finite, as outside of a projection's reach; the point is then in no defined state.
     */
    bool Transform(TPoint* point, std::string* reason) const;

private:
    std::string ReasonOfInfinity(double const* coords) const;
    void TransformWithoutHeight(double* coords) const;

    KvRefSystem::TShellReferenceSystem const& source;
    KvRefSystem::TShellReferenceSystem const& target;
    double greatestLatitude; ///< in the source's unit; infinite in kinds without latitudes
};

} // namespace VellariTool
