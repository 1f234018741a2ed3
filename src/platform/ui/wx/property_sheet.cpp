#include "platform/ui/wx/property_sheet.h"

#include <wx/bookctrl.h>
#include <wx/panel.h>
#include <wx/propdlg.h>

#include <memory>
#include <stdexcept>

#include "platform/ui/wx/controller_calls.h"
#include "platform/ui/wx/dialog_events.h"
#include "platform/ui/wx/template_library.h"
#include "platform/ui/wx/wx_dialog_view.h"
#include "platform/ui/wx/wx_text.h"

namespace fk::ui {
namespace {

struct SheetPage {
  DialogController* controller = nullptr;
  std::unique_ptr<WxDialogView> view;
  std::unique_ptr<DialogEvents> events;
};

class PropertySheetRun {
 public:
  PropertySheetRun(wxWindow* parent, const std::string& title)
      : m_sheet(parent, wxID_ANY, ToWx(title)), m_calls([this] { End(IDCANCEL); }) {}

  void AddPage(TemplateLibrary& templates, Prompter& prompter, DialogController& controller,
               const DialogTemplate& pageTemplate) {
    wxBookCtrlBase* book = m_sheet.GetBookCtrl();
    wxPanel* panel = templates.LoadPage(book, pageTemplate);
    book->AddPage(panel, ToWx(pageTemplate.title));
    SheetPage& page = m_pages.emplace_back();
    page.controller = &controller;
    page.view = std::make_unique<WxDialogView>(*panel, pageTemplate, [this](int result) {
      if (!m_bAskingPages) End(result);
    });
    page.events = std::make_unique<DialogEvents>(*panel, controller, *page.view, m_calls);
    controller.Attach(page.view.get(), &prompter);
    controller.OnInitDialog();
  }

  wxWindow& Window() { return m_sheet; }

  int Run() {
    m_sheet.CreateButtons(wxOK | wxCANCEL);
    m_sheet.LayoutDialog();
    m_sheet.Bind(wxEVT_BUTTON, &PropertySheetRun::OnButton, this);
    m_sheet.Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
      if (event.CanVeto()) event.Veto();
      AskPages(IDCANCEL);
    });
    m_sheet.Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
      if (event.GetKeyCode() != WXK_ESCAPE) return event.Skip();
      AskPages(IDCANCEL);
    });
    m_sheet.CentreOnParent();
    const int result = m_sheet.ShowModal();
    m_calls.RethrowAny();
    return result;
  }

 private:
  void End(int result) {
    if (m_sheet.IsModal()) m_sheet.EndModal(result);
  }

  void OnButton(wxCommandEvent& event) {
    if (event.GetId() == wxID_OK)
      AskPages(IDOK);
    else if (event.GetId() == wxID_CANCEL)
      AskPages(IDCANCEL);
    else
      event.Skip();
  }

  void AskPages(int command) {
    m_bAskingPages = true;
    for (std::size_t i = 0; i < m_pages.size() && !m_calls.Failed(); ++i) {
      m_pages[i].view->ClearResult();
      m_calls.Run([&] { m_pages[i].controller->OnCommand(command); });
      if (!m_pages[i].view->Result() && !m_calls.Failed()) {
        m_sheet.GetBookCtrl()->SetSelection(i);
        m_bAskingPages = false;
        return;
      }
    }
    m_bAskingPages = false;
    End(command);
  }

  wxPropertySheetDialog m_sheet;
  ControllerCalls m_calls;
  std::vector<SheetPage> m_pages;
  bool m_bAskingPages = false;
};

}  // namespace

int RunPropertySheetDialog(TemplateLibrary& templates, Prompter& prompter, RunningDialogs& running,
                           const std::string& title, const std::vector<DialogController*>& pages,
                           const std::vector<const DialogTemplate*>& pageTemplates) {
  if (pages.size() != pageTemplates.size()) throw std::logic_error("a property sheet page without its template");
  PropertySheetRun sheet(running.Innermost(), title);
  RunningDialogs::Scope innermost(running, sheet.Window());
  for (std::size_t i = 0; i < pages.size(); ++i) sheet.AddPage(templates, prompter, *pages[i], *pageTemplates[i]);
  return sheet.Run();
}

}  // namespace fk::ui
