#include "platform/desktop/QtSoundPlayer.h"

#include "platform/desktop/SoundOutput.h"

#include <QByteArray>
#include <QLoggingCategory>
#include <memory>

namespace tavrel {

QtSoundPlayer::~QtSoundPlayer() {
    thread_.quit();
    thread_.wait();
}

void QtSoundPlayer::play(std::span<const float> samples, int sampleRate) {
    if (output_ == nullptr) {
        // A machine without sound is no reason to complain.
        QLoggingCategory::setFilterRules("qt.multimedia.*=false");
        output_ = std::make_unique<SoundOutput>().release();
        output_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, output_, &SoundOutput::deleteLater);
        thread_.setObjectName("sound");
        thread_.start();
    }
    const QByteArray bytes(reinterpret_cast<const char*>(samples.data()),
                           static_cast<qsizetype>(samples.size_bytes()));
    Q_EMIT output_->wanted(bytes, sampleRate);  // the thread that the output lives on takes it up
}

}  // namespace tavrel
