// The viewer's three automation objects over one scene. Each records every
// call before it answers it; a call the viewer refuses fails with a
// description, as the viewer's own failures do.
#pragma once

#include <functional>
#include <memory>

#include "call_record.h"
#include "platform/automation/dispatch.h"
#include "scene.h"

namespace tv {

struct ViewerState {
  Scene scene;
  CallRecord record;
  std::function<void()> onShutdown;  // called once Shutdown has been answered
};

fk::DispatchPtr MakeViewerObject(std::shared_ptr<ViewerState> state);
fk::DispatchPtr MakeSurveyObject(std::shared_ptr<ViewerState> state);
fk::DispatchPtr MakeDatasetObject(std::shared_ptr<ViewerState> state);

}  // namespace tv
