// SPDX-License-Identifier: MIT
#include "support/Widgets.h"
#include "ui/style/Controls.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Palettes.h"
#include "ui/style/Symbols.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOptionToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

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

TEST(Colors, StandOffOnEveryDesktop) {
    auto flat = paletteOf(0xfaf9f8, Qt::black, 0xfaf9f8); // GNOME's, as Qt makes it out
    flat.setColor(QPalette::Inactive, QPalette::WindowText, Qt::gray);
    for (const auto& [given, isHigh] :
         {std::pair(lightPalette(), false), std::pair(darkPalette(), false), std::pair(flat, false),
          std::pair(paletteOf(0x303030, Qt::white, 0x303030), false),
          std::pair(lightHighContrastPalette(), true), std::pair(darkHighContrastPalette(), true),
          std::pair(paletteOf(0xefefef, Qt::black, Qt::white), false),
          std::pair(paletteOf(0x353535, Qt::white, 0x2a2a2a), false),
          std::pair(paletteOf(0xfdf6e3, 0x657b83, 0xeee8d5), false),
          std::pair(paletteOf(Qt::black, Qt::yellow, Qt::black), true),
          std::pair(paletteOf(0x808080, 0x707070, 0x909090), false)}) {
        QPalette shown = given;
        KorvanStyle().polish(shown);
        EXPECT_EQ(isHighContrast(shown), isHigh);
        // A list can be told from its window, and a window that waits can be read.
        EXPECT_TRUE(isHigh || shown.color(QPalette::Base) != shown.color(QPalette::Window));
        EXPECT_EQ(shown.color(QPalette::Inactive, QPalette::WindowText),
                  shown.color(QPalette::Active, QPalette::WindowText));
        const auto least = [&shown](const QColor& color) {
            return std::min(contrast(color, shown.color(QPalette::Base)),
                            contrast(color, shown.color(QPalette::Window)));
        };
        const auto of = [&](SemanticColor name) { return least(colorFor(name, shown)); };
        EXPECT_GE(of(SemanticColor::secondary), isHigh ? 7 : 4.5);
        for (const auto name : {SemanticColor::red, SemanticColor::green})
            EXPECT_GE(of(name), 4.5);
        EXPECT_GE(of(SemanticColor::focus), 3);
        EXPECT_GE(contrast(colorFor(SemanticColor::focus, shown), shown.color(QPalette::Button)),
                  3);
        if (!isHigh) continue;
        EXPECT_GE(of(SemanticColor::separator), 2.8); // two fifths of the way to the text
        shown.setCurrentColorGroup(QPalette::Disabled);
        for (const auto name : {SemanticColor::primary, SemanticColor::red, SemanticColor::border})
            EXPECT_GE(of(name), 3);
    }
}

TEST(KorvanStyle, TakesTheDesktopsPaletteUnlessAnotherIsWishedFor) {
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
    style.setContrast(KorvanStyle::Contrast::high); // as the desktop asks, and has too little
    EXPECT_EQ(taken(light), QColor(Qt::white));
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

// A line is a whole number of the screen's pixels, wherever its control begins. Frames that are a
// line are in the panels of other people, where Fusion has them as dark as a text.
TEST(KorvanStyle, DrawsEqualSharpLinesAtEachScale) {
    const auto* style = QApplication::style();
    QStyleOptionButton control;
    QStyleOptionFrame rule;
    rule.frameShape = QFrame::HLine;
    control.state = rule.state = QStyle::State_Enabled;
    const QStyle::PrimitiveElement frames[] = {QStyle::PE_PanelButtonCommand,
                                               QStyle::PE_FrameLineEdit, QStyle::PE_Frame};
    const QRgb lines[] = {colorFor(SemanticColor::border, control.palette).rgb(),
                          colorFor(SemanticColor::separator, control.palette).rgb()};
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        for (int run = 0; run < 16; ++run) {
            const bool isFrame = run < 12;
            control.rect = rule.rect = QRect(run % 4, 3 - run % 4, 21, 21);
            QImage image(60, 60, QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(control.palette.color(QPalette::Window));
            QPainter painter(&image);
            if (isFrame) style->drawPrimitive(frames[run / 4], &control, &painter);
            if (!isFrame) style->drawControl(QStyle::CE_ShapedFrame, &rule, &painter);
            const QPoint cut = (QPointF(control.rect.center()) * scale).toPoint() + QPoint(4, 4);
            std::ptrdiff_t down = 0;
            std::ptrdiff_t across = 0;
            for (int at = 0; at < 60; ++at) {
                down += std::ranges::count(lines, image.pixel(cut.x(), at));
                across += std::ranges::count(lines, image.pixel(at, cut.y()));
            }
            EXPECT_EQ(down, (isFrame ? 2 : 1) * static_cast<int>(scale)) << run << ' ' << scale;
            EXPECT_EQ(across, isFrame ? down : 0) << run << ' ' << scale;
        }
    }
}

TEST(KorvanStyle, RingsWhatHasTheKeyboardAndNothingThatWasClicked) {
    QWidget window;
    QVBoxLayout layout(&window);
    const std::pair<QWidget*, bool> controls[] = {{new QPushButton(u"Neu"_s), false},
                                                  {makeLinkButton(u"Anzeigen"_s), false},
                                                  {makeSymbolButton(u"plus"_s, u"Neu"_s), false},
                                                  {new QComboBox, false},
                                                  {new QListWidget, false},
                                                  {new QLineEdit, true},
                                                  {new QPlainTextEdit, true}};
    for (const auto& [control, isTypedInto] : controls)
        layout.addWidget(control), control->setFocusPolicy(Qt::StrongFocus);
    activate(window);
    for (const auto& [control, isTypedInto] : controls) {
        const auto hasRing = [widget = control] {
            const QImage image = widget->grab().toImage();
            const auto ring = colorFor(SemanticColor::focus, widget->palette());
            return image.pixelColor(0, image.height() / 2) == ring &&
                   image.pixelColor(1, image.height() / 2) == ring;
        };
        QTest::mouseClick(&window, Qt::LeftButton);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Control); // as for a click that adds to a selection
        EXPECT_EQ(hasRing(), isTypedInto) << control->metaObject()->className();
        QTest::keyClick(control, Qt::Key_F12);
        EXPECT_TRUE(hasRing()) << control->metaObject()->className();
        controls[0].first->setFocus();
        EXPECT_EQ(hasRing(), control == controls[0].first);
    }
}

TEST(KorvanStyle, BeginsTheTextOfPickersLikeThatOfFieldsAndThatOfMenusAtOnce) {
    // Where the first letter begins.
    const auto begin = [](QWidget& widget) {
        const QImage image = widget.grab().toImage();
        const QColor ground = image.pixelColor(7, image.height() / 2);
        for (int x = 7; x < image.width(); ++x)
            for (int y = 6; y < image.height() - 6; ++y)
                if (contrast(image.pixelColor(x, y), ground) > 3) return x;
        return 0;
    };
    QLineEdit field(u"Herd"_s);
    QComboBox picker;
    picker.addItem(u"Herd"_s);
    QMenu menu;
    menu.addAction(u"Herd"_s);
    EXPECT_EQ(begin(picker), begin(field));
    EXPECT_LT(begin(menu), 20);
}

TEST(KorvanStyle, DarkensAWindowThatWaitsForItsSheet) {
    QWidget window;
    activate(window);
    const auto light = [&window] { return window.grab().toImage().pixelColor(9, 9).lightness(); };
    const int before = light();
    QDialog sheet(&window);
    sheet.setWindowModality(Qt::WindowModal);
    sheet.open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return qAbs(light() - 0.8 * before) < 2; }));
    sheet.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return light() == before; }));
}

TEST(Symbols, AreSharpAndFollowThePaletteOfTheMoment) {
    const auto before = QApplication::palette();
    const auto names = u"terminal pencil trash plus doc.on.doc arrow.clockwise square.and.arrow.up "
                       "square.and.arrow.down info.circle sidebar.right checkmark folder doc "
                       "checkmark.circle.fill xmark.circle.fill chevron.left chevron.right "
                       "arrow.up folder.badge.plus list.bullet square.grid.2x2 desktopcomputer "
                       "internaldrive"_s;
    for (const QString& name : names.split(u' ')) {
        const auto icon = symbol(name);
        for (const auto text : {Qt::blue, Qt::yellow}) {
            QApplication::setPalette(paletteOf(Qt::gray, text, Qt::white));
            // As a button draws it: a blurred one is drawn in 16 pixels and enlarged.
            QStyleOptionToolButton option;
            option.icon = icon;
            option.iconSize = QSize(16, 16);
            option.rect = QRect(QPoint(), option.iconSize);
            option.state = QStyle::State_Enabled;
            QImage shown(32, 32, QImage::Format_ARGB32_Premultiplied);
            shown.setDevicePixelRatio(2);
            shown.fill(Qt::transparent);
            QPainter painter(&shown);
            QApplication::style()->drawControl(QStyle::CE_ToolButtonLabel, &option, &painter);
            shown.setDevicePixelRatio(1);
            int solid = 0;
            for (int at = 0; at < 32 * 32; ++at)
                solid += shown.pixelColor(at % 32, at / 32) == QColor(text);
            EXPECT_GE(solid, 40) << fromQString(name);
            EXPECT_TRUE(shown == icon.pixmap(QSize(32, 32), 1.0).toImage()) << fromQString(name);
        }
    }
    QApplication::setPalette(before);
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
    const auto sizeOfSymbol = [] {
        const std::unique_ptr<QToolButton> symbolButton(makeSymbolButton(u"plus"_s, u"Neu"_s));
        EXPECT_GE(symbolButton->sizeHint().height(), symbolButton->iconSize().height() + 10);
        return symbolButton->iconSize().height();
    };
    EXPECT_EQ(sizeOfSymbol(), 16);
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
    EXPECT_GE(sizeOfSymbol(), 28);
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

} // namespace korvan
