#pragma once

#include "model/numbers.h"

namespace corvane {

/// How the user's locale writes numbers.
UserNumberFormat userNumberFormat();

}  // namespace corvane
