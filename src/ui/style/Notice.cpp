// SPDX-License-Identifier: MIT
#include "ui/style/Notice.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace korvan {

namespace {

constexpr auto kIsNotice = "isNotice";

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isNotice = widget && widget->property(kIsNotice).toBool();
    return isNotice ? new QAccessibleWidget(widget, QAccessible::Notification) : nullptr;
}

} // namespace

void makeNotice(QWidget& widget) {
    widget.setProperty(kIsNotice, true);
    QAccessible::installFactory(makeInterface); // once, however often it is asked
}

// Screen readers speak a notice that shows itself. Qt 6.4 passes no event on to them that would be
// nearer to the matter, such as Alert.
void announce(QWidget& notice, const QString& text) {
    notice.setAccessibleName(text);
    if (!notice.isVisible()) return; // it is spoken as soon as it is
    QAccessibleEvent shown(&notice, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace korvan
