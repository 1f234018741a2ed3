// Exports of the host session.

#include "formkit/formkit.h"
#include "frame/export_args.h"
#include "frame/formkit_app.h"
#include "host/cartoma.h"
#include "host/cartoma_direct.h"
#include "platform/app/module_guard.h"
#include "platform/process/process.h"

extern "C" int ConnectToCartoma(int32_t dispatch) {
  return fk::GuardedCall("ConnectToCartoma", 0, [&] { return theApp.Connect(dispatch, 1); });
}

extern "C" int ConnectToCartomaWithoutAppCheck(int32_t dispatch) {
  return fk::GuardedCall("ConnectToCartomaWithoutAppCheck", 0, [&] { return theApp.Connect(dispatch, 0); });
}

// The same entry under a second name.
extern "C" int ConnectToCartomaWithoutAppCheckDispatch(int32_t dispatch)
    __attribute__((alias("ConnectToCartomaWithoutAppCheck")));

extern "C" int CartomaDo(int32_t dispatch, const char* statement) {
  return fk::GuardedCall("CartomaDo", 0, [&] { return DirectDo(dispatch, TextArg(statement)); });
}

extern "C" const char* CartomaEval(int32_t dispatch, const char* expression) {
  static std::string s_result;
  return GuardedText("CartomaEval", s_result, [&] { return DirectEval(dispatch, TextArg(expression)); });
}

extern "C" const char* CartomaLastError(void) {
  return fk::GuardedCall("CartomaLastError", g_strCartomaLastError.c_str(), [] { return g_strCartomaLastError.c_str(); });
}

extern "C" int DoDDECommand(int32_t dispatch, const char* script, const char* command) {
  return fk::GuardedCall("DoDDECommand", 0,
                         [&] { return DirectScriptCommand(dispatch, TextArg(script), TextArg(command)); });
}

extern "C" const char* GetDDEQuery(int32_t dispatch, const char* script, const char* query) {
  static std::string s_result;
  return GuardedText("GetDDEQuery", s_result,
                     [&] { return DirectScriptQuery(dispatch, TextArg(script), TextArg(query)); });
}

extern "C" const char* GetCBXVariable(int32_t dispatch, const char* script, const char* variable) {
  static std::string s_result;
  return GuardedText("GetCBXVariable", s_result,
                     [&] { return DirectScriptVariable(dispatch, TextArg(script), TextArg(variable)); });
}

// The value is for the caller to read at once: the next call overwrites it.
extern "C" const char* GetCartomaTableFieldValue(int32_t dispatch, const char* table, const char* column) {
  static std::string s_result;
  return GuardedText("GetCartomaTableFieldValue", s_result,
                     [&] { return DirectTableFieldValue(dispatch, TextArg(table), TextArg(column)); });
}

extern "C" int GetProcessID(void) {
  return fk::GuardedCall("GetProcessID", 0, [] { return fk::CurrentProcessId(); });
}
