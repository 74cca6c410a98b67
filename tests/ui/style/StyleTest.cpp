// SPDX-License-Identifier: MIT
#include "ui/style/Colors.h"
#include "ui/style/Controls.h"
#include "ui/style/Symbols.h"
#include "ui/style/TextStyles.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <gtest/gtest.h>

namespace korvan {

namespace {

// A palette as a desktop derives it from a button and a window colour.
QPalette paletteOf(QColor window, QColor text, QColor base) {
    QPalette palette(window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, base);
    return palette;
}

} // namespace

TEST(Colors, CanBeReadOnEveryDesktop) {
    for (const auto& palette :
         {QApplication::palette(), paletteOf(0xefefef, Qt::black, Qt::white),
          paletteOf(0x353535, Qt::white, 0x2a2a2a), paletteOf(0xfdf6e3, 0x657b83, 0xeee8d5),
          paletteOf(Qt::black, Qt::yellow, Qt::black), paletteOf(0x808080, 0x707070, 0x909090)}) {
        for (const auto color :
             {SemanticColor::secondary, SemanticColor::red, SemanticColor::green}) {
            EXPECT_GE(contrast(colorFor(color, palette), palette.color(QPalette::Base)), 4.5);
            EXPECT_GE(contrast(colorFor(color, palette), palette.color(QPalette::Window)), 4.5);
        }
    }
}

TEST(Colors, LetSecondaryTextStepBack) {
    const auto palette = QApplication::palette();
    const auto ground = palette.color(QPalette::Base);
    EXPECT_LT(contrast(colorFor(SemanticColor::secondary, palette), ground),
              contrast(colorFor(SemanticColor::primary, palette), ground) - 4);
}

TEST(Symbols, FollowThePaletteOfTheMoment) {
    const auto before = QApplication::palette();
    for (const auto* name :
         {"terminal", "pencil", "trash", "plus", "doc.on.doc", "arrow.clockwise",
          "square.and.arrow.up", "square.and.arrow.down", "info.circle", "sidebar.right",
          "checkmark", "checkmark.circle.fill", "folder", "xmark.circle.fill"}) {
        const auto icon = symbol(QLatin1String(name));
        for (const auto text : {Qt::blue, Qt::yellow}) {
            QApplication::setPalette(paletteOf(Qt::gray, text, Qt::white));
            const auto image = icon.pixmap(QSize(16, 16), 2.0).toImage();
            ASSERT_EQ(image.size(), QSize(32, 32)) << name;
            int solid = 0;
            for (int y = 0; y < 32; ++y) {
                for (int x = 0; x < 32; ++x) {
                    solid += image.pixelColor(x, y) == QColor(text);
                }
            }
            EXPECT_GT(solid, 40) << name;
        }
    }
    QApplication::setPalette(before);
}

TEST(ElidedLabel, CutsWhatIsShownAndReadsTheWhole) {
    const QFont font = fontFor(TextStyle::caption, FontDesign::monospaced);
    const QString command = QStringLiteral("ssh -p 22 root@host\n") + QString(300, u'x');
    for (const int lines : {1, 2}) {
        const auto shown = elidedLines(command, font, 180, lines);
        ASSERT_EQ(shown.size(), lines);
        EXPECT_TRUE(shown.last().endsWith(u'…'));
        for (const auto& line : shown) {
            EXPECT_LE(QFontMetrics(font).horizontalAdvance(line), 180);
        }
    }
    EXPECT_EQ(elidedLines(QStringLiteral("ls"), font, 180, 2), QStringList(QStringLiteral("ls")));

    ElidedLabel label;
    label.setText(command);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), command);
    EXPECT_LT(label.minimumSizeHint().width(), 40);
}

} // namespace korvan
