#include "frame/ModuleInitializer.h"
#include "tests/fuzz/targets/Targets.h"

#include <cstddef>
#include <cstdint>

/** Entry points of libFuzzer; `VELLARI_FUZZ_TARGET` names the target. */
extern "C" {

int LLVMFuzzerInitialize(int*, char***) {
    Init_Vellari();
    return 0;
}

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Fuzz::TTarget const* const target = Fuzz::FindTarget(VELLARI_FUZZ_TARGET);
    target->run({reinterpret_cast<char const*>(data), size});
    return 0;
}
}
