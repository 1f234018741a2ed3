#include "support/formkit_library.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

FormkitLibrary::FormkitLibrary(bool freshCopy) {
  std::string path = FORMKIT_LIBRARY_PATH;
  if (freshCopy) {
    std::string pattern = (std::filesystem::temp_directory_path() / "formkit-copy-XXXXXX").string();
    const int fd = mkstemp(pattern.data());
    if (fd < 0) throw std::runtime_error("no temporary file for a library copy");
    close(fd);
    m_copy = pattern;
    std::filesystem::copy_file(path, m_copy, std::filesystem::copy_options::overwrite_existing);
    path = m_copy;
  }
  m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!m_handle) throw std::runtime_error(std::string("dlopen failed: ") + dlerror());
}

FormkitLibrary::~FormkitLibrary() {
  // The copy stays loaded: its globals may still be referenced by objects a
  // test registered. Only the file goes.
  if (!m_copy.empty()) std::filesystem::remove(m_copy);
}

void* FormkitLibrary::Symbol(const char* name) const {
  void* symbol = dlsym(m_handle, name);
  if (!symbol) ADD_FAILURE() << "libformkit.so has no symbol " << name;
  return symbol;
}
