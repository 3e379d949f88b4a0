#pragma once

#include <QDBusConnection>
#include <QObject>
#include <chrono>

namespace tavrel {

/// Keeps the program to one running instance for each session: the owner of the name "com.quennith.tavrel" on
/// the session bus. A later start asks the owner to show its window, and ends.
class SingleInstance final : public QObject {
    Q_OBJECT

  public:
    enum class Start { withWindow, quiet };

    enum class Claim {
        owner,       ///< the name is ours
        handedOver,  ///< another instance runs and was notified: this one ends, with success
        alone,       ///< there is no bus, or the owner does not answer: this one runs, without the name
    };

    /// How long an owner may take to answer.
    static constexpr std::chrono::milliseconds patience{2000};

    /// A connection that is not connected makes every claim end `alone`.
    explicit SingleInstance(QDBusConnection bus, QObject* parent = nullptr);
    ~SingleInstance() override;
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Takes the name, or hands over to who has it; waits for `patience` at most. A quiet start wants no
    /// window, and so leaves the owner in peace.
    [[nodiscard]] Claim claim(Start start);

    /// Whether the program can be asked over the bus to show itself.
    [[nodiscard]] bool ownsName() const;

    /// Gives the name up, so that a successor can start before this instance has ended.
    void release();

  Q_SIGNALS:
    /// The program was opened again. Emitted from the event loop, after the caller has its answer. The
    /// token, empty on most systems, lets the window take the focus.
    void reopenAsked(const QString& activationToken);
    /// The bus has gone, and the name with it.
    void nameLost();

    void asked(const QString& activationToken, QPrivateSignal);

  private Q_SLOTS:
    void disconnected();

  private:
    enum class Answer { given, noOwner, none };

    [[nodiscard]] bool exportInterface();
    [[nodiscard]] bool requestName();
    [[nodiscard]] Answer askOwner() const;

    QDBusConnection bus_;
    bool ownsName_ = false;
};

}  // namespace tavrel
