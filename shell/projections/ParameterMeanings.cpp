#include "shell/projections/ParameterFactsDetail.h"

#include <stdexcept>

namespace KvRefSystem::ParameterFacts {

namespace {

/** Zones, regions and blocks are plain numbers and letters; a zone's width is in degrees always. */
constexpr TTagMeaning Meanings[] = {
    {Tag::LongitudeOfOrigin, "longitude of origin or central meridian", utAngular},
    {Tag::LatitudeOfOrigin, "latitude of origin", utAngular},
    {Tag::ScaleFactorAtOrigin, "scale factor at origin", utScale},
    {Tag::FalseEasting, "false easting", utLinear},
    {Tag::FalseNorthing, "false northing", utLinear},
    {Tag::LongitudeOfNaturalOrigin, "longitude of natural origin", utAngular},
    {Tag::LatitudeOfProjectionCentre, "latitude of projection centre", utAngular},
    {Tag::LongitudeOfProjectionCentre, "longitude of projection centre", utAngular},
    {Tag::AzimuthOfInitialLine, "azimuth of initial line", utAngular},
    {Tag::AngleFromRectifiedToSkewGrid, "angle from rectified to skew grid", utAngular},
    {Tag::ScaleFactor, "scale factor", utScale},
    {Tag::EastingAtProjectionCentre, "easting at projection centre", utLinear},
    {Tag::NorthingAtProjectionCentre, "northing at projection centre", utLinear},
    {Tag::FirstStandardParallel, "first standard parallel", utAngular},
    {Tag::SecondStandardParallel, "second standard parallel", utAngular},
    {Tag::LatitudeOfFalseOrigin, "latitude of false origin", utAngular},
    {Tag::LongitudeOfFalseOrigin, "longitude of false origin", utAngular},
    {Tag::EastingAtFalseOrigin, "easting at false origin", utLinear},
    {Tag::NorthingAtFalseOrigin, "northing at false origin", utLinear},
    {Tag::ScaleFactorAtNaturalOrigin, "scale factor at natural origin", utScale},
    {Tag::LatitudeOfPseudoStandardParallel, "latitude of pseudo standard parallel", utAngular},
    {Tag::ScaleFactorOnPseudoStandardParallel, "scale factor on pseudo standard parallel", utScale},
    {Tag::Zone, "zone number", utNone},
    {Tag::Hemisphere, "hemisphere, N or S", utNone},
    {Tag::Pole, "pole, N or S", utNone},
    {Tag::Block, "block letter", utNone},
    {Tag::Region, "region code", utNone},
    {Tag::ZoneWidth, "zone width in degrees", utNone},
};

} // namespace

TTagMeaning const& MeaningOf(int key) {
    for (TTagMeaning const& row : Meanings) {
        if (row.Key == key) {
            return row;
        }
    }
    throw std::logic_error("a projection parameter without a meaning");
}

} // namespace KvRefSystem::ParameterFacts
