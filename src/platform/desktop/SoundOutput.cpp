#include "platform/desktop/SoundOutput.h"

#include "platform/desktop/QuietAudio.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>
#include <algorithm>
#include <chrono>
#include <cstring>

namespace tavrel {

/// Bytes that wait to be played, first in, first out.
class SampleQueue final : public QIODevice {
  public:
    explicit SampleQueue(QObject* parent) : QIODevice(parent) {
        static_cast<void>(open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    }

    void append(const QByteArray& bytes) { bytes_.append(bytes); }
    void clear() { bytes_.clear(); }
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] qint64 bytesAvailable() const override {
        return bytes_.size() + QIODevice::bytesAvailable();
    }

  protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 count = std::min<qint64>(most, bytes_.size());
        std::memcpy(data, bytes_.constData(), static_cast<std::size_t>(count));
        bytes_.remove(0, count);
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*count*/) override { return -1; }

  private:
    QByteArray bytes_;
};

SoundOutput::SoundOutput() : queue_(new SampleQueue(this)), closing_(this) {
    keepAudioQuiet();
    using namespace std::chrono_literals;
    constexpr auto patience = 2s;  // longer than any system buffers ahead
    closing_.setSingleShot(true);
    closing_.setInterval(patience);
    connect(&closing_, &QTimer::timeout, this, &SoundOutput::close);
    connect(this, &SoundOutput::wanted, this, &SoundOutput::play);
}

SoundOutput::~SoundOutput() = default;

void SoundOutput::play(const QByteArray& samples, int sampleRate) {
    closing_.stop();
    if (sink_ && sink_->format().sampleRate() != sampleRate) close();
    if (!sink_) open(sampleRate);
    if (!sink_) return;
    queue_->append(samples);
    if (sink_->state() == QAudio::ActiveState) return;
    sink_->stop();
    sink_->start(queue_);
    if (sink_->state() == QAudio::StoppedState) close();
}

void SoundOutput::open(int sampleRate) {
    QAudioFormat format;
    format.setSampleRate(sampleRate);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Float);
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull() || !device.isFormatSupported(format)) return;
    sink_ = std::make_unique<QAudioSink>(device, format);
    connect(sink_.get(), &QAudioSink::stateChanged, this, [this](QAudio::State state) {
        if (state != QAudio::ActiveState) closing_.start();
    });
}

void SoundOutput::close() {
    closing_.stop();
    sink_.reset();
    queue_->clear();
}

}  // namespace tavrel
