#include "support/session_fixture.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "host/cartoma.h"
#include "platform/loop/loop.h"

namespace {
std::string MakeTempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "formkit-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  return pattern;
}
}  // namespace

ScopedFolder::ScopedFolder() : m_path(MakeTempFolder()) {}

ScopedFolder::~ScopedFolder() {
  std::error_code ec;
  std::filesystem::remove_all(m_path, ec);
}

std::string ScopedFolder::Write(const std::string& name, const std::string& content) const {
  const std::filesystem::path path = std::filesystem::path(m_path) / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path.string();
}

std::string ScopedFolder::WriteProgram(const std::string& name, const std::string& script) const {
  const std::string path = Write(name, "#!/bin/sh\n" + script);
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  return path;
}

ScopedVariable::ScopedVariable(const char* name, const std::string& value) : m_name(name) {
  if (const char* previous = std::getenv(name)) m_previous = previous;
  setenv(name, value.c_str(), 1);
}

ScopedVariable::~ScopedVariable() {
  if (m_previous)
    setenv(m_name, m_previous->c_str(), 1);
  else
    unsetenv(m_name);
}

void ResetSession() {
  g_CartomaDriver.ReleaseDispatch();
  g_Cartoma.m_ScriptApp.ReleaseDispatch();
  g_Cartoma.m_ScriptGlobals.ReleaseDispatch();
  g_Cartoma.m_strLastError.clear();
  g_Cartoma.m_nProductVariant = 0;
  g_Cartoma.m_bTerravikScript = 1;
  g_Cartoma.m_bEvalCacheOn = 0;
  g_Cartoma.m_nEvalCacheCount = 0;
  std::memset(g_Cartoma.m_EvalCache, 0, sizeof g_Cartoma.m_EvalCache);
  g_strCartomaLastError.clear();
  g_bDeferStatements = 0;
  g_DeferredStatements.clear();
  g_DeferredKeys.clear();
}

void SessionTest::SetUp() { ResetSession(); }
void SessionTest::TearDown() { ResetSession(); }

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream content;
  content << in.rdbuf();
  return content.str();
}

std::string OnDisk(const std::string& text) {
  std::string crlf;
  for (char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return crlf;
}

bool PumpUntil(const std::function<bool()>& done) {
  for (int round = 0; round < 60000 && !done(); ++round)
    if (fk::PumpMessages(50) == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return done();
}
