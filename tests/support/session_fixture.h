// Test fixtures: a private registry, and the host session of the linked
// library put back to its state at module load.
#pragma once

#include <gtest/gtest.h>

#include <string>

// Points the registry at a fresh folder for the life of the object.
class ScopedRegistry {
 public:
  ScopedRegistry();
  ~ScopedRegistry();
  const std::string& Folder() const { return m_folder; }

 private:
  std::string m_folder;
  std::string m_previous;
  bool m_bHadPrevious = false;
};

// A fresh folder, removed with everything in it at the end.
class ScopedFolder {
 public:
  ScopedFolder();
  ~ScopedFolder();
  const std::string& Path() const { return m_path; }
  // Writes `content` to the file `name` in the folder; returns its path.
  std::string Write(const std::string& name, const std::string& content) const;

 private:
  std::string m_path;
};

// Empties g_Cartoma, its connection and the statement queue before and after
// each test, and gives each test its own registry.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  ScopedRegistry m_registry;
};

void ResetSession();
std::string ReadFile(const std::string& path);
