// SPDX-License-Identifier: MIT
#include "app/AboutView.h"

#include "app/ProgramBundle.h"
#include "support/Widgets.h"

#include <QPushButton>
#include <gtest/gtest.h>

namespace korvan {

TEST(AboutView, HasItsSizeAndClosesOnReturn) {
    AboutView about(programBundle(), nullptr);
    activate(about);
    EXPECT_EQ(about.size(), QSize(640, 520));
    EXPECT_TRUE(qobject_cast<QPushButton*>(buttonOf(about, "Schließen"))->isDefault());
    QTest::keyClick(&about, Qt::Key_Return);
    EXPECT_FALSE(about.isVisible());
}

} // namespace korvan
