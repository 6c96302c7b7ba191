// The number of a process that is no more.
#pragma once

namespace corvane {

/// Runs a process to its end; returns its number.
long goneProcess();

}  // namespace corvane
