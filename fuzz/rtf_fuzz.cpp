// The RTF reader under libFuzzer: whatever the bytes are, reading ends, what comes of it is a sound
// text, and what is written of it is read and written the same again.

#include "support/fragment_description.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    if (!velmora::faultOfReading(QByteArray(data, static_cast<qsizetype>(size))).isEmpty()) {
        std::abort();
    }
    return 0;
}
