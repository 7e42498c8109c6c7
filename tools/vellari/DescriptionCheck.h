#pragma once

#include "tools/vellari/DescriptionPlace.h"
#include "tools/vellari/SystemLoader.h"

#include <Vellari/Vellari.h>

#include <optional>
#include <span>
#include <string>

namespace VellariTool {

/** What a description must hold at one place. */
enum TRequirementForm : int {
    rfText = 0,          ///< a field with any text, maybe empty
    rfWhole = 1,         ///< a field with a whole number
    rfNumber = 2,        ///< a field with a number
    rfNumberOrEmpty = 3, ///< a field with a number or with nothing, which counts as 0
    rfFactor = 4,        ///< a field with a number that isn't 0
    rfShiftForm = 5,     ///< a field with 1, 2 or 3; with another form there is no shift at all
    rfTree = 6,          ///< a subtree that meets requirements of its own
    rfTreeOrHere = 7,    ///< the same, or its fields stand directly here
    rfProjection = 8,    ///< a field with the number of a projection
    rfSign = 9,          ///< a field with 1 or -1
};

/** One row: what a tree must hold. Rows of a kind are in the order in which they are looked for. */
struct TRequirement {
    int tag;
    TRequirementForm form;
    char const* meaning;
    TSystemUse use = suShow; ///< `suTransform`: the system builds without it and can't be used
    std::span<TRequirement const> inside = {};
    bool (*applies)(KvRefSystem::TStringTree const& tree) = nullptr; ///< null: always
    int idx = 0;
    std::optional<std::string> (*more)(TPlace const& subtree) = nullptr; ///< looked for after `inside`
};

/** @return what a description of that kind must hold; empty for a kind without a table. */
std::span<TRequirement const> RequirementsOf(int kind);

/** @return a message that follows the file's name, when a text can't be a description at all. */
std::optional<std::string> FindTextMistake(std::string_view text);

/** @return a message that follows the file's name, about the first thing that is missing or wrong. */
std::optional<std::string> FindDescriptionMistake(KvRefSystem::TStringTree const& tree, TSystemUse use);

/** @return the number of the first line whose indentation has blanks. */
std::optional<int> FindLineIndentedWithBlanks(std::string_view text);

} // namespace VellariTool
