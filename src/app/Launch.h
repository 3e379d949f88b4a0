#pragma once

#include "app/Translations.h"

#include <QDBusConnection>
#include <QGuiApplication>

namespace tavrel {

class Program;
class SingleInstance;

/// From a built program to its last event.
namespace Launch {

/// The application object with the program's name, language and look.
class Application final : public QGuiApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);

  private:
    Translations translations_;
};

/// Shows the window, or starts quietly, and runs until the program ends; its exit status. Without `instance`
/// nobody can open the program again, so it ends with its window.
[[nodiscard]] int run(Program& program, const QDBusConnection& bus, SingleInstance* instance);

}  // namespace Launch
}  // namespace tavrel
