#pragma once

#include "core/AppState.h"
#include "disk/OrbitLayout.h"
#include "disk/OrbitReadout.h"

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QVariant>
#include <filesystem>
#include <memory>
#include <qqmlregistration.h>
#include <vector>

namespace tavrel {

/// What the explorer's screen needs beside its model: the picture of the folder with its readout, the places
/// to go to, the way back and forth, and how full the disk is.
class Explorer : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::AppState* app READ app WRITE setApp NOTIFY appChanged)
    /// A `std::shared_ptr<const OrbitLayout>`.
    Q_PROPERTY(QVariant layout READ layout NOTIFY layoutChanged)
    Q_PROPERTY(QString focusId READ focusId NOTIFY readoutChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY readoutChanged)
    Q_PROPERTY(QString name READ name NOTIFY readoutChanged)
    Q_PROPERTY(QString size READ size NOTIFY readoutChanged)
    Q_PROPERTY(QString detail READ detail NOTIFY readoutChanged)
    Q_PROPERTY(QVariantList places READ places NOTIFY placesChanged)
    Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY historyChanged)
    Q_PROPERTY(double diskShare READ diskShare NOTIFY diskChanged)
    Q_PROPERTY(QString diskText READ diskText NOTIFY diskChanged)
    Q_PROPERTY(QUrl folderUrl READ folderUrl NOTIFY placesChanged)
    Q_PROPERTY(QString trashFolder READ trashFolder NOTIFY appChanged)

  public:
    using QObject::QObject;

    [[nodiscard]] AppState* app() const { return app_; }
    void setApp(AppState* app);

    [[nodiscard]] QVariant layout() const;
    [[nodiscard]] QString focusId() const;
    [[nodiscard]] QString icon() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString size() const;
    [[nodiscard]] QString detail() const;
    /// Objects of `title`, `symbol`, `url` and `selected`: those that exist, with the mounted volumes.
    [[nodiscard]] QVariantList places() const;
    [[nodiscard]] bool canGoForward() const { return !ahead_.empty(); }
    [[nodiscard]] double diskShare() const;
    [[nodiscard]] QString diskText() const;
    [[nodiscard]] QUrl folderUrl() const;
    [[nodiscard]] QString trashFolder() const;

    /// An arc asks for the focus, or gives it back if it still has it.
    Q_INVOKABLE void focus(const QString& id);
    Q_INVOKABLE void unfocus(const QString& id);
    Q_INVOKABLE void open(const QString& id);

    Q_INVOKABLE void goBack();
    Q_INVOKABLE void goForward();

  Q_SIGNALS:
    void appChanged();
    void layoutChanged();
    void readoutChanged();
    void placesChanged();
    void historyChanged();
    void diskChanged();

  private:
    [[nodiscard]] AnalyzeModel& model() const { return *app_->analyze(); }
    [[nodiscard]] OrbitReadout readout() const;
    void layOut();
    void pathHasChanged();

    QPointer<AppState> app_;
    std::shared_ptr<const OrbitLayout> layout_ = std::make_shared<const OrbitLayout>();
    std::vector<std::filesystem::path> ahead_;  // folders that were left by going back, the next one last
    bool walking_ = false;                      // back or forth, so that `ahead_` stays
};

}  // namespace tavrel
