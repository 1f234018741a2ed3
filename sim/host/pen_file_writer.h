// The host's pen file written out: a "PEN2" header, the directory of pen
// records and each record's passes, as the host keeps its line styles.
#pragma once

#include <string>
#include <vector>

namespace sim {

// A pen: its passes, each a program of at most 255 bytes.
using PenPasses = std::vector<std::string>;

// The bytes of a pen file holding `pens` in order; empty when the file
// would be larger than its 16-bit directory can address.
std::string PenFileBytes(const std::vector<PenPasses>& pens);
// Writes them to `path`; false when the file can't be written.
bool WritePenFile(const std::string& path, const std::vector<PenPasses>& pens);

}  // namespace sim
