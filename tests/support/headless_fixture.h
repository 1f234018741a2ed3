// Puts a fresh headless backend in place for a test, so that its dialog
// boxes, prompts and progress windows are driven and read by the test.
#pragma once

#include "platform/ui/headless/headless_ui.h"
#include "support/session_fixture.h"

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
