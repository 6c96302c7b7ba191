// The entry that libFuzzer calls with every input: a look at it as a texture, and an abort where
// something that must hold does not.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz_session.h"
#include "texture_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        corvane::playTextureSession({reinterpret_cast<const char*>(data), size});
    } catch (const corvane::BrokenPromise& error) {
        std::fprintf(stderr, "BROKEN: %s\n", error.what());
        std::abort();
    }
    return 0;
}
