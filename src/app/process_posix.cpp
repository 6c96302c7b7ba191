#include <csignal>

#include "app/process.h"

namespace corvane {

// A file that outgrows the process's limit.
void prepareProcess() { std::signal(SIGXFSZ, SIG_IGN); }

char** systemArguments(int& /*argc*/, char** argv) { return argv; }

void preparePrinting() {}

}  // namespace corvane
