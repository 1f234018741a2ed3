#include "host/cartoma_direct.h"

#include "host/cartoma.h"
#include "host/cartoma_dispids.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/handle_table.h"
#include "platform/text/format.h"

namespace {

// A driver that borrows the object behind a script's handle.
void AttachBorrowed(fk::DispatchDriver& driver, std::int32_t dispatch) {
  if (dispatch != 0) driver.AttachDispatch(fk::HandleTable::Instance().Find(dispatch), false);
}

// From the host through CBXApplications to the script named `script`; the
// returned driver holds nothing when a step yields no object.
void AttachScript(fk::DispatchDriver& script, std::int32_t dispatch, const std::string& name) {
  fk::DispatchDriver host;
  AttachBorrowed(host, dispatch);
  fk::DispatchDriver applications;
  applications.AttachDispatch(host.GetProperty(DISPID_CARTOMA_CBXAPPLICATIONS).ToObject());
  script.AttachDispatch(applications.InvokeMethod(DISPID_COLLECTION_ITEM, {fk::Variant::Text(name)}).ToObject());
}

}  // namespace

int DirectDo(std::int32_t dispatch, const std::string& statement) {
  fk::DispatchDriver host;
  AttachBorrowed(host, dispatch);
  try {
    if (host.IsAttached()) {
      host.InvokeMethod(DISPID_CARTOMA_DO, {fk::Variant::Text(statement)});
      host.DetachDispatch();
    }
    return 1;
  } catch (const fk::DispatchException& e) {
    g_strCartomaLastError = e.Description();
    if (host.IsAttached()) {
      host.GetProperty(DISPID_CARTOMA_LASTERRORMESSAGE);  // read, and the value dropped
      host.DetachDispatch();
    }
    return 0;
  }
}

std::string DirectEval(std::int32_t dispatch, const std::string& expression) {
  fk::DispatchDriver host;
  AttachBorrowed(host, dispatch);
  try {
    return host.InvokeMethod(DISPID_CARTOMA_EVAL, {fk::Variant::Text(expression)}).ToText();
  } catch (const fk::DispatchException& e) {
    g_strCartomaLastError = e.Description();
    host.DetachDispatch();
    return {};
  }
}

int DirectScriptCommand(std::int32_t dispatch, const std::string& script, const std::string& command) {
  // Sticky on purpose: once one command reached a script, every later call
  // answers 1, even when its script is not found.
  static int s_nReachedScript = 0;
  if (dispatch == 0) return s_nReachedScript;
  fk::DispatchDriver target;
  AttachScript(target, dispatch, script);
  if (target.IsAttached()) {
    target.InvokeMethod(DISPID_SCRIPT_DO, {fk::Variant::Text(command)});
    s_nReachedScript = 1;
  }
  return s_nReachedScript;
}

std::string DirectScriptQuery(std::int32_t dispatch, const std::string& script, const std::string& query) {
  if (dispatch == 0) return {};
  fk::DispatchDriver target;
  AttachScript(target, dispatch, script);
  if (!target.IsAttached()) return {};
  return target.InvokeMethod(DISPID_SCRIPT_EVAL, {fk::Variant::Text(query)}).ToText();
}

std::string DirectScriptVariable(std::int32_t dispatch, const std::string& script, const std::string& variable) {
  if (dispatch == 0) return {};
  fk::DispatchDriver target;
  AttachScript(target, dispatch, script);
  fk::DispatchDriver globals;
  globals.AttachDispatch(target.GetProperty(DISPID_SCRIPT_CBXGLOBALS).ToObject());
  fk::DispatchDriver value;
  value.AttachDispatch(globals.InvokeMethod(DISPID_COLLECTION_ITEM, {fk::Variant::Text(variable)}).ToObject());
  return value.GetProperty(DISPID_GLOBAL_VALUE).ToText();
}

std::string DirectTableFieldValue(std::int32_t dispatch, const std::string& table, const std::string& column) {
  fk::DispatchDriver host;
  AttachBorrowed(host, dispatch);
  if (dispatch == 0 || !host.IsAttached()) return {};
  return host.InvokeMethod(DISPID_CARTOMA_EVAL, {fk::Variant::Text(fk::Format("%s.%s", table, column))}).ToText();
}
