// SPDX-License-Identifier: MIT
#include "ui/main/Toast.h"

#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/style/Colors.h"

#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace korvan {

TEST(Toast, IsSeenOnOneLineAndGoes) {
    RecordingDesktop desktop;
    MemoryKeyValueStore values;
    ContentView state(values, desktop.desktop());
    QWidget window;
    window.resize(600, 300);
    Toast toast(state, &window);
    activate(window);
    const auto picture = [&window] { return window.grab().toImage(); };
    const QImage before = picture();
    state.copyToClipboard("ls", "Ping");
    toast.refresh();
    const int height = toast.height();
    // Once it has faded in, its text is as dark as any.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QImage line = picture().copy(0, toast.geometry().center().y(), window.width(), 1);
        double most = 0;
        for (int x = 0; x < line.width(); ++x)
            most = std::max(most, contrast(line.pixelColor(x, 0), Qt::white));
        return most > 10;
    }));
    state.copyToClipboard("ls", "Ping\r\nHost\v\u0085?");
    toast.refresh();
    EXPECT_EQ(toast.height(), height);
    EXPECT_EQ(toast.accessibleName(), "In Zwischenablage: Ping Host  ?");
    state.showCopiedToast = false;
    toast.refresh();
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture() == before; }));
}

} // namespace korvan
