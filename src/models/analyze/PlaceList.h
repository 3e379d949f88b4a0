#pragma once

#include "models/analyze/DiskWork.h"

#include <QObject>
#include <QVariant>
#include <vector>

namespace tavrel {

/// The places that the explorer offers to go to, looked for in the background. A look that hangs keeps
/// nothing else waiting: what was found before stays, and no second look of its kind begins.
class PlaceList final : public QObject {
    Q_OBJECT
    /// Objects of `title`, `symbol` and `url`. It changes only with the places.
    Q_PROPERTY(QVariantList all READ all NOTIFY allChanged)

  public:
    /// Each of `finders` is asked on its own; `work` outlives this object.
    PlaceList(std::vector<DiskWork::PlaceFinder> finders, DiskWork& work);

    [[nodiscard]] QVariantList all() const;

    /// Looks again.
    Q_INVOKABLE void look();

  Q_SIGNALS:
    void allChanged();

  private:
    struct Part {
        DiskWork::PlaceFinder find;
        DiskWork::FoundPlaces found;
        bool isLooking = false;
    };
    std::vector<Part> parts_;
    DiskWork& work_;
};

}  // namespace tavrel
