// Tests of the toolkit backend: libformkit-wx.so loaded as the library
// loads it, on a private X server (Xvfb) that the program starts once, and
// put in place as the current backend, so that the dialog boxes of the
// linked library run on it too. Without Xvfb the tests are skipped. A
// check of the toolkit that fails inside the backend fails the test.
#pragma once

#include <gtest/gtest.h>

#include "platform/ui/ui_backend.h"
#include "support/session_fixture.h"

// The size of the private display.
constexpr int kScreenWidth = 1024;
constexpr int kScreenHeight = 768;

class ToolkitTest : public SessionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The backend of the loaded libformkit-wx.so, started on the private display.
  static fk::ui::UiBackend& Backend();
};
