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

  // ---- catalogue: tables and columns (cartoma_tables.cpp)
  int GetTableNames(std::vector<std::string>& names);
  // With no array, only the count.
  int ListTableNames(std::vector<std::string>* names);
  int GetMappableTableNames(std::vector<std::string>& names);
  int GetVectorTableNames(std::vector<std::string>& names);
  std::string FindTableByPath(const std::string& path);
  // The number of columns of the table; the names of those whose type is
  // `typeFilter` (all with 0) are appended.
  int GetColumnNames(const std::string& table, std::vector<std::string>& names, int typeFilter);
  int ColumnExists(const std::string& table, const std::string& column);
  int GetTableRowCount(const std::string& table);
  long GetTableType(const std::string& table);
  std::string GetTablePath(const std::string& table);
  std::string GetTableCoordSysName(const std::string& table);
  std::string GetTableCoordSysClause(const std::string& table);
  bool IsTempTable(const std::string& table);
  std::string GetSelectedTableName();
  std::string PathToTableName(const std::string& path);
  std::string GetMetadata(const std::string& table, const std::string& key);
  std::string GetFieldValue(const std::string& table, const std::string& column);

  // ---- catalogue: windows, layers, selection (cartoma_windows.cpp)
  long GetFrontWindow();
  long GetWindowType(long window);
  long GetLayerCount(long mapper);
  std::string GetLayerName(long layer, long mapper);
  long GetLayerType(long layer, long mapper);
  std::string GetSelectionName();
  int GetSelectionCount();
  // The product script's answer to the projection picker.
  std::string GetLastProjection(std::string* niceName);

  // ---- section planes, kept as metadata keys (cartoma_sections.cpp)
  // 1 when `table` is a section, with its plane's origin and bearing in
  // degrees; else 0 with the outs untouched.
  int GetSectionPlane(const std::string& table, double& x, double& y, double& z, double& bearing);
  int SetSectionPlane(const std::string& table, double x, double y, double z, double bearing);
  // The number of the first section layer of the mapper, else 0.
  long FindSectionLayer(long mapper);

  // ---- catalogue: objects (cartoma_objects.cpp)
  int GetObjectType(const std::string& object);
  std::string GetObjectPen(const std::string& object);
  std::string GetObjectBrush(const std::string& object);
  int GetObjectColor(const std::string& object);
  // Appends the object's nodes; 1 when they could be read.
  int GetObjectNodes(const std::string& object, std::vector<double>& xs, std::vector<double>& ys);

  // ---- statements on tables (cartoma_statements.cpp); true when the host
  // reported no error for the statement that decides
  bool OpenTable(const char* path, const char* alias, int hide, int viewAutomatic);
  bool CloseTable(const std::string& table);
  bool CloseTablesByFile(const std::string& path, int nameOnly);
  bool CommitTable(const std::string& table);
  bool CommitTableAs(const std::string& table, const std::string& path, const char* coordSys, int interactive);
  bool DropTable(const std::string& table);
  bool PackTable(const std::string& table);
  bool CreateTable(const std::string& name, const std::string& columns, const char* file, const char* type);
  bool AddColumn(const std::string& table, const std::string& column, const std::string& type);
  bool SelectInto(const std::string& select, const std::string& table);
  bool InsertRow(const std::string& table, const std::string& columns, const std::string& values);
  bool UpdateColumn(const std::string& table, const std::string& column, const std::string& value, const char* rowId);
  bool UpdateRow(const std::string& table, const std::string& column, const std::string& value, int row);
  bool FetchRec(const std::string& table, long row);
  bool FetchRow(const std::string& table, long row);
  bool SetFastEdit(const std::string& table, int on);
  bool SetUndo(const std::string& table, int on);
  bool RunApplication(const std::string& path);
  bool SaveWorkspace(const std::string& path);
  bool MakeTableSubset(const std::string& keyTable, const std::string& source, const std::string& column,
                       const std::string& outFile, const char* orderExtra);

  // ---- statements on objects and styles (cartoma_objects.cpp, cartoma_styles.cpp)
  bool CreatePointVariable(const std::string& variable, double x, double y);
  bool ObjectToVariable(const std::string& variable, const std::string& table);
  int TransformPoint(const std::string& from, double x, double y, const std::string& to, double& outX,
                     double& outY);
  int SetObjectColor(const std::string& object, int colour);
  std::string PickSymbol(const char* style);

  // ---- the host's files on disk (cartoma_files.cpp); they read the files
  // directly, without the session
  static std::string GetRasterFileName(const std::string& tabPath);
  int IsGridRasterTab(const std::string& table);
  static int IsGridRasterTabFile(const std::string& tabPath);
  static int ReadTabControlPoints(const std::string& tabPath, std::vector<double>& xs, std::vector<double>& ys,
                                  std::vector<unsigned long>& pixelXs, std::vector<unsigned long>& pixelYs);
  static int ReadTextLines(const std::string& path, std::vector<std::string>& lines);
  static int CopyTabMetadata(const std::string& source, const std::string& target);

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
  // The inner statement between "Set ProgressBars Off" and "... On".
  bool DoBracketed(const std::string& statement);
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
extern long g_nDefaultWindow;
extern int g_bWindowGone;
extern std::vector<std::string> g_DeferredStatements;
extern std::vector<unsigned long> g_DeferredKeys;
