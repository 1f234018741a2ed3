// The options every command shares.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct GlobalOptions {
  std::vector<std::string> data;  // table files, vector data or folders of them
  std::string product = "Terravik";
  bool quiet = false;
  bool bus = false;  // talk to a host already serving on the session bus
};

}  // namespace cli
