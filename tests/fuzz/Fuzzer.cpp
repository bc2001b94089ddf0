// The entry of one fuzzer; FUZZ_TARGET says which.

#include "fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::FUZZ_TARGET(data, size);
    return 0;
}
