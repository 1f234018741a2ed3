#include "frame/formkit_app.h"

#include "exchange/raster_tab_writer.h"
#include "host/cartoma.h"
#include "host/product_variant.h"
#include "platform/app/module_guard.h"
#include "platform/folders/folders.h"

namespace {
// COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE
constexpr unsigned kApartmentFlags = 6;
constexpr const char* kSetup = "Setup";
}  // namespace

// Built after the host session (priority 1000), before the module starts.
CFormkitApp theApp __attribute__((init_priority(1001)));

CFormkitApp::CFormkitApp() : fk::AppBase("Shared") {
  m_strTempDirectory = fk::TempDirectory();
  g_Cartoma.SetApplicationCheck([this] { SwitchProfile(nullptr); });
}

bool CFormkitApp::InitInstance() {
  fk::InitializeApartment(kApartmentFlags);
  SetRegistryKey("Orvex");
  LoadSettings();
  return fk::AppBase::InitInstance();
}

void CFormkitApp::LoadSettings() {
  m_strGroupKey = GetProfileString(kSetup, "GroupKey", m_strGroupKey);
  m_strAliasKey = GetProfileString(kSetup, "AliasKey", m_strAliasKey);
  m_bUseNameAlias = GetProfileInt(kSetup, "UseNameAlias", m_bUseNameAlias);
  m_strDXFSelectionFile = GetProfileString(kSetup, "DXFSelectionFile", m_strDXFSelectionFile);
  m_bShowHelp = GetProfileInt(kSetup, "ShowHelp", m_bShowHelp);
  m_strPreferredProj = GetProfileString(kSetup, "PreferredProj", m_strPreferredProj);
  m_strPreferredProjDesc = GetProfileString(kSetup, "PreferredProjDesc", m_strPreferredProjDesc);
  m_bProjMapping = GetProfileInt(kSetup, "ProjMapping", m_bProjMapping);
}

void CFormkitApp::SwitchProfile(const char* name) {
  if (name) {
    SetProfileName(name);
  } else {
    g_Cartoma.FindApplicationScript();
    if (const ProductVariantInfo* info = GetProductVariantInfo(g_Cartoma.m_nProductVariant))
      SetProfileName(info->pszProfileName);
  }
  LoadSettings();
}

int CFormkitApp::Connect(std::int32_t dispatch, int checkApp) { return g_Cartoma.Connect(dispatch, checkApp); }

int CFormkitApp::WriteRasterTab(const std::string& tabPath, const std::string& imageName, double left, double bottom,
                                double right, double top, const char* coordSys, std::int32_t transparentColor) {
  return WriteRasterTabFile(tabPath, imageName, left, bottom, right, top, coordSys ? coordSys : "", transparentColor);
}

int CFormkitApp::RewriteRasterTab(const std::string& tabPath, const std::string& imageName,
                                  const std::vector<std::int32_t>& pixelX, const std::vector<std::int32_t>& pixelY,
                                  const std::vector<double>& worldX, const std::vector<double>& worldY,
                                  const char* coordSys, const std::vector<std::string>* lines) {
  static const std::vector<std::string> kNoLines;
  return RewriteRasterTabFile(tabPath, imageName, pixelX, pixelY, worldX, worldY, coordSys ? coordSys : "",
                              lines ? *lines : kNoLines);
}

// The module starts once both globals stand: the framework calls InitInstance.
// It runs while the host loads the library, so it fails soft: whatever it
// throws is reported, the settings it could not read keep their defaults,
// and the library stays usable.
namespace {
struct ModuleStart {
  ModuleStart() { fk::GuardedCall("the module's start", false, [] { return theApp.InitInstance(); }); }
} s_moduleStart __attribute__((init_priority(1002)));
}  // namespace
