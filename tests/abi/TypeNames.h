#pragma once

#include <string>
#include <string_view>
#include <vector>

/** The binary interface: what hosts were compiled against, and what the library has. */
namespace Abi {

/**
 * One spelling for each type, whoever writes it: without namespaces and default template arguments, `string`
 * for the standard string, `const` behind what it belongs to. What has one layout is one type: `T*` stands
 * for `unique_ptr<T>` and `unique_ptr<T[]>` too, `T[3]` for `array<T, 3>`.
 * @throws std::runtime_error for other text.
 */
std::string TypeName(std::string_view spelling);

/** A function as a row or a declaration gives it. */
struct TSignature {
    std::string result; ///< empty where it isn't said
    std::string name;
    std::vector<std::string> parameters;
    bool isConst = false;
};

/** @return `text` without blanks at its ends. */
std::string_view Trim(std::string_view text);

/** Reads `[result] name(parameters) [const]`. @throws std::runtime_error for another form. */
TSignature ReadSignature(std::string_view text);

/** @return the signature as people write it; the result is left out where it isn't said. */
std::string ToString(TSignature const& signature);

/** @return true if both are the same function for a caller; a result that isn't said agrees with any. */
bool Agree(TSignature const& stated, TSignature const& found);

} // namespace Abi
