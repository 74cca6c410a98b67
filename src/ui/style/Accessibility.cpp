// SPDX-License-Identifier: MIT
#include "ui/style/Accessibility.h"

#include <QAccessibleWidget>
#include <QDialog>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kIsAnnouncer = "isAnnouncer";

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isAnnouncer = widget && widget->property(kIsAnnouncer).toBool();
    return isAnnouncer ? new QAccessibleWidget(widget, QAccessible::Notification) : nullptr;
}

} // namespace

void setSheetTitle(QDialog& sheet, const QString& title) {
    sheet.setWindowTitle(u"Korvan"_s);
    sheet.setWindowRole(title);
    sheet.setAccessibleName(title);
}

void makeAnnouncer(QWidget& widget) {
    widget.setProperty(kIsAnnouncer, true);
    QAccessible::installFactory(makeInterface); // the toolkit ignores a second call
}

// Screen readers speak a notification when it is shown. Qt 6.4 does not pass on Alert events.
void announce(QWidget& announcer, const QString& text) {
    announcer.setAccessibleName(text);
    if (!announcer.isVisible()) return;
    QAccessibleEvent shown(&announcer, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace korvan
