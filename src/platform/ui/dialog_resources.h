// The dialog templates compiled into the library (made by tools/embed_dialogs).
#pragma once

namespace fk::ui {

struct DialogResource {
  unsigned id;
  const char* xrc;
};

extern const DialogResource kDialogResources[];
extern const unsigned kDialogResourceCount;

}  // namespace fk::ui
