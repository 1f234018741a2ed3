// Exports of the workspace tools.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "platform/app/module_guard.h"
#include "workspace/workspace_editor_dlg.h"
#include "workspace/workspace_loader_dlg.h"

extern "C" int WorkspaceEditor(int32_t dispatch, const char* workspace, int32_t /*unused1*/, int32_t /*unused2*/,
                               int32_t* noEditable, int32_t* interactive, int32_t* noPrinter, int32_t* openWorkspace) {
  return fk::GuardedCall("WorkspaceEditor", 0, [&] {
    CWorkspaceEditorDlg box;
    theApp.Connect(dispatch, 1);
    box.m_strWorkspace = TextArg(workspace);
    box.m_TablePaths = ScanWorkspaceTables(box.m_strWorkspace);
    if (box.DoModal() != fk::ui::IDOK) return 0;
    if (noEditable) *noEditable = box.m_Repairs.noEditable;
    if (interactive) *interactive = box.m_Repairs.interactive;
    if (noPrinter) *noPrinter = box.m_Repairs.noPrinter;
    RewriteWorkspace(box.m_strWorkspace, box.m_TablePaths, box.m_Repairs);
    if (openWorkspace) *openWorkspace = box.m_bOpenWorkspace;
    return 1;
  });
}

// Saving a custom workspace is a placeholder: it connects and does nothing.
extern "C" int WorkspaceCustomSave(int32_t dispatch) {
  return fk::GuardedCall("WorkspaceCustomSave", 0, [&] {
    theApp.Connect(dispatch, 1);
    return 0;
  });
}

extern "C" int WorkspaceCustomLoad(int32_t dispatch, const char* workspace) {
  return fk::GuardedCall("WorkspaceCustomLoad", 0, [&] {
    CWorkspaceLoaderDlg box(TextArg(workspace));
    theApp.Connect(dispatch, 1);
    return box.DoModal() == fk::ui::IDOK ? 1 : 0;
  });
}
