#pragma once

#include "platform/linux/figures/CpuFigures.h"

#include <vector>

namespace tavrel {

/// Keeps the idle time of each processor from running backwards, as its part for disk waits now and then does
/// (proc(5), "iowait"): a difference of two readings would come out as an enormous rest.
class SteadyIdle {
  public:
    /// Corrects the newest reading. A processor that was away, or whose work was counted anew, starts afresh.
    void apply(std::vector<CpuFigures::Row>& rows);

  private:
    std::vector<CpuFigures::Row> before_;
};

}  // namespace tavrel
