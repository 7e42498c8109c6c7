#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/KindsDetail.h"

namespace KvRefSystem::Kinds {

namespace {

/** One field of a description that the library writes itself. */
struct TGeneratedField {
    int tag;
    int idx;
    char const* header;
    char const* value;
};

constexpr TGeneratedField MetreFields[] = {
    {5301, 0, "code", "0"},
    {5312, 0, "type", "1"},
    {5310, 0, "f_b", "1"},
    {5311, 0, "f_c", "1"},
    {5320, 0, "name", "meter"},
    {5321, 0, "abbr", "m"},
    {5322, 0, "desc", "generated (not from Db!)"},
};

template <std::size_t Count>
bool InsertFields(TStringTree* tree, TGeneratedField const (&rows)[Count]) {
    for (TGeneratedField const& row : rows) {
        if (!tree->InsertString(row.header, row.tag, row.idx, row.value)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool FillInternal(char const* description, TReferenceSystemType type, TStringTree* tree) {
    char const digit[] = {static_cast<char>('0' + type), '\0'};
    TGeneratedField const fields[] = {
        {DescriptionTag::Name, 0, "name", "Internal"},
        {DescriptionTag::Description, 0, "desc", description},
        {DescriptionTag::Abbreviation, 0, "abbr", "Internal"},
        {DescriptionTag::Type, 0, "type", digit},
        {DescriptionTag::Orientation, 0, "swap", "0"},
        {DescriptionTag::Axis, 0, "axis", "X"},
        {DescriptionTag::Axis, 1, "axis", "Y"},
        {DescriptionTag::Axis, 2, "axis", "Z"},
    };
    return tree && InsertFields(tree, fields) &&
           tree->InsertSubtree("linear unit", DescriptionTag::LinearUnit, 0) &&
           InsertFields(tree->FindSubtree(DescriptionTag::LinearUnit, 0), MetreFields);
}

} // namespace KvRefSystem::Kinds
