// SPDX-License-Identifier: MIT
#include "ui/style/Controls.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Symbols.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <tuple>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

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
        for (const auto name :
             {SemanticColor::secondary, SemanticColor::red, SemanticColor::green}) {
            const auto color = colorFor(name, palette);
            EXPECT_GE(contrast(color, palette.color(QPalette::Base)), 4.5);
            EXPECT_GE(contrast(color, palette.color(QPalette::Window)), 4.5);
        }
    }
}

TEST(KorvanStyle, TakesTheDesktopsPaletteUnlessThatIsLightWhereDarkIsWishedFor) {
    KorvanStyle style;
    const auto taken = [&style](QPalette palette) {
        style.polish(palette);
        return palette.color(QPalette::Window);
    };
    const auto light = paletteOf(0xefefe0, Qt::black, Qt::white);
    const auto dark = paletteOf(0x203540, Qt::white, 0x2a2a2a);
    EXPECT_EQ(taken(light), QColor(0xefefe0));
    style.setScheme(KorvanStyle::Scheme::dark);
    EXPECT_EQ(taken(dark), QColor(0x203540));
    EXPECT_EQ(taken(light), style.standardPalette().color(QPalette::Window));
    EXPECT_TRUE(isDark(style.standardPalette()));
    style.setScheme(KorvanStyle::Scheme::light);
    EXPECT_EQ(taken(dark), QColor(0x203540));
}

TEST(KorvanStyle, TellsListsFromTheWindowInAFlatPalette) {
    KorvanStyle style;
    for (auto [window, text, base] : {std::tuple<QColor, QColor, QColor>(0xfaf9f8, 0, Qt::white),
                                      {0x303030, Qt::white, 0x252525},
                                      {Qt::black, Qt::white, Qt::black}}) {
        auto palette = paletteOf(window, text, window);
        palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::gray);
        style.polish(palette);
        EXPECT_EQ(palette.color(QPalette::Active, QPalette::Base).rgb(), base.rgb());
        EXPECT_EQ(palette.color(QPalette::Inactive, QPalette::WindowText), text);
    }
}

// Qt's theme for GNOME has a palette for fields alone, and sets it before there is a style.
TEST(KorvanStyle, GivesFieldsTheColorsOfAllTheOthers) {
    const auto setTheirs = [] {
        QApplication::setPalette(paletteOf(Qt::gray, Qt::black, Qt::red), "QLineEdit");
    };
    QWidget window;
    QLineEdit field(&window);
    const auto isLikeOthers = [&field] {
        return field.palette().color(QPalette::Base) ==
               QApplication::palette().color(QPalette::Base);
    };
    window.show();
    setTheirs();
    EXPECT_FALSE(isLikeOthers());
    KorvanStyle style;
    style.setScheme(KorvanStyle::Scheme::light);
    EXPECT_TRUE(isLikeOthers());
    setTheirs();
    QEvent change(QEvent::ThemeChange);
    QCoreApplication::sendEvent(&window, &change);
    EXPECT_TRUE(isLikeOthers());
}

// They are in the panels of other people, where Fusion has them as dark as a text.
TEST(KorvanStyle, DrawsFramesThatAreLinesAsHairlines) {
    for (const auto shape : {QFrame::HLine, QFrame::VLine}) {
        QFrame frame;
        frame.setFrameStyle(static_cast<int>(shape) | QFrame::Plain);
        frame.resize(9, 9);
        auto expected = QImage(9, 9, QImage::Format_RGB32);
        expected.fill(frame.palette().color(QPalette::Window));
        const bool isLevel = shape == QFrame::HLine;
        QPainter(&expected).fillRect(isLevel ? QRect(0, 4, 9, 1) : QRect(4, 0, 1, 9),
                                     colorFor(SemanticColor::separator, frame.palette()));
        EXPECT_TRUE(frame.grab().toImage().convertToFormat(QImage::Format_RGB32) == expected);
    }
}

TEST(Symbols, AreSharpAndFollowThePaletteOfTheMoment) {
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
            for (int at = 0; at < 32 * 32; ++at)
                solid += image.pixelColor(at % 32, at / 32) == QColor(text);
            EXPECT_GT(solid, 40) << name;
        }
    }
    QApplication::setPalette(before);
}

// A blurred symbol is one that was drawn in 16 pixels and enlarged.
TEST(Symbols, AreDrawnInTheScreensPixelsInAButton) {
    for (const auto* name : {"pencil", "trash", "plus", "sidebar.right"}) {
        QStyleOptionToolButton option;
        option.icon = symbol(QLatin1String(name));
        option.iconSize = QSize(16, 16);
        option.rect = QRect(QPoint(), option.iconSize);
        option.state = QStyle::State_Enabled;
        QImage shown(32, 32, QImage::Format_ARGB32_Premultiplied);
        shown.setDevicePixelRatio(2);
        shown.fill(Qt::transparent);
        QPainter painter(&shown);
        QApplication::style()->drawControl(QStyle::CE_ToolButtonLabel, &option, &painter);
        painter.end();
        shown.setDevicePixelRatio(1);
        EXPECT_TRUE(shown == option.icon.pixmap(QSize(32, 32), 1.0).toImage()) << name;
    }
}

TEST(KorvanStyle, TellsTheWholeWindowOfTheDesktopsNewFont) {
    // Of a font that the desktop has changed, Qt tells the windows alone, and in a test everyone.
    class Deafness final : public QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            return event->type() == QEvent::ApplicationFontChange;
        }
    } deafness;
    const auto before = QApplication::font();
    QWidget window;
    QVBoxLayout layout(&window);
    auto* label = new Label(u"Kategorien"_s, TextStyle::headline);
    auto* button = new QPushButton(u"Copy"_s);
    setTextStyle(*button, TextStyle::subheadline);
    layout.addWidget(label);
    layout.addWidget(button);
    window.show();
    label->installEventFilter(&deafness);
    button->installEventFilter(&deafness);
    auto larger = before;
    larger.setPointSizeF(2 * before.pointSizeF());
    QApplication::setFont(larger);
    label->removeEventFilter(&deafness);
    button->removeEventFilter(&deafness);
    const auto size = [](TextStyle style) { return fontFor(style).pointSizeF(); };
    EXPECT_NE(label->font().pointSizeF(), size(TextStyle::headline));

    QEvent change(QEvent::ApplicationFontChange);
    QCoreApplication::sendEvent(&window, &change);
    EXPECT_EQ(label->font().pointSizeF(), size(TextStyle::headline));
    EXPECT_EQ(button->font().pointSizeF(), size(TextStyle::subheadline));
    QApplication::setFont(before);
}

TEST(KorvanStyle, DoesNotTakeTheFontForCodeForTheOneOfAllTexts) {
    const auto before = QApplication::font();
    QWidget window;
    window.show();
    const auto becomes = [&window](const QFont& font) {
        QApplication::setFont(font);
        QEvent change(QEvent::ThemeChange);
        QCoreApplication::sendEvent(&window, &change);
        return QApplication::font().family();
    };
    EXPECT_EQ(becomes(QFont(u"DejaVu Serif"_s)), u"DejaVu Serif");
    EXPECT_EQ(becomes(QFont(u"DejaVu Sans Mono"_s)), u"DejaVu Serif");
    QApplication::setFont(before);
}

TEST(ElidedLabel, CutsWhatIsShownAndReadsTheWhole) {
    QWidget column;
    QVBoxLayout layout(&column);
    ElidedLabel label(TextStyle::caption, SemanticColor::secondary, 2);
    layout.addWidget(&label);
    layout.addStretch();
    column.resize(180, 200);
    column.show();
    const int line = label.fontMetrics().lineSpacing();
    const QString command = QStringLiteral("ssh -p 22 root@host\n") + QString(300, u'x');
    for (const auto& [text, lines] : {std::pair(QStringLiteral("ls"), 1), std::pair(command, 2)}) {
        label.setText(text);
        layout.activate();
        EXPECT_EQ(label.height(), lines * line);
        const auto shown = elidedLines(text, label.font(), label.width(), 2);
        EXPECT_EQ(shown.size(), lines);
        EXPECT_EQ(shown.last().endsWith(u'…'), text == command);
        EXPECT_LE(label.fontMetrics().horizontalAdvance(shown.last()), label.width());
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), command);
}

} // namespace korvan
