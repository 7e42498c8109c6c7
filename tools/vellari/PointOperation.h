#pragma once

#include <Vellari/Vellari.h>

#include <string>

namespace VellariTool {

/** One point in shell order; without a height the third number doesn't count. */
struct TPoint {
    double coord[3] = {0, 0, 0};
    bool hasHeight = false;
};

/** What is done to every point of a run. */
class TPointMove {
public:
    virtual ~TPointMove() = default;

    /**
     * Moves one point in place.
     * @param reason receives what went wrong, a part of a sentence. @return false on a failure; the point is
     *        then in no defined state.
     */
    virtual bool Transform(TPoint* point, std::string* reason) = 0;
};

/** Moves points from one system to another. Borrows both; they must live as long. */
class TPointOperation : public TPointMove {
public:
    TPointOperation(KvRefSystem::TShellReferenceSystem const& sourceSystem,
                    KvRefSystem::TShellReferenceSystem const& targetSystem);

    /**
     * A point without a height goes the way of one at height 0 and comes out without one, between kinds whose
     * heights stand apart; the others need all three coordinates.
     * @return false for a latitude beyond a pole, a height that is needed and missing, a failure on the way or
     *         a result that isn't finite, as outside of a projection's reach.
     */
    bool Transform(TPoint* point, std::string* reason) override;

private:
    std::string ReasonOfInfinity(double const* coords) const;
    void TransformWithoutHeight(double* coords) const;

    KvRefSystem::TShellReferenceSystem const& source;
    KvRefSystem::TShellReferenceSystem const& target;
    std::string heightReason; ///< why a point without a height fails; empty where it doesn't
    double greatestLatitude;  ///< in the source's unit; infinite in kinds without latitudes
};

} // namespace VellariTool
