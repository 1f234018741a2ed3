#include "host_session.h"

#include <array>
#include <utility>

#include "cli_errors.h"
#include "data_tables.h"
#include "formkit/formkit.h"
#include "host/cartoma.h"
#include "sim/host/linked_c_api.h"
#include "sim/host/emulator.h"

namespace cli {
namespace {

// The script each product runs in the host, which the library looks for
// when it connects.
struct ProductScript {
  const char* product;
  const char* script;
};
constexpr std::array<ProductScript, 4> kProductScripts{{{"Terravik", "terravik.cbx"},
                                                        {"Zelvar", "zelvar.cbx"},
                                                        {"Zelvar3D", "zelvar3d.cbx"},
                                                        {"Vigilprofiler", "utilities.cbx"}}};

const char* ScriptOf(const std::string& product) {
  for (const ProductScript& entry : kProductScripts)
    if (product == entry.product) return entry.script;
  throw UsageError("unknown product '" + product + "' (Terravik, Zelvar, Zelvar3D or Vigilprofiler)");
}

}  // namespace

struct HostSession::InProcessHost {
  explicit InProcessHost(const std::string& product) {
    emulator.AddScript(ScriptOf(product));
    registration = std::make_unique<sim::CApiRegistration>(sim::LinkedHostCApi(), emulator.Application());
  }
  sim::Emulator emulator;
  std::unique_ptr<sim::CApiRegistration> registration;
};

void InitProduct(const std::string& product) {
  ScriptOf(product);
  if (InitFormkitInstance(product.c_str()) != 1) throw UsageError("the library does not know product " + product);
}

HostSession::HostSession(const GlobalOptions& options) {
  InitProduct(options.product);
  if (!options.bus) m_inProcess = std::make_unique<InProcessHost>(options.product);
  if (ConnectToCartoma(Handle()) != 1) {
    const std::string reason = CartomaLastError();
    throw ToolFailure(options.bus ? "no host serves \"Cartoma.Application\" on the session bus" +
                                        (reason.empty() ? std::string() : ": " + reason)
                                  : "the host emulator did not connect: " + reason);
  }
  for (const TableFile& table : FindTableFiles(options.data))
    if (!g_Cartoma.OpenTable(table.path.c_str(), table.name.c_str(), 1, 0))
      throw ToolFailure("cannot open " + table.path + ": " + g_Cartoma.m_strLastError);
}

HostSession::~HostSession() = default;

std::int32_t HostSession::Handle() const { return m_inProcess ? m_inProcess->registration->Handle() : 0; }

void HostSession::Do(const std::string& statement) {
  int error = 0;
  g_Cartoma.Do(statement, 1, &error);
  if (error) throw ToolFailure(g_Cartoma.m_strLastError);
}

std::string HostSession::Eval(const std::string& expression) {
  int error = 0;
  std::string value = g_Cartoma.Eval(expression, &error);
  if (error) throw ToolFailure(g_Cartoma.m_strLastError);
  return value;
}

void HostSession::QueueProjection(const std::string& clause, const std::string& niceName) {
  if (!m_inProcess)
    throw UsageError("the projection of a host on the bus is its own to pick (start cartoma-sim with --projection)");
  m_inProcess->emulator.QueueProjection(clause, niceName);
}

}  // namespace cli
