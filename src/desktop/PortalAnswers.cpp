// SPDX-License-Identifier: MIT
#include "desktop/PortalAnswers.h"

#include <QCoreApplication>
#include <QUrl>

namespace korvan {

using namespace Qt::StringLiterals;

// The answer is addressed to this process, so no service and no path need to be named.
PortalAnswers::PortalAnswers(QDBusConnection bus) {
    if (!bus.isConnected()) return;
    bus.connect(QString(), QString(), u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                SLOT(take(uint, QVariantMap)));
}

bool PortalAnswers::contain(const QString& path) {
    // The panel may have heard of the answer first, and have ended before it was our turn.
    QCoreApplication::sendPostedEvents(this);
    return m_files.contains(path);
}

void PortalAnswers::take(uint response, const QVariantMap& results) {
    constexpr uint agreed = 0;
    if (response != agreed) return;
    for (const auto& uri : results.value(u"uris"_s).toStringList()) {
        m_files << QUrl(uri).toLocalFile();
    }
}

} // namespace korvan
