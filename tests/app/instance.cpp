// A program that is nothing but an instance: it says what became of its start, and then what it is told.
#include "app/SessionBus.h"
#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QString>
#include <cstdio>

using tavrel::SingleInstance;

namespace {

void say(const QString& line) {
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const bool byLogin = QCoreApplication::arguments().contains(QStringLiteral("--login"));
    SingleInstance instance(tavrel::SessionBus::connect());
    const auto claim =
        instance.claim(byLogin ? SingleInstance::Start::quiet : SingleInstance::Start::withWindow);
    if (claim == SingleInstance::Claim::handedOver) return 0;
    say(claim == SingleInstance::Claim::owner ? QStringLiteral("owner") : QStringLiteral("alone"));
    QObject::connect(&instance, &SingleInstance::reopenAsked,
                     [](const QString& token) { say(QStringLiteral("reopen ") + token); });
    QObject::connect(&instance, &SingleInstance::nameLost, [] { say(QStringLiteral("lost")); });
    return QCoreApplication::exec();
}
