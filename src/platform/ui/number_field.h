// The framework's exchange of a 64-bit float field with its edit control,
// in the user's locale: the field is shown with up to 15 significant
// digits, and a text that is not one number is refused with the
// framework's message, the focus put back on the control.
#pragma once

#include <optional>

#include "platform/ui/dialog_view.h"
#include "platform/ui/prompter.h"

namespace fk::ui {

void ShowNumberField(DialogView& view, int id, double value);
// The number in control `id`; nothing after the refusal.
std::optional<double> ReadNumberField(DialogView& view, Prompter& prompter, int id);

}  // namespace fk::ui
