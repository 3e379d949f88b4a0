#include "app/Launch.h"

#include "app/Program.h"
#include "app/QtWindowSystem.h"
#include "app/ReducedMotion.h"
#include "app/SingleInstance.h"
#include "app/TrayHost.h"
#include "core/Identity.h"
#include "engine/Language.h"
#include "models/program/AppDelegate.h"
#include "models/show/MotionPause.h"

#include <QFont>
#include <QIcon>
#include <QQuickStyle>
#include <QQuickWindow>

namespace tavrel::Launch {

namespace {

/// How long after its start a program without a window looks whether anything could bring one up.
constexpr std::chrono::seconds unreachableAfter{3};

}  // namespace

Application::Application(int& argc, char** argv) : QGuiApplication(argc, argv) {
    setApplicationName(QLatin1String(Identity::name));
    setDesktopFileName(QLatin1String(Identity::bundleID));
    setWindowIcon(QIcon(QStringLiteral(":/art/icon.png")));
    Language::use();
    installTranslator(&translations_);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QFont font(QStringLiteral("Inter"));
    font.setHintingPreference(QFont::PreferNoHinting);
    setFont(font);
}

int run(Program& program, const QDBusConnection& bus, SingleInstance* instance) {
    AppState& state = program.state();
    TrayHost tray(bus);
    QtWindowSystem windows({
        .makeMainWindow = [&program]() -> QWindow* { return program.mainWindow().show(); },
        // The status item joins the tray with its own screen; until then only the bus brings a window back.
        .canBeReopened = [instance] { return instance != nullptr && instance->ownsName(); },
    });
    AppDelegate delegate(windows, program.clock(), program.defaults(), program.launchAtLogin(),
                         {
                             .createStatusItem = [] {},
                             .setHidden = [&state](bool hidden) { state.motion()->setHidden(hidden); },
                         });
    state.openMainWindow = [&windows] { windows.openMainWindow(); };
    const ReducedMotion reducedMotion(bus, [&state](bool reduced) { state.setReduceMotion(reduced); });

    delegate.applicationWillFinishLaunching();
    windows.setDelegate(delegate);
    if (!delegate.startsQuietly()) windows.openMainWindow();
    delegate.applicationDidFinishLaunching();
    if (instance != nullptr) {
        QObject::connect(instance, &SingleInstance::reopenAsked, &windows, &QtWindowSystem::reopen);
        QObject::connect(instance, &SingleInstance::nameLost, &windows, &QtWindowSystem::endIfUnreachable);
    }
    program.clock().after(unreachableAfter, [&windows] { windows.endIfUnreachable(); });
    return QGuiApplication::exec();
}

}  // namespace tavrel::Launch
