#pragma once

#include "tests/abi/LibraryTypes.h"
#include "tests/abi/StatedTable.h"

#include <string>
#include <vector>

namespace Abi {

/** Compares what hosts were compiled against with what the library has. */
class TStatedComparison {
public:
    /** Both are kept by reference and outlive the comparison; `stated` holds every base that a row names. */
    TStatedComparison(TStatedTable const& stated, TLibraryTypes const& library);

    /** @return one line for each difference: the class, its row, what is stated and what the library has. */
    std::vector<std::string> Differences(TStatedClass const& stated) const;
    std::vector<std::string> Differences(TStatedEnumeration const& stated) const;

private:
    TStatedTable const& Stated;
    TLibraryTypes const& Library;
};

} // namespace Abi
