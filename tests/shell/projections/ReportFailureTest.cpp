#include "shell/projections/ReportFailureDetail.h"

#include "shell/projections/TransverseCylinders.h"
#include "shell/projections/ZonedProjections.h"
#include "tests/shell/projections/ZonedTestKit.h"

#include <new>
#include <stdexcept>

namespace {

using namespace ZonedTestKit;

TEST(ReportFailure, GivesWhatTheExportGives) {
    EXPECT_TRUE(ReportFailure([] { return true; }));
    EXPECT_FALSE(ReportFailure([] { return false; }));
}

TEST(ReportFailure, AnExceptionIsAFalse) {
    EXPECT_FALSE(ReportFailure([]() -> bool { throw std::runtime_error("x"); }));
    EXPECT_FALSE(ReportFailure([]() -> bool { throw std::logic_error("x"); }));
    EXPECT_FALSE(ReportFailure([]() -> bool { throw std::out_of_range("x"); }));
    EXPECT_FALSE(ReportFailure([]() -> bool { throw 1; }));
}

TEST(ReportFailure, MemoryThatRunsOutPasses) {
    EXPECT_THROW(ReportFailure([]() -> bool { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_THROW(ReportFailure([]() -> bool { throw std::length_error("x"); }), std::length_error);
}

/** A unit that can't print. */
template <class Unit, class Exception>
class TFailingUnit : public Unit {
public:
    TFailingUnit(TStringTree* tree, Exception const& exception) : Unit(tree), failure(exception) {}
    using Unit::ValueToString;
    std::string ValueToString(double const&, int) const override { throw failure; }

private:
    Exception failure;
};

template <class Unit, class Exception>
TFailingUnit<Unit, Exception> Failing(TUnit const& unit, Exception const& exception) {
    TStringTree tree;
    PutUnit(&tree, unit);
    return TFailingUnit<Unit, Exception>(&tree, exception);
}

/** One of each kind of shell that has exports. */
std::vector<TOwned> ShellsWithExports() {
    TChanges const zone = {{ZoneKey, "31"}, {HemisphereKey, "N"}};
    TChanges const cylinder = {{6101, "9"}, {6103, "0.9996"}, {6104, "1500000"}, {6105, "0"}};
    std::vector<TOwned> shells;
    shells.push_back(Create(1));
    shells.push_back(Create(21));
    shells.push_back(Make<TShellUTMMapProjection>(1002, zone));
    shells.push_back(Make<TShellGaussKruger6MapProjection>(1001, zone));
    shells.push_back(Make<TShellGaussBoagaMapProjection>(15, cylinder));
    shells.push_back(Make<TShellGaussKrugerWideMapProjection>(101, cylinder));
    return shells;
}

/** Exports with a unit whose printing fails so: it comes out, and nothing is written. */
template <class Exception>
void ExpectToPass(Exception const& exception) {
    auto linear = Failing<TShellLinearUnit>(metre, exception);
    auto const angular = MakeAngularUnit(degree);
    for (TOwned const& shell : ShellsWithExports()) {
        std::string text = "clause";
        EXPECT_THROW(shell->ExportToMIFMID(&linear, &text), Exception) << shell->Type;
        EXPECT_EQ(text, "clause") << shell->Type;
        TGeoKeys keys;
        EXPECT_THROW(shell->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), &linear), Exception)
            << shell->Type;
        EXPECT_TRUE(keys.empty()) << shell->Type;
    }
}

TEST(ReportFailure, ExportsLetMemoryThatRunsOutPassAndWriteNothing) {
    ExpectToPass(std::bad_alloc());
    ExpectToPass(std::length_error("too long"));
}

TEST(ReportFailure, ExportsOfAUnitThatThrowsAreFalseAndWriteNothing) {
    auto linear = Failing<TShellLinearUnit>(metre, std::runtime_error("x"));
    auto const angular = MakeAngularUnit(degree);
    for (TOwned const& shell : ShellsWithExports()) {
        std::string text = "clause";
        EXPECT_FALSE(shell->ExportToMIFMID(&linear, &text)) << shell->Type;
        EXPECT_EQ(text, "clause") << shell->Type;
        TGeoKeys keys;
        EXPECT_FALSE(shell->ExportMapProjParamsToGeoTIFF(&keys, angular.get(), &linear)) << shell->Type;
        EXPECT_TRUE(keys.empty()) << shell->Type;
    }
}

} // namespace
