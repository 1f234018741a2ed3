#include "platform/ui/number_field.h"

#include "platform/text/string_table.h"
#include "platform/text/user_numbers.h"

namespace fk::ui {
namespace {
constexpr unsigned IDP_PARSE_REAL = 61715;  // the framework's own "Please enter a number."
}

void ShowNumberField(DialogView& view, int id, double value) { view.SetText(id, UserNumberText(value)); }

std::optional<double> ReadNumberField(DialogView& view, Prompter& prompter, int id) {
  std::optional<double> value = ParseUserNumber(view.Text(id));
  if (!value) {
    prompter.MessageBox(LoadString(IDP_PARSE_REAL), MB_OK | MB_ICONEXCLAMATION);
    view.SetFocus(id);
  }
  return value;
}

}  // namespace fk::ui
