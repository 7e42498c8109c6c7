#pragma once

#include "tests/abi/TypeNames.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Abi {

/** A data member as it lies in the library; bytes from the start of its class. */
struct TFoundMember {
    std::string type;
    std::string name;
    std::size_t offset = 0;
};

/** A virtual function that a class declares. */
struct TFoundVirtual {
    TSignature signature;
    std::size_t slot = 0;
};

struct TFoundBase {
    std::string name;
    std::size_t offset = 0;
    bool isVirtual = false;
};

struct TFoundClass {
    std::size_t size = 0;
    std::vector<TFoundBase> bases;
    std::vector<TFoundMember> members;
    std::vector<TFoundVirtual>
        virtuals; ///< without the destructor, whose slots the debug information doesn't tell
    bool hasVirtualDestructor = false;
    std::optional<std::size_t> slotCount; ///< of its virtual table, where the library exports it
};

struct TFoundEnumeration {
    std::size_t underlyingSize = 0; ///< bytes
    std::map<std::string, long> values;
};

/** The classes and enumerations of a library, by their names as `TypeName` spells them. */
struct TLibraryTypes {
    std::map<std::string, TFoundClass> classes;
    std::map<std::string, TFoundEnumeration> enumerations;
};

/** Reads what `abidw` wrote of a library. @throws std::runtime_error for a text that isn't that. */
TLibraryTypes ReadLibraryTypes(std::string_view xml);

} // namespace Abi
