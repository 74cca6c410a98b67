// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopSettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>

namespace korvan {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColorScheme = QStringLiteral("color-scheme");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kEnableAnimations = QStringLiteral("enable-animations");
const QString kKde = QStringLiteral("org.kde.kdeglobals.KDE");
const QString kDurationFactor = QStringLiteral("AnimationDurationFactor");

} // namespace

DesktopSettings::DesktopSettings(const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    auto connection = bus;
    // Qt connects no slot with a type that it has not met before.
    qRegisterMetaType<QDBusVariant>();
    // From whoever has the portal's path: to name the service would mean to wait for the bus to
    // say who that is.
    connection.connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
                       SLOT(follow(QString, QString, QDBusVariant)));
    ask(connection, kAppearance, kColorScheme);
    ask(connection, kGnome, kEnableAnimations);
    ask(connection, kKde, kDurationFactor);
}

// By Read, which has a younger name but is known to the portals of all ages.
void DesktopSettings::ask(QDBusConnection& bus, const QString& group, const QString& key) {
    auto question =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    question.setArguments({group, key});
    const auto& asked = m_questions.emplace_back(group, key, bus.asyncCall(question));
    auto* watcher = new QDBusPendingCallWatcher(asked.answer, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, asked] {
        watcher->deleteLater();
        take(asked);
        Q_EMIT changed();
    });
}

void DesktopSettings::waitForAnswers(std::chrono::milliseconds atMost) {
    const QDeadlineTimer deadline(atMost);
    const auto isAnswered = [](const Question& question) { return question.answer.isFinished(); };
    // Looked at again and again: Qt waits for an answer without a limit only.
    while (!std::ranges::all_of(m_questions, isAnswered) && !deadline.hasExpired()) {
        QThread::usleep(200);
    }
    for (const auto& question : m_questions) {
        take(question);
    }
}

void DesktopSettings::follow(const QString& group, const QString& key, const QDBusVariant& value) {
    take(group, key, value.variant());
    Q_EMIT changed();
}

void DesktopSettings::take(const Question& question) {
    // An error means: no portal, or not a setting of this desktop.
    if (!question.answer.isFinished() || question.answer.isError()) return;
    take(question.group, question.key, question.answer.reply().arguments().value(0));
}

void DesktopSettings::take(const QString& group, const QString& key, QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber); // KDE's is a text
    if (!isNumber) return;
    if (group == kAppearance && key == kColorScheme) {
        m_colorScheme = number == 1   ? ColorScheme::dark
                        : number == 2 ? ColorScheme::light
                                      : ColorScheme::none;
    } else if (group == kGnome && key == kEnableAnimations) {
        m_isAnimated = number != 0;
    } else if (group == kKde && key == kDurationFactor) {
        m_durationFactor = number;
    }
}

} // namespace korvan
