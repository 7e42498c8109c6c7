#include "tests/memory/Fingerprint.h"
#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "core/projections/MapProjection.h"
#include "core/refsystems/DatumShift.h"
#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "core/transforms/FloatTable.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;
using TestSupport::Create;
using TestSupport::Pulkovo1942;
using TestSupport::TLevelGrid;

std::string DescribeShell(TShellReferenceSystem const& system) {
    return FingerprintOf(system);
}

std::string DescribeCore(TReferenceSystem const& system) {
    return FingerprintOf(system);
}

std::string DescribeSet(TRefSystemTransformsSet const& set) {
    return FingerprintOf(set);
}

class CopyingSweep : public testing::TestWithParam<TSubject> {};

INSTANTIATE_TEST_SUITE_P(Kinds, CopyingSweep, testing::ValuesIn(WholeSystems()),
                         [](auto const& subject) { return subject.param.name; });

TEST_P(CopyingSweep, ACopyOfASystemThrowsAndTheSourceStays) {
    std::shared_ptr<TShellReferenceSystem> const source = SystemOf(GetParam().text);
    std::shared_ptr<TShellReferenceSystem> const gridSystem = Create(Pulkovo1942());
    TLevelGrid grid(1);
    if (source->IsLatLon() || source->IsProjected()) {
        ASSERT_TRUE(source->SetGeoid("Level", &grid, gridSystem.get()));
    }
    std::string const before = FingerprintOf(*source);

    Sweep("copying", Makes<TShellReferenceSystem>(
                         GetParam().name + ", CreateCopy", BadAlloc | RuntimeError,
                         [source] { return std::unique_ptr<TShellReferenceSystem>(source->CreateCopy()); },
                         &DescribeShell));

    EXPECT_EQ(FingerprintOf(*source), before);
}

TEST_P(CopyingSweep, ACopyOfACoreIsNullFromTheFunctionAndThrowsFromTheConstructor) {
    std::shared_ptr<TShellReferenceSystem> const shell = SystemOf(GetParam().text);
    std::string const before = FingerprintOf(*shell->CoreRefSystem);

    Sweep("copying",
          Makes<TReferenceSystem>(
              GetParam().name + ", core CreateCopy", Null,
              [shell] { return std::unique_ptr<TReferenceSystem>(CreateCopy(*shell->CoreRefSystem)); },
              &DescribeCore));
    auto const construct = [shell]() -> std::unique_ptr<TReferenceSystem> {
        TReferenceSystem const& core = *shell->CoreRefSystem;
        switch (core.Type) {
        case rstLocalCartesian:
            return std::make_unique<TLocalCartesianReferenceSystem>(
                dynamic_cast<TLocalCartesianReferenceSystem const&>(core));
        case rstLocalCurved:
            return std::make_unique<TLocalCurvedReferenceSystem>(
                dynamic_cast<TLocalCurvedReferenceSystem const&>(core));
        case rstGeocentric:
            return std::make_unique<TGeocentricReferenceSystem>(
                dynamic_cast<TGeocentricReferenceSystem const&>(core));
        case rstGeodetic:
            return std::make_unique<TGeodeticReferenceSystem>(
                dynamic_cast<TGeodeticReferenceSystem const&>(core));
        case rstMapProjected:
            return std::make_unique<TMapProjectedReferenceSystem>(
                dynamic_cast<TMapProjectedReferenceSystem const&>(core));
        case rstTopocentricHorizontal:
            return std::make_unique<TTopocentricHorizontalReferenceSystem>(
                dynamic_cast<TTopocentricHorizontalReferenceSystem const&>(core));
        }
        return nullptr;
    };
    Sweep("copying", Makes<TReferenceSystem>(GetParam().name + ", core copy constructor",
                                             BadAlloc | RuntimeError, construct, &DescribeCore));

    EXPECT_EQ(FingerprintOf(*shell->CoreRefSystem), before);
}

TEST_P(CopyingSweep, AChainIsCopiedAndAssignedWholeOrNotAtAll) {
    std::shared_ptr<TShellReferenceSystem> const shell = SystemOf(GetParam().text);
    TRefSystemTransformsSet const& chain = shell->CoreRefSystem->Transforms;

    Sweep("copying", Makes<TRefSystemTransformsSet>(
                         GetParam().name + ", chain", BadAlloc | RuntimeError,
                         [&] { return std::make_unique<TRefSystemTransformsSet>(chain); }, &DescribeSet));
    auto const begin = [shell] {
        auto set = std::make_unique<TRefSystemTransformsSet>();
        set->AddNextTransform(*shell->CoreRefSystem->Transforms.TransformList.back());
        return set;
    };
    Sweep("copying", Edits<TRefSystemTransformsSet>(
                         GetParam().name + ", chain assigned", BadAlloc | RuntimeError, begin,
                         [&](TRefSystemTransformsSet* set) {
                             *set = chain;
                             return true;
                         },
                         &DescribeSet));
    Sweep("copying", Edits<TRefSystemTransformsSet>(
                         GetParam().name + ", chain appended to", False | BadAlloc, begin,
                         [&](TRefSystemTransformsSet* set) {
                             return set->AddNextTransform(*chain.TransformList.front());
                         },
                         &DescribeSet));
}

TEST(CopyingProjectionSweep, ACopyOfAProjectionIsNull) {
    for (TSubject const& subject : ProjectedSystems()) {
        std::shared_ptr<TShellReferenceSystem> const shell = SystemOf(subject.text);
        auto const& core = dynamic_cast<TMapProjectedReferenceSystem const&>(*shell->CoreRefSystem);
        std::shared_ptr<TMapProjection> const original(CreateCopy(*core.Projection));
        ASSERT_TRUE(original) << subject.name;

        Sweep("copying", Makes<TMapProjection>(
                             subject.name + ", CreateCopy", Null,
                             [&] { return std::unique_ptr<TMapProjection>(CreateCopy(*core.Projection)); },
                             [original](TMapProjection const& copy) {
                                 return std::string(copy == *original ? "the same" : "another");
                             }));
    }
}

TEST(CopyingPartsSweep, ACopyOfADatumShiftIsNull) {
    for (TSubject const& subject : DatumsAndUnits()) {
        std::shared_ptr<TShellReferenceSystem> const shell = SystemOf(subject.text);
        TDatumShift const* const shift = shell->CoreRefSystem->RelatedGeocentricRefSystem()->DatumShift;
        if (!shift) {
            continue;
        }
        Sweep("copying", Makes<TDatumShift>(
                             subject.name + ", CreateDatumShiftCopy", Null,
                             [shift] { return std::unique_ptr<TDatumShift>(CreateDatumShiftCopy(shift)); },
                             [shift](TDatumShift const& copy) {
                                 return std::string(copy == *shift ? "the same" : "another");
                             }));
    }
}

TEST(CopyingPartsSweep, ACopyOfARecordIsNull) {
    for (auto const& record : Records()) {
        Sweep("copying",
              Makes<TShellRefSystemTransformParams>(
                  "record " + std::to_string(record->Type), Null,
                  [&record] {
                      return std::unique_ptr<TShellRefSystemTransformParams>(CreateTransformCopy(*record));
                  },
                  [](TShellRefSystemTransformParams const& copy) { return copy.Name + copy.Description; }));
    }
}

TEST(CopyingPartsSweep, ATableIsCopiedWholeOrNotAtAll) {
    T2DTable<float> table;
    ASSERT_TRUE(table.LoadFromString2("3 4 10 0 0 1 2 3 4 5 6 7 8 9 10 11 12", nullptr));
    auto const describe = [&table](T2DTable<float> const& copy) {
        return std::string(copy == table ? "the same" : copy.Rows ? "another" : "empty");
    };
    Sweep("copying",
          Makes<T2DTable<float>>(
              "table", BadAlloc, [&] { return std::make_unique<T2DTable<float>>(table); }, describe));
}

} // namespace
} // namespace MemorySweep
