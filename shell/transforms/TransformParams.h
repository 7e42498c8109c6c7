#pragma once

#include "core/refsystems/RefSystemTransform.h"

#include <limits>
#include <string>

namespace KvRefSystem {

/** One small correction as the user sees it: plain data without geometry. */
class TShellRefSystemTransformParams {
public:
    /**
     * @throws std::runtime_error with "TShellRefSystemTransformParams::TShellRefSystemTransformParams" for
     *         type 0.
     */
    explicit TShellRefSystemTransformParams(TReferenceSystemTransformType type);
    TShellRefSystemTransformParams(TShellRefSystemTransformParams const&) = default;
    TShellRefSystemTransformParams& operator=(TShellRefSystemTransformParams const&) = default;
    virtual ~TShellRefSystemTransformParams();

    /** Empties the record, the type included; the descendants keep name, description and type. */
    virtual void Reset();

    /** @return whether the record can stand in a chain. */
    virtual operator bool() const;

    /** Assigns both. Kept: the spelling is part of the interface. */
    void SetNameDecsription(std::string const& name, std::string const& description);

    std::string Name;                   ///< label
    std::string Description;            ///< label
    TReferenceSystemTransformType Type; ///< class; 0 for none
};

/** x' = a11 x + a12 y + a13, y' = a21 x + a22 y + a23, in the user's axes, metres. */
class TShellRefSystemTransform2DAffineParams : public TShellRefSystemTransformParams {
public:
    /** @param identity the identity, else six zeros. */
    explicit TShellRefSystemTransform2DAffineParams(bool identity);
    TShellRefSystemTransform2DAffineParams(TShellRefSystemTransform2DAffineParams const&) = default;
    TShellRefSystemTransform2DAffineParams&
    operator=(TShellRefSystemTransform2DAffineParams const&) = default;
    /** A record of another class isn't a truth value. */
    TShellRefSystemTransform2DAffineParams(TShellRefSystemTransformParams const&) = delete;

    /** Zeros the six numbers; name, description and type stay. */
    void Reset() override;

    /** @return whether the determinant's absolute value is above 1e-12. */
    operator bool() const override;

    /** Becomes the identity. @return its truth value. */
    bool Set();

    /** Takes three numbers of each row. @return its truth value. */
    bool Set(double const* row1, double const* row2);

    /**
     * Stores the inverse; `inverse` may be this.
     * @return false, `inverse` reset, for a determinant of exactly 0.
     */
    bool GetInverted(TShellRefSystemTransform2DAffineParams* inverse) const;

    double a11;
    double a12;
    double a13;
    double a21;
    double a22;
    double a23;
};

/** Corrections by two tables, in the text form of `T2DTable<float>`. */
class TShellRefSystemTransform2DGridParams : public TShellRefSystemTransformParams {
public:
    TShellRefSystemTransform2DGridParams();

    /** Clears texts and factor; name, description and type stay. */
    void Reset() override;

    /** @return whether there are two tables and a factor. */
    operator bool() const override;

    std::string dE;     ///< table of east corrections
    std::string dN;     ///< table of north corrections
    std::string refsys; ///< description of the system in which the tables are defined, or empty
    double coef;        ///< factor; 0.0 when not set
};

/** A shift of the height, metres. */
class TShellRefSystemTransformShiftZParams : public TShellRefSystemTransformParams {
public:
    TShellRefSystemTransformShiftZParams();

    /** Makes the shift unset; name, description and type stay. */
    void Reset() override;

    /** Always true, even for the unset shift (kept). */
    operator bool() const override;

    static constexpr double Unset = std::numeric_limits<double>::max(); ///< value of an unset shift

    double dH; ///< metres
};

/** @return a copy by the type, owned by the caller; null for another type or a failed copy. */
TShellRefSystemTransformParams* CreateTransformCopy(TShellRefSystemTransformParams const& source);

} // namespace KvRefSystem
