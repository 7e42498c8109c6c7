#include "shell/units/BuiltInUnits.h"

#include "frame/ModuleInitializer.h"
#include "frame/NumberText.h"
#include "shell/units/UnitDetail.h"

#include <initializer_list>
#include <string>

namespace KvRefSystem {

namespace {

struct TUnitField {
    int tag;
    char const* header;
    std::string value;
};

bool InsertFields(TStringTree* tree, std::initializer_list<TUnitField> fields) {
    if (!tree) {
        return false;
    }
    for (TUnitField const& field : fields) {
        if (!tree->InsertField(field.header, field.tag, 0, field.value)) {
            return false;
        }
    }
    return true;
}

/** @return the text, empty for an unknown key, which is no failure of a unit. */
std::string Resource(char const* key) {
    return KvModule_Initializer::getInst().get_resource_string(key);
}

} // namespace

bool FillMeterTree(TStringTree* tree) {
    return InsertFields(tree, {
                                  {5301, "code", "0"},
                                  {5312, "type", "1"},
                                  {5310, "f_b", "1"},
                                  {5311, "f_c", "1"},
                                  {5320, "name", Resource("global.UNIT_NAME_METRE")},
                                  {5321, "abbr", Resource("global.UNIT_ABBR_METRE")},
                                  {5322, "desc", ""},
                                  {102002, "epsg", "9001"},
                              });
}

bool FillRadianTree(TStringTree* tree) {
    return InsertFields(tree, {
                                  {5301, "code", "0"},
                                  {5312, "type", "2"},
                                  {5310, "f_b", "1"},
                                  {5311, "f_c", "1"},
                                  {5320, "name", "p"}, // Kept: saved descriptions have it.
                                  {5321, "abbr", "p"},
                                  {5322, "desc", ""},
                              });
}

bool FillDegreeTree(TStringTree* tree) {
    return InsertFields(tree, {
                                  {5301, "code", "0"},
                                  {5312, "type", "2"},
                                  {5310, "f_b", FormatText("%.18lg", UnitDetail::Pi)},
                                  {5311, "f_c", "180"},
                                  {5320, "name", Resource("global.UNIT_NAME_DEGREE")},
                                  {5321, "abbr", Resource("global.UNIT_ABBR_DEGREE")},
                                  {5322, "desc", ""},
                                  {102003, "epsg", "9102"},
                              });
}

} // namespace KvRefSystem
