#include "app/Instance.h"
#include "app/QtBus.h"
#include "app/SingleInstance.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <array>
#include <memory>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Instance;
using testing::QtBus;
using Claim = SingleInstance::Claim;
using Start = SingleInstance::Start;

const auto serviceName = QStringLiteral("com.quennith.tavrel");
const auto objectPath = QStringLiteral("/com/quennith/tavrel");
const auto busVariable = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");
const auto folderVariable = QStringLiteral("XDG_RUNTIME_DIR");
const auto tokenVariable = QStringLiteral("XDG_ACTIVATION_TOKEN");
const QStringList byLogin = {QStringLiteral("--login")};

class SingleInstanceTest : public ::testing::Test {
  protected:
    QtBus bus;
    Instance::Environment environment = {{busVariable, bus.address()}};

    [[nodiscard]] Instance::Environment withToken(const QString& token) const {
        auto all = environment;
        all[tokenVariable] = token;
        return all;
    }
};

TEST_F(SingleInstanceTest, ALaterStartAsksTheFirstForItsWindowAndEnds) {
    Instance first(environment);
    ASSERT_EQ(first.line(), "owner");
    EXPECT_TRUE(Instance(environment).endsSilently());
    EXPECT_EQ(first.line(), "reopen ");

    EXPECT_TRUE(Instance(environment, byLogin).endsSilently());
    EXPECT_TRUE(Instance(withToken(QStringLiteral("t-1"))).endsSilently());
    EXPECT_EQ(first.line(), "reopen t-1") << "a start by the login asks for nothing";
    EXPECT_EQ(first.complaints(), "");
}

TEST_F(SingleInstanceTest, TheNameIsFreeOnceItsOwnerHasEnded) {
    Instance first(environment, byLogin);
    ASSERT_EQ(first.line(), "owner");
    first.end();
    EXPECT_EQ(Instance(environment).line(), "owner");

    SingleInstance updated(bus.connect());
    EXPECT_EQ(updated.claim(Start::withWindow), Claim::owner);
    updated.release();
    EXPECT_FALSE(updated.ownsName());
    EXPECT_EQ(Instance(environment).line(), "owner") << "a successor of one that still runs";
}

TEST_F(SingleInstanceTest, OfManyStartsAtOnceExactlyOneOwns) {
    for (int round = 0; round < 3; ++round) {
        std::array<std::unique_ptr<Instance>, 5> all;
        for (auto& instance : all) instance = std::make_unique<Instance>(environment);
        const auto hasEnded = [](const auto& instance) {
            return instance->process().waitForFinished(50) || !instance->isRunning();
        };
        QElapsedTimer timer;
        timer.start();
        std::ptrdiff_t ended = 0;
        while (ended < 4 && !timer.hasExpired(10'000))
            ended = std::count_if(all.begin(), all.end(), hasEnded);
        EXPECT_EQ(ended, 4);
        for (const auto& instance : all) {
            if (instance->isRunning()) {
                EXPECT_EQ(instance->line(), "owner");
            } else {
                EXPECT_TRUE(instance->endsSilently());
            }
        }
    }
}

TEST_F(SingleInstanceTest, EveryCallOfADesktopAsksForTheWindow) {
    Instance first(environment);
    ASSERT_EQ(first.line(), "owner");
    const QVariantMap data = {{QStringLiteral("activation-token"), QStringLiteral("t")},
                              {QStringLiteral("desktop-startup-id"), QStringLiteral("s")}};
    const struct {
        const char* method;
        QVariantList arguments;
        const char* said;
    } calls[] = {
        {"Activate", {QVariantMap()}, "reopen "},
        {"Activate", {data}, "reopen t"},
        {"Open", {QStringList{QStringLiteral("file:///")}, data}, "reopen t"},
        {"ActivateAction", {QStringLiteral("x"), QVariantList{1}, data}, "reopen t"},
    };
    QDBusConnection desktop = bus.connect();
    for (const auto& [method, arguments, said] : calls) {
        QDBusMessage call = QDBusMessage::createMethodCall(serviceName, objectPath,
                                                           QStringLiteral("org.freedesktop.Application"),
                                                           QString::fromLatin1(method));
        call.setArguments(arguments);
        EXPECT_EQ(desktop.call(call).type(), QDBusMessage::ReplyMessage) << method;
        EXPECT_EQ(first.line(), said) << method;
    }
}

TEST_F(SingleInstanceTest, AnOwnerThatDoesNotAnswerIsNotWaitedForLong) {
    SingleInstance owner(bus.connect());
    ASSERT_EQ(owner.claim(Start::withWindow), Claim::owner);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Instance(environment).line(), "alone") << "this process runs no events meanwhile";
    EXPECT_LT(timer.elapsed(), 6'000);
}

/// An owner that ends just when it is asked, or that is another program.
class OddOwner final : public QDBusVirtualObject {
  public:
    OddOwner(QDBusConnection bus, QString error) : bus_(std::move(bus)), error_(std::move(error)) {
        bus_.registerVirtualObject(objectPath, this);
        bus_.registerService(serviceName);
    }
    ~OddOwner() override { bus_.unregisterService(serviceName); }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (error_.endsWith(QLatin1String("ServiceUnknown"))) bus_.unregisterService(serviceName);
        return connection.send(message.createErrorReply(error_, {}));
    }

  private:
    QDBusConnection bus_;
    QString error_;
};

TEST_F(SingleInstanceTest, AnOwnerThatEndsMeanwhileIsFollowedAnotherIsPassedBy) {
    const struct {
        QString error;
        const char* said;
    } cases[] = {
        {QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"), "owner\n"},
        {QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"), "alone\n"},
    };
    for (const auto& [error, said] : cases) {
        const OddOwner owner(bus.connect(), error);
        Instance later(environment);
        EXPECT_TRUE(QTest::qWaitFor([&later] { return later.process().canReadLine(); }, 10'000));
        EXPECT_EQ(later.process().readLine(), said);
    }
}

TEST_F(SingleInstanceTest, ABusThatGoesIsOutlived) {
    Instance first(environment);
    ASSERT_EQ(first.line(), "owner");
    SingleInstance here(bus.connect());
    EXPECT_EQ(here.claim(Start::quiet), Claim::handedOver);
    bus.stop();
    EXPECT_EQ(first.line(), "lost");
    EXPECT_FALSE(first.process().waitForFinished(200));
    EXPECT_TRUE(QTest::qWaitFor([&here] { return here.claim(Start::withWindow) == Claim::alone; }));
}

TEST_F(SingleInstanceTest, TheBusIsFoundOrDoneWithout) {
    const QString nowhere = bus.folder() + QStringLiteral("/nowhere");
    const testing::Sandbox odd;
    odd.text("bus", "no socket");
    const struct {
        const char* name;
        Instance::Environment environment;
        const char* said;
    } cases[] = {
        {"nothing known", {}, "alone"},
        {"an empty address", {{busVariable, {}}}, "alone"},
        {"one that would start a bus", {{busVariable, QStringLiteral("autolaunch:")}}, "alone"},
        {"a bus switched off", {{busVariable, QStringLiteral("disabled:")}}, "alone"},
        {"no address at all", {{busVariable, QStringLiteral("?")}}, "alone"},
        {"a socket that is gone", {{busVariable, QStringLiteral("unix:path=") + nowhere}}, "alone"},
        {"a folder without a bus", {{folderVariable, nowhere}}, "alone"},
        {"a bus that is no socket", {{folderVariable, QString::fromStdString(odd.root().native())}}, "alone"},
        {"a folder with a bus", {{folderVariable, bus.folder()}}, "owner"},
    };
    for (const auto& [name, surroundings, said] : cases) {
        auto all = surroundings;
        all[QStringLiteral("DISPLAY")] = QStringLiteral(":99999");
        QElapsedTimer timer;
        timer.start();
        Instance instance(all);
        EXPECT_EQ(instance.line(), said) << name;
        EXPECT_LT(timer.elapsed(), 1'500) << name;
        EXPECT_EQ(instance.complaints(), "") << name;
    }
}

}  // namespace
}  // namespace tavrel
