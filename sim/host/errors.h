// Failures of the emulated host. Each carries a description a person can
// act on; the automation object raises it as the host's dispatch error.
#pragma once

#include <stdexcept>
#include <string>

namespace sim {

// A statement or expression that doesn't follow the grammar.
class SyntaxError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A statement that is well formed but can't be carried out: a table that
// is not open, a column that doesn't exist, a file that can't be written.
class HostError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace sim
