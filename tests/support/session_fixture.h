// Test fixtures: private folders, registry and application data, the host
// session of the linked library put back to its state at module load, and
// a headless backend for dialog boxes.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/ui/headless/headless_ui.h"

// A fresh folder, removed with everything in it at the end.
class ScopedFolder {
 public:
  ScopedFolder();
  ~ScopedFolder();
  const std::string& Path() const { return m_path; }
  // Writes `content` to the file `name` in the folder; returns its path.
  std::string Write(const std::string& name, const std::string& content) const;
  // Writes the shell script `script` as the program `name`; returns its path.
  std::string WriteProgram(const std::string& name, const std::string& script) const;

 private:
  std::string m_path;
};

// An environment variable set to `value` while the object lives; its value
// before comes back after.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value);
  ~ScopedVariable();
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* m_name;
  std::optional<std::string> m_previous;
};

// A fresh folder that the environment variable `variable` names while the
// object lives.
class ScopedFolderVariable : public ScopedFolder {
 public:
  explicit ScopedFolderVariable(const char* variable) : m_variable(variable, Path()) {}

 private:
  ScopedVariable m_variable;
};

// The registry in a fresh folder.
struct ScopedRegistry : ScopedFolderVariable {
  ScopedRegistry() : ScopedFolderVariable("FORMKIT_REGISTRY_DIR") {}
};

// The application data folder ($XDG_CONFIG_HOME) in a fresh folder, so that
// settings files of parallel tests don't meet.
struct ScopedAppData : ScopedFolderVariable {
  ScopedAppData() : ScopedFolderVariable("XDG_CONFIG_HOME") {}
};

// Empties g_Cartoma, its connection and the statement queue before and after
// each test, and gives each test its own registry.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  ScopedRegistry m_registry;
};

// A session test with a fresh headless backend in place, so that its dialog
// boxes, prompts and progress windows are driven and read by the test.
class HeadlessTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    fk::ui::SetCurrentUi(&m_ui);
  }
  void TearDown() override {
    fk::ui::SetCurrentUi(nullptr);
    SessionTest::TearDown();
  }
  fk::ui::HeadlessUi m_ui;
};

void ResetSession();
std::string ReadFile(const std::string& path);
// Text as the library puts it on disk: every "\n" as CR LF.
std::string OnDisk(const std::string& text);
// Runs the calling thread's main loop until `done` holds; false when it
// still doesn't after a generous number of rounds (about a minute).
bool PumpUntil(const std::function<bool()>& done);
