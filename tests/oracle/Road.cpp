#include "tests/oracle/Road.h"

#include <memory>
#include <stdexcept>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

std::string AxesOf(TShellReferenceSystem const& system) {
    double major = 0;
    double minor = 0;
    if (!system.GetEllipsoidSemiAxesMeters(&major, &minor)) {
        throw std::runtime_error(system.Name + ": no ellipsoid");
    }
    return " +a=" + Number(major) + " +b=" + Number(minor);
}

std::string MeridianOf(TShellReferenceSystem const& system) {
    std::unique_ptr<TPrimeMeridian> const meridian(system.PrimeMeridian->Create());
    return " +pm=" + Number(meridian->Longitude / Degree);
}

std::string ShiftOf(TShellReferenceSystem const& system, TShiftStyle style) {
    double metres[3] = {};
    double seconds[3] = {};
    double millionths = 0;
    if (!system.GetDatumShiftParams(&metres[0], &metres[1], &metres[2], &seconds[0], &seconds[1], &seconds[2],
                                    &millionths)) {
        throw std::runtime_error(system.Name + ": no datum shift");
    }
    std::string text =
        "+proj=helmert +x=" + Number(metres[0]) + " +y=" + Number(metres[1]) + " +z=" + Number(metres[2]);
    if (seconds[0] == 0 && seconds[1] == 0 && seconds[2] == 0 && millionths == 0) {
        return text;
    }
    // The systems report rotations of the coordinate frame.
    double const sign = style.PositionVector ? -1 : 1;
    text += " +rx=" + Number(sign * seconds[0]) + " +ry=" + Number(sign * seconds[1]) +
            " +rz=" + Number(sign * seconds[2]) + " +s=" + Number(millionths);
    text += style.PositionVector ? " +convention=position_vector" : " +convention=coordinate_frame";
    return style.Exact ? text + " +exact" : text;
}

} // namespace

std::string PipelineBetween(TShellReferenceSystem const& source, TShellReferenceSystem const& target,
                            TShiftStyle style) {
    return "+proj=pipeline +step +inv +proj=longlat" + AxesOf(source) + MeridianOf(source) +
           " +step +proj=cart" + AxesOf(source) + " +step " + ShiftOf(source, style) + " +step +inv " +
           ShiftOf(target, style) + " +step +inv +proj=cart" + AxesOf(target) + " +step +proj=longlat" +
           AxesOf(target) + MeridianOf(target);
}

TPlace OurWay(TShellReferenceSystem const& source, TPlace const& place, TShellReferenceSystem const& target) {
    double const angle = Degree / source.GetPlaneUnitCoefToBase();
    double const length = 1 / source.GetHeightUnitCoefToBase();
    TTriple out{};
    if (!TransformCoords(&source, place.Latitude * angle, place.Longitude * angle, place.Height * length,
                         &target, &out[0], &out[1], &out[2])) {
        throw std::runtime_error(source.Name + " to " + target.Name + ": not transformed");
    }
    double const degrees = target.GetPlaneUnitCoefToBase() / Degree;
    return {out[0] * degrees, out[1] * degrees, out[2] * target.GetHeightUnitCoefToBase()};
}

TPlace ProjsWay(TProjPipeline const& pipeline, TPlace const& place) {
    TTriple const out = pipeline.Forward({place.Longitude * Degree, place.Latitude * Degree, place.Height});
    return {out[1] / Degree, out[0] / Degree, out[2]};
}

} // namespace OracleTests
