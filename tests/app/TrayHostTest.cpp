#include "app/QtBus.h"
#include "app/TrayHost.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QTest>
#include <utility>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::QtBus;

const auto service = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto objectPath = QStringLiteral("/StatusNotifierWatcher");

/// What a desktop runs to bring status items and their hosts together.
class Watcher final : public QDBusVirtualObject {
  public:
    enum class Hosts { none, one, unknown };

    explicit Watcher(QDBusConnection bus) : bus_(std::move(bus)) {
        bus_.registerVirtualObject(objectPath, this);
    }
    void appear(Hosts hosts) {
        hosts_ = hosts;
        bus_.registerService(service);
    }
    void vanish() { bus_.unregisterService(service); }
    void change(Hosts hosts) {
        hosts_ = hosts;
        const auto signal = hosts == Hosts::one ? QStringLiteral("StatusNotifierHostRegistered")
                                                : QStringLiteral("StatusNotifierHostUnregistered");
        bus_.send(QDBusMessage::createSignal(objectPath, service, signal));
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        ++asked;
        if (hosts_ == Hosts::unknown)
            return connection.send(message.createErrorReply(QDBusError::UnknownProperty, {}));
        const auto answer = QVariant::fromValue(QDBusVariant(hosts_ == Hosts::one));
        return connection.send(message.createReply(answer));
    }

    int asked = 0;

  private:
    QDBusConnection bus_;
    Hosts hosts_ = Hosts::none;
};

class TrayHostTest : public ::testing::Test {
  protected:
    QtBus bus;
    Watcher watcher{bus.connect()};

    /// Whether the last change told is to `present`, within a while.
    static bool comesTo(const TrayHost& host, bool present) {
        return QTest::qWaitFor([&] { return host.isPresent() == present; });
    }
};

TEST_F(TrayHostTest, FollowsTheWatcherAndItsHosts) {
    TrayHost host(bus.connect());
    std::vector<bool> told;
    QObject::connect(&host, &TrayHost::changed, [&told](bool present) { told.push_back(present); });
    QTest::qWait(50);
    EXPECT_FALSE(host.isPresent());

    watcher.appear(Watcher::Hosts::none);
    EXPECT_TRUE(QTest::qWaitFor([this] { return watcher.asked > 0; }));
    EXPECT_FALSE(host.isPresent()) << "a watcher shows nothing by itself";
    watcher.change(Watcher::Hosts::one);
    EXPECT_TRUE(comesTo(host, true));
    watcher.change(Watcher::Hosts::none);
    EXPECT_TRUE(comesTo(host, false));
    watcher.vanish();
    watcher.appear(Watcher::Hosts::one);
    EXPECT_TRUE(comesTo(host, true)) << "a desktop whose watcher starts anew";
    watcher.vanish();
    EXPECT_TRUE(comesTo(host, false));
    EXPECT_EQ(told, (std::vector<bool>{true, false, true, false}));
}

TEST_F(TrayHostTest, FindsWhatWasThereBeforeWithoutWaitingForIt) {
    watcher.appear(Watcher::Hosts::one);
    QElapsedTimer timer;
    timer.start();
    const TrayHost host(bus.connect());
    EXPECT_LT(timer.elapsed(), 1'000) << "the watcher answers only once events run";
    EXPECT_TRUE(comesTo(host, true));
}

TEST_F(TrayHostTest, CountsAnErrorAsNone) {
    TrayHost host(bus.connect());
    watcher.appear(Watcher::Hosts::one);
    ASSERT_TRUE(comesTo(host, true));
    watcher.change(Watcher::Hosts::unknown);
    EXPECT_TRUE(comesTo(host, false));
}

TEST_F(TrayHostTest, IsNoneWithoutABus) {
    const TrayHost host(bus.connect());
    watcher.appear(Watcher::Hosts::one);
    ASSERT_TRUE(comesTo(host, true));
    bus.stop();
    EXPECT_TRUE(comesTo(host, false));

    const TrayHost later(bus.connect());
    QTest::qWait(50);
    EXPECT_FALSE(later.isPresent());
}

}  // namespace
}  // namespace tavrel
