// SPDX-License-Identifier: MIT
#include "desktop/DesktopSettings.h"

#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

const QString kPath = u"/org/freedesktop/portal/desktop"_s;
const QString kFactor = u"AnimationDurationFactor"_s;

QVariant boxed(const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); }

// A settings portal. Its desktop is dark and keeps still.
class Portal final : public QDBusVirtualObject {
public:
    explicit Portal(const QDBusConnection& connection) : m_connection(connection) {
        m_connection.registerVirtualObject(kPath, this);
        m_connection.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    void change(const QString& group, const QString& key, const QVariant& value) const {
        const auto interface = u"org.freedesktop.portal.Settings"_s;
        auto signal = QDBusMessage::createSignal(kPath, interface, u"SettingChanged"_s);
        m_connection.send(signal << group << key << boxed(value));
    }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        const auto key = call.arguments().at(1).toString();
        const auto value = key == kFactor ? QVariant(u"0"_s) : QVariant(1U);
        return bus.send(call.createReply(boxed(boxed(value)))); // twice, as the real one does
    }

private:
    QDBusConnection m_connection;
};

} // namespace

TEST(DesktopSettings, FollowWhatTheUserChooses) {
    using enum DesktopSettings::ColorScheme;
    int count = 0;
    const QGuiApplication application(count, nullptr);
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    const SessionBus bus;
    const Portal portal(bus.connection("portal"));
    const DesktopSettings settings(bus.connection("korvan"));
    const auto becomes = [&](DesktopSettings::ColorScheme scheme, bool isStill) {
        return QTest::qWaitFor([&] {
            return settings.colorScheme() == scheme && settings.reducesMotion() == isStill;
        });
    };
    EXPECT_TRUE(becomes(dark, true));
    EXPECT_TRUE(settings.wantsMoreContrast());
    portal.change(u"org.kde.kdeglobals.KDE"_s, kFactor, u"0.5"_s);
    EXPECT_TRUE(becomes(dark, false));
    portal.change(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    EXPECT_TRUE(becomes(dark, true));
    portal.change(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2U);
    EXPECT_TRUE(becomes(light, true));
    portal.change(u"org.freedesktop.appearance"_s, u"contrast"_s, 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !settings.wantsMoreContrast(); }));

    const auto gnome = u"org.gnome.desktop.interface"_s;
    const auto hasFont = [&](const std::optional<QFont>& font) {
        return QTest::qWaitFor([&] { return settings.font() == font; });
    };
    const auto family = u"DejaVu Sans"_s;
    EXPECT_TRUE(hasFont(std::nullopt));
    portal.change(gnome, u"font-name"_s, family + u" Ganz-Fett 12"_s);
    EXPECT_TRUE(hasFont(QFont(family, 12)));
    portal.change(gnome, u"text-scaling-factor"_s, 1.5);
    EXPECT_TRUE(hasFont(QFont(family, 18)));
    portal.change(gnome, u"font-name"_s, u"No Such Font 12"_s);
    EXPECT_TRUE(hasFont(std::nullopt));
    portal.change(gnome, u"font-name"_s, family + u" 10"_s);
    EXPECT_TRUE(hasFont(QFont(family, 15)));
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_EQ(settings.font(), std::nullopt);
}

} // namespace korvan
