#include "settings/new_directory.h"

#include "platform/files/directories.h"

int CreateNewDirectoryAt(std::string directory) {
  if (directory.empty() || directory.back() != '\\') directory += '\\';
  switch (fk::CreateDirectory(directory)) {
    case fk::CreateDirectoryResult::Created:
      return 0;
    case fk::CreateDirectoryResult::AlreadyExists:
      return 1;
    case fk::CreateDirectoryResult::Failed:
      break;
  }
  return -1;
}
