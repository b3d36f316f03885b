// One target for the fuzzer: FUZZ_TARGET names it.
#include "fuzz/targets.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    try {
        Fuzz::FUZZ_TARGET(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    } catch (const Fuzz::Broken& broken) {
        qFatal("%s", qPrintable(broken.what));
    }
    return 0;
}
