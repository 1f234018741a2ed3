// CViewerLink: the drivers of the 3D viewer's three automation objects and
// the calls the library makes on them, by dispatch id.
//
// Every call passes 0 as its invoke flags and asks for a 32-bit result.
// Texts are cut to 255 characters, the most a call carries. A list travels
// as a reference to a variant whose type word is 0x2000 alone, holding an
// array (lower bound 0) of variants or of ints. A driver that holds nothing
// makes no call and gives the wrapper's default. Failures of the viewer
// come back as DispatchException and are not caught here.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/automation/dispatch_driver.h"

class CViewerLink {
 public:
  CViewerLink() = default;
  CViewerLink(const CViewerLink&) = delete;
  CViewerLink& operator=(const CViewerLink&) = delete;
  // The drivers go in the reverse order of their making.
  ~CViewerLink() { ReleaseAll(); }

  // ---- attaching
  // The viewer object: false while already held; true only when Attach answers 1.
  bool Attach();
  void Detach();
  // The survey object, made anew whatever the driver held; true on 1.
  bool AttachSurvey();
  void DetachSurvey();
  // The dataset object bound to `dataset`; nothing while already held.
  void AttachDataset(std::int32_t dataset);
  void DetachDataset();
  // Makes the viewer object's dispatch (release ProgID, then debug) with no Attach.
  bool CreateViewerDispatch();
  void ReleaseAll();
  bool IsAttached() const { return m_ViewerInterface.IsAttached(); }

  // Starts the viewer program of `product` (null: Terravik 3D); its process
  // id, or -1, -2 or -3 when it could not be started.
  int LaunchViewer(const char* product, const void* parent);

  // ---- the viewer object
  std::int32_t GetMapWindow(bool create);
  std::int32_t OpenFiles(std::int32_t view, std::vector<std::string> files, std::int32_t kind);
  std::int32_t AddSeriesObject(std::int32_t view, std::int32_t kind, const std::string& series);
  std::int32_t AddImageObject(std::int32_t view, const std::string& file);
  // `vectorKind` false adds kind 1 instead of 2; `ints` are the nine values.
  std::int32_t AddVectorObject(bool vectorKind, std::int32_t view, const std::string& file,
                               const std::vector<std::int32_t>& ints);
  std::int32_t AddGridObject(std::int32_t view, const std::string& grid);
  std::int32_t ObjectExists(std::int32_t view, const std::string& name, std::int32_t kind);
  std::int32_t RemoveFileObject(std::int32_t view, std::int32_t kind, const std::string& file);
  std::int32_t RemoveSeriesObject(std::int32_t view, std::int32_t kind, const std::string& series, bool flag);
  std::int32_t FindSeries(std::int32_t view, std::int32_t kind, const std::string& series, std::int32_t& found);
  std::int32_t FindDataset(std::vector<std::string> files, std::int32_t kind);
  void SelectDrillholes(std::int32_t view, const std::string& series, std::int32_t dataset,
                        std::vector<std::int32_t> rows);
  void AddPointCloudSeries(std::int32_t view, const std::string& series, std::int32_t dataset,
                           std::vector<std::int32_t> rows);
  void AddLineSeries(std::int32_t view, const std::string& series, std::int32_t dataset,
                     std::vector<std::int32_t> rows);
  void SetLogFile(std::int32_t view, const std::string& file);
  void Shutdown();
  void ShowHelpTopic(const std::string& topic);
  std::int32_t ShowHelpPanel();
  void SaveSession(const std::string& file);
  void LoadSession(const std::string& file);
  std::int32_t SetParentWindow(std::int32_t window);
  // Fills the three lists (names, kinds, third values) and `count`; the call's result.
  std::int32_t ListObjects(std::int32_t view, std::int32_t& count, std::vector<std::string>& names,
                           std::vector<std::int32_t>& kinds, std::vector<std::int32_t>& thirds);
  std::int32_t SendCommand(std::int32_t command);
  std::string GetVersion();
  std::int32_t ShowAllToolbars();
  std::int32_t SelectObject(const std::string& name, std::int32_t value);
  std::int32_t SetAssociatedCoordSystem(const std::string& name, const std::string& coordSys);

  // ---- the survey object
  std::int32_t GetProjectCount();
  std::int32_t RefreshProject(std::int32_t project);
  bool IsProjectOpen(std::int32_t project);
  std::int32_t GetOpenProjectCount();

  // ---- the dataset object
  std::string GetDatasetName();

  fk::DispatchDriver m_ViewerInterface;
  fk::DispatchDriver m_SurveyInterface;
  fk::DispatchDriver m_DatasetInterface;
  fk::DispatchDriver m_UnusedInterfaces[3];  // never made; released with the rest

 private:
  std::int32_t AddObject(std::int32_t view, std::int32_t kind, std::vector<fk::Variant> list);
  void AddRows(std::int32_t dispid, std::int32_t view, const std::string& series, std::int32_t dataset,
               const std::vector<std::int32_t>& rows);
};
