// The entry that libFuzzer calls: a session with every input, and an abort where something that
// must hold does not.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "fuzz_session.h"

namespace {

// A folder in memory, where that is to be had: files are what a session costs most.
std::string makeFolder() {
    const char* const chosen = std::getenv("TMPDIR");
    std::string pattern = "/tmp";
    if (chosen != nullptr) {
        pattern = chosen;
    } else if (::access("/dev/shm", W_OK) == 0) {
        pattern = "/dev/shm";
    }
    pattern += "/corvane-fuzz-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) {
        std::perror(pattern.c_str());
        std::abort();
    }
    return pattern;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string folder = makeFolder();
    try {
        corvane::playFuzzSession(folder, {reinterpret_cast<const char*>(data), size});
    } catch (const corvane::BrokenPromise& error) {
        std::fprintf(stderr, "BROKEN: %s\n", error.what());
        std::abort();
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return 0;
}
