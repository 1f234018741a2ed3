#include "exchange/progress_step.h"

#include "platform/text/string_table.h"

namespace {
constexpr unsigned IDS_OPERATION_ABORTED = 2053;
}  // namespace

bool CancelledAtStep(CProgressWnd& progress, std::string& message) {
  progress.StepIt();
  progress.PeekAndPump(true);
  if (!progress.Cancelled()) return false;
  message = fk::LoadString(IDS_OPERATION_ABORTED);
  return true;
}
