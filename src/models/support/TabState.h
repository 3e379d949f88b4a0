#pragma once

#include <QObject>

namespace tavrel {

/// The models of one tab. Each tab derives from it. Lives on the main thread.
class TabState : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool busy READ isBusy NOTIFY busyChanged)

  public:
    using QObject::QObject;

    /// True while work runs that the tab bar marks with a dot.
    [[nodiscard]] virtual bool isBusy() const { return false; }

  Q_SIGNALS:
    void busyChanged();
};

}  // namespace tavrel
