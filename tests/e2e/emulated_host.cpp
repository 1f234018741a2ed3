#include "e2e/emulated_host.h"

#include <filesystem>

sim::HostCApi HostCApiOf(const FormkitLibrary& library) {
  return {FORMKIT_EXPORT(library, fk_register_object),
          FORMKIT_EXPORT(library, fk_revoke_object),
          FORMKIT_EXPORT(library, fk_value_type),
          FORMKIT_EXPORT(library, fk_value_text),
          FORMKIT_EXPORT(library, fk_value_bool),
          FORMKIT_EXPORT(library, fk_value_int),
          FORMKIT_EXPORT(library, fk_value_double),
          FORMKIT_EXPORT(library, fk_value_set_empty),
          FORMKIT_EXPORT(library, fk_value_set_int),
          FORMKIT_EXPORT(library, fk_value_set_bool),
          FORMKIT_EXPORT(library, fk_value_set_double),
          FORMKIT_EXPORT(library, fk_value_set_text),
          FORMKIT_EXPORT(library, fk_value_set_object),
          FORMKIT_EXPORT(library, fk_fail)};
}

std::string SamplePath(const ScopedFolder& folder, const std::string& name) {
  return (std::filesystem::path(folder.Path()) / (name + ".tab")).string();
}

std::string CopySamples(const ScopedFolder& folder, std::initializer_list<const char*> names) {
  namespace fs = std::filesystem;
  for (const char* name : names)
    for (const char* ext : {".tab", ".gpkg", ".tif"}) {
      const fs::path source = fs::path(SIM_SAMPLES_DIR) / (std::string(name) + ext);
      if (fs::exists(source)) fs::copy_file(source, fs::path(folder.Path()) / source.filename());
    }
  return SamplePath(folder, *names.begin());
}
