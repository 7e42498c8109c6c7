#include "tests/support/TakenPairs.h"

#include "shell/transforms/TransformChain.h"
#include "tests/shell/transforms/ChainFixtures.h"

#include <gtest/gtest.h>

namespace {

using namespace ChainFixtures;

/** Whether a chain of that one record is written. */
bool IsWritten(TParams const& record, TStringTree* tree) {
    TChain chain;
    chain.AddNextTransform(record);
    bool const isWritten = chain.WriteToTree(tree, "the chain's name");
    chain.ClearTransforms();
    return isWritten;
}

TEST(TakenPairs, EveryRecordTellsOfEachFieldThatATreeRefuses) {
    TAffine affine = MakeAffine(1, 2, 3, 4, 5, 6);
    affine.SetNameDecsription("name", "description");
    TGrid grid;
    grid.dE = "2 2 1 0 0 1 2 3 4";
    grid.dN = "2 2 1 0 0 4 3 2 1";
    grid.coef = 1;
    grid.refsys = "a description";
    grid.SetNameDecsription("name", "description");
    TShift shift;
    shift.dH = 1;
    shift.SetNameDecsription("name", "description");

    for (TParams const* const record :
         {static_cast<TParams const*>(&affine), static_cast<TParams const*>(&grid),
          static_cast<TParams const*>(&shift)}) {
        TestSupport::ExpectEveryTakenPairTold(
            [record](TStringTree* tree) { return IsWritten(*record, tree); });
    }
}

} // namespace
