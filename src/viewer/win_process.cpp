#include "viewer/win_process.h"

#include "platform/process/process_table.h"
#include "platform/text/letter_case.h"

namespace {

// The first process whose path contains `upperTarget`: its id, -1 when
// none, 0 when the table of processes can't be read.
int FindProcess(const std::string& upperTarget) {
  const auto processes = fk::ListRunningProcesses();
  if (!processes) return 0;
  for (const fk::RunningProcess& process : *processes)
    if (fk::ToUpper(process.programPath).find(upperTarget) != std::string::npos) return process.pid;
  return -1;
}

}  // namespace

bool CWinProcess::IsProcessRunning(const std::string& name) {
  if (name.empty()) return false;
  return FindProcess(fk::ToUpper(name + ".exe")) > 0;
}

int CWinProcess::GetProcessIdByName(const std::string& fileName) { return FindProcess(fk::ToUpper(fileName)); }
