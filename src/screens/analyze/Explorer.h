#pragma once

#include "disk/OrbitLayout.h"
#include "disk/OrbitReadout.h"
#include "models/analyze/AnalyzeModel.h"

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QVariant>
#include <memory>
#include <qqmlregistration.h>
#include <string>

namespace tavrel {

/// The picture of the explorer's folder with its readout.
class Explorer : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::AnalyzeModel* model READ model WRITE setModel NOTIFY modelChanged)
    /// A `std::shared_ptr<const OrbitLayout>`.
    Q_PROPERTY(QVariant layout READ layout NOTIFY layoutChanged)
    Q_PROPERTY(QString focusId READ focusId NOTIFY readoutChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY readoutChanged)
    Q_PROPERTY(QString name READ name NOTIFY readoutChanged)
    Q_PROPERTY(QString size READ size NOTIFY readoutChanged)
    Q_PROPERTY(QString detail READ detail NOTIFY readoutChanged)
    Q_PROPERTY(QUrl folderUrl READ folderUrl NOTIFY folderChanged)

  public:
    using QObject::QObject;

    [[nodiscard]] AnalyzeModel* model() const { return model_; }
    void setModel(AnalyzeModel* model);

    [[nodiscard]] QVariant layout() const;
    [[nodiscard]] QString focusId() const;
    [[nodiscard]] QString icon() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString size() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] QUrl folderUrl() const;

    /// An arc asks for the focus, or gives it back if it still has it.
    Q_INVOKABLE void focus(const QString& id);
    Q_INVOKABLE void unfocus(const QString& id);
    Q_INVOKABLE void open(const QString& id);

  Q_SIGNALS:
    void modelChanged();
    void layoutChanged();
    void readoutChanged();
    void folderChanged();

  private:
    void layOut();
    void read();

    QPointer<AnalyzeModel> model_;
    std::shared_ptr<const OrbitLayout> layout_ = std::make_shared<const OrbitLayout>();
    OrbitReadout readout_;
    std::string focusId_;
};

}  // namespace tavrel
