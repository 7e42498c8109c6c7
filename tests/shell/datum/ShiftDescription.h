#pragma once

#include "tests/shell/datum/DatumTestKit.h"

#include <string>

namespace DatumTestKit {

/** The description of a datum shift; without its type when that is 0. */
struct TShiftDescription : TStringTree {
    explicit TShiftDescription(int type, TUnit const& angular = second, TUnit const& scale = millionth,
                               TUnit const& linear = metre) {
        if (type != 0) {
            PutSubtree(this, 5443)->InsertInteger("", 5701, 0, type);
        }
        PutUnitSubtree(this, 5440, linear);
        PutUnitSubtree(this, 5441, angular);
        PutUnitSubtree(this, 5442, scale);
        // Pulkovo 1942 to WGS 84, translations in metres, rotations in seconds and scale in ppm.
        char const* const texts[] = {"23.92", "-141.27", "-80.9", "0", "-0.35", "-0.82", "-0.12"};
        int number = 5461;
        for (char const* const text : texts) {
            InsertString("", number, 0, text);
            ++number;
        }
    }
};

/** The seven numbers of a shift, in the order of `GetDatumShiftParams`. */
struct TParams {
    double value[7] = {9, 9, 9, 9, 9, 9, 9};

    template <class Shift>
    bool Get(Shift const& shift) {
        return shift.GetDatumShiftParams(value, value + 1, value + 2, value + 3, value + 4, value + 5,
                                         value + 6);
    }
};

} // namespace DatumTestKit
