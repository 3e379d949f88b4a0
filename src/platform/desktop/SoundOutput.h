#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <memory>

class QAudioSink;

namespace tavrel {

class SampleQueue;

/// The connection to the sound system, on the thread that it was moved to. Made with the first sound, and
/// given up when nothing sounded for a while, so that the device can sleep.
class SoundOutput final : public QObject {
    Q_OBJECT

  public:
    SoundOutput();
    ~SoundOutput() override;

  Q_SIGNALS:
    /// May be emitted on any thread: mono floats, `sampleRate` of them a second.
    void wanted(const QByteArray& samples, int sampleRate);

  private:
    void play(const QByteArray& samples, int sampleRate);
    void open(int sampleRate);
    void close();

    SampleQueue* queue_;  // a child
    QTimer closing_;
    std::unique_ptr<QAudioSink> sink_;
};

}  // namespace tavrel
