#pragma once

#include "disk/OrbitLayout.h"
#include "disk/OrbitReadout.h"
#include "models/program/AppState.h"

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QVariant>
#include <memory>
#include <qqmlregistration.h>
#include <string>

namespace tavrel {

/// What the explorer's screen needs beside its model: the picture of the folder with its readout, and how
/// full the disk is.
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
    Q_PROPERTY(double diskShare READ diskShare NOTIFY diskChanged)
    Q_PROPERTY(QString diskText READ diskText NOTIFY diskChanged)
    Q_PROPERTY(QUrl folderUrl READ folderUrl NOTIFY folderChanged)
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
    [[nodiscard]] double diskShare() const;
    [[nodiscard]] QString diskText() const;
    [[nodiscard]] QUrl folderUrl() const;
    [[nodiscard]] QString trashFolder() const;

    /// An arc asks for the focus, or gives it back if it still has it.
    Q_INVOKABLE void focus(const QString& id);
    Q_INVOKABLE void unfocus(const QString& id);
    Q_INVOKABLE void open(const QString& id);

  Q_SIGNALS:
    void appChanged();
    void layoutChanged();
    void readoutChanged();
    void folderChanged();
    void diskChanged();

  private:
    [[nodiscard]] AnalyzeModel& model() const { return *app_->analyze(); }
    void layOut();
    void read();

    QPointer<AppState> app_;
    std::shared_ptr<const OrbitLayout> layout_ = std::make_shared<const OrbitLayout>();
    OrbitReadout readout_;
    std::string focusId_;
};

}  // namespace tavrel
