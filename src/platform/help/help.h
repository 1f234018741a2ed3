// Starting the help program with its parameters, as the system asks the
// shell to. The help program "hh.exe" is run when it is on the PATH;
// otherwise the program named by FORMKIT_HELP, given the topic number and
// the help file (a Linux path) from the parameters "-mapid <topic>
// ms-its:<file>", or none when the parameters are empty. Without either,
// the start fails.
#pragma once

#include <string>

namespace fk {

// Above 32 when the program started, as the shell answers; 2 (file not found)
// or another small number when it could not.
int ShellExecuteHelp(const std::string& program, const std::string& parameters, const std::string& directory);

}  // namespace fk
