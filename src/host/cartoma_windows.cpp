// The catalogue of windows, mapper layers and the selection, and the
// product script's projection picker.
#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"

// The window a default of 0 stands for. Nothing sets it, so 0 reaches the host.
long g_nDefaultWindow = 0;
// Set when the host answered nothing about a window; read by nothing.
int g_bWindowGone = 0;

namespace {
constexpr int WIN_INFO_TYPE = 3;
constexpr long MAP_INFO_LAYERS = 9;
constexpr int LAYER_INFO_NAME = 1;
constexpr int LAYER_INFO_TYPE = 24;
constexpr long SEL_INFO_TABLENAME = 1;
constexpr long SEL_INFO_NROWS = 3;

long OrDefaultWindow(long window) { return window == 0 ? g_nDefaultWindow : window; }
}  // namespace

long CCartoma::GetFrontWindow() { return fk::Atol(Eval("FrontWindow()")); }

long CCartoma::GetWindowType(long window) {
  const std::string answer = Eval(fk::Format("WindowInfo(%ld, %d)", OrDefaultWindow(window), WIN_INFO_TYPE));
  if (answer.empty()) g_bWindowGone = 1;
  return fk::Atol(answer);
}

long CCartoma::GetLayerCount(long mapper) {
  return fk::Atol(Eval(fk::Format("MapperInfo(%ld, %ld)", OrDefaultWindow(mapper), MAP_INFO_LAYERS)));
}

std::string CCartoma::GetLayerName(long layer, long mapper) {
  return Eval(fk::Format("LayerInfo(%ld, %ld, %d)", OrDefaultWindow(mapper), layer, LAYER_INFO_NAME));
}

long CCartoma::GetLayerType(long layer, long mapper) {
  return fk::Atol(Eval(fk::Format("LayerInfo(%ld, %ld, %d)", OrDefaultWindow(mapper), layer, LAYER_INFO_TYPE)));
}

std::string CCartoma::GetSelectionName() { return Eval(fk::Format("SelectionInfo(%ld)", SEL_INFO_TABLENAME)); }

int CCartoma::GetSelectionCount() { return fk::Atoi(Eval(fk::Format("SelectionInfo(%ld)", SEL_INFO_NROWS))); }

std::string CCartoma::GetLastProjection(std::string* niceName) {
  // Asking for the selection makes the script show its projection picker.
  int error = 0;
  std::string projection = ScriptEval("PROJECTION SELECTION", &error);
  if (niceName && error == 0) *niceName = ScriptEval("LAST PROJECTION NICENAME");
  return projection;
}
