#pragma once

#include "base/numbers.h"

namespace corvane {

/// How the user's locale writes numbers.
UserNumberFormat userNumberFormat();

}  // namespace corvane
