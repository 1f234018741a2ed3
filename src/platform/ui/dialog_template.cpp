#include "platform/ui/dialog_template.h"

#include <glib.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <vector>

#include "platform/ui/dialog_resources.h"

namespace fk::ui {
namespace {

// Reads what the library needs of a template: the dialog's title, and each
// object whose name is a control number, with its class and label.
struct TemplateReader {
  DialogTemplate* result = nullptr;
  std::vector<int> objects;       // control number of each open object, -1 for none
  std::string element;            // the element whose text comes next
  bool topLevel = true;

  static int ControlNumber(const char* name) {
    if (!name || !*name || std::strspn(name, "0123456789") != std::strlen(name) || std::strlen(name) > 9) return -1;
    return std::atoi(name);
  }

  static void Start(GMarkupParseContext*, const gchar* element, const gchar** names, const gchar** values,
                    gpointer self, GError**) {
    auto* reader = static_cast<TemplateReader*>(self);
    reader->element = element;
    if (std::strcmp(element, "object") != 0) return;
    const char* kind = "";
    const char* name = nullptr;
    for (int i = 0; names[i]; ++i) {
      if (std::strcmp(names[i], "class") == 0) kind = values[i];
      if (std::strcmp(names[i], "name") == 0) name = values[i];
    }
    int number = ControlNumber(name);
    if (reader->topLevel) {
      reader->topLevel = false;
      number = -2;  // the dialog itself
    }
    if (number >= 0) reader->result->controls[number].kind = kind;
    reader->objects.push_back(number);
  }

  static void End(GMarkupParseContext*, const gchar* element, gpointer self, GError**) {
    auto* reader = static_cast<TemplateReader*>(self);
    if (std::strcmp(element, "object") == 0 && !reader->objects.empty()) reader->objects.pop_back();
    reader->element.clear();
  }

  static void Text(GMarkupParseContext*, const gchar* text, gsize length, gpointer self, GError**) {
    auto* reader = static_cast<TemplateReader*>(self);
    if (reader->objects.empty()) return;
    const int owner = reader->objects.back();
    if (owner == -2 && reader->element == "title") reader->result->title.assign(text, length);
    if (owner >= 0 && reader->element == "label") reader->result->controls[owner].label.assign(text, length);
    if (owner >= 0 && reader->element == "style" && std::string_view(text, length).find("_SORT") != std::string_view::npos)
      reader->result->controls[owner].sorted = true;
  }
};

}  // namespace

DialogTemplate ReadDialogTemplate(unsigned id, const char* xrc) {
  DialogTemplate result;
  result.id = id;
  result.xrc = xrc;
  TemplateReader reader;
  reader.result = &result;
  const GMarkupParser parser = {TemplateReader::Start, TemplateReader::End, TemplateReader::Text, nullptr, nullptr};
  std::unique_ptr<GMarkupParseContext, void (*)(GMarkupParseContext*)> context(
      g_markup_parse_context_new(&parser, G_MARKUP_TREAT_CDATA_AS_TEXT, &reader, nullptr),
      g_markup_parse_context_free);
  GError* error = nullptr;
  if (!g_markup_parse_context_parse(context.get(), xrc, -1, &error) ||
      !g_markup_parse_context_end_parse(context.get(), &error)) {
    const std::string message = error ? error->message : "unreadable";
    g_clear_error(&error);
    throw std::runtime_error("dialog template " + std::to_string(id) + ": " + message);
  }
  return result;
}

const DialogTemplate& GetDialogTemplate(unsigned id) {
  static std::mutex mutex;
  static std::map<unsigned, DialogTemplate> templates;
  std::lock_guard lock(mutex);
  if (auto it = templates.find(id); it != templates.end()) return it->second;
  for (unsigned i = 0; i < kDialogResourceCount; ++i)
    if (kDialogResources[i].id == id)
      return templates.emplace(id, ReadDialogTemplate(id, kDialogResources[i].xrc)).first->second;
  throw std::out_of_range("the library has no dialog template " + std::to_string(id));
}

}  // namespace fk::ui
