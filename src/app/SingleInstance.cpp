#include "app/SingleInstance.h"

#include "app/ApplicationInterface.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <utility>

namespace tavrel {

namespace {

const auto serviceName = QStringLiteral("com.quennith.tavrel");
const auto objectPath = QStringLiteral("/com/quennith/tavrel");

/// What the bus library itself tells of a connection, besides what comes over it.
const auto localPath = QStringLiteral("/org/freedesktop/DBus/Local");
const auto localInterface = QStringLiteral("org.freedesktop.DBus.Local");

/// How often the owner may end between our finding the name taken and our asking.
constexpr int attempts = 3;

QVariantMap ownPlatformData() {
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    QVariantMap data;
    if (!token.isEmpty()) data.insert(QLatin1String(ApplicationInterface::tokenKey), token);
    return data;
}

}  // namespace

SingleInstance::SingleInstance(QDBusConnection bus, QObject* parent) : QObject(parent), bus_(std::move(bus)) {
    // Who asks has the answer before anything is opened, which may take a while.
    connect(this, &SingleInstance::asked, this, &SingleInstance::reopenAsked, Qt::QueuedConnection);
    new ApplicationInterface(this, [this](const QString& token) { Q_EMIT asked(token, {}); });
}

SingleInstance::~SingleInstance() {
    release();
}

SingleInstance::Claim SingleInstance::claim(Start start) {
    if (!bus_.isConnected()) return Claim::alone;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (requestName()) return Claim::owner;
        if (start == Start::quiet) return Claim::handedOver;
        const Answer answer = askOwner();
        if (answer == Answer::given) return Claim::handedOver;
        if (answer == Answer::none) break;
    }
    return Claim::alone;
}

bool SingleInstance::ownsName() const {
    return ownsName_ && bus_.isConnected();
}

void SingleInstance::release() {
    if (!std::exchange(ownsName_, false) || !bus_.isConnected()) return;
    bus_.interface()->unregisterService(serviceName);
    bus_.unregisterObject(objectPath);
}

void SingleInstance::disconnected() {
    if (std::exchange(ownsName_, false)) Q_EMIT nameLost();
}

bool SingleInstance::exportInterface() {
    return bus_.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
}

/// The interface is there before the name is: who finds the name taken can ask at once.
bool SingleInstance::requestName() {
    if (!exportInterface()) return false;
    const auto reply = bus_.interface()->registerService(serviceName);
    ownsName_ = reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
    if (!ownsName_) {
        bus_.unregisterObject(objectPath);
        return false;
    }
    bus_.connect({}, localPath, localInterface, QStringLiteral("Disconnected"), this, SLOT(disconnected()));
    return true;
}

SingleInstance::Answer SingleInstance::askOwner() const {
    QDBusMessage call = QDBusMessage::createMethodCall(serviceName, objectPath,
                                                       QLatin1String(ApplicationInterface::interfaceName),
                                                       QStringLiteral("Activate"));
    call << ownPlatformData();
    call.setAutoStartService(false);  // an owner that has just ended is ours to follow
    const QDBusMessage reply = bus_.call(call, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() == QDBusMessage::ReplyMessage) return Answer::given;
    const auto error = QDBusError(reply).type();
    const bool gone = error == QDBusError::ServiceUnknown ||
                      reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    return gone ? Answer::noOwner : Answer::none;
}

}  // namespace tavrel
