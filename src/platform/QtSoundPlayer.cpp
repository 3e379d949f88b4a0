#include "platform/QtSoundPlayer.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QByteArray>
#include <QIODevice>
#include <QLoggingCategory>
#include <QMediaDevices>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>

namespace tavrel {
namespace {

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

}  // namespace

/// The connection to the sound system. Idle for a while, it is given up, so that the device can sleep.
class QtSoundPlayer::Output final : public QObject {
  public:
    Output() : queue_(this), closing_(this) {
        using namespace std::chrono_literals;
        constexpr auto patience = 2s;  // longer than any system buffers ahead
        closing_.setSingleShot(true);
        closing_.setInterval(patience);
        connect(&closing_, &QTimer::timeout, this, &Output::close);
    }

    void play(const QByteArray& samples, int sampleRate) {
        closing_.stop();
        if (sink_ && sink_->format().sampleRate() != sampleRate) close();
        if (!sink_) open(sampleRate);
        if (!sink_) return;
        queue_.append(samples);
        if (sink_->state() == QAudio::ActiveState) return;
        sink_->stop();
        sink_->start(&queue_);
        if (sink_->state() == QAudio::StoppedState) close();
    }

  private:
    void open(int sampleRate) {
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

    void close() {
        closing_.stop();
        sink_.reset();
        queue_.clear();
    }

    SampleQueue queue_;
    QTimer closing_;
    std::unique_ptr<QAudioSink> sink_;
};

QtSoundPlayer::~QtSoundPlayer() {
    thread_.quit();
    thread_.wait();
}

void QtSoundPlayer::play(std::span<const float> samples, int sampleRate) {
    if (output_ == nullptr) {
        // A machine without sound is no reason to complain.
        QLoggingCategory::setFilterRules("qt.multimedia.*=false");
        output_ = std::make_unique<Output>().release();
        output_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, output_, &QObject::deleteLater);
        thread_.setObjectName("sound");
        thread_.start();
    }
    const QByteArray bytes(reinterpret_cast<const char*>(samples.data()),
                           static_cast<qsizetype>(samples.size_bytes()));
    QMetaObject::invokeMethod(
        output_, [output = output_, bytes, sampleRate] { output->play(bytes, sampleRate); },
        Qt::QueuedConnection);
}

}  // namespace tavrel
