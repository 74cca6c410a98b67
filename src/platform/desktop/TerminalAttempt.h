// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

class QSocketNotifier;

namespace korvan {

// The attempt to start the first of several commands that does not fail in its first moments.
// Deletes itself when there is nothing left to watch.
class TerminalAttempt final : public QObject {
public:
    // `refused` is called from the event loop when all have failed after start() answered true.
    TerminalAttempt(std::vector<std::vector<std::string>> commands, std::function<void()> refused,
                    QObject* parent);
    ~TerminalAttempt() override;

    // Starts the first command that can be started; false when there is none. Does not wait.
    [[nodiscard]] bool start();

private:
    void watch();
    void stopWatching();
    void look();

    std::vector<std::vector<std::string>> m_commands; // not tried yet
    std::function<void()> m_refused;
    pid_t m_child = 0;
    int m_childDescriptor = -1; // readable when the child has ended
    QSocketNotifier* m_notifier = nullptr;
    QTimer m_pollTimer;    // instead of the notifier, on a system without such descriptors
    QTimer m_firstMoments; // runs while an error status means that the terminal failed
};

} // namespace korvan
