// Exports of the settings store.
#include <optional>
#include <string>

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "platform/app/module_guard.h"
#include "settings/app_settings.h"
#include "settings/directory_registry.h"
#include "settings/open_grids.h"
#include "settings/preference_file.h"

extern "C" int GetAppSetting(const char* section, const char* key, char* value, const char* file) {
  return fk::GuardedCall("GetAppSetting", 0, [&] {
    const std::optional<std::string> found = ReadAppSetting(TextArg(section), TextArg(key), TextArg(file),
                                                            theApp.m_strInstallationID, g_Cartoma.m_nProductVariant);
    if (!found) return 0;
    CopyTextOut(*found, value);
    return 1;
  });
}

// A null value deletes the key.
extern "C" int SetAppSetting(const char* section, const char* key, const char* value, const char* file) {
  return fk::GuardedCall("SetAppSetting", 0, [&] {
    const std::optional<std::string> text = value ? std::optional<std::string>(value) : std::nullopt;
    return WriteAppSetting(TextArg(section), TextArg(key), text, TextArg(file), theApp.m_strInstallationID,
                           g_Cartoma.m_nProductVariant);
  });
}

extern "C" int GetPreferenceDirectory(int index, char* directory) {
  return fk::GuardedCall("GetPreferenceDirectory", 0, [&] {
    const std::optional<std::string> found = GetPreferenceDirectoryText(index);
    if (!found) return 0;
    CopyTextOut(*found, directory);
    return 1;
  });
}

extern "C" int SaveConfigDirInRegistry(const char* directory) {
  return fk::GuardedCall("SaveConfigDirInRegistry", 0, [&] { return SaveConfigDir(TextArg(directory)) ? 1 : 0; });
}

extern "C" int SaveProjectDirectoryInRegistry(const char* directory) {
  return fk::GuardedCall("SaveProjectDirectoryInRegistry", 0,
                         [&] { return SaveProjectDirectory(TextArg(directory)); });
}

extern "C" int ClearAllOpenGridsInRegistry(void) {
  return fk::GuardedCall("ClearAllOpenGridsInRegistry", 0, [] {
    ClearOpenGridsInRegistry();
    return 1;
  });
}

extern "C" int SaveAllOpenGridsInRegistry(void) {
  return fk::GuardedCall("SaveAllOpenGridsInRegistry", 0, [] {
    SaveOpenGridsInRegistry();
    return 1;
  });
}
