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

using namespace Qt::StringLiterals;

namespace {

const QString kService = u"org.freedesktop.portal.Desktop"_s;
const QString kPath = u"/org/freedesktop/portal/desktop"_s;
const QString kInterface = u"org.freedesktop.portal.Settings"_s;

const QString kAppearance = u"org.freedesktop.appearance"_s;
const QString kColorScheme = u"color-scheme"_s;
const QString kContrast = u"contrast"_s;
const QString kGnome = u"org.gnome.desktop.interface"_s;
const QString kEnableAnimations = u"enable-animations"_s;
const QString kFontName = u"font-name"_s;
const QString kTextScale = u"text-scaling-factor"_s;
const QString kKde = u"org.kde.kdeglobals.KDE"_s;
const QString kDurationFactor = u"AnimationDurationFactor"_s;

// Other desktops answer questions for GNOME's settings, too, but nobody has chosen those there.
bool isOnGnome() {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(u"GNOME");
}

} // namespace

DesktopSettings::DesktopSettings(const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    auto connection = bus;
    // Qt connects only slots whose types are registered.
    qRegisterMetaType<QDBusVariant>();
    // By the portal's path alone: with the service's name, Qt would wait until the bus has told
    // which process has that name.
    connection.connect(QString(), kPath, kInterface, u"SettingChanged"_s, this,
                       SLOT(follow(QString, QString, QDBusVariant)));
    ask(connection, kAppearance, kColorScheme);
    ask(connection, kAppearance, kContrast);
    ask(connection, kGnome, kEnableAnimations);
    ask(connection, kKde, kDurationFactor);
    if (!isOnGnome()) return;
    ask(connection, kGnome, kFontName);
    ask(connection, kGnome, kTextScale);
}

// Uses `Read`: `ReadOne` is newer and missing in older portals.
void DesktopSettings::ask(QDBusConnection& bus, const QString& group, const QString& key) {
    auto question = QDBusMessage::createMethodCall(kService, kPath, kInterface, u"Read"_s);
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
    // On X11 the desktop enlarges texts by raising the screen's resolution.
    const bool isEnlarged = QGuiApplication::platformName() == u"xcb";
    font.setPointSizeF(isEnlarged ? points : points * m_textScale);
    return font;
}

void DesktopSettings::waitForAnswers(std::chrono::milliseconds atMost) {
    const QDeadlineTimer deadline(atMost);
    const auto isAnswered = [](const Question& question) { return question.answer.isFinished(); };
    // Polls, since Qt can wait for an answer only without a time limit.
    while (!std::ranges::all_of(m_questions, isAnswered) && !deadline.hasExpired())
        QThread::usleep(200);
    for (const auto& question : m_questions)
        take(question);
}

void DesktopSettings::follow(const QString& group, const QString& key, const QDBusVariant& value) {
    take(group, key, value.variant());
    Q_EMIT changed();
}

void DesktopSettings::take(const Question& question) {
    // An error means that there is no portal, or that the desktop does not have the setting.
    if (!question.answer.isFinished() || question.answer.isError()) return;
    take(question.group, question.key, question.answer.reply().arguments().value(0));
}

void DesktopSettings::take(const QString& group, const QString& key, QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (group == kGnome && key == kFontName) {
        m_fontName = value.toString();
        return;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber); // KDE's is a text
    if (isNumber) takeNumber(group, key, number);
}

void DesktopSettings::takeNumber(const QString& group, const QString& key, double number) {
    if (group == kAppearance && key == kColorScheme)
        m_colorScheme = number == 1   ? ColorScheme::dark
                        : number == 2 ? ColorScheme::light
                                      : ColorScheme::none;
    else if (group == kAppearance && key == kContrast)
        m_wantsMoreContrast = number == 1;
    else if (group == kGnome && key == kEnableAnimations)
        m_isAnimated = number != 0;
    else if (group == kGnome && key == kTextScale)
        m_textScale = number;
    else if (group == kKde && key == kDurationFactor)
        m_durationFactor = number;
}

} // namespace korvan
