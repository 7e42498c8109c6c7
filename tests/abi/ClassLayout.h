#pragma once

#include "tests/abi/LibraryTypes.h"
#include "tests/abi/StatedTable.h"

#include <string>
#include <vector>

namespace Abi {

/** Where the members of a class lie by the rules of the Itanium C++ ABI on x86-64; bytes. */
struct TClassLayout {
    std::vector<std::size_t> offsets; ///< of its own members
    std::size_t dataSize = 0;         ///< without the padding at the end, which a derived class fills
    std::size_t size = 0;
    std::size_t alignment = 1;
    bool isPolymorphic = false;
};

/** Lays out stated classes; what isn't stated has the size that the library has for it. */
class TLayoutRules {
public:
    TLayoutRules(TStatedTable const& stated, TLibraryTypes const& library);

    /** @throws std::runtime_error for a member of a type that neither is stated nor in the library. */
    TClassLayout Of(TStatedClass const& stated) const;

    /** @return the stated class of that name, or null. */
    TStatedClass const* Find(std::string const& name) const;

private:
    struct TExtent {
        std::size_t size = 0;
        std::size_t alignment = 1;
    };

    TExtent Extent(std::string const& type) const;

    TStatedTable const& Stated;
    TLibraryTypes const& Library;
};

} // namespace Abi
