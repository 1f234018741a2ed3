// Exports of the file exchange that run a dialog box over the host's
// tables: each connects with the application check, then runs its box.
#include "exchange/datamine_export_dlg.h"
#include "exchange/hotlink_converter_dlg.h"
#include "exchange/minesight_export_dlg.h"
#include "exchange/ogb_import_dlg.h"
#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"

namespace {

template <typename Dialog>
int RunConnected(std::int32_t dispatch) {
  theApp.Connect(dispatch, 1);
  Dialog dialog;
  return dialog.DoModal() == fk::ui::IDOK ? 1 : 0;
}

}  // namespace

extern "C" int DatamineExport(int32_t dispatch) {
  return fk::GuardedCall("DatamineExport", 0, [&] { return RunConnected<CDatamineExportDlg>(dispatch); });
}

extern "C" int MineSightExport(int32_t dispatch) {
  return fk::GuardedCall("MineSightExport", 0, [&] { return RunConnected<CMineSightExportDlg>(dispatch); });
}

extern "C" int OGBImport(int32_t dispatch) {
  return fk::GuardedCall("OGBImport", 0, [&] { return RunConnected<COGBImportDlg>(dispatch); });
}

extern "C" int ConvertHotlinks(int32_t dispatch) {
  return fk::GuardedCall("ConvertHotlinks", 0, [&] { return RunConnected<CHotLinkConverterDlg>(dispatch); });
}
