// SPDX-License-Identifier: MIT
#include "desktop/DesktopSettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QThread>
#include <algorithm>

namespace korvan {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColorScheme = QStringLiteral("color-scheme");
const QString kContrast = QStringLiteral("contrast");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kEnableAnimations = QStringLiteral("enable-animations");
const QString kFontName = QStringLiteral("font-name");
const QString kTextScale = QStringLiteral("text-scaling-factor");
const QString kKde = QStringLiteral("org.kde.kdeglobals.KDE");
const QString kDurationFactor = QStringLiteral("AnimationDurationFactor");

// The settings of GNOME can be asked for elsewhere, too, where nobody has ever chosen them.
bool isOnGnome() {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(u"GNOME");
}

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
    ask(connection, kAppearance, kContrast);
    ask(connection, kGnome, kEnableAnimations);
    ask(connection, kKde, kDurationFactor);
    if (!isOnGnome()) return;
    ask(connection, kGnome, kFontName);
    ask(connection, kGnome, kTextScale);
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

std::optional<QFont> DesktopSettings::font() const {
    if (!isOnGnome()) return std::nullopt;
    QStringList words = m_fontName.split(u' ', Qt::SkipEmptyParts);
    bool isNumber = false;
    const double points = words.isEmpty() ? 0 : words.takeLast().toDouble(&isNumber);
    if (!isNumber || points <= 0 || m_textScale <= 0) return std::nullopt;
    // The last words may name a style instead of the family.
    while (!words.isEmpty() && !QFontDatabase::hasFamily(words.join(u' ')))
        words.removeLast();
    if (words.isEmpty()) return std::nullopt;
    QFont font(words.join(u' '));
    // On X11 the desktop enlarges texts by way of the screen's resolution.
    const bool isEnlarged = QGuiApplication::platformName() == u"xcb";
    font.setPointSizeF(isEnlarged ? points : points * m_textScale);
    return font;
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
    if (group == kGnome && key == kFontName) {
        m_fontName = value.toString();
        return;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber); // KDE's is a text
    if (isNumber) takeNumber(group, key, number);
}

void DesktopSettings::takeNumber(const QString& group, const QString& key, double number) {
    if (group == kAppearance && key == kColorScheme) {
        m_colorScheme = number == 1   ? ColorScheme::dark
                        : number == 2 ? ColorScheme::light
                                      : ColorScheme::none;
    } else if (group == kAppearance && key == kContrast) {
        m_wantsMoreContrast = number == 1;
    } else if (group == kGnome && key == kEnableAnimations) {
        m_isAnimated = number != 0;
    } else if (group == kGnome && key == kTextScale) {
        m_textScale = number;
    } else if (group == kKde && key == kDurationFactor) {
        m_durationFactor = number;
    }
}

} // namespace korvan
