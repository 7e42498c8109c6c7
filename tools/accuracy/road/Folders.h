#pragma once

// The build tells where the files lie that are read; what is compiled without it is run from the repository's root.
#ifndef VELLARI_ACCURACY_DATA
#define VELLARI_ACCURACY_DATA "tools/accuracy/data"
#endif
#ifndef VELLARI_CATALOG
#define VELLARI_CATALOG "catalog"
#endif

namespace VellariAccuracy {

/** Exact data that another program has worked out. */
inline constexpr char const* DataFolder = VELLARI_ACCURACY_DATA;

/** Descriptions of ready systems. */
inline constexpr char const* CatalogFolder = VELLARI_CATALOG;

} // namespace VellariAccuracy
