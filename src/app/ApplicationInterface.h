#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <functional>
#include <utility>

namespace tavrel {

/// "org.freedesktop.Application" of the Desktop Entry Specification, as desktops call it to open a program
/// that may be running already. The program opens no files and has no actions: each call asks for its window.
class ApplicationInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    static constexpr const char* interfaceName = "org.freedesktop.Application";
    /// The entry of the platform data under which a Wayland desktop passes the right to the focus.
    static constexpr const char* tokenKey = "activation-token";

    /// `asked` is called with the activation token, which may be empty, while the caller waits. It is no
    /// signal, since those of an adaptor go out on the bus for everybody to hear.
    ApplicationInterface(QObject* parent, std::function<void(const QString&)> asked)
        : QDBusAbstractAdaptor(parent), asked_(std::move(asked)) {}

  public Q_SLOTS:  // named as on the bus
    void Activate(const QVariantMap& platformData) { ask(platformData); }
    void Open([[maybe_unused]] const QStringList& uris, const QVariantMap& platformData) {
        ask(platformData);
    }
    void ActivateAction([[maybe_unused]] const QString& name, [[maybe_unused]] const QVariantList& parameter,
                        const QVariantMap& platformData) {
        ask(platformData);
    }

  private:
    void ask(const QVariantMap& platformData) {
        asked_(platformData.value(QLatin1String(tokenKey)).toString());
    }

    std::function<void(const QString&)> asked_;
};

}  // namespace tavrel
