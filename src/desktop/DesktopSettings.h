// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QFont>
#include <QObject>
#include <chrono>
#include <optional>
#include <vector>

class QDBusVariant;

namespace korvan {

// How the desktop's user wants all programs to look: dark or light, with more contrast, with or
// without motion, and on GNOME the font, which Qt does not learn there. The settings portal, which
// every desktop has, tells it over the session bus.
//
// The constructor only sends the questions. Until an answer comes, and where none ever comes, the
// values are the defaults. After that they follow the user's choice.
class DesktopSettings final : public QObject {
    Q_OBJECT

public:
    enum class ColorScheme { none, dark, light };

    explicit DesktopSettings(const QDBusConnection& bus = QDBusConnection::sessionBus());

    // Waits until all questions are answered, for `atMost` at the longest. Does not emit changed().
    void waitForAnswers(std::chrono::milliseconds atMost);

    // What the user prefers; none when they have no preference.
    [[nodiscard]] ColorScheme colorScheme() const { return m_colorScheme; }
    [[nodiscard]] bool wantsMoreContrast() const { return m_wantsMoreContrast; }
    [[nodiscard]] bool reducesMotion() const { return !m_isAnimated || m_durationFactor == 0; }
    // The font of all texts, enlarged as the user wants; nothing on desktops other than GNOME.
    [[nodiscard]] std::optional<QFont> font() const;

Q_SIGNALS:
    // Any of the values may have changed.
    void changed();

private Q_SLOTS:
    void follow(const QString& group, const QString& key, const QDBusVariant& value);

private:
    struct Question {
        QString group;
        QString key;
        QDBusPendingCall answer;
    };

    void ask(QDBusConnection& bus, const QString& group, const QString& key);
    void take(const Question& question);
    void take(const QString& group, const QString& key, QVariant value);
    void takeNumber(const QString& group, const QString& key, double number);

    std::vector<Question> m_questions;
    ColorScheme m_colorScheme = ColorScheme::none;
    bool m_wantsMoreContrast = false;
    bool m_isAnimated = true;    // as GNOME keeps it
    double m_durationFactor = 1; // as KDE keeps it
    QString m_fontName;          // as GNOME keeps it: family, style and size in points
    double m_textScale = 1;
};

} // namespace korvan
