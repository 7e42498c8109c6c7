#pragma once

#include <vector>

namespace LumCommonUtils {

/** Dense matrix of doubles; every access outside of it throws std::runtime_error. */
class TMatrix {
public:
    /** A matrix of zeros. */
    TMatrix(unsigned long columnCount, unsigned long rowCount);
    TMatrix(TMatrix const& source);
    ~TMatrix();
    TMatrix& operator=(TMatrix const& source);

    /** Sets one element; the first index runs along a row. @throws std::runtime_error outside the matrix. */
    void SetElement(unsigned long column, unsigned long row, double value);

    /**
     * @return one element; the first index runs along a row.
     * @throws std::runtime_error outside the matrix.
     */
    double GetElement(unsigned long column, unsigned long row) const;

    /** @return the length of a row. */
    unsigned long Columns() const;
    /** @return the length of a column. */
    unsigned long Rows() const;

private:
    unsigned long columns;
    unsigned long rows;
    std::vector<double> elements;
};

/** Vector of doubles; its size and its elements are reached directly. */
class TVector {
public:
    /** A vector of `size` zeros. */
    explicit TVector(unsigned long size);
    ~TVector();

    /** Makes it a vector of `size` zeros. */
    void Reset(unsigned long size);

    /** @throws std::runtime_error with "double& TVector::operator[] (size_t index)" past the size. */
    double& operator[](unsigned long index);
    /** The same for reading. */
    double operator[](unsigned long index) const;

    unsigned long Size;           ///< number of elements
    std::vector<double> Elements; ///< the elements
};

/** The ordinary product. @throws std::runtime_error when the inner sizes differ. */
TMatrix operator*(TMatrix const& left, TMatrix const& right);

/** The ordinary product with a column vector. @throws std::runtime_error when the sizes differ. */
TVector operator*(TMatrix const& left, TVector const& right);

} // namespace LumCommonUtils
