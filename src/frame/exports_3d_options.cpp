// Exports of the 3D options: the session values and the property sheet.
#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "platform/app/module_guard.h"
#include "platform/ui/dialog_view.h"
#include "viewer/tvik3d_options.h"

namespace {

// A plain getter or setter of one session value.
int GetValue(const char* exportName, const int& value) {
  return fk::GuardedCall(exportName, 0, [&] { return value; });
}

int SetValue(const char* exportName, int& value, int newValue) {
  return fk::GuardedCall(exportName, 0, [&] {
    value = newValue;
    return 1;
  });
}

}  // namespace

extern "C" int Tvik3DOptionsGetPointSize() { return GetValue("Tvik3DOptionsGetPointSize", theApp.m_nPointSize); }
extern "C" int Tvik3DOptionsSetPointSize(int value) {
  return SetValue("Tvik3DOptionsSetPointSize", theApp.m_nPointSize, value);
}
extern "C" int Tvik3DOptionsGetGridCompression() {
  return GetValue("Tvik3DOptionsGetGridCompression", theApp.m_nGridCompression);
}
extern "C" int Tvik3DOptionsSetGridCompression(int value) {
  return SetValue("Tvik3DOptionsSetGridCompression", theApp.m_nGridCompression, value);
}
extern "C" int Tvik3DOptionsGetRasterScaling() {
  return GetValue("Tvik3DOptionsGetRasterScaling", theApp.m_nRasterScaling);
}
extern "C" int Tvik3DOptionsSetRasterScaling(int value) {
  return SetValue("Tvik3DOptionsSetRasterScaling", theApp.m_nRasterScaling, CappedRasterScaling(value));
}
extern "C" int Tvik3DOptionsGetCartomaParent() {
  return GetValue("Tvik3DOptionsGetCartomaParent", theApp.m_bCartomaParent);
}
extern "C" int Tvik3DOptionsSetCartomaParent(int value) {
  return SetValue("Tvik3DOptionsSetCartomaParent", theApp.m_bCartomaParent, value);
}
extern "C" int Tvik3DOptionsGetGridClipping() {
  return GetValue("Tvik3DOptionsGetGridClipping", theApp.m_bGridClipping);
}
extern "C" int Tvik3DOptionsSetGridClipping(int value) {
  return SetValue("Tvik3DOptionsSetGridClipping", theApp.m_bGridClipping, value);
}
extern "C" int Tvik3DOptionsGetTransparency() {
  return GetValue("Tvik3DOptionsGetTransparency", theApp.m_nTransparency);
}
extern "C" int Tvik3DOptionsSetTransparency(int value) {
  return SetValue("Tvik3DOptionsSetTransparency", theApp.m_nTransparency, value);
}
extern "C" int Tvik3DOptionsGetShowHelp() { return GetValue("Tvik3DOptionsGetShowHelp", theApp.m_bShowHelp); }

extern "C" int Tvik3DOptionsSetShowHelp(int value) {
  return fk::GuardedCall("Tvik3DOptionsSetShowHelp", 0, [&] { return SetShowHelp(theApp.Options3D(), value); });
}

extern "C" int Tvik3DOptionsGetProjMapping(char* projection, char* description) {
  return fk::GuardedCall("Tvik3DOptionsGetProjMapping", 0, [&] {
    std::string projectionText, descriptionText;
    const int mapping = GetProjMapping(theApp.Options3D(), projectionText, descriptionText);
    CopyTextOut(projectionText, projection);
    CopyTextOut(descriptionText, description);
    return mapping;
  });
}

extern "C" int Tvik3DOptionsSetProjMapping(int flag, const char* projection, const char* description) {
  return fk::GuardedCall("Tvik3DOptionsSetProjMapping", 0, [&] {
    return SetProjMapping(theApp.Options3D(), flag, TextArg(projection), TextArg(description));
  });
}

extern "C" int Tvik3DOptions(char* tempDirectory, int* deleteOnExit) {
  return fk::GuardedCall("Tvik3DOptions", 0, [&] {
    std::string directory = TextArg(tempDirectory);
    int flag = deleteOnExit ? *deleteOnExit : 0;
    const int result =
        RunTvik3DOptions(theApp.Options3D(), g_Cartoma.m_nProductVariant, theApp.m_Viewer, directory, flag);
    if (result != fk::ui::IDOK) return 0;
    CopyTextOut(directory, tempDirectory);
    if (deleteOnExit) *deleteOnExit = flag;
    return 1;
  });
}
