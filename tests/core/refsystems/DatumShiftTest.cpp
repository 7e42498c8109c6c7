#include "core/refsystems/DatumShift.h"

#include "TestKinds.h"

#include <gtest/gtest.h>

#include <memory>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

TEST(DatumShift, KeepsItsType) {
    EXPECT_EQ(TForeignShift(2).Type, dsBursaWolfNonlinear);
    EXPECT_EQ(static_cast<int>(TForeignShift(-5).Type), -5);
}

TEST(DatumShift, OfAnUnknownTypeCannotBeCopied) {
    for (int const type : {0, 3, 7, -1}) {
        TForeignShift const shift(type);
        EXPECT_EQ(CreateDatumShiftCopy(&shift), nullptr) << type;
    }
}

TEST(DatumShift, OfNullCopiesToNull) {
    EXPECT_EQ(CreateDatumShiftCopy(nullptr), nullptr);
}

TEST(DatumShift, CopyIsANewObjectOfTheSameClass) {
    auto const source = Shift(1, 2, 3);
    std::unique_ptr<TDatumShift> const copy(CreateDatumShiftCopy(&source));
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy.get(), &source);
    EXPECT_EQ(*copy, source);
}
