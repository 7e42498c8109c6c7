#include "shell/transforms/TransformChain.h"

#include "core/transforms/PlaneAndVertical.h"
#include "tests/shell/transforms/ChainFixtures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace ChainFixtures;

double HeightOf(TChain const& chain, int index) {
    return dynamic_cast<TShift const&>(*chain.GetTransform(index)).dH;
}

/** @return the slot of a virtual operation, counted from 0, by the rules of the platform's C++ interface. */
template <class Operation>
std::ptrdiff_t SlotOf(Operation operation) {
    std::ptrdiff_t entry = 0;
    std::memcpy(&entry, &operation, sizeof(entry));
    return (entry - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// --- Records ---

TEST(TransformsEdge, RecordOperationsStandInTheirSlots) {
    EXPECT_EQ(SlotOf(&TParams::Reset), 2);
    EXPECT_EQ(SlotOf(&TParams::operator bool), 3);
}

TEST(TransformsEdge, DeterminantThatIsNoNumberIsNotZero) {
    TAffine inverse(true);
    EXPECT_TRUE(MakeAffine(std::numeric_limits<double>::quiet_NaN(), 0, 0, 0, 1, 0).GetInverted(&inverse));
    EXPECT_FALSE(static_cast<bool>(inverse));
}

TEST(TransformsEdge, InversionOfATinyMatrixAnswersTrueThoughTheInverseIsFalse) {
    // The inverse of 1e13 times the identity has a determinant of 1e-26.
    TAffine inverse(true);
    EXPECT_TRUE(MakeAffine(1e13, 0, 0, 0, 1e13, 0).GetInverted(&inverse));
    EXPECT_FALSE(static_cast<bool>(inverse));
    EXPECT_DOUBLE_EQ(inverse.a11, 1e-13);
}

TEST(TransformsEdge, InversionKeepsTheLabelsOfTheResult) {
    TAffine inverse(true);
    inverse.SetNameDecsription("name", "description");
    EXPECT_TRUE(MakeAffine(2, 0, 0, 0, 2, 0).GetInverted(&inverse));
    EXPECT_EQ(inverse.Name + "," + inverse.Description, "name,description");
}

TEST(TransformsEdge, CopyConstructorsTakeTheTypeAsItStands) {
    TGrid grid;
    grid.Type = rsttPlaneShift;
    grid.SetNameDecsription("name", "description");
    grid.coef = 3;
    TGrid const gridCopy(grid);
    EXPECT_EQ(gridCopy.Type, rsttPlaneShift);
    EXPECT_EQ(gridCopy.Name + "," + gridCopy.Description, "name,description");
    EXPECT_EQ(gridCopy.coef, 3.0);
    TShift shift = MakeShift(4);
    shift.Type = static_cast<TReferenceSystemTransformType>(77);
    EXPECT_EQ(TShift(shift).Type, 77);
    EXPECT_EQ(TShift(shift).dH, 4.0);
    TParams root(rsttPlaneRotation);
    root.SetNameDecsription("a", "b");
    TParams const rootCopy(root);
    EXPECT_EQ(rootCopy.Type, rsttPlaneRotation);
    EXPECT_EQ(rootCopy.Name + rootCopy.Description, "ab");
}

// --- Chains ---

TEST(TransformsEdge, ChainAppendsACopyOfItsOwnRecord) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeShift(1));
    for (int round = 0; round < 10; ++round) {
        EXPECT_TRUE(chain->AddNextTransform(*chain->GetTransform(0)));
    }
    EXPECT_EQ(chain->Chain.size(), 11U);
    EXPECT_NE(chain->GetTransform(10), chain->GetTransform(0));
    EXPECT_EQ(HeightOf(*chain, 10), 1.0);
}

TEST(TransformsEdge, WritingMovesTheCursorToTheEnd) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeShift(1));
    chain->AddNextTransform(MakeShift(2));
    chain->GetFirstTransform();
    TStringTree tree;
    EXPECT_TRUE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(chain->Cursor, 2U);
    EXPECT_FALSE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(chain->Cursor, 0U); // it failed at the first record
}

TEST(TransformsEdge, EmptyChainWritesItsNameAlone) {
    TChain const chain;
    TStringTree tree;
    EXPECT_TRUE(chain.WriteToTree(&tree, "the set"));
    EXPECT_EQ(tree.fields.Size(), 1U);
    EXPECT_EQ(tree.subtrees.Size(), 0U);
    EXPECT_TRUE(chain.WriteToTree(&tree, ""));
    EXPECT_FALSE(chain.WriteToTree(&tree, "another"));
}

TEST(TransformsEdge, NegativeIndexesComeFirst) {
    TStringTree tree;
    PutShift(&tree, 0, 10);
    PutShift(&tree, -3, 20);
    TChainPtr const chain(new TChain(&tree));
    EXPECT_EQ(HeightOf(*chain, 0), 20.0);
    EXPECT_EQ(HeightOf(*chain, 1), 10.0);
}

TEST(TransformsEdge, RepeatedIndexIsReadOnceFromTheFirst) {
    TStringTree tree;
    tree.ReadFromString("(0,0)x\n\t(7100,0)a\n\t(7101,0)[1]t\t6\n\t(7107,0)[1]h\t1\n\t\n"
                        "\t(7100,0)b\n\t(7101,0)[1]t\t6\n\t(7107,0)[1]h\t2\n\t\n\n",
                        nullptr, nullptr);
    ASSERT_EQ(tree.subtrees.Size(), 2U);
    TChainPtr const chain(new TChain(&tree));
    ASSERT_EQ(chain->Chain.size(), 1U);
    EXPECT_EQ(HeightOf(*chain, 0), 1.0);
}

TEST(TransformsEdge, NumbersOfARecordAreReadStrictly) {
    constexpr char const* message = "TShellRefSystemTransform::TShellRefSystemTransform(TStringTree *src)";
    TStringTree type;
    TStringTree* const typed = PutShift(&type, 0, 1);
    typed->DeleteField(7101, 0);
    typed->InsertString("", 7101, 0, "6.0");
    EXPECT_EQ(MessageOf([&] { TChain const chain(&type); }), message);
    TStringTree height;
    TStringTree* const high = PutShift(&height, 0, 1);
    high->DeleteField(7107, 0);
    high->InsertString("", 7107, 0, "12 m");
    EXPECT_EQ(MessageOf([&] { TChain const chain(&height); }), message);
}

TEST(TransformsEdge, WalkGoesOnPastAReplacedRecord) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeShift(1));
    chain->AddNextTransform(MakeShift(2));
    chain->GetFirstTransform();
    EXPECT_TRUE(chain->ReplaceTransform(0, MakeShift(3)));
    EXPECT_EQ(chain->GetNextTransform(), chain->GetTransform(1));
    EXPECT_EQ(HeightOf(*chain, 0), 3.0);
}

// --- The core set ---

TEST(TransformsEdge, ScalesOtherThanOneAreInverted) {
    struct TCase {
        bool swap;
        double matrix[4];
        double shift[2];
    };
    // By hand for A = (1, 1; 1, 2), t = (4, 10), scales 2 and 5. Plain: B = (2, 0; 0, 5), C = (0.5, 0; 0,
    // 0.2).
    // Swapped: B = (0, 2; 5, 0), C = (0, 0.2; 0.5, 0).
    for (TCase const& row : {TCase{false, {1, 2.5, 0.4, 2}, {2, 2}}, TCase{true, {2, 0.4, 2.5, 1}, {2, 2}}}) {
        TChainPtr const chain(new TChain);
        chain->AddNextTransform(MakeAffine(1, 1, 4, 1, 2, 10));
        std::unique_ptr<TRefSystemTransformsSet> const core(chain->CreateCoreTransform(row.swap, 2, 5));
        double matrix[4] = {};
        double shift[2] = {};
        dynamic_cast<TPlaneAffineRefSystemTransform&>(*core->GetFirstTransform())
            .GetParameters(matrix, shift);
        for (int k = 0; k < 4; ++k) {
            EXPECT_DOUBLE_EQ(matrix[k], row.matrix[k]) << row.swap << k;
        }
        EXPECT_DOUBLE_EQ(shift[0], row.shift[0]);
        EXPECT_DOUBLE_EQ(shift[1], row.shift[1]);
    }
}

TEST(TransformsEdge, RecordWhoseTypeIsNotItsClassHasNoCoreForm) {
    TChainPtr const chain(new TChain);
    chain->AddNextTransform(MakeShift(1));
    chain->AddNextTransform(TAffine(true));
    chain->GetTransform(1)->Type = rsttPlaneGrid;
    EXPECT_EQ(MessageOf([&] { delete chain->CreateCoreTransform(false, 1, 1); }),
              "TShellRefSystemTransform::CreateCoreTransform");
    TStringTree tree;
    EXPECT_FALSE(chain->WriteToTree(&tree, ""));
    EXPECT_EQ(tree.subtrees.Size(), 1U);
}

TEST(TransformParamsEdge, RowsMayBeTheRecordsOwn) {
    TShellRefSystemTransform2DAffineParams record(false);
    double const row1[] = {1, 2, 3};
    double const row2[] = {4, 5, 6};
    record.Set(row1, row2);

    record.Set(&record.a21, &record.a11);

    EXPECT_EQ(record.a11, 4);
    EXPECT_EQ(record.a13, 6);
    EXPECT_EQ(record.a21, 1);
    EXPECT_EQ(record.a23, 3);
}

TEST(TransformParamsEdge, NameAndDescriptionMayBeExchanged) {
    TShellRefSystemTransformShiftZParams record;
    record.SetNameDecsription("n", "d");

    record.SetNameDecsription(record.Description, record.Name);

    EXPECT_EQ(record.Name, "d");
    EXPECT_EQ(record.Description, "n");
}

} // namespace
