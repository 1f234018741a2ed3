#include "viewer_objects.h"

#include <fmt/format.h>
#include <glib.h>

#include <algorithm>
#include <filesystem>

#include "call_args.h"
#include "platform/automation/safe_array.h"
#include "platform/paths/paths.h"
#include "vector_file.h"
#include "viewer_ids.h"

namespace tv {
namespace {

using fk::Variant;

fk::Variant Done(std::int32_t value = 1) { return Variant::Int(value); }

// The base of the three: records each call, then answers it.
class RecordedObject : public fk::Dispatch {
 public:
  RecordedObject(std::shared_ptr<ViewerState> state, const char* name) : m_state(std::move(state)), m_name(name) {}
  Variant Invoke(std::int32_t dispid, std::uint16_t flags, std::span<Variant> args) override {
    m_state->record.Add(m_name, dispid, flags, args);
    return Answer(dispid, args);
  }

 protected:
  virtual Variant Answer(std::int32_t dispid, std::span<Variant> args) = 0;
  [[noreturn]] void Unknown(std::int32_t dispid) const { Fail(fmt::format("{} has no member {}.", m_name, dispid)); }
  Scene& TheScene() { return m_state->scene; }
  // Opening and ending a session: nothing to do but check the call.
  static Variant NoArguments(const char* member, std::span<Variant> args) {
    CallArgs(member, args, 0);
    return Done();
  }

  std::shared_ptr<ViewerState> m_state;
  std::string m_name;
};

class ViewerObject final : public RecordedObject {
 public:
  using RecordedObject::RecordedObject;

 private:
  Variant Answer(std::int32_t dispid, std::span<Variant> args) override;
  Variant AddObject(const CallArgs& a);
  Variant ListObjects(const CallArgs& a);
  Variant AddSeries(const char* member, std::span<Variant> args, int kind);
  static gboolean QuitSoon(gpointer self);
};

Variant ViewerObject::AddObject(const CallArgs& a) {
  const int view = a.Int(0), kind = a.Int(1);
  const std::vector<Variant> list = a.List(2);
  if (list.empty()) Fail("AddObject needs a name.");
  SceneObject object{kind, list[0].ToText(), {}, {}};
  for (std::size_t i = 1; i < list.size(); ++i) object.values.push_back(list[i].ToInt());
  if ((kind >= 0 && kind <= 2) || kind == kind::kImage) RequireFile(object.name);
  if (kind == 1 || kind == 2) CountVectorFeatures(object.name);
  TheScene().AddObject(view, kind, std::move(object));
  return Done();
}

// Entry 0 is a header; then each object of the view with its kind. An
// image file is listed by its title in square brackets, followed by its
// members under their own kind.
Variant ViewerObject::ListObjects(const CallArgs& a) {
  const std::vector<SceneObject>& objects = TheScene().Objects(a.Int(0));
  fk::SafeArray names(fk::VT_VARIANT), kinds(fk::VT_I4), thirds(fk::VT_I4);
  const auto entry = [&](const std::string& name, int kind) {
    names.Append(Variant::Text(name));
    kinds.Append(Variant::Int(kind));
    thirds.Append(Variant::Int(0));
  };
  entry("3D Window", 0);
  for (const SceneObject& object : objects) {
    if (object.kind != kind::kImage) {
      entry(object.name, object.kind);
      continue;
    }
    entry("Image [" + std::filesystem::path(fk::Native(object.name)).stem().string() + "]", object.kind);
    for (const std::string& member : ImageMembers(object.name)) {
      const auto& removed = object.removedMembers;
      if (std::none_of(removed.begin(), removed.end(), [&](const std::string& r) { return SameName(r, member); }))
        entry(member, kind::kImageMember);
    }
  }
  const auto count = static_cast<std::int32_t>(names.Count());
  a.Out(1, Variant::Int(count));
  a.Out(2, Variant::Array(std::move(names)));
  a.Out(3, Variant::Array(std::move(kinds)));
  a.Out(4, Variant::Array(std::move(thirds)));
  return Done(count);
}

Variant ViewerObject::AddSeries(const char* member, std::span<Variant> args, int kind) {
  const CallArgs a(member, args, 4);
  TheScene().AddSeries(a.Int(0), {kind, a.Text(1), a.Int(2), a.IntList(3)});
  return Done();
}

gboolean ViewerObject::QuitSoon(gpointer self) {
  auto* state = static_cast<ViewerState*>(self);
  if (state->onShutdown) state->onShutdown();
  return G_SOURCE_REMOVE;
}

Variant ViewerObject::Answer(std::int32_t dispid, std::span<Variant> args) {
  Scene& scene = TheScene();
  switch (dispid) {
    case id::kAttach:
      return NoArguments("Attach", args);
    case id::kDetach:
      return NoArguments("Detach", args);
    case id::kOpenFiles: {
      const CallArgs a("OpenFiles", args, 4);
      const std::vector<std::string> files = a.TextList(1);
      scene.OpenFiles(files, a.Int(3));
      // A table file opened for a point or line series stays in the view
      // under kind 7, by its whole path.
      if (a.Int(3) == 7 && files.size() == 2) scene.AddSeries(a.Int(0), {7, files[0] + files[1], -1, {}});
      return Done();
    }
    case id::kGetMapWindow: {
      const CallArgs a("GetMapWindow", args, 2);
      a.Out(1, Variant::Int(scene.MapWindow(a.Bool(0))));
      return Done();
    }
    case id::kAddObject:
      return AddObject(CallArgs("AddObject", args, 3));
    case id::kAddObjectAlternate:
      return AddObject(CallArgs("AddObjectAlternate", args, 3));
    case id::kSelectDrillholes: {
      const CallArgs a("SelectDrillholes", args, 4);
      scene.SelectDrillholes(a.Int(0), a.Text(1), a.Int(2), a.IntList(3));
      return Done();
    }
    case id::kAddPointCloudSeries:
      return AddSeries("AddPointCloudSeries", args, 7);
    case id::kAddLineSeries:
      return AddSeries("AddLineSeries", args, 8);
    case id::kSetLogFile: {
      const CallArgs a("SetLogFile", args, 2);
      if (!a.Text(1).empty()) RequireFile(a.Text(1));  // an empty name takes the log away
      scene.m_strLogFile = a.Text(1);
      return Done();
    }
    case id::kShutdown:
      CallArgs("Shutdown", args, 0);
      g_idle_add(&ViewerObject::QuitSoon, m_state.get());
      return Done();
    case id::kObjectExists: {
      const CallArgs a("ObjectExists", args, 4);
      a.Out(3, Variant::Int(scene.ObjectExists(a.Int(0), a.Text(1), a.Int(2)) ? 1 : 0));
      return Done();
    }
    case id::kRemoveObject: {
      const CallArgs a("RemoveObject", args, 3);
      const std::vector<Variant> list = a.List(2);
      if (list.empty()) Fail("RemoveObject needs a name.");
      return Done(scene.RemoveObject(a.Int(0), a.Int(1), list[0].ToText()) ? 1 : 0);
    }
    case id::kFindObjects: {
      const CallArgs a("FindObjects", args, 4);
      std::int32_t found = 0;
      for (const std::string& name : a.TextList(2)) found += scene.ObjectExists(a.Int(0), name, a.Int(1)) ? 1 : 0;
      if (found) a.Out(3, Variant::Int(found));
      return Done();
    }
    case id::kFindDataset: {
      const CallArgs a("FindDataset", args, 3);
      a.Out(2, Variant::Int(scene.FindDataset(a.TextList(0), a.Int(1)).value_or(-1)));
      return Done();
    }
    case id::kShowHelpTopic:
      scene.m_HelpTopics.push_back(CallArgs("ShowHelpTopic", args, 1).Text(0));
      return Done();
    case id::kShowHelpPanel:
      CallArgs("ShowHelpPanel", args, 1);
      ++scene.m_nHelpPanels;
      return Done();
    case id::kSetParentWindow:
      scene.m_nParentWindow = CallArgs("SetParentWindow", args, 1).Int(0);
      return Done();
    case id::kSaveSession:
      scene.Save(CallArgs("SaveSession", args, 1).Text(0));
      return Done();
    case id::kLoadSession:
      scene.Load(CallArgs("LoadSession", args, 1).Text(0));
      return Done();
    case id::kListObjects:
      return ListObjects(CallArgs("ListObjects", args, 5));
    case id::kSendCommand:
      scene.m_Commands.push_back(CallArgs("SendCommand", args, 1).Int(0));
      return Done();
    case id::kGetVersion:
      CallArgs("GetVersion", args, 1).Out(0, Variant::Text(scene.m_strVersion));
      return Done();
    case id::kShowAllToolbars:
      CallArgs("ShowAllToolbars", args, 1);
      ++scene.m_nToolbarCalls;
      return Done();
    case id::kSelectObject: {
      const CallArgs a("SelectObject", args, 2);
      scene.m_strSelected = a.Text(0);
      return Done(0);
    }
    case id::kSetAssociatedCoordSystem: {
      const CallArgs a("SetAssociatedCoordSystem", args, 2);
      scene.m_CoordSystems[a.Text(0)] = a.Text(1);
      return Done(0);
    }
    default:
      Unknown(dispid);
  }
}

class SurveyObject final : public RecordedObject {
 public:
  using RecordedObject::RecordedObject;

 private:
  Project& ProjectAt(std::int32_t index) {
    std::vector<Project>& projects = TheScene().Projects();
    if (index < 0 || index >= static_cast<std::int32_t>(projects.size()))
      Fail(fmt::format("There is no project {}.", index));
    return projects[static_cast<std::size_t>(index)];
  }

  Variant Answer(std::int32_t dispid, std::span<Variant> args) override {
    std::vector<Project>& projects = TheScene().Projects();
    switch (dispid) {
      case id::kAttach:
        return NoArguments("Attach", args);
      case id::kDetach:
        return NoArguments("Detach", args);
      case id::kGetProjectCount:
        CallArgs("GetProjectCount", args, 1).Out(0, Variant::Int(static_cast<std::int32_t>(projects.size())));
        return Done();
      case id::kRefreshProject:
        ++ProjectAt(CallArgs("RefreshProject", args, 1).Int(0)).refreshes;
        return Done();
      case id::kIsProjectOpen:
        return Variant::Bool(ProjectAt(CallArgs("IsProjectOpen", args, 1).Int(0)).open);
      case id::kGetOpenProjectCount: {
        const auto open = std::count_if(projects.begin(), projects.end(), [](const Project& p) { return p.open; });
        CallArgs("GetOpenProjectCount", args, 1).Out(0, Variant::Int(static_cast<std::int32_t>(open)));
        return Done();
      }
      default:
        Unknown(dispid);
    }
  }
};

class DatasetObject final : public RecordedObject {
 public:
  using RecordedObject::RecordedObject;

 private:
  Variant Answer(std::int32_t dispid, std::span<Variant> args) override {
    switch (dispid) {
      case id::kAttach: {
        const std::int32_t dataset = CallArgs("Attach", args, 1).Int(0);
        if (!TheScene().DatasetById(dataset)) Fail(fmt::format("There is no dataset {}.", dataset));
        m_nDataset = dataset;
        return Done();
      }
      case id::kDetach:
        CallArgs("Detach", args, 0);
        m_nDataset = -1;
        return Done();
      case id::kGetName: {
        const CallArgs a("GetName", args, 1);
        const Dataset* dataset = TheScene().DatasetById(m_nDataset);
        if (dataset && !dataset->files.empty()) a.Out(0, Variant::Text(dataset->files.front()));
        return Done();
      }
      default:
        Unknown(dispid);
    }
  }
  std::int32_t m_nDataset = -1;  // none attached
};

}  // namespace

fk::DispatchPtr MakeViewerObject(std::shared_ptr<ViewerState> state) {
  return std::make_shared<ViewerObject>(std::move(state), kViewerName);
}
fk::DispatchPtr MakeSurveyObject(std::shared_ptr<ViewerState> state) {
  return std::make_shared<SurveyObject>(std::move(state), kSurveyName);
}
fk::DispatchPtr MakeDatasetObject(std::shared_ptr<ViewerState> state) {
  return std::make_shared<DatasetObject>(std::move(state), kDatasetName);
}

}  // namespace tv
