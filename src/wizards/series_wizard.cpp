#include "wizards/series_wizard.h"

#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_failure.h"
#include "viewer/viewer_process.h"
#include "wizards/drillhole_wiz_dlg.h"
#include "wizards/hole_list.h"
#include "wizards/table_subsets.h"

namespace {

constexpr const char* kCollarIdKey = "\\Terravik\\xsects\\collar\\CH";

// What the viewer is given: the series' name, the files and the rows.
struct SeriesRequest {
  std::string series;
  std::string questionName;  // named in the refresh question
  ProjectFiles files;
  std::vector<std::int32_t> rows;
};

std::string WithoutTabExtension(std::string table) {
  for (std::size_t at; (at = table.find(".tab")) != std::string::npos;) table.erase(at, 4);
  return table;
}

std::vector<std::string> FileList(const ProjectFiles& files) {
  std::vector<std::string> list;
  if (!files.collar.empty()) list.push_back(files.collar);
  if (!files.survey.empty()) list.push_back(files.survey);
  list.insert(list.end(), files.data.begin(), files.data.end());
  return list;
}

// The projects of the series reloaded: the one the wizard's memory names
// for it, else every open project.
void RefreshProjects(CViewerLink& viewer, std::int32_t dataset) {
  if (dataset >= 0) {
    if (viewer.IsProjectOpen(dataset)) viewer.RefreshProject(dataset);
    return;
  }
  if (viewer.GetOpenProjectCount() <= 0) return;
  const std::int32_t count = viewer.GetProjectCount();
  for (std::int32_t project = 0; project < count; ++project)
    if (viewer.IsProjectOpen(project)) viewer.RefreshProject(project);
}

// The series open already, the answer Yes: it is taken out, as a
// drillhole series whatever the wizard, and its projects are reloaded.
void RefreshSeries(CViewerLink& viewer, const SeriesWizardKind& kind, std::int32_t view, const std::string& series) {
  viewer.RemoveSeriesObject(view, OBJECT_DRILLHOLE_SERIES, series, true);
  const std::int32_t dataset = kind.memory().DatasetOf(series);
  if (viewer.AttachSurvey()) RefreshProjects(viewer, dataset);
  viewer.DetachSurvey();
}

// Opens the files as a drillhole dataset and makes the series over it,
// restricted to the rows; the series is remembered with its dataset.
int AddSeries(CViewerLink& viewer, const SeriesWizardKind& kind, std::int32_t view, const SeriesRequest& request) {
  const std::vector<std::string> files = FileList(request.files);
  if (viewer.OpenFiles(view, files, OBJECT_DRILLHOLE_SERIES) != 1) return 0;
  viewer.AddSeriesObject(view, kind.seriesKind, request.series);
  const std::int32_t dataset = viewer.FindDataset(files, OBJECT_FILE_DATASET);
  viewer.SelectDrillholes(view, request.series, dataset, request.rows);
  kind.memory().Add(request.series, dataset);
  return 1;
}

int ShowSeries(ViewerSession session, const SeriesWizardKind& kind, const SeriesRequest& request) {
  CViewerLink& viewer = session.viewer;
  if (EnsureViewerRunning(viewer, session.nViewerProcessID, true) < 1) return 0;
  if (!viewer.Attach()) return 0;
  const std::int32_t view = viewer.GetMapWindow(true);
  std::int32_t found = 0;
  viewer.FindSeries(view, kind.seriesKind, request.series, found);
  // Yes refreshes; on either answer the series is added again.
  if (found != 0 &&
      fk::ui::CurrentUi().GetPrompter().MessageBox(fk::FormatString(kind.refreshQuestion, {request.questionName}),
                                                   fk::ui::MB_YESNO) == fk::ui::IDYES)
    RefreshSeries(viewer, kind, view, request.series);
  int result = 0;
  if (view >= 0) {
    try {
      result = AddSeries(viewer, kind, view, request);
    } catch (const fk::Exception& failure) {
      ReportViewerFailure(failure, kind.failureText);
      result = 0;
    }
  }
  viewer.Detach();
  return result;
}

std::vector<std::int32_t> RowList(const std::vector<std::intptr_t>& rows) { return {rows.begin(), rows.end()}; }

}  // namespace

int RunSeriesWizard(ViewerSession session, const std::string& tempDirectory, const SeriesWizardKind& kind,
                    const SeriesWizardArgs& args) {
  CDrillholeWizDlg dialog;
  dialog.m_bTrench = kind.trench;
  SeriesRequest request{{}, {}, {args.collarFile, args.surveyFile, args.dataFiles}, {}};
  const std::string collarTable = WithoutTabExtension(args.collarTable);
  dialog.m_strGroupText = fk::LoadString(kind.groupTitle);
  dialog.m_strTitle = fk::LoadString(kind.caption);
  const std::string idColumn = IdColumnOf(collarTable, kCollarIdKey);
  ReadHoles(dialog, collarTable, idColumn);
  request.questionName = collarTable;
  if (args.showDialog) {
    if (kind.dialogSuffixText) dialog.m_strSuffix = fk::LoadString(kind.dialogSuffixText);
    if (dialog.DoModal() != fk::ui::IDOK) return 0;
    request.series = dialog.m_strSuffix;
    if (dialog.m_bSubset) {
      const auto folder = SubsetFolder(dialog.m_bSavePermanently, args.startFolder, tempDirectory);
      if (!folder) return 0;
      MakeSubsetTables(kind, dialog, collarTable, idColumn, *folder, request.files);
      request.questionName += dialog.m_strSuffix;
    }
  }
  request.rows = RowList(dialog.m_SelectedData);
  return ShowSeries(session, kind, request);
}
