#pragma once

#include "frame/NumberText.h"
#include "shell/transforms/TransformChain.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/** Records and trees of records for the tests of chains. */
namespace ChainFixtures {

using namespace KvRefSystem;
using TParams = TShellRefSystemTransformParams;
using TAffine = TShellRefSystemTransform2DAffineParams;
using TGrid = TShellRefSystemTransform2DGridParams;
using TShift = TShellRefSystemTransformShiftZParams;
using TChain = TShellRefSystemTransform;

struct TDestroy {
    void operator()(TChain* chain) const { DestroyTransformChain(chain); }
};
using TChainPtr = std::unique_ptr<TChain, TDestroy>;

template <class Action>
std::string MessageOf(Action action) {
    try {
        action();
    } catch (std::runtime_error const& error) {
        return error.what();
    }
    return std::string();
}

inline TAffine MakeAffine(double a11, double a12, double a13, double a21, double a22, double a23) {
    TAffine params(false);
    double const row1[] = {a11, a12, a13};
    double const row2[] = {a21, a22, a23};
    params.Set(row1, row2);
    return params;
}

/** Tables of 2 by 2 values around the origin: east everywhere 1, north everywhere -2. */
inline TGrid MakeGrid(double coef = 0.5) {
    TGrid params;
    params.dE = "2 2 10 0 0 1 1 1 1";
    params.dN = "2 2 10 0 0 -2 -2 -2 -2";
    params.coef = coef;
    return params;
}

inline TShift MakeShift(double dH) {
    TShift params;
    params.dH = dH;
    return params;
}

/** An affine, a grid and a height record, the first two with labels. */
inline TChainPtr MakeChain() {
    TChainPtr chain(new TChain);
    TAffine affine = MakeAffine(1, 2, 3, 4, 5, 6);
    affine.SetNameDecsription("turn", "first");
    TGrid grid = MakeGrid();
    grid.SetNameDecsription("bend", "second");
    grid.refsys = std::string("(0,0)x\n\0", 8);
    EXPECT_TRUE(chain->AddNextTransform(affine));
    EXPECT_TRUE(chain->AddNextTransform(grid));
    EXPECT_TRUE(chain->AddNextTransform(MakeShift(12.5)));
    return chain;
}

/** The fields of a subtree, each as "tag,idx header=value". */
inline std::vector<std::string> Lines(TStringTree const& tree) {
    std::vector<std::string> lines;
    for (unsigned long k = 0; k < tree.fields.Size(); ++k) {
        TDataField<std::string> const& field = *tree.fields[k];
        lines.push_back(FormatText("%d,%d ", field.tag, field.idx) + field.header + "=" +
                        field.ValueToString(0));
    }
    return lines;
}

/** A subtree of one record. */
inline TStringTree* PutRecord(TStringTree* tree, int idx, int type) {
    tree->InsertSubtree("", 7100, idx);
    TStringTree* const record = tree->FindSubtree(7100, idx);
    record->InsertInteger("", 7101, 0, type);
    return record;
}

inline TStringTree* PutAffine(TStringTree* tree, int idx) {
    TStringTree* const record = PutRecord(tree, idx, 4);
    record->InsertDouble("", 7105, 0, 10);
    record->InsertDouble("", 7106, 0, 20);
    record->InsertDouble("", 7109, 0, 1);
    record->InsertDouble("", 7109, 1, 2);
    record->InsertDouble("", 7109, 2, 3);
    record->InsertDouble("", 7109, 3, 4);
    return record;
}

inline TStringTree* PutGrid(TStringTree* tree, int idx) {
    TStringTree* const record = PutRecord(tree, idx, 5);
    record->InsertString("", 7121, 0, "e");
    record->InsertString("", 7122, 0, "n");
    record->InsertDouble("", 7125, 0, 2);
    return record;
}

inline TStringTree* PutShift(TStringTree* tree, int idx, double dH) {
    TStringTree* const record = PutRecord(tree, idx, 6);
    record->InsertDouble("", 7107, 0, dH);
    return record;
}

} // namespace ChainFixtures
