// The processes that run on the machine, as the system's process queries
// see them: an id and the program file of each.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace fk {

struct RunningProcess {
  int pid = 0;
  // The program's full path: the file /proc/<pid>/exe links to, else the
  // first word of its command line; empty when neither can be read.
  std::string programPath;
};

// Every process, in ascending id order; nothing when the table of processes
// can't be read at all.
std::optional<std::vector<RunningProcess>> ListRunningProcesses();

}  // namespace fk
