#pragma once

#include "models/support/TabState.h"

namespace tavrel {

/// The models of the Apps tab.
class AppsState : public TabState {
    Q_OBJECT

  public:
    using TabState::TabState;
};

}  // namespace tavrel
