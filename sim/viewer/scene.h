// What the simulated viewer holds: its 3D views and their objects by kind
// and name, the datasets of the files it opened and the series made on
// them, the survey projects, and what it was told (log file, parent window,
// help, commands). Names compare ignoring case, as the viewer's do. A file
// it is given must exist; otherwise the call fails as the viewer's would.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tv {

struct SceneObject {
  int kind = 0;
  std::string name;                         // the file, or the series' name
  std::vector<std::int32_t> values;         // the integers that came with it
  std::vector<std::string> removedMembers;  // of an image file: members taken out of the view
  int dataset = -1;                         // of a drillhole or trench series: the dataset it shows
};

struct Dataset {
  int id = 0;
  int kind = 0;  // the dataset type: 5 for drillhole files, 4 for a table file
  std::vector<std::string> files;
  std::vector<long> rows;  // of a drillhole dataset: the rows of each table file
};

struct Series {
  int kind = 0;
  std::string name;
  int dataset = -1;
  std::vector<std::int32_t> rows;  // -1 alone stands for every row
};

struct Project {
  int dataset = 0;
  bool open = true;
  int refreshes = 0;
};

class Scene {
 public:
  // The 3D map window: made on first demand when `create`; -1 when none.
  int MapWindow(bool create);

  void AddObject(int view, int kind, SceneObject object);
  bool ObjectExists(int view, const std::string& name, int kind) const;
  // Removes an object; for a member of an image file, takes it out of the view.
  bool RemoveObject(int view, int kind, const std::string& name);
  const std::vector<SceneObject>& Objects(int view) const;

  // Opens table files as one dataset (and a project); its id. Files opened
  // as drillhole series (kind 4) make a drillhole dataset (type 5), whose
  // tables are read for their rows; a table file opened as a point series
  // (kind 7) a table dataset (type 4).
  int OpenFiles(const std::vector<std::string>& files, int kind);
  std::optional<int> FindDataset(const std::vector<std::string>& files, int type) const;
  const Dataset* DatasetById(int id) const;
  void AddSeries(int view, Series series);
  // Restricts the drillhole or trench series `name` to `rows` of its
  // dataset's collar table (the first file), counted from 0.
  void SelectDrillholes(int view, const std::string& name, int dataset, const std::vector<std::int32_t>& rows);

  std::vector<Project>& Projects() { return m_projects; }

  // The scene as a session file (JSON), and back; a file that can't be
  // written or read fails the call.
  void Save(const std::string& path) const;
  void Load(const std::string& path);

  std::string m_strVersion = "3.2.0.1";
  std::string m_strLogFile;
  std::int32_t m_nParentWindow = 0;
  std::vector<std::string> m_HelpTopics;
  int m_nHelpPanels = 0;
  int m_nToolbarCalls = 0;
  std::vector<std::int32_t> m_Commands;
  std::map<std::string, std::string> m_CoordSystems;
  std::string m_strSelected;

 private:
  void CheckView(int view) const;

  int m_nMapWindow = -1;
  std::map<int, std::vector<SceneObject>> m_objects;
  std::vector<Dataset> m_datasets;
  std::vector<Project> m_projects;
};

// Fails the call as the viewer does, with this description.
[[noreturn]] void Fail(const std::string& description);
// Whether `path` names a file the viewer could open.
void RequireFile(const std::string& path);
bool SameName(const std::string& a, const std::string& b);
// The members of an OGB image file as the viewer lists them: the title of
// each image it names, blanks written as "_".
std::vector<std::string> ImageMembers(const std::string& ogbFile);

}  // namespace tv
