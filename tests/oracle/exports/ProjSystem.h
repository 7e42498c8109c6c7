#pragma once

#include "tests/oracle/ProjPipeline.h"

#include <proj.h>

#include <memory>
#include <string>
#include <vector>

namespace OracleTests {

/** A system as PROJ reads it; coordinates in its own units and in the order of its own axes. */
class TProjSystem {
public:
    /** @param wkt of 2001. A text that PROJ can't read gives an empty system with complaints. */
    explicit TProjSystem(std::string const& wkt);

    bool IsRead() const { return Whole != nullptr; }

    /** PROJ's errors and warnings. */
    std::vector<std::string> const& Complaints() const { return Said; }

    /** Whether PROJ took over a shift to WGS 84. */
    bool HasShift() const;

    /** The kind of the system without its shift. */
    PJ_TYPE Type() const;

    /** Its name, and that of its geographic system. */
    std::string Name() const;
    std::string GeographicName() const;

    /** The code of the register for its vertical part; empty without one. */
    std::string VerticalCode() const;

    /** Whether its first axis alone of the two points to the north: northing or latitude. */
    bool IsNorthFirst() const;

    /**
     * To the system from what it stands on, without any shift.
     * @param place latitude and longitude in degrees, whatever the order of the axes; height in metres.
     */
    TTriple FromGeographic(TTriple const& place) const;

    /** To latitude, longitude and height on WGS 84. */
    TTriple ToWgs84(TTriple const& own) const;

private:
    struct TFreeContext {
        void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
    };
    struct TFreeObject {
        void operator()(PJ* object) const { proj_destroy(object); }
    };
    using TObject = std::unique_ptr<PJ, TFreeObject>;

    /** The direction of an axis and its unit in radians or metres. */
    struct TAxis {
        std::string Direction;
        double Unit = 1;
    };
    TAxis AxisOf(TObject const& system, int index) const;
    bool IsNorthFirst(TObject const& system) const;
    TObject Between(PJ* source, PJ* target) const;
    TTriple Run(TObject const& operation, TTriple const& point) const;

    std::unique_ptr<PJ_CONTEXT, TFreeContext> Context;
    TObject Whole;
    TObject Plain;      ///< without the shift
    TObject Geographic; ///< what `Plain` stands on; null for a local system
    std::vector<std::string> Said;
    mutable TObject Projecting;
    mutable TObject Shifting;
};

} // namespace OracleTests
