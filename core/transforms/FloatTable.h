#pragma once

#include <string>

class TKvProgressHandler;

namespace KvRefSystem {

template <class T>
class T2DTable;

/**
 * Regular grid of floats with bilinear lookup, all in float: a coordinate of 10,000,000 is resolved to 1
 * metre. Outside of the grid the nearest edge's value counts. Immutable after reading; const operations share
 * freely.
 */
template <>
class T2DTable<float> final {
public:
    /** The empty state. */
    T2DTable();

    /** Deep copy. @throws std::bad_alloc. */
    T2DTable(T2DTable const& source);
    T2DTable& operator=(T2DTable const&) = delete;
    ~T2DTable();

    /**
     * Exactly equal sizes, steps, origins, least and greatest values and values; CRCs when both are valid.
     */
    virtual bool operator==(T2DTable const& other) const;

    /** Becomes a table of zeros. @throws std::bad_alloc, the table then being empty. */
    void Setup(unsigned sizeX, unsigned sizeY, float const& stepX, float const& stepY, float const& originX,
               float const& originY);

    /** @return the value at (x, y) in the grid's own coordinates; 0 for an empty table. */
    float InterpolateValue(float const& x, float const& y) const;

    /**
     * Reads "ny nx step OriginY OriginX values…", separated by blanks, TABs or line ends; the values come by
     * rising y and within one y by rising x.
     * @param progress may be null. @return false for a malformed text; the table is left as far as it came.
     */
    bool LoadFromString2(std::string const& text, TKvProgressHandler* progress);

    unsigned SizeX; ///< number of columns, first index
    unsigned SizeY; ///< number of values in a column, second index
    float StepX;    ///< step of the first index
    float StepY;    ///< step of the second index
    float OriginX;  ///< coordinate of first index 0
    float OriginY;  ///< coordinate of second index 0
    float MinValue; ///< least value; the largest float in the empty state
    float MaxValue; ///< greatest value; the smallest positive normal float in the empty state
    float** Rows;   ///< SizeX owned arrays of SizeY values
    unsigned Crc;   ///< CRC-32 of all values
    bool CrcValid;  ///< `Crc` holds for the present values
};

} // namespace KvRefSystem
