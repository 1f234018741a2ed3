// A program run for a script, which waits for its end while the host's loop
// goes on being served.
#pragma once

#include <string>

// Starts `program` with the argument vector the system builds: the path
// between double quotes, then `arguments` as one argument. While it runs,
// dispatches up to 50 waiting events of this thread's loop, then waits up to
// 100 ms, round after round; after its end dispatches the rest of the last
// round's 50 and pauses 500 ms. Its exit code; -1 when it could not be
// started; -2 when its exit code could not be read. There is no time-out.
int RunProgramAndWait(const std::string& program, const std::string& arguments);
