#include "shell/transforms/TransformChain.h"

#include "core/transforms/PlaneAndVertical.h"
#include "tests/shell/transforms/ChainFixtures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace ChainFixtures;

static_assert(sizeof(TChain) == 32);
static_assert(offsetof(TChain, Chain) == 0);
static_assert(offsetof(TChain, Cursor) == 24);
static_assert(!std::is_copy_constructible_v<TChain>);

constexpr char const* readMessage = "TShellRefSystemTransform::TShellRefSystemTransform(TStringTree *src)";

// --- The list ---

TEST(ShellTransformChain, BeginsEmpty) {
    TChain const chain;
    EXPECT_EQ(chain.GetFirstTransform(), nullptr);
    EXPECT_EQ(chain.GetNextTransform(), nullptr);
    EXPECT_EQ(chain.GetTransform(0), nullptr);
}

TEST(ShellTransformChain, AppendsACopyAndMovesToTheEnd) {
    TChainPtr const chain(new TChain);
    TShift shift = MakeShift(1);
    EXPECT_TRUE(chain->AddNextTransform(shift));
    shift.dH = 2;
    ASSERT_NE(chain->GetTransform(0), nullptr);
    EXPECT_NE(chain->GetTransform(0), &shift);
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(0)).dH, 1.0);
    EXPECT_EQ(chain->Cursor, 1U);
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
}

TEST(ShellTransformChain, DoesNotAppendWhatCannotBeCopied) {
    TChainPtr const chain(new TChain);
    EXPECT_FALSE(chain->AddNextTransform(TParams(rsttPlaneAffine)));
    EXPECT_FALSE(chain->AddNextTransform(TParams(rsttPlaneShift)));
    EXPECT_EQ(chain->GetFirstTransform(), nullptr);
}

TEST(ShellTransformChain, AppendsAlsoRecordsThatAreFalse) {
    TChainPtr const chain(new TChain);
    EXPECT_TRUE(chain->AddNextTransform(TAffine(false)));
    EXPECT_NE(chain->GetTransform(0), nullptr);
}

TEST(ShellTransformChain, WalksFromFirstToEnd) {
    TChainPtr const chain = MakeChain();
    EXPECT_EQ(chain->GetFirstTransform(), chain->GetTransform(0));
    EXPECT_EQ(chain->GetNextTransform(), chain->GetTransform(1));
    EXPECT_EQ(chain->GetNextTransform(), chain->GetTransform(2));
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
    EXPECT_EQ(chain->GetTransform(3), nullptr);
    EXPECT_EQ(chain->GetTransform(-1), nullptr);
}

TEST(ShellTransformChain, ClearTakesEverythingAway) {
    TChainPtr const chain = MakeChain();
    chain->ClearTransforms();
    EXPECT_EQ(chain->GetTransform(0), nullptr);
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
    EXPECT_TRUE(chain->Chain.empty());
}

TEST(ShellTransformChain, DeletesOneAndClosesTheGap) {
    TChainPtr const chain = MakeChain();
    TParams* const first = chain->GetTransform(0);
    TParams* const last = chain->GetTransform(2);
    EXPECT_FALSE(chain->DeleteTransform(-1));
    EXPECT_FALSE(chain->DeleteTransform(3));
    EXPECT_TRUE(chain->DeleteTransform(1));
    EXPECT_EQ(chain->GetTransform(0), first);
    EXPECT_EQ(chain->GetTransform(1), last);
    EXPECT_EQ(chain->GetTransform(2), nullptr);
}

TEST(ShellTransformChain, DeletionLeavesTheCursorWhereItIs) {
    TChainPtr const chain = MakeChain();
    EXPECT_EQ(chain->Cursor, 3U);
    EXPECT_TRUE(chain->DeleteTransform(0));
    EXPECT_TRUE(chain->DeleteTransform(0));
    EXPECT_EQ(chain->Cursor, 3U);
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
    EXPECT_EQ(chain->GetFirstTransform(), chain->GetTransform(0));
}

TEST(ShellTransformChain, ReplacesByACopy) {
    TChainPtr const chain = MakeChain();
    EXPECT_TRUE(chain->ReplaceTransform(1, MakeShift(7)));
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(1)).dH, 7.0);
    EXPECT_TRUE(chain->ReplaceTransform(1, *chain->GetTransform(1)));
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(1)).dH, 7.0);
}

TEST(ShellTransformChain, KeepsTheOldRecordWhenItIsNotReplaced) {
    TChainPtr const chain = MakeChain();
    TParams* const old = chain->GetTransform(1);
    EXPECT_FALSE(chain->ReplaceTransform(-1, MakeShift(7)));
    EXPECT_FALSE(chain->ReplaceTransform(3, MakeShift(7)));
    TGrid withoutEast = MakeGrid();
    withoutEast.dE.clear();
    EXPECT_FALSE(chain->ReplaceTransform(1, withoutEast));
    EXPECT_FALSE(chain->ReplaceTransform(1, TParams(rsttPlaneGrid)));
    EXPECT_EQ(chain->GetTransform(1), old);
}

TEST(ShellTransformChain, SwapsTwo) {
    TChainPtr const chain = MakeChain();
    TParams* const first = chain->GetTransform(0);
    TParams* const last = chain->GetTransform(2);
    EXPECT_TRUE(chain->SwapTransforms(0, 2));
    EXPECT_EQ(chain->GetTransform(0), last);
    EXPECT_EQ(chain->GetTransform(2), first);
    EXPECT_TRUE(chain->SwapTransforms(1, 1));
    EXPECT_FALSE(chain->SwapTransforms(0, 3));
    EXPECT_FALSE(chain->SwapTransforms(-1, 0));
}

TEST(ShellTransformChain, DestructorLeavesTheRecordsToTheOwner) {
    TParams* record = nullptr;
    {
        TChain chain;
        ASSERT_TRUE(chain.AddNextTransform(MakeShift(3)));
        record = chain.GetTransform(0);
    }
    EXPECT_EQ(dynamic_cast<TShift&>(*record).dH, 3.0);
    delete record;
    DestroyTransformChain(nullptr);
}

// --- Reading ---

TEST(ShellTransformChain, TreeWithoutRecordsIsAnEmptyChain) {
    TStringTree tree;
    tree.InsertString("", 7201, 0, "the name isn't read here");
    TChainPtr const chain(new TChain(&tree));
    EXPECT_TRUE(chain->Chain.empty());
}

TEST(ShellTransformChain, ReadsInRisingIdxOrderAndNumbersTheNameless) {
    TStringTree tree;
    PutShift(&tree, 5, 50);
    PutShift(&tree, 2, 20);
    TStringTree* const named = PutShift(&tree, 9, 90);
    named->InsertString("", 7110, 0, "nine");
    named->InsertString("", 7111, 0, "a description");
    TStringTree* const blank = PutShift(&tree, 11, 110);
    blank->InsertString("", 7110, 0, "");
    TChainPtr const chain(new TChain(&tree));
    ASSERT_EQ(chain->Chain.size(), 4U);
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(0)).dH, 20.0);
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(1)).dH, 50.0);
    EXPECT_EQ(chain->GetTransform(0)->Name, "1");
    EXPECT_EQ(chain->GetTransform(0)->Description, "");
    EXPECT_EQ(chain->GetTransform(1)->Name, "2");
    EXPECT_EQ(chain->GetTransform(2)->Name, "nine");
    EXPECT_EQ(chain->GetTransform(2)->Description, "a description");
    EXPECT_EQ(chain->GetTransform(3)->Name, "");
    EXPECT_EQ(chain->GetNextTransform(), nullptr);
}

TEST(ShellTransformChain, ReadsEachKind) {
    TStringTree tree;
    PutAffine(&tree, 0);
    PutGrid(&tree, 1)->InsertString("", 7124, 0, "a system");
    PutGrid(&tree, 2);
    PutShift(&tree, 3, -1.5);
    TChainPtr const chain(new TChain(&tree));
    ASSERT_EQ(chain->Chain.size(), 4U);
    auto const& affine = dynamic_cast<TAffine&>(*chain->GetTransform(0));
    EXPECT_EQ(affine.a11, 1.0);
    EXPECT_EQ(affine.a12, 2.0);
    EXPECT_EQ(affine.a13, 10.0);
    EXPECT_EQ(affine.a21, 3.0);
    EXPECT_EQ(affine.a22, 4.0);
    EXPECT_EQ(affine.a23, 20.0);
    auto const& grid = dynamic_cast<TGrid&>(*chain->GetTransform(1));
    EXPECT_EQ(grid.dE + "," + grid.dN + "," + grid.refsys, "e,n,a system");
    EXPECT_EQ(grid.coef, 2.0);
    EXPECT_EQ(dynamic_cast<TGrid&>(*chain->GetTransform(2)).refsys, "");
    EXPECT_EQ(dynamic_cast<TShift&>(*chain->GetTransform(3)).dH, -1.5);
}

TEST(ShellTransformChain, HeaderOfARecordIsNotLookedAt) {
    TStringTree tree;
    PutShift(&tree, 0, 1)->header = "Transform (plane grid)";
    TChainPtr const chain(new TChain(&tree));
    EXPECT_EQ(chain->GetTransform(0)->Type, rsttVerticalShift);
}

TEST(ShellTransformChain, EachRequiredFieldIsMissedWithTheSameMessage) {
    using TField = std::pair<int, int>;
    struct TCase {
        TStringTree* (*put)(TStringTree*, int);
        std::vector<TField> fields;
    };
    std::vector<TCase> const cases = {
        {PutAffine, {{7101, 0}, {7105, 0}, {7106, 0}, {7109, 0}, {7109, 1}, {7109, 2}, {7109, 3}}},
        {PutGrid, {{7101, 0}, {7121, 0}, {7122, 0}, {7125, 0}}},
        {[](TStringTree* tree, int idx) { return PutShift(tree, idx, 1); }, {{7101, 0}, {7107, 0}}},
    };
    for (TCase const& row : cases) {
        for (TField const& field : row.fields) {
            TStringTree tree;
            PutShift(&tree, 0, 1);
            row.put(&tree, 1)->DeleteField(field.first, field.second);
            EXPECT_EQ(MessageOf([&] { TChain const chain(&tree); }), readMessage)
                << field.first << "," << field.second;
        }
    }
    EXPECT_EQ(MessageOf([] { TChain const chain(nullptr); }), readMessage);
}

TEST(ShellTransformChain, RefusesUnknownTypes) {
    for (int const type : {0, 1, 2, 3, 7, -4}) {
        TStringTree tree;
        PutShift(&tree, 0, 1);
        PutRecord(&tree, 1, type);
        EXPECT_EQ(MessageOf([&] { TChain const chain(&tree); }), readMessage) << type;
    }
}

TEST(ShellTransformChain, RefusesRecordsThatAreFalse) {
    TStringTree flat;
    TStringTree* const affine = PutAffine(&flat, 0);
    affine->DeleteField(7109, 3);
    affine->InsertDouble("", 7109, 3, 6);
    EXPECT_EQ(MessageOf([&] { TChain const chain(&flat); }), readMessage);
    TStringTree idle;
    TStringTree* const grid = PutGrid(&idle, 0);
    grid->DeleteField(7125, 0);
    grid->InsertDouble("", 7125, 0, 0);
    EXPECT_EQ(MessageOf([&] { TChain const chain(&idle); }), readMessage);
}

// --- Writing ---

TEST(ShellTransformChain, WritesEachKindInItsOrder) {
    TChainPtr const chain = MakeChain();
    TStringTree tree;
    EXPECT_TRUE(chain->WriteToTree(&tree, "the set"));
    EXPECT_EQ(Lines(tree), (std::vector<std::string>{"7201,0 Transform set ID=the set"}));
    ASSERT_EQ(tree.subtrees.Size(), 3U);
    EXPECT_EQ(tree.FindSubtree(7100, 0)->header, "Transform (plane affine)");
    EXPECT_EQ(tree.FindSubtree(7100, 1)->header, "Transform (plane grid)");
    EXPECT_EQ(tree.FindSubtree(7100, 2)->header, "Transform (vertical shift H)");
    std::vector<std::string> const affine = {"7110,0 Transform name=turn",
                                             "7111,0 Transform description=first",
                                             "7101,0 Transform type=4",
                                             "7105,0 dX=3",
                                             "7106,0 dY=6",
                                             "7109,0 MatrixRow1Col1=1",
                                             "7109,1 MatrixRow1Col2=2",
                                             "7109,2 MatrixRow2Col1=4",
                                             "7109,3 MatrixRow2Col2=5"};
    EXPECT_EQ(Lines(*tree.FindSubtree(7100, 0)), affine);
    std::vector<std::string> const grid = {"7101,0 Transform type=5",
                                           "7110,0 Transform name=bend",
                                           "7111,0 Transform description=second",
                                           "7121,0 Grid dE=2 2 10 0 0 1 1 1 1",
                                           "7122,0 Grid dN=2 2 10 0 0 -2 -2 -2 -2",
                                           "7124,0 Grid refsys=" + std::string("(0,0)x\n\0", 8),
                                           "7125,0 Grid coef=0.5"};
    EXPECT_EQ(Lines(*tree.FindSubtree(7100, 1)), grid);
    std::vector<std::string> const shift = {"7101,0 Transform type=6", "7107,0 dH=12.5"};
    EXPECT_EQ(Lines(*tree.FindSubtree(7100, 2)), shift);
}

TEST(ShellTransformChain, EmptyNameDescriptionAndSystemAreLeftOut) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeGrid());
    chain->AddNextTransform(MakeAffine(1, 2, 3, 4, 5, 6));
    TStringTree tree;
    EXPECT_TRUE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(tree.fields.Size(), 0U);
    EXPECT_EQ(tree.FindSubtree(7100, 0)->fields.Size(), 4U);
    EXPECT_EQ(tree.FindSubtree(7100, 1)->fields.Size(), 7U);
}

TEST(ShellTransformChain, TextRoundTripKeepsEverything) {
    TChainPtr const source = MakeChain();
    TStringTree tree;
    ASSERT_TRUE(source->WriteToTree(&tree, "the set"));
    std::string text(tree.WriteToString(nullptr, 0, 0), '\0');
    tree.WriteToString(text.data(), 0, 0);
    TStringTree read;
    read.ReadFromString(text.c_str(), nullptr, nullptr);
    TChainPtr const copy(new TChain(&read));
    ASSERT_EQ(copy->Chain.size(), 3U);
    EXPECT_EQ(copy->GetTransform(0)->Name, "turn");
    EXPECT_EQ(copy->GetTransform(0)->Description, "first");
    EXPECT_EQ(dynamic_cast<TAffine&>(*copy->GetTransform(0)).a12, 2.0);
    auto const& grid = dynamic_cast<TGrid&>(*copy->GetTransform(1));
    EXPECT_EQ(grid.refsys, std::string("(0,0)x\n\0", 8));
    EXPECT_EQ(grid.dE, MakeGrid().dE);
    EXPECT_EQ(grid.coef, 0.5);
    EXPECT_EQ(copy->GetTransform(2)->Name, "3");
    EXPECT_EQ(dynamic_cast<TShift&>(*copy->GetTransform(2)).dH, 12.5);
}

TEST(ShellTransformChain, UnsetHeightShiftIsWrittenAndReadAsItIs) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(TShift());
    TStringTree tree;
    ASSERT_TRUE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(Lines(*tree.FindSubtree(7100, 0)).back(), "7107,0 dH=1.79769313486231571e+308");
    TChainPtr const copy(new TChain(&tree));
    EXPECT_EQ(dynamic_cast<TShift&>(*copy->GetTransform(0)).dH, TShift::Unset);
    std::unique_ptr<TRefSystemTransformsSet> const core(copy->CreateCoreTransform(false, 1, 1));
    EXPECT_EQ(dynamic_cast<TVerticalShiftRefSystemTransform&>(*core->GetFirstTransform()).ShiftZ,
              TShift::Unset);
}

TEST(ShellTransformChain, SecondWriteIntoATreeFails) {
    TChainPtr const chain = MakeChain();
    TStringTree tree;
    EXPECT_TRUE(chain->WriteToTree(&tree, ""));
    EXPECT_FALSE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(tree.subtrees.Size(), 3U);
    EXPECT_EQ(tree.FindSubtree(7100, 0)->fields.Size(), 9U);
    TStringTree named;
    named.InsertString("", 7201, 0, "taken");
    EXPECT_FALSE(chain->WriteToTree(&named, "the set"));
    EXPECT_EQ(named.subtrees.Size(), 0U);
    EXPECT_FALSE(chain->WriteToTree(nullptr, ""));
}

TEST(ShellTransformChain, FailedWriteKeepsWhatIsWritten) {
    TChainPtr const chain = MakeChain();
    TStringTree tree;
    tree.InsertSubtree("taken", 7100, 1);
    EXPECT_FALSE(chain->WriteToTree(&tree, "the set"));
    EXPECT_NE(tree.FindField(7201, 0), nullptr);
    EXPECT_EQ(tree.FindSubtree(7100, 0)->fields.Size(), 9U);
    EXPECT_EQ(tree.FindSubtree(7100, 2), nullptr);
}

TEST(ShellTransformChain, RecordOfAnotherTypeEndsTheWriting) {
    for (TReferenceSystemTransformType const type :
         {rsttPlaneShift, rsttPlaneAffine, rsttPlaneGrid, rsttVerticalShift}) {
        TChainPtr const chain = MakeChain();
        chain->Chain.insert(chain->Chain.begin() + 1, new TParams(type));
        TStringTree tree;
        EXPECT_FALSE(chain->WriteToTree(&tree, "")) << type;
        EXPECT_EQ(tree.subtrees.Size(), 1U) << type;
    }
}

TEST(ShellTransformChain, NullRecordEndsTheWalk) {
    TChainPtr const chain = MakeChain();
    chain->Chain.insert(chain->Chain.begin() + 1, nullptr);
    TStringTree tree;
    EXPECT_TRUE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(tree.subtrees.Size(), 1U);
}

} // namespace
