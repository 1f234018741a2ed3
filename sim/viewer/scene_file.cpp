// The scene as a session file: JSON with the map window, its objects (a
// series with its rows and dataset), the datasets (a drillhole dataset with
// the rows of each file), the projects with their refreshes and the log file.
#include <fstream>
#include <nlohmann/json.hpp>

#include "platform/paths/paths.h"
#include "scene.h"

namespace tv {

using nlohmann::json;

void Scene::Save(const std::string& path) const {
  json objects = json::array();
  for (const auto& [view, list] : m_objects)
    for (const SceneObject& object : list)
      objects.push_back({{"view", view},
                         {"kind", object.kind},
                         {"name", object.name},
                         {"values", object.values},
                         {"removed", object.removedMembers},
                         {"dataset", object.dataset}});
  json datasets = json::array();
  for (const Dataset& dataset : m_datasets)
    datasets.push_back({{"id", dataset.id}, {"kind", dataset.kind}, {"files", dataset.files}, {"rows", dataset.rows}});
  json projects = json::array();
  for (const Project& project : m_projects) projects.push_back(
        {{"dataset", project.dataset}, {"open", project.open}, {"refreshes", project.refreshes}});
  const json session = {{"mapWindow", m_nMapWindow},
                        {"objects", objects},
                        {"datasets", datasets},
                        {"projects", projects},
                        {"logFile", m_strLogFile}};
  std::ofstream out(fk::Native(path));
  if (!(out << session.dump(2) << '\n')) Fail("Cannot write the session file " + path + ".");
}

void Scene::Load(const std::string& path) {
  std::ifstream in(fk::Native(path));
  if (!in) Fail("Cannot open the session file " + path + ".");
  const json session = json::parse(in, nullptr, false);
  if (session.is_discarded() || !session.is_object()) Fail("The session file " + path + " is damaged.");
  try {
    Scene loaded;
    loaded.m_nMapWindow = session.at("mapWindow").get<int>();
    for (const json& o : session.at("objects"))
      loaded.m_objects[o.at("view").get<int>()].push_back({o.at("kind").get<int>(), o.at("name").get<std::string>(),
                                                           o.at("values").get<std::vector<std::int32_t>>(),
                                                           o.at("removed").get<std::vector<std::string>>(),
                                                           o.value("dataset", -1)});
    for (const json& d : session.at("datasets"))
      loaded.m_datasets.push_back(
          {d.at("id").get<int>(), d.at("kind").get<int>(), d.at("files").get<std::vector<std::string>>(),
           d.value("rows", std::vector<long>())});
    for (const json& p : session.at("projects"))
      loaded.m_projects.push_back({p.at("dataset").get<int>(), p.at("open").get<bool>(), p.value("refreshes", 0)});
    loaded.m_strLogFile = session.at("logFile").get<std::string>();
    m_nMapWindow = loaded.m_nMapWindow;
    m_objects = std::move(loaded.m_objects);
    m_datasets = std::move(loaded.m_datasets);
    m_projects = std::move(loaded.m_projects);
    m_strLogFile = std::move(loaded.m_strLogFile);
  } catch (const json::exception&) {
    Fail("The session file " + path + " is damaged.");
  }
}

}  // namespace tv
