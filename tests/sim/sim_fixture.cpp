#include "sim/sim_fixture.h"

std::string SimTest::DoError(const std::string& statement) {
  try {
    m_host.Do(statement);
  } catch (const std::exception& e) {
    return e.what();
  }
  ADD_FAILURE() << "the statement succeeded: " << statement;
  return {};
}

std::string SimTest::Sample(const std::string& name) {
  namespace fs = std::filesystem;
  for (const char* ext : {".tab", ".gpkg", ".tif"}) {
    const fs::path source = fs::path(SIM_SAMPLES_DIR) / (name + ext);
    if (fs::exists(source))
      fs::copy_file(source, fs::path(Folder()) / (name + ext), fs::copy_options::overwrite_existing);
  }
  return (fs::path(Folder()) / (name + ".tab")).string();
}
