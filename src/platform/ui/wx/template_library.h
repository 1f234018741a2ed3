// The dialog templates as the toolkit loads them: each template's XRC text
// (given by the library with the template) is read once, and its window
// made from it on demand: a dialog box, or a panel for a property sheet's
// page.
#pragma once

#include <memory>
#include <set>

#include "platform/ui/dialog_template.h"

class wxDialog;
class wxPanel;
class wxWindow;
class wxXmlResource;

namespace fk::ui {

class TemplateLibrary {
 public:
  TemplateLibrary();
  ~TemplateLibrary();
  TemplateLibrary(const TemplateLibrary&) = delete;
  TemplateLibrary& operator=(const TemplateLibrary&) = delete;

  // Creates `window` as the template's dialog box over `parent`; throws
  // std::runtime_error when the template can't be read.
  void LoadDialog(wxDialog& window, wxWindow* parent, const DialogTemplate& dialogTemplate);
  // The template's controls on a new panel, child of `parent`.
  wxPanel* LoadPage(wxWindow* parent, const DialogTemplate& dialogTemplate);

 private:
  void Read(wxXmlResource& resources, std::set<unsigned>& read, const DialogTemplate& dialogTemplate, bool asPage);

  std::unique_ptr<wxXmlResource> m_dialogs;
  std::unique_ptr<wxXmlResource> m_pages;
  std::set<unsigned> m_readDialogs;
  std::set<unsigned> m_readPages;
};

}  // namespace fk::ui
