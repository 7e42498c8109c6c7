#pragma once

#include "core/primitives/BursaWolfDatumShift.h"
#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/ReferenceSystem.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystemTests {

using TSetMap = std::map<std::string, KvRefSystem::TRefSystemTransformsSet>;

constexpr double Pi = 3.141592653589793;

/** Degrees as radians. */
constexpr double Radians(double degrees) {
    return degrees * Pi / 180.0;
}

inline KvRefSystem::TCoords Point(double x, double y, double z) {
    return {x, y, z, false};
}

inline KvRefSystem::TReferenceSystemType Kind(int value) {
    return static_cast<KvRefSystem::TReferenceSystemType>(value);
}

inline KvRefSystem::TEllipsoid Wgs84() {
    return {6378137.0, 6356752.314245179};
}

inline KvRefSystem::TEllipsoid Krasovsky() {
    return {6378245.0, 6356863.018773047};
}

inline KvRefSystem::TBursaWolfDatumShift Shift(double dx, double dy, double dz) {
    return KvRefSystem::TBursaWolfDatumShift(KvRefSystem::TBursaWolfDatumShiftParameters(dx, dy, dz));
}

/** A set that holds copies of the given transforms. */
template <class... Transforms>
KvRefSystem::TRefSystemTransformsSet SetOf(Transforms const&... transforms) {
    KvRefSystem::TRefSystemTransformsSet set;
    (set.AddNextTransform(transforms), ...);
    return set;
}

/** A datum shift of a class that the library doesn't know. */
class TForeignShift : public KvRefSystem::TDatumShift {
public:
    explicit TForeignShift(int type = 7) : TDatumShift(static_cast<KvRefSystem::TDatumShiftType>(type)) {}
    bool operator==(KvRefSystem::TDatumShift const& other) const override { return this == &other; }
    void DirectTransform(KvRefSystem::TCoords*) const override {}
    void ReverseTransform(KvRefSystem::TCoords*) const override {}
    bool IsNonlinear() const override { return false; }
};

/** A transform of a class that the library doesn't know; writes what it is asked for into a journal. */
class TForeignTransform : public KvRefSystem::TRefSystemTransform {
public:
    explicit TForeignTransform(int type = 7) : TForeignTransform("", nullptr, type) {}
    TForeignTransform(std::string label, std::vector<std::string>* journal, int type = 7)
        : TRefSystemTransform(static_cast<KvRefSystem::TReferenceSystemTransformType>(type)),
          Label(std::move(label)),
          Journal(journal) {}
    TForeignTransform(TForeignTransform const&) = default;

    using TRefSystemTransform::BaseToTransformed;
    using TRefSystemTransform::TransformedToBase;
    bool operator==(TRefSystemTransform const& other) const override { return this == &other; }
    void BaseToTransformed(KvRefSystem::TReferenceSystem const* sys,
                           KvRefSystem::TCoords* coords) const override {
        LastSystem = sys;
        Write("forth");
        coords->X += 1;
    }
    void TransformedToBase(KvRefSystem::TReferenceSystem const* sys,
                           KvRefSystem::TCoords* coords) const override {
        LastSystem = sys;
        Write("back");
        coords->X -= 1;
    }

    std::string Label;
    std::vector<std::string>* Journal;
    mutable KvRefSystem::TReferenceSystem const* LastSystem = nullptr;

private:
    void Write(char const* direction) const {
        if (Journal != nullptr) {
            Journal->push_back(Label + " " + direction);
        }
    }
};

/** A system of any kind value whose geometry the test supplies; by default it moves nothing. */
class TTestKind : public KvRefSystem::TReferenceSystem {
public:
    explicit TTestKind(int kind, KvRefSystem::TRefSystemTransformsSet const& set = {})
        : TReferenceSystem(Kind(kind), set) {}
    TTestKind(int kind, KvRefSystem::TRefSystemTransformsSet const& set, TSetMap const& pairwise)
        : TReferenceSystem(Kind(kind), set, pairwise) {}

    KvRefSystem::TGeocentricReferenceSystem const* RelatedGeocentricRefSystem() const override {
        if (OnRelated) {
            OnRelated();
        }
        return Geocentric;
    }
    KvRefSystem::TGeodeticReferenceSystem const* RelatedGeodeticRefSystem() const override {
        return Geodetic;
    }
    KvRefSystem::TTopocentricHorizontalReferenceSystem const*
    RelatedTopocentricHorizontalRefSystem() const override {
        return Topocentric;
    }
    KvRefSystem::TLocalCartesianReferenceSystem const* RelatedLocalCartesianRefSystem() const override {
        if (OnRelated) {
            OnRelated();
        }
        return LocalCartesian;
    }
    KvRefSystem::TLocalCurvedReferenceSystem const* RelatedLocalCurvedRefSystem() const override {
        return LocalCurved;
    }
    bool operator==(TReferenceSystem const& other) const override { return this == &other; }
    bool PreservesHeights(TReferenceSystem const&) const override { return true; }
    void OperateCoordsBase(TReferenceSystem const& dst, KvRefSystem::TCoords* coords) const override {
        if (OnOperate) {
            OnOperate(dst, coords);
        }
    }
    void OperateCoordsBaseWorld(KvRefSystem::TCoords* coords, bool ApplyDatumShift) const override {
        if (OnWorld) {
            OnWorld(coords, ApplyDatumShift);
        }
    }
    void GetAxisStepsBase(double* steps) const override {
        steps[0] = Steps[0];
        steps[1] = Steps[1];
        steps[2] = Steps[2];
    }

    std::function<void(TReferenceSystem const&, KvRefSystem::TCoords*)> OnOperate;
    std::function<void(KvRefSystem::TCoords*, bool)> OnWorld;
    std::function<void()> OnRelated;
    KvRefSystem::TGeocentricReferenceSystem const* Geocentric = nullptr;
    KvRefSystem::TGeodeticReferenceSystem const* Geodetic = nullptr;
    KvRefSystem::TTopocentricHorizontalReferenceSystem const* Topocentric = nullptr;
    KvRefSystem::TLocalCartesianReferenceSystem const* LocalCartesian = nullptr;
    KvRefSystem::TLocalCurvedReferenceSystem const* LocalCurved = nullptr;
    double Steps[3] = {1.0, 1.0, 1.0};
};

/** A copy by the class's own copy constructor. */
template <class T>
T CopyOf(T const& source) {
    return source;
}

/** @return the text of the `Exception` that `action` throws, or what happened instead. */
template <class Exception, class Action>
std::string ThrownText(Action const& action) {
    try {
        action();
    } catch (Exception const& error) {
        return error.what();
    } catch (...) {
        return "<another type of exception>";
    }
    return "<no exception>";
}

} // namespace KvRefSystemTests
