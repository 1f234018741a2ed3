// formkit settings: the library's settings as a user of the product sees
// them: the product's registry values, the scripts' settings files (the
// user's copy shadows the named file), the host's preference directories,
// the news feed delay and the folders the product remembers.
#include <cstdio>
#include <iostream>
#include <optional>

#include "cli_errors.h"
#include "commands.h"
#include "formkit/formkit.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "host_session.h"
#include "platform/registry/registry.h"
#include "settings/app_settings.h"
#include "settings/preference_file.h"
#include "settings/registry_values.h"

namespace cli {
namespace {

struct SettingsOptions {
  std::string section, key, value, file, directory;
  int index = -1;
  std::optional<int> days;
  bool save = false, clear = false;
};

void ShowRegistry() {
  const int variant = g_Cartoma.m_nProductVariant;
  const struct {
    VariantKey key;
    const char* name;
  } kValues[] = {{VariantKey::Setup, REG_LAST_VERSION}, {VariantKey::Setup, REG_RSS_DELAY},
                 {VariantKey::Setup, REG_RSS_ACCESS_DATE}, {VariantKey::Setup, REG_CONFIG_DIR},
                 {VariantKey::Messages, REG_GRID_LIST},      {VariantKey::Settings, REG_PROJECT_FOLDER}};
  std::printf("registry: %s\n", fk::Registry::HiveFile(fk::Hive::CurrentUser).c_str());
  for (const auto& entry : kValues) {
    const std::optional<std::string> value = ReadVariantValue(entry.key, variant, entry.name);
    std::printf("HKCU\\%s  %s = %s\n", GetVariantKey(entry.key, variant), entry.name,
                value ? ("\"" + *value + "\"").c_str() : "(not set)");
  }
}

std::string UserFile(const std::string& file) {
  return GetUserSettingsFile(file, theApp.m_strInstallationID, g_Cartoma.m_nProductVariant);
}

void GetSetting(const SettingsOptions& o) {
  char value[APP_SETTING_SIZE] = "";
  if (GetAppSetting(o.section.c_str(), o.key.c_str(), value, o.file.c_str()) != 1)
    throw ToolFailure("no value for [" + o.section + "] " + o.key + " in " + o.file + " or " + UserFile(o.file));
  std::cout << value << "\n";
}

void SetSetting(const SettingsOptions& o) {
  if (SetAppSetting(o.section.c_str(), o.key.c_str(), o.value.c_str(), o.file.c_str()) != 1)
    throw ToolFailure("cannot write " + UserFile(o.file) + " (the product's folder must exist)");
}

void ShowDirectories(const SettingsOptions& o) {
  char directory[0x2000] = "";
  const int first = o.index >= 0 ? o.index : 0, last = o.index >= 0 ? o.index : 13;
  for (int index = first; index <= last; ++index) {
    directory[0] = '\0';
    if (GetPreferenceDirectory(index, directory) != 1)
      throw ToolFailure(o.index > 13 ? "no preference directory " + std::to_string(o.index) + " (0 to 13)"
                                     : "cannot read the host's preference file " + GetPreferenceFilePath());
    std::printf("%2d %s\n", index, directory);
  }
}

void NewsDelay(const SettingsOptions& o) {
  if (o.days && SetRSSRegistry(*o.days) != 1) throw ToolFailure("cannot write the news feed delay");
  std::printf("%d\n", GetRSSRegistry());
}

void OpenGrids(const GlobalOptions& global, const SettingsOptions& o) {
  if (o.save == o.clear) throw UsageError("settings grids: give --save or --clear");
  if (o.clear) {
    ClearAllOpenGridsInRegistry();
    return;
  }
  HostSession session(global);
  SaveAllOpenGridsInRegistry();
  std::cout << ReadVariantValue(VariantKey::Messages, g_Cartoma.m_nProductVariant, REG_GRID_LIST).value_or("")
            << "\n";
}

void AddFileOptions(CLI::App* command, SettingsOptions& o, bool withValue) {
  command->add_option("section", o.section, "The section")->required();
  command->add_option("key", o.key, "The key")->required();
  if (withValue) command->add_option("value", o.value, "The value")->required();
  command->add_option("--file", o.file, "The settings file the script names")->required();
}

}  // namespace

void AddSettingsCommand(CLI::App& app, const GlobalOptions& options) {
  auto o = std::make_shared<SettingsOptions>();
  CLI::App* settings = app.add_subcommand("settings", "Read and write the product's settings");
  settings->require_subcommand(1);
  settings->footer(Example("{formkit} settings show\n{formkit} --product Zelvar settings rss 14"));
  ProductLeaf(settings, options, "show", "The product's registry values", ShowRegistry);
  AddFileOptions(ProductLeaf(settings, options, "get", "A value of a settings file (the user's copy first)",
                      [o] { GetSetting(*o); }),
                 *o, false);
  AddFileOptions(ProductLeaf(settings, options, "set", "Write a value to the user's copy of a settings file",
                      [o] { SetSetting(*o); }),
                 *o, true);
  ProductLeaf(settings, options, "dir", "The host's preference directories (0 to 13)", [o] { ShowDirectories(*o); })
      ->add_option("index", o->index, "One directory only");
  ProductLeaf(settings, options, "rss", "The days between news feed checks", [o] { NewsDelay(*o); })
      ->add_option("days", o->days, "Set it");
  ProductLeaf(settings, options, "config-dir", "Remember the configuration folder",
       [o] {
         if (!SaveConfigDirInRegistry(o->directory.c_str())) throw ToolFailure("cannot write the registry");
       })
      ->add_option("directory", o->directory)
      ->required();
  ProductLeaf(settings, options, "project-dir", "Remember the project folder",
       [o] { SaveProjectDirectoryInRegistry(o->directory.c_str()); })
      ->add_option("directory", o->directory)
      ->required();
  CLI::App* grids = ProductLeaf(settings, options, "grids", "The list of open grids: the --data grid tables, or none",
                         [&options, o] { OpenGrids(options, *o); });
  grids->add_flag("--save", o->save, "Save the grid tables open in the host");
  grids->add_flag("--clear", o->clear, "Clear the list");
}

}  // namespace cli
