// The toolkit inside the host process: started once, on the first dialog,
// and kept for the process's life.
#pragma once

namespace fk::ui {

// Starts the toolkit on the calling thread unless it runs already (started
// by us or by the host itself). False when it can't start, e.g. without a
// display.
bool StartToolkit();

}  // namespace fk::ui
