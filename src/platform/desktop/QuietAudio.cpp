#include "platform/desktop/QuietAudio.h"

#include <QString>
#include <QtGlobal>
#include <mutex>

namespace tavrel {

namespace {

QtMessageHandler others = nullptr;

void say(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QLatin1String("PulseAudioService:"))) return;
    if (others != nullptr) others(type, context, message);
}

}  // namespace

void keepAudioQuiet() {
    static std::once_flag once;
    std::call_once(once, [] { others = qInstallMessageHandler(say); });
}

}  // namespace tavrel
