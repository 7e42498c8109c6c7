#pragma once

#include "core/projections/MapProjection.h"
#include "frame/imported/StringTree.h"
#include "shell/units/AngularUnit.h"
#include "shell/units/LinearUnit.h"
#include "shell/units/ScaleUnit.h"

#include <map>
#include <string>

class TKvXIniReader;
class TKvXIniWriter;

namespace KvRefSystem {

/**
 * The persistent form of a map projection: what the user wrote, parameters as texts with the three units that
 * they are in. Builds the core projection on request and exports its piece of WKT, MIF/MID and GeoTIFF.
 *
 * Texts are taken as they are and converted late, each time they are needed: a text that doesn't parse, an
 * empty one and a missing unit are found by `CreateCoreMapProjection` and by the exports, not by the
 * constructors. Const operations change nothing; otherwise an object is for one thread at a time. Objects
 * aren't copied: a copy goes through the description's tree.
 */
class TShellMapProjection {
public:
    TShellMapProjection(TShellMapProjection const&) = delete;
    TShellMapProjection& operator=(TShellMapProjection const&) = delete;
    virtual ~TShellMapProjection();

    /**
     * @param semiAxes of the ellipsoid, metres; only read here.
     * @return the core projection, owned by the caller; null for a parameter that doesn't parse, a missing
     *         unit or parameters that the method refuses.
     */
    virtual TMapProjection* CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const = 0;

    /**
     * Same class, codes, units and parameters. Kept: parameters are compared as texts, "90" and "90.0" are
     * different; the name doesn't count.
     */
    virtual bool operator==(TShellMapProjection const& other) const = 0;

    /** Replaces `text` by the WKT name of the method. @return false, `text` untouched, without one. */
    virtual bool GetProjectionTypeWKT(std::string* text) const;

    /**
     * Replaces `text` by the WKT PARAMETER list: degrees, metres and plain factors, whatever the units.
     * @return false, `text` untouched, without one or for a parameter that doesn't parse.
     */
    virtual bool GetProjectionParamsWKT(std::string* text) const;

    /**
     * Appends the projection's part of a MapInfo CoordSys clause, which begins with a comma.
     * @param outputUnit of the false easting and northing.
     * @return false, `text` untouched, without one or for a parameter that doesn't parse.
     */
    virtual bool ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const;

    /**
     * Reads the object; it is reset first. The base reads type, units and codes, not the name. Kept: the type
     * needn't be that of the class.
     * @return false on a failure; only another `LoadFromXML` makes sense then.
     */
    virtual bool LoadFromXML(TKvXIniReader* reader);

    /** @return false at the first write that failed. */
    virtual bool SaveToXML(TKvXIniWriter* writer) const;

    /** Frees the units and empties the parameters; name and codes stay. */
    virtual void Reset();

    /**
     * Inserts the geokeys of the parameters; entries that exist stay.
     * @param angularUnit, linearUnit of the written texts.
     * @return false without such a form or for a parameter that doesn't parse.
     */
    virtual bool ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys,
                                              TShellAngularUnit const* angularUnit,
                                              TShellLinearUnit const* linearUnit) const = 0;

    /**
     * Writes the geokeys of the projection: its code alone, or method, parameters and the linear unit. Kept:
     * code and method (3074, 3075) replace entries that exist, all the others don't.
     * @param angularUnit, linearUnit of the written texts.
     * @return false without code and method (the unit's keys are written all the same), or when the
     *         parameters have no such form; without the linear unit, too, unless there is a code.
     */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
                         TShellLinearUnit const* linearUnit) const;

    TMapProjectionType Type{};                ///< class
    std::string Name;                         ///< free text; not in XML
    TShellLinearUnit* LinearUnit = nullptr;   ///< of eastings and northings, owned, may be null
    TShellAngularUnit* AngularUnit = nullptr; ///< of angles, owned, may be null
    TShellScaleUnit* ScaleUnit = nullptr;     ///< of scale factors, owned, may be null
    std::string GeoTIFFCode;                  ///< of the whole projection, may be empty
    std::string GeoTIFFType;                  ///< of the method, may be empty

protected:
    /**
     * @throws std::runtime_error with "TShellMapProjection::TShellMapProjection(LumCommonUtils::TStringTree
     *         *tree)" for an unknown type or a unit that doesn't build.
     */
    explicit TShellMapProjection(TStringTree* tree);

    /**
     * @throws std::runtime_error with "TShellMapProjection::TShellMapProjection(TKvXIniReader *xml)" when it
     *         doesn't load.
     */
    explicit TShellMapProjection(TKvXIniReader* xml);

    /** @return whether type, codes and units are equal: what most classes compare before their parameters. */
    bool EqualsInBase(TShellMapProjection const& other) const;

private:
    void ReadTree(TStringTree* tree);
    void FreeUnits();
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TShellMapProjection> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TShellMapProjection const&>(first).operator==(
        static_cast<TShellMapProjection const&>(second));
}

/**
 * Creates a projection from the section on which the reader stands.
 * @return the projection, owned by the caller; null when it doesn't load. Kept: Transverse Mercator is the
 *         only one that is read; every other type gives null, though most have a constructor for XML.
 */
TShellMapProjection* CreateShellMapProjection(TKvXIniReader* reader);

} // namespace KvRefSystem
