// CWinProcess: questions about the programs that run on the machine, asked
// of a fresh instance each time.
#pragma once

#include <string>

class CWinProcess {
 public:
  virtual ~CWinProcess() = default;

  // Whether a program runs whose path, upper-cased, contains `name` + ".exe"
  // upper-cased. An empty name runs nowhere.
  bool IsProcessRunning(const std::string& name);
  // The id of the first process whose upper-cased path contains `fileName`
  // upper-cased; -1 when none does, 0 when the processes can't be listed.
  int GetProcessIdByName(const std::string& fileName);
};
