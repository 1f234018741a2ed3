#include "host/cartoma.h"


#include <cstring>

#include "host/cartoma_dispids.h"
#include "host/product_variant.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/handle_table.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"

// The host session and its connection are built before the application
// object, which installs its profile switch into the session.
fk::DispatchDriver g_CartomaDriver __attribute__((init_priority(1000)));
CCartoma g_Cartoma __attribute__((init_priority(1000)));
std::string g_strCartomaLastError;
int g_bInStatement = 0;
int g_bDeferStatements = 0;
std::vector<std::string> g_DeferredStatements;
std::vector<unsigned long> g_DeferredKeys;

namespace {

void CopyBounded(char (&slot)[500], const std::string& text) {
  const std::size_t n = std::min(text.size(), sizeof slot - 1);
  std::memcpy(slot, text.data(), n);
  slot[n] = '\0';
}

}  // namespace

CCartoma::CCartoma() {
  m_GroupArrays.reserve(17);
  std::memset(m_EvalCache, 0, sizeof m_EvalCache);
}

CCartoma::~CCartoma() {
  m_ScriptApp.DetachDispatch();
  m_ScriptApp.ReleaseDispatch();
  m_ScriptGlobals.ReleaseDispatch();
  m_GroupArrays.clear();
}

// ------------------------------------------------------------------ Connect

bool CCartoma::AttachHandle(std::int32_t dispatch) {
  fk::DispatchPtr object = fk::HandleTable::Instance().Find(dispatch);
  if (!object) {
    m_strLastError = fk::Format("No automation object is registered under the handle %d.", dispatch);
    return false;
  }
  if (!g_CartomaDriver.Holds(object)) g_CartomaDriver.AttachDispatch(std::move(object), false);
  return true;
}

void CCartoma::AttachRunningHost() {
  if (fk::DispatchPtr running = fk::ClassRegistry::Instance().GetActiveObject(CARTOMA_PROGID))
    g_CartomaDriver.AttachDispatch(std::move(running), true);
  if (!g_CartomaDriver.IsAttached()) g_CartomaDriver.CreateDispatch(CARTOMA_PROGID);
  g_CartomaDriver.SetProperty(DISPID_CARTOMA_VISIBLE, fk::Variant::Bool(true));
}

int CCartoma::Connect(std::int32_t dispatch, int checkApp) {
  if (g_CartomaDriver.IsAttached()) {
    // A new pointer replaces the old one; no application check on this path.
    if (dispatch != 0 && !AttachHandle(dispatch)) return 0;
    return 1;
  }
  if (dispatch != 0) {
    if (!AttachHandle(dispatch)) return 0;
  } else {
    AttachRunningHost();
    if (!g_CartomaDriver.IsAttached()) return 0;
  }
  if (checkApp) {
    if (m_applicationCheck)
      m_applicationCheck();
    else
      FindApplicationScript();
  }
  return 1;
}

// ------------------------------------------------------------------ Do and Eval

int QueueDeferredStatement(const std::string& statement, int key) {
  g_DeferredStatements.push_back(statement);
  if (key > 0) {
    // A later statement of a group replaces every earlier one of that group.
    for (std::size_t i = 0; i + 1 < g_DeferredStatements.size();) {
      if (i < g_DeferredKeys.size() && g_DeferredKeys[i] == static_cast<unsigned long>(key)) {
        g_DeferredStatements.erase(g_DeferredStatements.begin() + static_cast<std::ptrdiff_t>(i));
        g_DeferredKeys.erase(g_DeferredKeys.begin() + static_cast<std::ptrdiff_t>(i));
      } else {
        ++i;
      }
    }
  }
  const std::size_t last = g_DeferredStatements.size() - 1;
  if (g_DeferredKeys.size() < last + 1) g_DeferredKeys.resize(last + 1);
  g_DeferredKeys[last] = static_cast<unsigned long>(key);
  return static_cast<int>(last);
}

int CCartoma::Do(const std::string& statement, int immediate, int* error, int key) {
  if (g_bDeferStatements && immediate == 0) {
    QueueDeferredStatement(statement, key);
    return 1;
  }
  if (error) *error = 0;
  g_bInStatement = 1;
  int result = 1;
  try {
    g_CartomaDriver.InvokeMethod(DISPID_CARTOMA_DO, {fk::Variant::Text(statement)});
  } catch (const fk::DispatchException& e) {
    m_strLastError = e.Description();
    if (error) *error = 1;
    result = 0;
  }
  g_bInStatement = 0;
  return result;
}

bool CCartoma::EvalFromMemo(const std::string& expression, std::string& value) const {
  // Every slot is compared, not only those in use.
  for (const EvalCacheEntry& slot : m_EvalCache) {
    if (fk::EqualsNoCase(slot.key, expression)) {
      value = slot.value;
      return true;
    }
  }
  return false;
}

void CCartoma::RememberEval(const std::string& expression, const std::string& value) {
  if (m_nEvalCacheCount >= EVAL_CACHE_SLOTS) return;  // the memo is full: nothing more is kept
  CopyBounded(m_EvalCache[m_nEvalCacheCount].key, expression);
  CopyBounded(m_EvalCache[m_nEvalCacheCount].value, value);
  ++m_nEvalCacheCount;
}

std::string CCartoma::Eval(const std::string& expression, int* error) {
  if (error) *error = 0;
  std::string result;
  if (m_bEvalCacheOn && EvalFromMemo(expression, result)) return result;
  bool failed = false;
  try {
    result = g_CartomaDriver.InvokeMethod(DISPID_CARTOMA_EVAL, {fk::Variant::Text(expression)}).ToText();
  } catch (const fk::DispatchException& e) {
    m_strLastError = e.Description();
    failed = true;
  } catch (const fk::Exception& e) {
    m_strLastError = e.GetErrorMessage(1000);
    failed = true;
  }
  if (failed) {
    result.clear();
    if (error) *error = 1;
  }
  if (m_bEvalCacheOn && !failed) RememberEval(expression, result);
  return result;
}

// ------------------------------------------------------------------ the product script

int CCartoma::FindApplicationScript() {
  if (m_ScriptApp.IsAttached()) return 1;
  fk::DispatchDriver applications;
  applications.AttachDispatch(g_CartomaDriver.GetProperty(DISPID_CARTOMA_CBXAPPLICATIONS).ToObject());
  if (!applications.IsAttached()) return 0;
  static const int kSearchOrder[] = {VARIANT_TERRAVIK, VARIANT_ZELVAR3D, VARIANT_ZELVAR, VARIANT_VIGILPROFILER};
  for (int variant : kSearchOrder) {
    const char* script = GetProductVariantInfo(variant)->pszScript;
    fk::DispatchPtr found =
        applications.InvokeMethod(DISPID_COLLECTION_ITEM, {fk::Variant::Text(script)}).ToObject();
    if (!found) continue;
    m_ScriptApp.AttachDispatch(std::move(found), true);
    m_ScriptGlobals.AttachDispatch(m_ScriptApp.GetProperty(DISPID_SCRIPT_CBXGLOBALS).ToObject(), true);
    m_nProductVariant = variant;
    m_bTerravikScript = variant == VARIANT_TERRAVIK ? 1 : 0;
    return 1;
  }
  return 0;
}

std::string CCartoma::GetCBXVariable(const std::string& name, int* error) {
  if (error) *error = 0;
  std::string value;
  if (FindApplicationScript() && m_ScriptGlobals.IsAttached()) {
    fk::DispatchDriver variable;
    variable.AttachDispatch(m_ScriptGlobals.InvokeMethod(DISPID_COLLECTION_ITEM, {fk::Variant::Text(name)}).ToObject());
    value = variable.GetProperty(DISPID_GLOBAL_VALUE).ToText();
  }
  if (error) *error = 0;
  return value;
}

std::string CCartoma::GetTerviDir() { return GetCBXVariable("TerviDir"); }

std::string CCartoma::ScriptEval(const std::string& expression, int* error) {
  if (error) *error = 0;
  std::string value;
  if (FindApplicationScript())
    value = m_ScriptApp.InvokeMethod(DISPID_SCRIPT_EVAL, {fk::Variant::Text(expression)}).ToText();
  if (error) *error = 0;
  return value;
}
