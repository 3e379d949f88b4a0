#include "screens/AppDriver.h"

#include "models/show/FakeIconSource.h"
#include "platform/linux/desktop/LinuxLaunchAtLogin.h"
#include "support/FakeSoundPlayer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <utility>

#include <gtest/gtest.h>

namespace tavrel::testing {

namespace {

bool canBeSeen(const QQuickItem& item) {
    for (const QQuickItem* each = &item; each != nullptr; each = each->parentItem()) {
        if (!each->isVisible() || each->opacity() <= 0.01) return false;
    }
    return true;
}

void walk(QQuickItem& item, const std::function<void(QQuickItem&)>& visit) {
    visit(item);
    for (QQuickItem* child : item.childItems()) walk(*child, visit);
}

bool isButton(const QQuickItem& item) {
    return item.inherits("QQuickAbstractButton");
}

}  // namespace

AppDriver::AppDriver() : mac_(disk_.root()) {
    mac_.fill(0.01);
    start();
}

AppDriver::~AppDriver() {
    program_.reset();
}

void AppDriver::start() {
    auto profile = mac_.profile();
    auto login = std::make_unique<LinuxLaunchAtLogin>(profile.places.autostart(), "/usr/bin/tavrel",
                                                      LinuxLaunchAtLogin::Start::byUser);
    auto clock = std::make_unique<ManualClock>(now());
    clock_ = clock.get();
    program_ = std::make_unique<Program>(Program::Parts{
        .profile = std::move(profile),
        .clock = std::move(clock),
        .launchAtLogin = std::move(login),
        .soundPlayer = std::make_unique<FakeSoundPlayer>(),
        .icons = std::make_unique<FakeIconSource>(),
        .machine = FakeMachine::readers(machine_),
    });
    state().setReduceMotion(true);  // so that nothing is half way when it is looked at
    QObject::connect(&program_->mainWindow().engine(), &QQmlEngine::warnings,
                     [](const QList<QQmlError>& all) {
                         for (const QQmlError& warning : all)
                             ADD_FAILURE() << warning.toString().toStdString();
                     });
    window_ = program_->mainWindow().show();
    ASSERT_NE(window_, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_));
    window_->requestActivate();
    settle();
}

void AppDriver::restart() {
    program_.reset();
    start();
}

std::vector<QQuickItem*> AppDriver::items(const std::function<bool(QQuickItem&)>& wanted) {
    std::vector<QQuickItem*> found;
    walk(*window_->contentItem(), [&](QQuickItem& item) {
        if (canBeSeen(item) && wanted(item)) found.push_back(&item);
    });
    return found;
}

QStringList AppDriver::texts() {
    QStringList all;
    for (const QQuickItem* item : items([](QQuickItem& each) { return each.inherits("QQuickText"); })) {
        const QString text = item->property("text").toString();
        if (!text.isEmpty()) all.append(text);
    }
    return all;
}

QString AppDriver::textWith(const QString& part) {
    for (const QString& text : texts()) {
        if (text.contains(part)) return text;
    }
    return {};
}

void AppDriver::press(const QString& text) {
    const auto buttons = items([&](QQuickItem& item) {
        return isButton(item) && item.isEnabled() && item.property("text").toString() == text;
    });
    ASSERT_FALSE(buttons.empty()) << "no button \"" << text.toStdString()
                                  << "\" among: " << texts().join(QStringLiteral(" | ")).toStdString();
    const QQuickItem& button = *buttons.back();  // what lies on top comes last
    const QPointF middle = button.mapToScene(QPointF(button.width() / 2, button.height() / 2));
    QTest::mouseClick(window_, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
    settle();
}

void AppDriver::type(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_, key, modifiers);
    settle();
}

void AppDriver::until(const std::string& what, const std::function<bool()>& reached) {
    constexpr qint64 patience = 60'000;  // milliseconds
    constexpr double step = 0.05;        // seconds
    QElapsedTimer waited;
    waited.start();
    while (!reached()) {
        ASSERT_LT(waited.elapsed(), patience) << "never came to be: " << what;
        QTest::qWait(2);
        clock_->advance(step);
    }
    settle();
}

void AppDriver::settle() {
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::qWait(5);
    }
}

}  // namespace tavrel::testing
