#pragma once

#include "models/support/TabState.h"

namespace tavrel {

/// The models of the Optimize tab.
class OptimizeState : public TabState {
    Q_OBJECT

  public:
    using TabState::TabState;
};

}  // namespace tavrel
