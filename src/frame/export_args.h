// Marshalling of export arguments and results.
#pragma once

#include <string>
#include <utility>

#include "platform/app/module_guard.h"

// A text argument as the logic takes it: a null pointer reads as empty.
inline std::string TextArg(const char* text) { return text ? std::string(text) : std::string(); }

// Copies `text` with its terminator into a caller's buffer of no stated
// length, as the scripts expect; a null buffer takes nothing.
inline void CopyTextOut(const std::string& text, char* buffer) {
  if (!buffer) return;
  text.copy(buffer, text.size());
  buffer[text.size()] = '\0';
}

// An export that returns text: its static `slot` is emptied, then filled by
// `body` inside the module guard, and stays valid until the same export is
// called again. A failure leaves it empty.
template <typename Body>
const char* GuardedText(const char* exportName, std::string& slot, Body&& body) {
  slot.clear();
  fk::GuardedCall(exportName, 0, [&] {
    slot = std::forward<Body>(body)();
    return 0;
  });
  return slot.c_str();
}
