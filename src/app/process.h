// What the process asks of the system, whatever its windows do.
#pragma once

namespace corvane {

/// A file that outgrows the process's limit is an error that the program tells of, not its end.
/// Called once, when the program starts.
void prepareProcess();

}  // namespace corvane
