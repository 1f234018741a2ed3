// The workspace readers on any bytes, under the sanitizers: the bytes after
// the first are a workspace file; the first byte picks the rewrite's
// repairs and which tables it drops. The scan, the rewrite and the loader's
// statement assembly read inside their pieces whatever the file holds; the
// rewrite leaves one line fewer for each dropped table at most, never a
// longer file than the repairs can explain, and no temporary file behind;
// the assembly reaches the end of the file.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "workspace/statement_reader.h"
#include "workspace/workspace_text.h"

namespace {

using fuzz::Require;

// In memory where there is such a folder: the rewrite syncs its file.
const std::string& Folder() {
  static const std::string folder = fuzz::ScratchFolder("workspace");
  return folder;
}

void AssembleToTheEnd(const std::string& path, std::size_t size) {
  WorkspaceStatementReader reader;
  Require(reader.Open(path));
  // Each statement takes at least one piece; the first call only looks ahead.
  for (std::size_t calls = 0; reader.Next() != WORKSPACE_END; ++calls) Require(calls <= size + 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t choice = data[0];
  const std::string path = Folder() + "/w.wor";
  fuzz::WriteFile(path, data + 1, size - 1);

  std::vector<std::string> paths = ScanWorkspaceTables(path);
  for (std::size_t i = 0; i < paths.size(); ++i)
    if ((choice >> (3 + i % 5)) & 1) paths[i].clear();
  const WorkspaceRepairs repairs{(choice & 1) != 0, (choice & 2) != 0, (choice & 4) != 0};
  Require(RewriteWorkspace(path, paths, repairs) == 1);
  Require(!std::filesystem::exists(WorkspaceTemporaryPath(path)));
  // The repairs add at most " Interactive", "editable off" grows a word by
  // four, and the text gains a CR for each line end.
  const std::uintmax_t written = std::filesystem::file_size(path);
  Require(written <= 2 * (size - 1) + 16 * (paths.size() + 1) + 4 * size);

  fuzz::WriteFile(path, data + 1, size - 1);
  AssembleToTheEnd(path, size);
  return 0;
}
