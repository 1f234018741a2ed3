// Tests of the host emulator: a fresh emulated host, a private copy of the
// sample tables, and helpers that run statements and expressions the way
// the library sends them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "sim/host/host.h"
#include "support/host/emulated_host.h"

class SimTest : public ::testing::Test {
 protected:
  void Do(const std::string& statement) { m_host.Do(statement); }
  std::string Eval(const std::string& expression) { return m_host.Eval(expression); }
  // Each expression evaluates to its answer.
  void ExpectAnswers(std::initializer_list<std::pair<std::string, std::string>> answers) {
    for (const auto& [expression, answer] : answers) EXPECT_EQ(Eval(expression), answer) << expression;
  }
  // The description of the failure of a statement; fails the test when it succeeds.
  std::string DoError(const std::string& statement) {
    try {
      m_host.Do(statement);
    } catch (const std::exception& e) {
      return e.what();
    }
    ADD_FAILURE() << "the statement succeeded: " << statement;
    return {};
  }
  // A sample table copied into the test's own folder; its .tab path.
  std::string Sample(const std::string& name) { return CopySample(m_folder, name); }
  std::string Folder() const { return m_folder.Path(); }

  ScopedFolder m_folder;
  sim::Host m_host;
};
