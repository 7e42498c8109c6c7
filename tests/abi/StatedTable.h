#pragma once

#include "tests/abi/TypeNames.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Abi {

/** A data member: its type as `TypeName` spells it, and its name. */
struct TStatedMember {
    std::string type;
    std::string name;
};

/** A virtual function in its slot; without a signature the destructor, which fills two slots. */
using TStatedSlot = std::optional<TSignature>;

/** A class or a record as hosts know it. */
struct TStatedClass {
    std::string name;
    std::string base; ///< empty without one
    std::string
        via; ///< template between the class and its base that adds nothing to either; empty without one
    std::vector<TStatedSlot> slots;   ///< those that the class adds to its base's
    std::vector<TSignature> virtuals; ///< of an open class: virtual functions whose slots aren't stated
    std::vector<TStatedMember> members;
    std::string ownMembers;          ///< why more members follow; empty if none may
    std::string destructorMayFollow; ///< why a destructor may stand after the slots; empty if none may
    std::string open;  ///< why only the virtual functions by their names are stated; empty if all is
    std::string where; ///< file and line
};

/** An enumeration over `int`. */
struct TStatedEnumeration {
    struct TValue {
        std::string name;
        long value = 0;
    };
    std::string name;
    std::vector<TValue> values;
    std::string where; ///< file and line
};

/**
 * A table of `tests/abi/stated/`. A block begins with one of
 *
 *     class NAME                  a class or a record; virtual only where a row says so
 *     class NAME : BASE           derived from BASE, which lies at its start
 *     class NAME : BASE via T     the same, with an instance of the template T between them that adds nothing
 *     enum NAME                   an enumeration over int
 *
 * and has rows of these forms, `#` beginning a comment. Members that no host uses by name have the headers'
 * names; a comment then tells what is stated where the name doesn't.
 *
 *     slot SIGNATURE              the next slot of its virtual table
 *     slot destructor             the next two: a virtual destructor
 *     destructor may follow: WHY  two more at the end, if the library's destructor is virtual
 *     member TYPE NAME            the next data member
 *     own members: WHY            the library's own follow
 *     open: WHY                   neither slots nor members are stated, only
 *     virtual SIGNATURE           functions that are virtual, wherever they stand
 *     value NUMBER NAME           an enumerator
 */
struct TStatedTable {
    std::vector<TStatedClass> classes;
    std::vector<TStatedEnumeration> enumerations;
};

/** Reads a table. @throws std::runtime_error with `file:line` for a row that isn't understood. */
TStatedTable ReadStatedTable(std::string_view text, std::string const& file);

} // namespace Abi
