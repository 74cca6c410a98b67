// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopSettings.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace korvan {

namespace {

const QString kPath = u"/org/freedesktop/portal/desktop"_qs;
const QString kFactor = u"AnimationDurationFactor"_qs;

QVariant boxed(const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); }

// A settings portal, on a bus of its own. Its desktop is dark and keeps still.
class Portal final : public QDBusVirtualObject {
public:
    Portal() {
        m_daemon.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
        m_daemon.waitForReadyRead();
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        connection(u"portal"_qs).registerVirtualObject(kPath, this);
        connection(u"portal"_qs).registerService(u"org.freedesktop.portal.Desktop"_qs);
    }
    ~Portal() override { m_daemon.terminate(), m_daemon.waitForFinished(); }

    [[nodiscard]] QDBusConnection connection(const QString& name) const {
        return QDBusConnection::connectToBus(m_address, name);
    }

    void change(const QString& group, const QString& key, const QVariant& value) const {
        const auto interface = u"org.freedesktop.portal.Settings"_qs;
        auto signal = QDBusMessage::createSignal(kPath, interface, u"SettingChanged"_qs);
        connection(u"portal"_qs).send(signal << group << key << boxed(value));
    }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        const auto key = call.arguments().at(1).toString();
        const auto value = key == kFactor ? QVariant(u"0"_qs) : QVariant(1U);
        return bus.send(call.createReply(boxed(boxed(value)))); // twice, as the real one does
    }

private:
    QProcess m_daemon;
    QString m_address;
};

} // namespace

TEST(DesktopSettings, FollowWhatTheUserChooses) {
    using enum DesktopSettings::ColorScheme;
    int count = 0;
    const QCoreApplication application(count, nullptr);
    const Portal portal;
    const DesktopSettings settings(portal.connection(u"korvan"_qs));
    const auto becomes = [&](DesktopSettings::ColorScheme scheme, bool isStill) {
        return QTest::qWaitFor([&] {
            return settings.colorScheme() == scheme && settings.reducesMotion() == isStill;
        });
    };
    EXPECT_TRUE(becomes(dark, true));
    portal.change(u"org.kde.kdeglobals.KDE"_qs, kFactor, u"0.5"_qs);
    EXPECT_TRUE(becomes(dark, false));
    portal.change(u"org.gnome.desktop.interface"_qs, u"enable-animations"_qs, false);
    EXPECT_TRUE(becomes(dark, true));
    portal.change(u"org.freedesktop.appearance"_qs, u"color-scheme"_qs, 2U);
    EXPECT_TRUE(becomes(light, true));
}

} // namespace korvan
