#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <map>

namespace tavrel::testing {

/// A running copy of the program that does nothing but be an instance.
class Instance {
  public:
    using Environment = std::map<QString, QString>;

    /// Of the surroundings it knows only what `environment` holds.
    explicit Instance(const Environment& environment, const QStringList& arguments = {}) {
        QProcessEnvironment all;
        for (const auto& [name, value] : environment) all.insert(name, value);
        process_.setProcessEnvironment(all);
        process_.start(QStringLiteral(TEST_INSTANCE), arguments);
    }
    ~Instance() { end(); }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    /// The next line it says; empty when it has ended, or has been silent for ten seconds. Runs no events.
    QString line() {
        while (!process_.canReadLine()) {
            if (!process_.waitForReadyRead(10'000)) return {};
        }
        return QString::fromUtf8(process_.readLine()).chopped(1);
    }
    /// Whether it ends by itself, with success and without a word.
    bool endsSilently() {
        process_.waitForFinished(10'000);
        return process_.state() == QProcess::NotRunning && process_.exitStatus() == QProcess::NormalExit &&
               process_.exitCode() == 0 && process_.readAllStandardOutput().isEmpty() &&
               complaints().isEmpty();
    }
    [[nodiscard]] bool isRunning() const { return process_.state() == QProcess::Running; }
    QString complaints() { return QString::fromUtf8(process_.readAllStandardError()); }
    QProcess& process() { return process_; }
    void end() {
        process_.kill();
        process_.waitForFinished();
    }

  private:
    QProcess process_;
};

}  // namespace tavrel::testing
