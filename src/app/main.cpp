#include "app/Graphics.h"
#include "app/Launch.h"
#include "app/Program.h"
#include "app/SessionBus.h"
#include "app/SingleInstance.h"
#include "engine/ThisUser.h"
#include "models/support/Background.h"
#include "platform/linux/desktop/LinuxLaunchAtLogin.h"

#include <QStringList>

namespace {

using namespace tavrel;

/// At the end the program goes first, which waits for removals, and then the name on the bus: a successor
/// does not write the same record and Trash. Nobody waits for reads, so one that hangs does not keep the
/// name.
int run(int argc, char** argv) {
    Graphics::choose();
    Launch::Application application(argc, argv);

    const bool byLogin = application.arguments().contains(QLatin1String(LinuxLaunchAtLogin::loginArgument));
    const QDBusConnection bus = SessionBus::connect();
    SingleInstance instance(bus);
    const auto claim =
        instance.claim(byLogin ? SingleInstance::Start::quiet : SingleInstance::Start::withWindow);
    if (claim == SingleInstance::Claim::handedOver) return 0;

    Program program(
        Program::partsOf(ThisUser::profile(), byLogin ? Program::Start::byLogin : Program::Start::byUser));
    return Launch::run(program, bus, &instance);
}

}  // namespace

// The windowed program. One runs in a session: a second start asks the first to show its window, and ends.
int main(int argc, char** argv) {
    return Background::leave(run(argc, argv));
}
