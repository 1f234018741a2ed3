#include "scene.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

#include "platform/automation/exceptions.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/trim.h"
#include "vector_file.h"
#include "viewer_ids.h"

namespace tv {

void Fail(const std::string& description) { throw fk::DispatchException(description); }

bool SameName(const std::string& a, const std::string& b) { return fk::EqualsNoCase(a, b); }

void RequireFile(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(fk::Native(path), error)) Fail("Cannot open the file " + path + ".");
}

std::vector<std::string> ImageMembers(const std::string& ogbFile) {
  std::ifstream in(fk::Native(ogbFile));
  std::vector<std::string> members;
  for (std::string line; std::getline(in, line);) {
    const std::string upper = fk::ToUpper(line);
    const std::size_t key = upper.find("IMAGE =");
    if (key == std::string::npos || (key > 0 && !std::isspace(static_cast<unsigned char>(upper[key - 1])))) continue;
    std::string value = line.substr(line.find('=', key) + 1);
    std::erase(value, '"');
    value = fk::TrimCharacters(value, " \t\r\n");
    std::string title =
        value.substr(value.find_last_of("/\\") == std::string::npos ? 0 : value.find_last_of("/\\") + 1);
    title = title.substr(0, title.rfind('.'));
    std::replace(title.begin(), title.end(), ' ', '_');
    members.push_back(title);
  }
  return members;
}

int Scene::MapWindow(bool create) {
  if (m_nMapWindow < 0 && create) m_nMapWindow = 1;
  return m_nMapWindow;
}

void Scene::CheckView(int view) const {
  if (view < 0 || view != m_nMapWindow) Fail("There is no 3D window " + std::to_string(view) + ".");
}

void Scene::AddObject(int view, int kind, SceneObject object) {
  CheckView(view);
  object.kind = kind;
  m_objects[view].push_back(std::move(object));
}

bool Scene::ObjectExists(int view, const std::string& name, int kind) const {
  CheckView(view);
  for (const SceneObject& object : Objects(view))
    if (object.kind == kind && SameName(object.name, name)) return true;
  return false;
}

namespace {

bool RemoveMember(std::vector<SceneObject>& objects, const std::string& member) {
  for (SceneObject& object : objects) {
    if (object.kind != kind::kImage) continue;
    const std::vector<std::string> members = ImageMembers(object.name);
    if (std::none_of(members.begin(), members.end(), [&](const std::string& m) { return SameName(m, member); }))
      continue;
    object.removedMembers.push_back(member);
    return true;
  }
  return false;
}

}  // namespace

bool Scene::RemoveObject(int view, int kind, const std::string& name) {
  CheckView(view);
  std::vector<SceneObject>& objects = m_objects[view];
  if (kind == kind::kImageMember) return RemoveMember(objects, name);
  const auto it = std::find_if(objects.begin(), objects.end(),
                               [&](const SceneObject& o) { return o.kind == kind && SameName(o.name, name); });
  if (it == objects.end()) return false;
  objects.erase(it);
  return true;
}

const std::vector<SceneObject>& Scene::Objects(int view) const {
  static const std::vector<SceneObject> kNone;
  const auto it = m_objects.find(view);
  return it == m_objects.end() ? kNone : it->second;
}

int Scene::OpenFiles(const std::vector<std::string>& files, int kind) {
  // A table file comes split: its folder first, then its name.
  const bool split = !files.empty() && std::filesystem::is_directory(fk::Native(files.front()));
  for (std::size_t i = split ? 1 : 0; i < files.size(); ++i) RequireFile(split ? files.front() + files[i] : files[i]);
  const int type = kind == 4 ? 5 : kind == 7 ? 4 : kind;
  if (const std::optional<int> known = FindDataset(files, type)) return *known;
  // Datasets count from 0, and each is the project of the same number.
  const int id = static_cast<int>(m_datasets.size());
  std::vector<long> rows;
  if (type == 5)
    for (const std::string& file : files) rows.push_back(CountTableRows(file));
  m_datasets.push_back({id, type, files, rows});
  m_projects.push_back({id, true, 0});
  return id;
}

std::optional<int> Scene::FindDataset(const std::vector<std::string>& files, int type) const {
  for (const Dataset& dataset : m_datasets) {
    if (dataset.kind != type || dataset.files.size() != files.size()) continue;
    if (std::equal(files.begin(), files.end(), dataset.files.begin(), SameName)) return dataset.id;
  }
  return std::nullopt;
}

const Dataset* Scene::DatasetById(int id) const {
  return id >= 0 && id < static_cast<int>(m_datasets.size()) ? &m_datasets[static_cast<std::size_t>(id)] : nullptr;
}

void Scene::AddSeries(int view, Series series) {
  CheckView(view);
  if (series.dataset >= 0 && !DatasetById(series.dataset))
    Fail("There is no dataset " + std::to_string(series.dataset) + ".");
  // The rows go to the series object of that name when the view has one.
  std::vector<SceneObject>& objects = m_objects[view];
  for (SceneObject& object : objects) {
    if (object.kind == series.kind && object.name == series.name) {
      object.values = series.rows;
      return;
    }
  }
  objects.push_back({series.kind, series.name, series.rows, {}, series.dataset});
}

void Scene::SelectDrillholes(int view, const std::string& name, int dataset, const std::vector<std::int32_t>& rows) {
  CheckView(view);
  const Dataset* holes = DatasetById(dataset);
  if (!holes || holes->kind != 5) Fail("There is no drillhole dataset " + std::to_string(dataset) + ".");
  for (std::int32_t row : rows)
    if (row < 0 || row >= holes->rows.front()) Fail("The collar table has no row " + std::to_string(row) + ".");
  for (SceneObject& object : m_objects[view]) {
    if ((object.kind == kind::kDrillholeSeries || object.kind == kind::kTrenchSeries) && object.name == name) {
      object.values = rows;
      object.dataset = dataset;
      return;
    }
  }
  Fail("There is no drillhole or trench series '" + name + "'.");
}

}  // namespace tv
