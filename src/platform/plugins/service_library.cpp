#include "platform/plugins/service_library.h"

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>

namespace fk {
namespace {

std::string ThisModuleFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<const void*>(&ThisModuleFolder), &info) == 0 || !info.dli_fname) return {};
  return std::filesystem::path(info.dli_fname).parent_path().string();
}

void* LoadEntry(const char* library, const char* entry) {
  const std::string folder = ThisModuleFolder();
  void* handle = folder.empty() ? nullptr : dlopen((folder + "/" + library).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  void* found = handle ? dlsym(handle, entry) : nullptr;
  if (!found) {
    const char* reason = dlerror();
    std::fprintf(stderr, "formkit: the service %s can't be loaded: %s\n", library, reason ? reason : entry);
  }
  return found;
}

}  // namespace

void* ServiceEntry(const char* library, const char* entry) {
  static std::mutex mutex;
  static std::map<std::string, void*> loaded;
  const std::lock_guard<std::mutex> lock(mutex);
  const std::string key = std::string(library) + ":" + entry;
  auto found = loaded.find(key);
  if (found == loaded.end()) found = loaded.emplace(key, LoadEntry(library, entry)).first;
  return found->second;
}

}  // namespace fk
