#include "frame/imported/Matrix.h"

#include "frame/NumberText.h"

#include <limits>
#include <stdexcept>

#include <Eigen/Core>

namespace LumCommonUtils {

namespace {

using RowMajorMatrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

std::size_t ElementCount(unsigned long columns, unsigned long rows) {
    if (rows != 0 && columns > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double) / rows) {
        throw std::runtime_error(
            KvRefSystem::FormatText("TMatrix: %lu columns by %lu rows are too many elements", columns, rows));
    }
    return columns * rows;
}

void CheckElement(TMatrix const& matrix, unsigned long column, unsigned long row) {
    if (column >= matrix.Columns() || row >= matrix.Rows()) {
        throw std::runtime_error(KvRefSystem::FormatText(
            "TMatrix: element (column %lu, row %lu) is outside of %lu columns by %lu rows", column, row,
            matrix.Columns(), matrix.Rows()));
    }
}

void CheckInnerSizes(char const* product, unsigned long columns, unsigned long rows) {
    if (columns != rows) {
        throw std::runtime_error(KvRefSystem::FormatText(
            "TMatrix: %s of %lu columns on the left and %lu rows on the right", product, columns, rows));
    }
}

RowMajorMatrix ToEigen(TMatrix const& matrix) {
    RowMajorMatrix copy(matrix.Rows(), matrix.Columns());
    for (unsigned long row = 0; row < matrix.Rows(); ++row) {
        for (unsigned long column = 0; column < matrix.Columns(); ++column) {
            copy(static_cast<Eigen::Index>(row), static_cast<Eigen::Index>(column)) =
                matrix.GetElement(column, row);
        }
    }
    return copy;
}

} // namespace

TMatrix::TMatrix(unsigned long columnCount, unsigned long rowCount)
    : columns(columnCount), rows(rowCount), elements(ElementCount(columnCount, rowCount)) {}

TMatrix::TMatrix(TMatrix const& source) = default;

TMatrix::~TMatrix() = default;

TMatrix& TMatrix::operator=(TMatrix const& source) {
    std::vector<double> copy(source.elements);
    elements.swap(copy);
    columns = source.columns;
    rows = source.rows;
    return *this;
}

void TMatrix::SetElement(unsigned long column, unsigned long row, double value) {
    CheckElement(*this, column, row);
    elements[row * columns + column] = value;
}

double TMatrix::GetElement(unsigned long column, unsigned long row) const {
    CheckElement(*this, column, row);
    return elements[row * columns + column];
}

unsigned long TMatrix::Columns() const {
    return columns;
}

unsigned long TMatrix::Rows() const {
    return rows;
}

TVector::TVector(unsigned long size) : Size(size), Elements(size) {}

TVector::~TVector() = default;

void TVector::Reset(unsigned long size) {
    Elements.assign(size, 0.0);
    Size = size;
}

// Both limits count, since both members are open to everyone.
double& TVector::operator[](unsigned long index) {
    if (index >= Size || index >= Elements.size()) {
        throw std::runtime_error("double& TVector::operator[] (size_t index)");
    }
    return Elements[index];
}

double TVector::operator[](unsigned long index) const {
    if (index >= Size || index >= Elements.size()) {
        throw std::runtime_error("double& TVector::operator[] (size_t index)");
    }
    return Elements[index];
}

TMatrix operator*(TMatrix const& left, TMatrix const& right) {
    CheckInnerSizes("product", left.Columns(), right.Rows());
    RowMajorMatrix const product = ToEigen(left).lazyProduct(ToEigen(right));
    TMatrix result(right.Columns(), left.Rows());
    for (unsigned long row = 0; row < result.Rows(); ++row) {
        for (unsigned long column = 0; column < result.Columns(); ++column) {
            result.SetElement(column, row,
                              product(static_cast<Eigen::Index>(row), static_cast<Eigen::Index>(column)));
        }
    }
    return result;
}

TVector operator*(TMatrix const& left, TVector const& right) {
    CheckInnerSizes("product with a vector", left.Columns(), right.Size);
    TVector result(left.Rows());
    for (unsigned long row = 0; row < left.Rows(); ++row) {
        double sum = 0.0;
        for (unsigned long column = 0; column < left.Columns(); ++column) {
            sum += left.GetElement(column, row) * right[column];
        }
        result[row] = sum;
    }
    return result;
}

} // namespace LumCommonUtils
