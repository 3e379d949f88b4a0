#pragma once

#include <QObject>

namespace tavrel {

/// Whether continuous animation has to rest, for every screen alike: during scrolling, and while no person
/// can see the window. One is shared by all.
class MotionPause : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool scrolling READ scrolling WRITE setScrolling NOTIFY scrollingChanged)
    Q_PROPERTY(bool hidden READ hidden WRITE setHidden NOTIFY hiddenChanged)
    Q_PROPERTY(bool paused READ paused NOTIFY pausedChanged)

  public:
    using QObject::QObject;

    [[nodiscard]] bool scrolling() const { return scrolling_; }
    [[nodiscard]] bool hidden() const { return hidden_; }
    [[nodiscard]] bool paused() const { return scrolling_ || hidden_; }

    void setScrolling(bool scrolling);
    void setHidden(bool hidden);

  Q_SIGNALS:
    void scrollingChanged();
    void hiddenChanged();
    void pausedChanged();

  private:
    void assign(bool& field, bool value, void (MotionPause::*changed)());

    bool scrolling_ = false;
    bool hidden_ = false;
};

}  // namespace tavrel
