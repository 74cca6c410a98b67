// SPDX-License-Identifier: MIT
#include "ui/style/KorvanStyle.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Without a screen, and so without a desktop whose looks would vary; a developer may name one.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KORVAN_TEST_SCREENS);
    QApplication application(argc, argv);
    QApplication::setStyle(new korvan::KorvanStyle);
    return RUN_ALL_TESTS();
}
