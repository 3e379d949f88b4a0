#pragma once

#include "models/show/FileIcons.h"
#include "models/show/Shockwave.h"

#include <QObject>

namespace tavrel {

/// The show that all tabs share: the wave that runs out from the hole, and the icons of files. Lives on the
/// main thread.
class ShowState final : public QObject {
    Q_OBJECT
    Q_PROPERTY(tavrel::Shockwave* shockwave READ shockwave CONSTANT)

  public:
    /// Both arguments outlive this object.
    ShowState(Shockwave& shockwave, FileIcons& icons) : shockwave_(shockwave), icons_(icons) {}

    [[nodiscard]] Shockwave* shockwave() { return &shockwave_; }
    [[nodiscard]] FileIcons& icons() { return icons_; }

  private:
    Shockwave& shockwave_;
    FileIcons& icons_;
};

}  // namespace tavrel
