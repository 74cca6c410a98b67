// SPDX-License-Identifier: MIT
#include "ui/style/Announcement.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace korvan {

namespace {

constexpr auto kIsAnnouncer = "isAnnouncer";

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isAnnouncer = widget && widget->property(kIsAnnouncer).toBool();
    return isAnnouncer ? new QAccessibleWidget(widget, QAccessible::Notification) : nullptr;
}

} // namespace

void makeAnnouncer(QWidget& widget) {
    widget.setProperty(kIsAnnouncer, true);
    QAccessible::installFactory(makeInterface); // once, however often it is asked
}

// Screen readers speak a notification when it is shown. Qt 6.4 does not pass Alert on to them.
void announce(QWidget& announcer, const QString& text) {
    announcer.setAccessibleName(text);
    if (!announcer.isVisible()) return; // it is spoken as soon as it is
    QAccessibleEvent shown(&announcer, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace korvan
