// The command line as a host: the host emulator started in this process
// and registered through the host C API (or, with --bus, a host already
// serving on the session bus), the library initialised for the product and
// connected, and the --data tables opened. Message boxes of the library's
// dialog boxes are printed on standard error.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "global_options.h"

namespace cli {

class HostSession {
 public:
  explicit HostSession(const GlobalOptions& options);
  ~HostSession();
  HostSession(const HostSession&) = delete;
  HostSession& operator=(const HostSession&) = delete;

  // The handle scripts pass to the exports: 0 for a host on the bus.
  std::int32_t Handle() const;
  // Runs a statement; ToolFailure with the host's text when it fails.
  void Do(const std::string& statement);
  // The value of an expression; ToolFailure with the host's text when it fails.
  std::string Eval(const std::string& expression);
  // What the product script's projection picker answers next; only a host
  // in this process can be told (UsageError with --bus).
  void QueueProjection(const std::string& clause, const std::string& niceName);

 private:
  struct InProcessHost;
  std::unique_ptr<InProcessHost> m_inProcess;
};

// Starts the library for the product (without a host): settings and the
// product's registry key. UsageError for a product the library doesn't know.
void InitProduct(const std::string& product);

}  // namespace cli
