#pragma once

#include <Vellari/Vellari.h>

#include <string>

namespace VellariTool {

/** Where in a description something stands: a tree and the way to it from the root. */
struct TPlace {
    KvRefSystem::TStringTree const* tree;
    std::string path; ///< empty at the root

    /** @return "the description" or "subtree (1107,0) "datum"". */
    std::string Name() const;

    /** @return the place of a subtree. */
    TPlace Below(KvRefSystem::TStringTree const* child) const;

    /** @return the message that a field isn't there. */
    std::string LacksField(int tag, int idx, std::string const& meaning) const;

    /** @return the message that a subtree isn't there. */
    std::string LacksTree(int tag, std::string const& meaning) const;

    /** @return the message that a field's text is wrong. @param wanted what would be right. */
    std::string HasWrongText(int tag, int idx, std::string const& meaning, std::string const& text,
                             std::string const& wanted) const;
};

/** @return whether a unit's texts are plain numbers, not a sexagesimal notation. */
bool IsPlainUnit(KvRefSystem::TStringTree const& unit);

} // namespace VellariTool
