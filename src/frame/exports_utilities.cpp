// Exports of the file and process utilities.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "platform/app/module_guard.h"
#include "settings/directory_copy.h"
#include "settings/new_directory.h"
#include "settings/program_run.h"

extern "C" int CopyDirectory(const char* source, const char* target) {
  return fk::GuardedCall("CopyDirectory", 0, [&] { return CopyDirectoryTree(TextArg(source), TextArg(target)); });
}

extern "C" int CreateNewDirectory(const char* directory) {
  return fk::GuardedCall("CreateNewDirectory", -1, [&] { return CreateNewDirectoryAt(TextArg(directory)); });
}

extern "C" int RunProgramAndWaitForExit(const char* program, const char* arguments) {
  return fk::GuardedCall("RunProgramAndWaitForExit", -1,
                         [&] { return RunProgramAndWait(TextArg(program), TextArg(arguments)); });
}
