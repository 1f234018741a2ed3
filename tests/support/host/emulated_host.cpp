#include "support/host/emulated_host.h"

#include <filesystem>

#include "host/cartoma.h"

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

std::string CopySample(const ScopedFolder& folder, const std::string& name) {
  namespace fs = std::filesystem;
  for (const char* ext : {".tab", ".gpkg", ".tif"})
    if (fs::exists(fs::path(SIM_SAMPLES_DIR) / (name + ext)))
      fs::copy_file(fs::path(SIM_SAMPLES_DIR) / (name + ext), fs::path(folder.Path()) / (name + ext),
                    fs::copy_options::overwrite_existing);
  return (fs::path(folder.Path()) / (name + ".tab")).string();
}

bool LibraryWithEmulator::HostRan(const std::string& text) const {
  for (const sim::CallRecord& call : emulator.Calls())
    if (call.text.find(text) != std::string::npos) return true;
  return false;
}

void EmulatorSessionTest::SetUp() {
  HeadlessTest::SetUp();
  m_emulator.AddScript("terravik.cbx");
  ASSERT_EQ(g_Cartoma.Connect(m_registration.Handle(), 1), 1);
}

std::string EmulatorSessionTest::Open(const char* sample, const char* alias) {
  const std::string path = CopySample(m_folder, sample);
  EXPECT_TRUE(g_Cartoma.OpenTable(path.c_str(), alias, 0, 0)) << g_Cartoma.m_strLastError;
  return path;
}
