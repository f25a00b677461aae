// The program of one fuzzer: SSQ_FUZZ_TARGET is the name of its function.
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::SSQ_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
