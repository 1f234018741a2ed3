// Exports of the shared dialog services: field selection, file and folder boxes.
#include <cstring>

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "platform/text/string_table.h"
#include "services/file_boxes.h"
#include "services/select_fields_dlg.h"

namespace {
constexpr unsigned IDS_SELECT_PERMANENT_DIRECTORY = 2073;

// The caller's buffer has no stated length: the whole text is copied.
void CopyOut(char* buffer, const std::string& text) {
  if (buffer) std::memcpy(buffer, text.c_str(), text.size() + 1);
}
}  // namespace

extern "C" int SelectFieldsDialog(const char** names, int32_t* flags, int32_t count) {
  return fk::GuardedCall("SelectFieldsDialog", 0, [&] { return RunSelectFields(names, flags, count); });
}

extern "C" int OpenFileDlg(char* path, const char* defaultExt, const char* fileName, const char* filter) {
  return fk::GuardedCall("OpenFileDlg", 0, [&] {
    CopyOut(path, OpenFileBox(TextArg(defaultExt), TextArg(fileName), TextArg(filter)).value_or(""));
    return 0;
  });
}

extern "C" int BrowseForFolder(int32_t /*owner*/, const char* title, char* path) {
  return fk::GuardedCall("BrowseForFolder", 0, [&] {
    const std::string shownTitle = title ? title : fk::LoadString(IDS_SELECT_PERMANENT_DIRECTORY);
    auto folder = PickFolder(shownTitle, TextArg(path));
    if (!folder) return 0;
    CopyOut(path, *folder);
    return 1;
  });
}
