#include "viewer/viewer_link.h"

#include "platform/automation/safe_array.h"
#include "viewer/viewer_dispids.h"

using fk::SafeArray;
using fk::Variant;

namespace {

// The most a text argument carries: the call copies it into 256 bytes.
constexpr std::size_t kMaxTextArgument = 255;

Variant Text(const std::string& text) { return Variant::Text(text.substr(0, kMaxTextArgument)); }

// A list argument: a variant of type word 0x2000 alone holding the array,
// passed by reference. It lives for the length of the call.
struct ListArgument {
  explicit ListArgument(SafeArray array) : holder(Variant::Array(std::move(array), fk::VT_ARRAY)) {}
  Variant Ref() { return Variant::RefVariant(&holder); }
  Variant holder;
};

ListArgument TextList(const std::vector<std::string>& texts) {
  std::vector<Variant> elements;
  for (const std::string& text : texts) elements.push_back(Text(text));
  return ListArgument(SafeArray::OfVariants(std::move(elements)));
}

std::int32_t Call(fk::DispatchDriver& driver, std::int32_t dispid, std::vector<Variant> args = {}) {
  return driver.Invoke(dispid, 0, std::move(args)).ToInt();
}

// Makes the driver's object from the release ProgID, else the debug one.
bool CreateEither(fk::DispatchDriver& driver, const char* release, const char* debug) {
  return driver.CreateDispatch(release) || driver.CreateDispatch(debug);
}

void DetachDriver(fk::DispatchDriver& driver) {
  if (!driver.IsAttached()) return;
  Call(driver, DISPID_TV_DETACH);
  driver.ReleaseDispatch();
}

std::string TextOut(fk::DispatchDriver& driver, std::int32_t dispid) {
  if (!driver.IsAttached()) return {};
  Variant text = Variant::Text({});
  driver.Invoke(dispid, 0, {Variant::RefVariant(&text)});
  return text.IsEmpty() ? std::string() : text.ToText();
}

}  // namespace

// ------------------------------------------------------------------ attaching

bool CViewerLink::CreateViewerDispatch() { return CreateEither(m_ViewerInterface, kViewerProgId, kViewerDebugProgId); }

bool CViewerLink::Attach() {
  if (m_ViewerInterface.IsAttached()) return false;
  CreateViewerDispatch();
  if (!m_ViewerInterface.IsAttached()) return false;
  return Call(m_ViewerInterface, DISPID_TV_ATTACH) == 1;
}

void CViewerLink::Detach() { DetachDriver(m_ViewerInterface); }

bool CViewerLink::AttachSurvey() {
  CreateEither(m_SurveyInterface, kSurveyProgId, kSurveyDebugProgId);
  if (!m_SurveyInterface.IsAttached()) return false;
  return Call(m_SurveyInterface, DISPID_TV_ATTACH) == 1;
}

void CViewerLink::DetachSurvey() { DetachDriver(m_SurveyInterface); }

void CViewerLink::AttachDataset(std::int32_t dataset) {
  if (m_DatasetInterface.IsAttached()) return;
  CreateEither(m_DatasetInterface, kDatasetProgId, kDatasetDebugProgId);
  if (m_DatasetInterface.IsAttached()) Call(m_DatasetInterface, DISPID_TV_ATTACH, {Variant::Int(dataset)});
}

void CViewerLink::DetachDataset() { DetachDriver(m_DatasetInterface); }

void CViewerLink::ReleaseAll() {
  for (int i = 2; i >= 0; --i) m_UnusedInterfaces[i].ReleaseDispatch();
  m_DatasetInterface.ReleaseDispatch();
  m_SurveyInterface.ReleaseDispatch();
  m_ViewerInterface.ReleaseDispatch();
}

// ------------------------------------------------------------------ the viewer object

std::int32_t CViewerLink::GetMapWindow(bool create) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  std::int32_t view = -1;
  m_ViewerInterface.Invoke(DISPID_TV_GETMAPWINDOW, 0, {Variant::Bool(create), Variant::RefInt(&view)});
  return view;
}

std::int32_t CViewerLink::OpenFiles(std::int32_t view, std::vector<std::string> files, std::int32_t kind) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  if (files.empty()) return 0;
  ListArgument list = TextList(files);
  return Call(m_ViewerInterface, DISPID_TV_OPENFILES,
              {Variant::Int(view), list.Ref(), Variant::Int(0), Variant::Int(kind)});
}

std::int32_t CViewerLink::AddObject(std::int32_t view, std::int32_t kind, std::vector<Variant> elements) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  ListArgument list(SafeArray::OfVariants(std::move(elements)));
  return Call(m_ViewerInterface, DISPID_TV_ADDOBJECT, {Variant::Int(view), Variant::Int(kind), list.Ref()});
}

std::int32_t CViewerLink::AddSeriesObject(std::int32_t view, std::int32_t kind, const std::string& series) {
  return AddObject(view, kind, {Text(series)});
}

std::int32_t CViewerLink::AddImageObject(std::int32_t view, const std::string& file) {
  // The last value is an application field that starts at 0 and is never changed.
  return AddObject(view, OBJECT_IMAGE, {Text(file), Variant::Int(1), Variant::Int(0xFFFFFF), Variant::Int(0)});
}

std::int32_t CViewerLink::AddVectorObject(bool vectorKind, std::int32_t view, const std::string& file,
                                          const std::vector<std::int32_t>& ints) {
  std::vector<Variant> elements{Text(file)};
  for (std::int32_t value : ints) elements.push_back(Variant::Int(value));
  return AddObject(view, vectorKind ? OBJECT_VECTOR_FILE : OBJECT_FILE, std::move(elements));
}

std::int32_t CViewerLink::AddGridObject(std::int32_t view, const std::string& grid) {
  return AddObject(view, OBJECT_GRID, {Text(grid)});
}

std::int32_t CViewerLink::ObjectExists(std::int32_t view, const std::string& name, std::int32_t kind) {
  if (!m_ViewerInterface.IsAttached()) return 0;
  std::int32_t exists = 0;
  m_ViewerInterface.Invoke(DISPID_TV_OBJECTEXISTS, 0,
                           {Variant::Int(view), Text(name), Variant::Int(kind), Variant::RefInt(&exists)});
  return exists;
}

std::int32_t CViewerLink::RemoveFileObject(std::int32_t view, std::int32_t kind, const std::string& file) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  ListArgument list(SafeArray::OfVariants({Text(file)}));
  return Call(m_ViewerInterface, DISPID_TV_REMOVEOBJECT, {Variant::Int(view), Variant::Int(kind), list.Ref()});
}

std::int32_t CViewerLink::RemoveSeriesObject(std::int32_t view, std::int32_t kind, const std::string& series,
                                             bool flag) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  ListArgument list(SafeArray::OfVariants({Text(series), Variant::Bool(flag)}));
  return Call(m_ViewerInterface, DISPID_TV_REMOVEOBJECT, {Variant::Int(view), Variant::Int(kind), list.Ref()});
}

std::int32_t CViewerLink::FindSeries(std::int32_t view, std::int32_t kind, const std::string& series,
                                     std::int32_t& found) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  ListArgument list = TextList({series});
  return Call(m_ViewerInterface, DISPID_TV_FINDOBJECTS,
              {Variant::Int(view), Variant::Int(kind), list.Ref(), Variant::RefInt(&found)});
}

std::int32_t CViewerLink::FindDataset(std::vector<std::string> files, std::int32_t kind) {
  std::int32_t dataset = -1;
  if (!m_ViewerInterface.IsAttached() || files.empty()) return dataset;
  ListArgument list = TextList(files);
  m_ViewerInterface.Invoke(DISPID_TV_FINDDATASET, 0, {list.Ref(), Variant::Int(kind), Variant::RefInt(&dataset)});
  return dataset;
}

void CViewerLink::AddRows(std::int32_t dispid, std::int32_t view, const std::string& series, std::int32_t dataset,
                          const std::vector<std::int32_t>& rows) {
  if (!m_ViewerInterface.IsAttached() || rows.empty()) return;
  ListArgument list(SafeArray::OfInts(rows));
  Call(m_ViewerInterface, dispid, {Variant::Int(view), Text(series), Variant::Int(dataset), list.Ref()});
}

void CViewerLink::SelectDrillholes(std::int32_t view, const std::string& series, std::int32_t dataset,
                                   std::vector<std::int32_t> rows) {
  AddRows(DISPID_TV_SELECTDRILLHOLES, view, series, dataset, rows);
}

void CViewerLink::AddPointCloudSeries(std::int32_t view, const std::string& series, std::int32_t dataset,
                                      std::vector<std::int32_t> rows) {
  AddRows(DISPID_TV_ADDPOINTCLOUDSERIES, view, series, dataset, rows);
}

void CViewerLink::AddLineSeries(std::int32_t view, const std::string& series, std::int32_t dataset,
                                std::vector<std::int32_t> rows) {
  AddRows(DISPID_TV_ADDLINESERIES, view, series, dataset, rows);
}

void CViewerLink::SetLogFile(std::int32_t view, const std::string& file) {
  if (m_ViewerInterface.IsAttached()) Call(m_ViewerInterface, DISPID_TV_SETLOGFILE, {Variant::Int(view), Text(file)});
}

void CViewerLink::Shutdown() {
  if (m_ViewerInterface.IsAttached()) Call(m_ViewerInterface, DISPID_TV_SHUTDOWN);
}

void CViewerLink::ShowHelpTopic(const std::string& topic) {
  if (m_ViewerInterface.IsAttached()) Call(m_ViewerInterface, DISPID_TV_SHOWHELPTOPIC, {Text(topic)});
}

std::int32_t CViewerLink::ShowHelpPanel() {
  if (!m_ViewerInterface.IsAttached()) return 0;
  return Call(m_ViewerInterface, DISPID_TV_SHOWHELPPANEL, {Variant::Int(1)});
}

void CViewerLink::SaveSession(const std::string& file) {
  if (m_ViewerInterface.IsAttached()) Call(m_ViewerInterface, DISPID_TV_SAVESESSION, {Text(file)});
}

void CViewerLink::LoadSession(const std::string& file) {
  if (m_ViewerInterface.IsAttached()) Call(m_ViewerInterface, DISPID_TV_LOADSESSION, {Text(file)});
}

std::int32_t CViewerLink::SetParentWindow(std::int32_t window) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  return Call(m_ViewerInterface, DISPID_TV_SETPARENTWINDOW, {Variant::Int(window)});
}

std::int32_t CViewerLink::ListObjects(std::int32_t view, std::int32_t& count, std::vector<std::string>& names,
                                      std::vector<std::int32_t>& kinds, std::vector<std::int32_t>& thirds) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  Variant lists[3] = {Variant::Array(SafeArray(fk::VT_VARIANT)), Variant::Array(SafeArray(fk::VT_I4)),
                      Variant::Array(SafeArray(fk::VT_I4))};
  std::int32_t written = count;
  const std::int32_t result = Call(m_ViewerInterface, DISPID_TV_LISTOBJECTS,
                                   {Variant::Int(view), Variant::RefInt(&written), Variant::RefVariant(&lists[0]),
                                    Variant::RefVariant(&lists[1]), Variant::RefVariant(&lists[2])});
  names.clear();
  kinds.clear();
  thirds.clear();
  if (lists[0].Type() & fk::VT_ARRAY) {
    const SafeArray& first = lists[0].ToArray();
    if (first.UpperBound() >= first.LowerBound()) {
      // Counted wide: an array whose upper bound is the largest int ends the loop.
      for (std::int64_t wide = first.LowerBound(); wide <= first.UpperBound(); ++wide) {
        const auto i = static_cast<std::int32_t>(wide);
        names.push_back(first.At(i).ToText());
        kinds.push_back(lists[1].ToArray().At(i).ToInt());
        thirds.push_back(lists[2].ToArray().At(i).ToInt());
      }
    }
  }
  count = written;
  return result;
}

std::int32_t CViewerLink::SendCommand(std::int32_t command) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  return Call(m_ViewerInterface, DISPID_TV_SENDCOMMAND, {Variant::Int(command)});
}

std::string CViewerLink::GetVersion() { return TextOut(m_ViewerInterface, DISPID_TV_GETVERSION); }

std::int32_t CViewerLink::ShowAllToolbars() {
  if (!m_ViewerInterface.IsAttached()) return -1;
  return Call(m_ViewerInterface, DISPID_TV_SHOWALLTOOLBARS, {Variant::Int(1)});
}

std::int32_t CViewerLink::SelectObject(const std::string& name, std::int32_t value) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  return Call(m_ViewerInterface, DISPID_TV_SELECTOBJECT, {Text(name), Variant::Int(value)});
}

std::int32_t CViewerLink::SetAssociatedCoordSystem(const std::string& name, const std::string& coordSys) {
  if (!m_ViewerInterface.IsAttached()) return -1;
  return Call(m_ViewerInterface, DISPID_TV_SETASSOCIATEDCOORDSYSTEM, {Text(name), Text(coordSys)});
}

// ------------------------------------------------------------------ the survey object

std::int32_t CViewerLink::GetProjectCount() {
  std::int32_t count = 0;
  if (m_SurveyInterface.IsAttached())
    m_SurveyInterface.Invoke(DISPID_TVS_GETPROJECTCOUNT, 0, {Variant::RefInt(&count)});
  return count;
}

std::int32_t CViewerLink::RefreshProject(std::int32_t project) {
  if (!m_SurveyInterface.IsAttached()) return -1;
  return Call(m_SurveyInterface, DISPID_TVS_REFRESHPROJECT, {Variant::Int(project)});
}

bool CViewerLink::IsProjectOpen(std::int32_t project) {
  if (!m_SurveyInterface.IsAttached()) return false;
  return m_SurveyInterface.Invoke(DISPID_TVS_ISPROJECTOPEN, 0, {Variant::Int(project)}).ToBool();
}

std::int32_t CViewerLink::GetOpenProjectCount() {
  std::int32_t count = 0;
  if (m_SurveyInterface.IsAttached())
    m_SurveyInterface.Invoke(DISPID_TVS_GETOPENPROJECTCOUNT, 0, {Variant::RefInt(&count)});
  return count;
}

// ------------------------------------------------------------------ the dataset object

std::string CViewerLink::GetDatasetName() { return TextOut(m_DatasetInterface, DISPID_TVD_GETNAME); }
