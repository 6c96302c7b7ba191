#include "app/process.h"

#include <csignal>

namespace corvane {

void prepareProcess() {
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace corvane
