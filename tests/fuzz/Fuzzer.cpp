// The entry point of a fuzzer, whose target is FUZZ_TARGET.

#include "fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::FUZZ_TARGET(data, size);
    return 0;
}
