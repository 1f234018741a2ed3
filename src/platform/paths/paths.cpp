#include "platform/paths/paths.h"

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include <cctype>
#include <cstdlib>
#include <map>
#include <mutex>
#include <vector>

namespace fk {
namespace {

std::mutex g_driveMutex;
std::map<char, std::string> g_driveTable;

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

bool Exists(const std::string& path) {
  struct stat st;
  return lstat(path.c_str(), &st) == 0;
}

// The entry of `folder` whose name equals `name` ignoring case; the first in
// name order when several do, so the answer doesn't depend on the listing.
std::string FindIgnoringCase(const std::string& folder, const std::string& name) {
  DIR* dir = opendir(folder.empty() ? "." : folder.c_str());
  if (!dir) return {};
  std::string best;
  while (const dirent* entry = readdir(dir)) {
    if (strcasecmp(entry->d_name, name.c_str()) == 0 && (best.empty() || best > entry->d_name)) best = entry->d_name;
  }
  closedir(dir);
  return best;
}

std::vector<std::string> Components(std::string_view path) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (start < path.size()) {
    std::size_t end = path.find('/', start);
    if (end == std::string_view::npos) end = path.size();
    if (end > start) parts.emplace_back(path.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

// Resolves each component of a slash path against the file system.
std::string ResolveCase(const std::string& path) {
  const bool absolute = !path.empty() && path[0] == '/';
  const bool trailing = path.size() > 1 && path.back() == '/';
  std::string resolved = absolute ? "/" : "";
  bool searching = true;
  for (const std::string& part : Components(path)) {
    std::string name = part;
    if (searching && part != "." && part != ".." && !Exists(resolved + part)) {
      name = FindIgnoringCase(resolved, part);
      if (name.empty()) {
        name = part;
        searching = false;  // nothing below a missing folder can exist
      }
    }
    resolved += name;
    resolved += '/';
  }
  if (!trailing && resolved.size() > 1) resolved.pop_back();
  if (resolved.empty()) resolved = path;
  return resolved;
}

}  // namespace

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

PathParts SplitPath(std::string_view path) {
  PathParts parts;
  if (HasDrive(path)) {
    parts.drive = std::string(path.substr(0, 2));
    path.remove_prefix(2);
  }
  const std::size_t lastSeparator = path.find_last_of("/\\");
  if (lastSeparator != std::string_view::npos) {
    parts.dir = std::string(path.substr(0, lastSeparator + 1));
    path.remove_prefix(lastSeparator + 1);
  }
  const std::size_t dot = path.rfind('.');
  if (dot != std::string_view::npos) {
    parts.ext = std::string(path.substr(dot));
    path = path.substr(0, dot);
  }
  parts.fname = std::string(path);
  return parts;
}

std::string MakePath(std::string_view drive, std::string_view dir, std::string_view fname, std::string_view ext) {
  std::string path;
  if (!drive.empty()) {
    path += drive.substr(0, 1);
    path += ':';
  }
  if (!dir.empty()) path = AddTrailingSeparator(path + std::string(dir));
  path += fname;
  if (!ext.empty()) {
    if (ext[0] != '.') path += '.';
    path += ext;
  }
  return path;
}

std::string AddTrailingSeparator(std::string path) {
  if (!path.empty() && !IsSeparator(path.back())) path += '/';
  return path;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  while (!name.empty() && IsSeparator(name.front())) name.remove_prefix(1);
  return AddTrailingSeparator(std::string(folder)) + std::string(name);
}

void SetDriveRoot(char letter, std::string root) {
  std::lock_guard lock(g_driveMutex);
  g_driveTable[static_cast<char>(std::toupper(static_cast<unsigned char>(letter)))] = std::move(root);
}

namespace {

// The drive's own entry: the table's, else the environment's; empty when none.
std::string DriveEntry(char letter) {
  const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  {
    std::lock_guard lock(g_driveMutex);
    if (auto it = g_driveTable.find(upper); it != g_driveTable.end()) return it->second;
  }
  const std::string variable = std::string("FORMKIT_DRIVE_") + upper;
  if (const char* root = std::getenv(variable.c_str()); root && *root) return root;
  return {};
}

}  // namespace

std::string DriveRoot(char letter) {
  std::string root = DriveEntry(letter);
  return root.empty() ? "/" : root;
}

bool IsDriveMapped(char letter) { return !DriveEntry(letter).empty(); }

std::string Native(std::string_view path) {
  std::string slashed;
  if (HasDrive(path)) {
    slashed = AddTrailingSeparator(DriveRoot(path[0]));
    path.remove_prefix(2);
    while (!path.empty() && IsSeparator(path.front())) path.remove_prefix(1);
  }
  for (char c : path) slashed += c == '\\' ? '/' : c;
  if (slashed.empty()) return slashed;
  return ResolveCase(slashed);
}

}  // namespace fk
