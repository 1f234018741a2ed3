#include "platform/ui/wx/template_library.h"

#include <wx/dialog.h>
#include <wx/mstream.h>
#include <wx/panel.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xmlres.h>

#include <stdexcept>
#include <string>


namespace fk::ui {
namespace {

std::runtime_error Unreadable(unsigned id, const std::string& what) {
  return std::runtime_error("dialog template " + std::to_string(id) + ": " + what);
}

wxXmlNode* TopObject(wxXmlDocument& document) {
  wxXmlNode* root = document.GetRoot();
  for (wxXmlNode* node = root ? root->GetChildren() : nullptr; node; node = node->GetNext())
    if (node->GetType() == wxXML_ELEMENT_NODE && node->GetName() == "object") return node;
  return nullptr;
}

// A page is the dialog's contents on a panel: the top object becomes a
// panel, without what only a dialog box has.
void MakePage(wxXmlNode& top) {
  top.DeleteAttribute("class");
  top.AddAttribute("class", "wxPanel");
  for (wxXmlNode* node = top.GetChildren(); node;) {
    wxXmlNode* next = node->GetNext();
    const wxString name = node->GetName();
    if (node->GetType() == wxXML_ELEMENT_NODE && (name == "title" || name == "style" || name == "centered")) {
      top.RemoveChild(node);
      delete node;
    }
    node = next;
  }
}

std::unique_ptr<wxXmlResource> NewResources() {
  auto resources = std::make_unique<wxXmlResource>(wxXRC_NO_SUBCLASSING | wxXRC_NO_RELOADING);
  resources->InitAllHandlers();
  return resources;
}

}  // namespace

TemplateLibrary::TemplateLibrary() : m_dialogs(NewResources()), m_pages(NewResources()) {}

TemplateLibrary::~TemplateLibrary() = default;

void TemplateLibrary::Read(wxXmlResource& resources, std::set<unsigned>& read, const DialogTemplate& dialogTemplate,
                           bool asPage) {
  if (read.count(dialogTemplate.id)) return;
  wxMemoryInputStream text(dialogTemplate.xrc.data(), dialogTemplate.xrc.size());
  auto document = std::make_unique<wxXmlDocument>();
  if (!document->Load(text, "UTF-8")) throw Unreadable(dialogTemplate.id, "not well-formed XML");
  wxXmlNode* top = TopObject(*document);
  if (!top || top->GetAttribute("name") != wxString::Format("%u", dialogTemplate.id))
    throw Unreadable(dialogTemplate.id, "no top object named after the template");
  if (asPage) MakePage(*top);
  if (!resources.LoadDocument(document.release(), wxString::Format("template-%u", dialogTemplate.id)))
    throw Unreadable(dialogTemplate.id, "not a resource document");
  read.insert(dialogTemplate.id);
}

void TemplateLibrary::LoadDialog(wxDialog& window, wxWindow* parent, const DialogTemplate& dialogTemplate) {
  Read(*m_dialogs, m_readDialogs, dialogTemplate, false);
  if (!m_dialogs->LoadDialog(&window, parent, wxString::Format("%u", dialogTemplate.id)))
    throw Unreadable(dialogTemplate.id, "no dialog box in it");
}

wxPanel* TemplateLibrary::LoadPage(wxWindow* parent, const DialogTemplate& dialogTemplate) {
  Read(*m_pages, m_readPages, dialogTemplate, true);
  wxPanel* page = m_pages->LoadPanel(parent, wxString::Format("%u", dialogTemplate.id));
  if (!page) throw Unreadable(dialogTemplate.id, "no page in it");
  return page;
}

}  // namespace fk::ui
