// libformkit.so loaded the way a host loads it, with dlopen. A fresh copy is
// a new module with its own globals: it starts from module load again, so
// tests of what happens at load, and of state that lasts for a module's
// life, each get their own.
#pragma once

#include <string>

// The export `name` of `library`, typed as the declaration in formkit.h says.
#define FORMKIT_EXPORT(library, name) (library).Export<decltype(name)>(#name)

class FormkitLibrary {
 public:
  // Loads the built library; with `freshCopy`, a private copy of it.
  explicit FormkitLibrary(bool freshCopy = true);
  ~FormkitLibrary();
  FormkitLibrary(const FormkitLibrary&) = delete;
  FormkitLibrary& operator=(const FormkitLibrary&) = delete;

  // An export by name, as a script binds it; fails the test when missing.
  template <typename Function>
  Function* Export(const char* name) const {
    return reinterpret_cast<Function*>(Symbol(name));
  }

 private:
  void* Symbol(const char* name) const;

  void* m_handle = nullptr;
  std::string m_copy;
};
