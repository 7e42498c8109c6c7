#include "shell/transforms/TransformChain.h"

#include "core/refsystems/ReferenceSystem.h"
#include "core/transforms/FloatTable.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "frame/NumberText.h"

#include <new>
#include <set>
#include <stdexcept>
#include <utility>

namespace KvRefSystem {

namespace {

using TParams = TShellRefSystemTransformParams;
using TAffineParams = TShellRefSystemTransform2DAffineParams;
using TGridParams = TShellRefSystemTransform2DGridParams;
using TShiftParams = TShellRefSystemTransformShiftZParams;

/** Where something stands in the description, with its label. */
struct TField {
    char const* header;
    int tag;
    int idx;
};

constexpr int tagTransform = 7100;

constexpr TField fieldChainId = {"Transform set ID", 7201, 0};
constexpr TField fieldType = {"Transform type", 7101, 0};
constexpr TField fieldName = {"Transform name", 7110, 0};
constexpr TField fieldDescription = {"Transform description", 7111, 0};
constexpr TField fieldGridEast = {"Grid dE", 7121, 0};
constexpr TField fieldGridNorth = {"Grid dN", 7122, 0};
constexpr TField fieldGridRefSystem = {"Grid refsys", 7124, 0};
constexpr TField fieldGridCoef = {"Grid coef", 7125, 0};
constexpr TField fieldHeightShift = {"dH", 7107, 0};

/** One number of an affine record, in the order of reading and writing. */
struct TAffineField {
    TField field;
    double TAffineParams::*number;
};

constexpr TAffineField affineFields[] = {
    {{"dX", 7105, 0}, &TAffineParams::a13},
    {{"dY", 7106, 0}, &TAffineParams::a23},
    {{"MatrixRow1Col1", 7109, 0}, &TAffineParams::a11},
    {{"MatrixRow1Col2", 7109, 1}, &TAffineParams::a12},
    {{"MatrixRow2Col1", 7109, 2}, &TAffineParams::a21},
    {{"MatrixRow2Col2", 7109, 3}, &TAffineParams::a22},
};

// --- Reading ---

bool Get(TStringTree const& tree, TField const& field, std::string* value) {
    return tree.GetString(field.tag, field.idx, value);
}

bool Get(TStringTree const& tree, TField const& field, double* value) {
    return tree.GetDouble(field.tag, field.idx, value);
}

std::unique_ptr<TParams> ReadAffine(TStringTree const& tree) {
    auto params = std::make_unique<TAffineParams>(false);
    for (TAffineField const& row : affineFields) {
        if (!Get(tree, row.field, &((*params).*row.number))) {
            return nullptr;
        }
    }
    return params;
}

std::unique_ptr<TParams> ReadGrid(TStringTree const& tree) {
    auto params = std::make_unique<TGridParams>();
    if (!Get(tree, fieldGridEast, &params->dE) || !Get(tree, fieldGridNorth, &params->dN) ||
        !Get(tree, fieldGridCoef, &params->coef)) {
        return nullptr;
    }
    Get(tree, fieldGridRefSystem, &params->refsys);
    return params;
}

std::unique_ptr<TParams> ReadShift(TStringTree const& tree) {
    auto params = std::make_unique<TShiftParams>();
    if (!Get(tree, fieldHeightShift, &params->dH)) {
        return nullptr;
    }
    return params;
}

/**
 * @param number of the record in the chain, from 1: its name when it has none.
 * @return the record, or null.
 */
std::unique_ptr<TParams> ReadRecord(TStringTree const& tree, int number) {
    int type = 0;
    if (!tree.GetInteger(fieldType.tag, fieldType.idx, &type)) {
        return nullptr;
    }
    std::unique_ptr<TParams> params;
    switch (type) {
    case rsttPlaneAffine:
        params = ReadAffine(tree);
        break;
    case rsttPlaneGrid:
        params = ReadGrid(tree);
        break;
    case rsttVerticalShift:
        params = ReadShift(tree);
        break;
    default:
        break;
    }
    if (!params || !*params) {
        return nullptr;
    }
    std::string name;
    std::string description;
    if (!Get(tree, fieldName, &name)) {
        name = FormatText("%d", number);
    }
    Get(tree, fieldDescription, &description);
    params->SetNameDecsription(name, description);
    return params;
}

// --- Writing ---

bool Insert(TStringTree* tree, TField const& field, int value) {
    return tree->InsertInteger(field.header, field.tag, field.idx, value);
}

bool Insert(TStringTree* tree, TField const& field, double value) {
    return tree->InsertDouble(field.header, field.tag, field.idx, value);
}

bool Insert(TStringTree* tree, TField const& field, std::string const& value) {
    return tree->InsertString(field.header, field.tag, field.idx, value);
}

bool InsertNotEmpty(TStringTree* tree, TField const& field, std::string const& value) {
    return value.empty() || Insert(tree, field, value);
}

bool InsertLabels(TStringTree* tree, TParams const& params) {
    return InsertNotEmpty(tree, fieldName, params.Name) &&
           InsertNotEmpty(tree, fieldDescription, params.Description);
}

bool WriteFields(TStringTree* tree, TAffineParams const& params) {
    if (!InsertLabels(tree, params) || !Insert(tree, fieldType, rsttPlaneAffine)) {
        return false;
    }
    for (TAffineField const& row : affineFields) {
        if (!Insert(tree, row.field, params.*row.number)) {
            return false;
        }
    }
    return true;
}

// The type goes before the labels here, behind them in the other kinds.
bool WriteFields(TStringTree* tree, TGridParams const& params) {
    return Insert(tree, fieldType, rsttPlaneGrid) && InsertLabels(tree, params) &&
           Insert(tree, fieldGridEast, params.dE) && Insert(tree, fieldGridNorth, params.dN) &&
           InsertNotEmpty(tree, fieldGridRefSystem, params.refsys) &&
           Insert(tree, fieldGridCoef, params.coef);
}

bool WriteFields(TStringTree* tree, TShiftParams const& params) {
    return InsertLabels(tree, params) && Insert(tree, fieldType, rsttVerticalShift) &&
           Insert(tree, fieldHeightShift, params.dH);
}

/**
 * Writes one record into a subtree of its own.
 * @param params null for a record that isn't of its type's class.
 */
template <class Params>
bool WriteSubtree(TStringTree* tree, int position, char const* header, Params const* params) {
    if (params == nullptr || !tree->InsertSubtree(header, tagTransform, position)) {
        return false;
    }
    return WriteFields(tree->FindSubtree(tagTransform, position), *params);
}

bool WriteRecord(TStringTree* tree, int position, TParams const& params) {
    switch (params.Type) {
    case rsttPlaneAffine:
        return WriteSubtree(tree, position, "Transform (plane affine)",
                            dynamic_cast<TAffineParams const*>(&params));
    case rsttPlaneGrid:
        return WriteSubtree(tree, position, "Transform (plane grid)",
                            dynamic_cast<TGridParams const*>(&params));
    case rsttVerticalShift:
        return WriteSubtree(tree, position, "Transform (vertical shift H)",
                            dynamic_cast<TShiftParams const*>(&params));
    default:
        return false;
    }
}

// --- Core transforms ---

[[noreturn]] void FailCore() {
    throw std::runtime_error("TShellRefSystemTransform::CreateCoreTransform");
}

/**
 * @return the record as one of its type's class.
 * @throws std::runtime_error for a record of another class.
 */
template <class Params>
Params const& Cast(TParams const& params) {
    auto const* const cast = dynamic_cast<Params const*>(&params);
    if (cast == nullptr) {
        FailCore();
    }
    return *cast;
}

/** A 2 by 2 matrix, row by row. */
struct TMatrix2 {
    double m00;
    double m01;
    double m10;
    double m11;
};

TMatrix2 operator*(TMatrix2 const& first, TMatrix2 const& second) {
    return {first.m00 * second.m00 + first.m01 * second.m10, first.m00 * second.m01 + first.m01 * second.m11,
            first.m10 * second.m00 + first.m11 * second.m10, first.m10 * second.m01 + first.m11 * second.m11};
}

/** How the user's axes relate to those of the chain. */
struct TAxes {
    TMatrix2 toChain;   ///< B
    TMatrix2 fromChain; ///< C, its inverse
};

TAxes MakeAxes(bool swap, int xScale, int yScale) {
    double const s = swap ? 1.0 : 0.0;
    double const w = xScale;
    double const h = yScale;
    double const det = (1.0 - 2.0 * s) * w * h;
    return {{(1.0 - s) * w, s * w, s * h, (1.0 - s) * h},
            {(1.0 - s) * h / det, -s * w / det, -s * h / det, (1.0 - s) * w / det}};
}

std::unique_ptr<TRefSystemTransform> CreateAffine(TAffineParams const& params, TAxes const& axes) {
    TMatrix2 const& c = axes.fromChain;
    TMatrix2 const matrix = c * TMatrix2{params.a11, params.a12, params.a21, params.a22} * axes.toChain;
    double const M[] = {matrix.m00, matrix.m01, matrix.m10, matrix.m11};
    double const S[] = {c.m00 * params.a13 + c.m01 * params.a23, c.m10 * params.a13 + c.m11 * params.a23};
    return std::make_unique<TPlaneAffineRefSystemTransform>(M, S);
}

std::unique_ptr<TRefSystemTransform> CreateGrid(TGridParams const& params) {
    T2DTable<float> east;
    T2DTable<float> north;
    if (!east.LoadFromString2(params.dE, nullptr) || !north.LoadFromString2(params.dN, nullptr)) {
        FailCore();
    }
    std::unique_ptr<TReferenceSystem> system;
    if (!params.refsys.empty()) {
        system = CreateGridCoreRefSystem(params.refsys);
    }
    return std::make_unique<TPlaneGridRefSystemTransform>(east, north, params.coef, system.get());
}

std::unique_ptr<TRefSystemTransform> CreateCore(TParams const& params, TAxes const& axes) {
    switch (params.Type) {
    case rsttPlaneAffine:
        return CreateAffine(Cast<TAffineParams>(params), axes);
    case rsttPlaneGrid:
        return CreateGrid(Cast<TGridParams>(params));
    case rsttVerticalShift:
        return std::make_unique<TVerticalShiftRefSystemTransform>(Cast<TShiftParams>(params).dH);
    default:
        FailCore();
    }
}

bool IsIn(std::vector<TParams*> const& chain, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < chain.size();
}

} // namespace

TShellRefSystemTransform::TShellRefSystemTransform() : Cursor(0) {}

TShellRefSystemTransform::TShellRefSystemTransform(TStringTree* tree) : Cursor(0) {
    char const* const message = "TShellRefSystemTransform::TShellRefSystemTransform(TStringTree *src)";
    if (tree == nullptr) {
        throw std::runtime_error(message);
    }
    std::vector<int> indexes;
    tree->GetSubtreesIndexList(tagTransform, &indexes);
    int number = 0;
    try {
        for (int const idx : std::set<int>(indexes.begin(), indexes.end())) {
            std::unique_ptr<TParams> const params =
                ReadRecord(*tree->FindSubtree(tagTransform, idx), ++number);
            if (!params || !AddNextTransform(*params)) {
                throw std::runtime_error(message);
            }
        }
    } catch (...) {
        ClearTransforms();
        throw;
    }
}

bool TShellRefSystemTransform::AddNextTransform(TShellRefSystemTransformParams const& params) {
    std::unique_ptr<TParams> copy(CreateTransformCopy(params));
    if (!copy) {
        return false;
    }
    Chain.push_back(copy.get());
    copy.release();
    Cursor = Chain.size();
    return true;
}

void TShellRefSystemTransform::ClearTransforms() {
    for (TParams const* const params : Chain) {
        delete params;
    }
    Chain.clear();
    Cursor = 0;
}

TShellRefSystemTransformParams* TShellRefSystemTransform::GetFirstTransform() const {
    Cursor = 0;
    return Chain.empty() ? nullptr : Chain.front();
}

TShellRefSystemTransformParams* TShellRefSystemTransform::GetNextTransform() const {
    if (Cursor < Chain.size()) {
        ++Cursor;
    }
    return Cursor < Chain.size() ? Chain[Cursor] : nullptr;
}

TShellRefSystemTransformParams* TShellRefSystemTransform::GetTransform(int index) const {
    return IsIn(Chain, index) ? Chain[static_cast<std::size_t>(index)] : nullptr;
}

bool TShellRefSystemTransform::DeleteTransform(int index) {
    if (!IsIn(Chain, index)) {
        return false;
    }
    delete Chain[static_cast<std::size_t>(index)];
    Chain.erase(Chain.begin() + index);
    return true;
}

bool TShellRefSystemTransform::ReplaceTransform(int index, TShellRefSystemTransformParams const& params) {
    if (!IsIn(Chain, index) || !params) {
        return false;
    }
    TParams* const copy = CreateTransformCopy(params);
    if (copy == nullptr) {
        return false;
    }
    // The copy is made before the old record goes: that may be the argument itself.
    delete std::exchange(Chain[static_cast<std::size_t>(index)], copy);
    return true;
}

bool TShellRefSystemTransform::SwapTransforms(int first, int second) {
    if (!IsIn(Chain, first) || !IsIn(Chain, second)) {
        return false;
    }
    std::swap(Chain[static_cast<std::size_t>(first)], Chain[static_cast<std::size_t>(second)]);
    return true;
}

TRefSystemTransformsSet* TShellRefSystemTransform::CreateCoreTransform(bool swap_axes, int x_scale,
                                                                       int y_scale) const {
    std::unique_ptr<TRefSystemTransformsSet> set(new (std::nothrow) TRefSystemTransformsSet);
    if (!set) {
        return nullptr;
    }
    TAxes const axes = MakeAxes(swap_axes, x_scale, y_scale);
    for (TParams const* const params : Chain) {
        if (params == nullptr || !set->AddNextTransform(*CreateCore(*params, axes))) {
            FailCore();
        }
    }
    return set.release();
}

bool TShellRefSystemTransform::WriteToTree(TStringTree* tree, std::string const& id) const {
    if (tree == nullptr || !InsertNotEmpty(tree, fieldChainId, id)) {
        return false;
    }
    int position = 0;
    for (TParams const* params = GetFirstTransform(); params != nullptr; params = GetNextTransform()) {
        if (!WriteRecord(tree, position, *params)) {
            return false;
        }
        ++position;
    }
    return true;
}

void DestroyTransformChain(TShellRefSystemTransform* chain) {
    if (chain == nullptr) {
        return;
    }
    chain->ClearTransforms();
    delete chain;
}

} // namespace KvRefSystem
