// The session with the host: statements to run (Do) and expressions to
// evaluate (Eval), sent as text through the host's automation object; the
// text of the last failure; and the product script running in the host.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/automation/dispatch_driver.h"

// One slot of the memo of Eval.
struct EvalCacheEntry {
  char key[500];
  char value[500];
};

constexpr int EVAL_CACHE_SLOTS = 100;

class CCartoma {
 public:
  CCartoma();
  virtual ~CCartoma();
  CCartoma(const CCartoma&) = delete;
  CCartoma& operator=(const CCartoma&) = delete;

  // Attaches the host connection g_CartomaDriver: to the object behind the
  // handle `dispatch`, or with 0 to the running host, else to a new one.
  // With `checkApp` a fresh connection runs the application check.
  int Connect(std::int32_t dispatch, int checkApp);
  // What the application check does; the application object installs the
  // profile switch here. Without one, the check finds the product script.
  void SetApplicationCheck(std::function<void()> check) { m_applicationCheck = std::move(check); }

  int Do(const std::string& statement, int immediate = 1, int* error = nullptr, int key = 0);
  std::string Eval(const std::string& expression, int* error = nullptr);

  int FindApplicationScript();
  std::string ScriptEval(const std::string& expression, int* error = nullptr);
  std::string GetCBXVariable(const std::string& name, int* error = nullptr);
  std::string GetTerviDir();

  std::unordered_map<long, std::vector<unsigned long>> m_GroupArrays;
  std::string m_strLastError;
  EvalCacheEntry m_EvalCache[EVAL_CACHE_SLOTS];
  int m_nEvalCacheCount = 0;
  int m_bEvalCacheOn = 0;
  fk::DispatchDriver m_ScriptApp;
  fk::DispatchDriver m_ScriptGlobals;
  int m_bTerravikScript = 1;
  int m_nProductVariant = 0;

 private:
  bool AttachHandle(std::int32_t dispatch);
  void AttachRunningHost();
  bool EvalFromMemo(const std::string& expression, std::string& value) const;
  void RememberEval(const std::string& expression, const std::string& value);

  std::function<void()> m_applicationCheck;
};

// The deferred form of Do: the queue and its group keys, by index.
int QueueDeferredStatement(const std::string& statement, int key);

extern CCartoma g_Cartoma;
extern fk::DispatchDriver g_CartomaDriver;
extern std::string g_strCartomaLastError;
extern int g_bInStatement;
extern int g_bDeferStatements;
extern std::vector<std::string> g_DeferredStatements;
extern std::vector<unsigned long> g_DeferredKeys;
