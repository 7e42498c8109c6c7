#pragma once

#include "frame/imported/BaseGrid.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "tests/support/Descriptions.h"

#include <exception>
#include <functional>
#include <memory>
#include <string>

/** Live systems and what hangs on them, for tests. */
namespace TestSupport {

/** A surface with the same undulation everywhere. */
class TLevelGrid : public TBaseGrid {
public:
    explicit TLevelGrid(double height) : undulation(height) {}

    bool GetZFastZ(double, double, double& z, unsigned int) override {
        z = undulation;
        return true;
    }

private:
    double undulation;
};

/** A geodetic system of a text, whose tree is changed before it is built. */
inline std::unique_ptr<KvRefSystem::TShellGeodeticReferenceSystem>
Geodetic(TGeodeticText const& text, std::function<void(TStringTree*)> const& change = {}) {
    TStringTree tree;
    FillGeodetic(&tree, text);
    if (change) {
        change(&tree);
    }
    return std::make_unique<KvRefSystem::TShellGeodeticReferenceSystem>(&tree, nullptr);
}

/** A record that shifts heights by `metres`. */
inline KvRefSystem::TShellRefSystemTransformShiftZParams HeightShift(double metres) {
    KvRefSystem::TShellRefSystemTransformShiftZParams params;
    params.dH = metres;
    return params;
}

/** The text of what `run` throws. */
inline std::string ThrownText(std::function<void()> const& run) {
    try {
        run();
        return "nothing thrown";
    } catch (std::exception const& failure) {
        return failure.what();
    }
}

} // namespace TestSupport
