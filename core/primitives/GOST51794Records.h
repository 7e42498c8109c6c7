#pragma once

#include "core/primitives/GOST51794.h"

namespace KvRefSystem::GOST51794 {

// The parameters of the standard [GOST51794-2008] [GOST32453-2017], which are constants of the library: dX,
// dY, dZ in metres, wx, wy, wz in radians and m. A name tells from which datum to which and in which edition.
// Each direction is printed, and neither is derived from the other. Kept as they are in use, digits of
// rounding and signs of zeros included: results are compared to the last place.

// clang-format off

///@{
/** A record of the edition of 2001 [GOST51794-2001]. */
inline constexpr TDatumShiftParams PULKOVO42_to_PZ90_2001 = {
    25.0, -141.0, -80.0, 0.0, -1.8e-06, -3.2999999999999997e-06, 0.0};
inline constexpr TDatumShiftParams PULKOVO95_to_PZ90_2001 = {
    25.9, -130.94, -81.76, 0.0, 0.0, 0.0, 0.0};
inline constexpr TDatumShiftParams WGS84_to_PZ90_2001 = {
    1.1, 0.3, 0.9, 0.0, 0.0, 8.199999999999999e-07, 1.2e-07};
inline constexpr TDatumShiftParams PZ90_to_PULKOVO42_2001 = {
    -25.0, 141.0, 80.0, -0.0, 1.8e-06, 3.2999999999999997e-06, -0.0};
inline constexpr TDatumShiftParams PZ90_to_PULKOVO95_2001 = {
    -25.9, 130.94, 81.76, -0.0, -0.0, -0.0, -0.0};
inline constexpr TDatumShiftParams PZ90_to_WGS84_2001 = {
    -1.1, -0.3, -0.9, -0.0, -0.0, -8.199999999999999e-07, -1.2e-07};
///@}

///@{
/** A record of the edition of 2008 [GOST51794-2008]. */
inline constexpr TDatumShiftParams PULKOVO42_to_PZ90_02_2008 = {
    23.93, -141.03, -79.98, 0.0, -1.6968e-06, -3.83e-06, -2.1999999999999998e-07};
inline constexpr TDatumShiftParams PULKOVO95_to_PZ90_02_2008 = {
    24.83, -130.97, -81.74, 0.0, 0.0, -6.301999999999999e-07, -2.1999999999999998e-07};
inline constexpr TDatumShiftParams PULKOVO42_to_PZ90_2008 = {
    25.0, -141.0, -80.0, 0.0, -1.6968e-06, -3.1998000000000003e-06, 0.0};
inline constexpr TDatumShiftParams PULKOVO95_to_PZ90_2008 = {
    25.9, -130.94, -81.76, 0.0, 0.0, 0.0, 0.0};
inline constexpr TDatumShiftParams PZ90_02_to_WGS84_2008 = {
    -0.36, 0.08, 0.18, 0.0, 0.0, 0.0, 0.0};
inline constexpr TDatumShiftParams PZ90_to_WGS84_2008 = {
    -1.1, -0.3, -0.9, 0.0, 0.0, -9.696e-07, -1.2e-07};
inline constexpr TDatumShiftParams PZ90_02_to_PZ90_2008 = {
    -1.07, -0.03, -0.02, 0.0, 0.0, 6.301999999999999e-07, 2.1999999999999998e-07};
inline constexpr TDatumShiftParams PZ90_02_to_PULKOVO42_2008 = {
    -23.93, 141.03, 79.98, -0.0, 1.6968e-06, 3.83e-06, 2.1999999999999998e-07};
inline constexpr TDatumShiftParams PZ90_02_to_PULKOVO95_2008 = {
    -24.83, 130.97, 81.74, -0.0, -0.0, 6.301999999999999e-07, 2.1999999999999998e-07};
inline constexpr TDatumShiftParams PZ90_to_PULKOVO42_2008 = {
    -25.0, 141.0, 80.0, -0.0, 1.6968e-06, 3.1998000000000003e-06, -0.0};
inline constexpr TDatumShiftParams PZ90_to_PULKOVO95_2008 = {
    -25.9, 130.94, 81.76, -0.0, -0.0, -0.0, -0.0};
inline constexpr TDatumShiftParams WGS84_to_PZ90_02_2008 = {
    0.36, -0.08, -0.18, -0.0, -0.0, -0.0, -0.0};
inline constexpr TDatumShiftParams WGS84_to_PZ90_2008 = {
    1.1, 0.3, 0.9, -0.0, -0.0, 9.696e-07, 1.2e-07};
inline constexpr TDatumShiftParams PZ90_to_PZ90_02_2008 = {
    1.07, 0.03, 0.02, -0.0, -0.0, -6.301999999999999e-07, -2.1999999999999998e-07};
///@}

///@{
/** A record of the revision of 2017 [GOST32453-2017]. */
inline constexpr TDatumShiftParams PULKOVO42_to_PZ90_11_2017 = {
    23.557, -140.844, -79.778,
    -1.1150714665519327e-08, -1.6796854795720985e-06, -3.850438736740046e-06, -2.28e-07};
inline constexpr TDatumShiftParams PULKOVO95_to_PZ90_11_2017 = {
    24.457, -130.784, -81.538,
    -1.1150714665519327e-08, 1.7162404311277575e-08, -6.506684414171083e-07, -2.28e-07};
inline constexpr TDatumShiftParams PZ90_to_PZ90_11_2017 = {
    -1.443, 0.156, 0.222, -1.1150714665519327e-08, 1.7162404311277575e-08, -6.506684414171083e-07, -2.28e-07};
inline constexpr TDatumShiftParams WGS84_to_PZ90_11_2017 = {
    -0.013, 0.106, 0.022, -1.1150714665519327e-08, 1.7162404311277575e-08, -2.0410655974711467e-08, -8e-09};
inline constexpr TDatumShiftParams PZ90_02_to_PZ90_11_2017 = {
    -0.373, 0.186, 0.202, -1.1150714665519327e-08, 1.7162404311277575e-08, -2.0410655974711467e-08, -8e-09};
inline constexpr TDatumShiftParams ITRF2008_to_PZ90_11_2017 = {
    0.003, 0.001, 0.0, -9.211459941081184e-11, 2.0362174606600514e-10, -9.696273622190721e-12, 0.0};
inline constexpr TDatumShiftParams GSK2011_to_PZ90_11_2017 = {
    0.0, 0.014, -0.008,
    -2.7246528878355925e-09, -9.211459941081184e-11, 2.5695125098805407e-10, -5.999999999999999e-10};
inline constexpr TDatumShiftParams PZ90_11_to_PULKOVO42_2017 = {
    -23.557, 140.844, 79.778,
    1.1150714665519327e-08, 1.6796854795720985e-06, 3.850438736740046e-06, 2.28e-07};
inline constexpr TDatumShiftParams PZ90_11_to_PULKOVO95_2017 = {
    -24.457, 130.784, 81.538,
    1.1150714665519327e-08, -1.7162404311277575e-08, 6.506684414171083e-07, 2.28e-07};
inline constexpr TDatumShiftParams PZ90_11_to_PZ90_2017 = {
    1.443, -0.156, -0.222, 1.1150714665519327e-08, -1.7162404311277575e-08, 6.506684414171083e-07, 2.28e-07};
inline constexpr TDatumShiftParams PZ90_11_to_PZ90_02_2017 = {
    0.373, -0.186, -0.202, 1.1150714665519327e-08, -1.7162404311277575e-08, 2.0410655974711467e-08, 8e-09};
inline constexpr TDatumShiftParams PZ90_11_to_WGS84_2017 = {
    0.013, -0.106, -0.022, 1.1150714665519327e-08, -1.7162404311277575e-08, 2.0410655974711467e-08, 8e-09};
inline constexpr TDatumShiftParams PZ90_11_to_ITRF2008_2017 = {
    -0.003, -0.001, -0.0, 9.211459941081184e-11, -2.0362174606600514e-10, 9.696273622190721e-12, -0.0};
inline constexpr TDatumShiftParams PZ90_11_to_GSK2011_2017 = {
    -0.0, -0.014, 0.008,
    2.7246528878355925e-09, 9.211459941081184e-11, -2.5695125098805407e-10, 5.999999999999999e-10};
///@}

// clang-format on

} // namespace KvRefSystem::GOST51794
