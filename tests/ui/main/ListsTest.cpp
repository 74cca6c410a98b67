// SPDX-License-Identifier: MIT
#include "support/WindowTest.h"
#include "ui/style/Controls.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

class ListsTest : public WindowTest {
protected:
    void showProfile(std::string name) {
        state.store.replaceAll({with(exampleProfile(), &SSHProfile::name, std::move(name))});
        settle();
    }
    // Title, command and hint.
    QList<ElidedLabel*> labelsOf(const CommandSnippet& snippet) {
        state.snippetStore.replaceAll({snippet});
        settle();
        return window.findChild<SnippetRow*>()->findChildren<ElidedLabel*>();
    }
};

// What a pointer that rests at `position` is told, as it can be read; null when it is told nothing.
QString tipAt(QWidget& widget, QPoint position) {
    for (QWidget* tip : QApplication::topLevelWidgets())
        if (tip->inherits("QTipLabel")) tip->hide();
    QHelpEvent event(QEvent::ToolTip, position, widget.mapToGlobal(position));
    QCoreApplication::sendEvent(&widget, &event);
    for (const QWidget* tip : QApplication::topLevelWidgets()) {
        if (!tip->inherits("QTipLabel") || !tip->isVisible()) continue;
        EXPECT_LE(tip->width(), 480);
        EXPECT_LE(tip->height(), tip->screen()->availableGeometry().height());
        QTextDocument text;
        const QString told = QToolTip::text();
        Qt::mightBeRichText(told) ? text.setHtml(told) : text.setPlainText(told);
        return text.toPlainText();
    }
    return {};
}

} // namespace

TEST_F(ListsTest, TellsTheWholeOfWhatIsCutAsItIsWritten) {
    const QString code = u"awk '{print \"<b>&lt;</b>\"}'  # "_s + QString(300, u'x');
    auto* command = labelsOf(exampleSnippet())[1];
    EXPECT_TRUE(tipAt(*command, {5, 5}).isNull());
    command->setText(code + u"\n  done"_s);
    QString tip = tipAt(*command, {5, 5});
    EXPECT_TRUE(tip.endsWith(u"\n  done"));
    EXPECT_EQ(tip.remove(u'\n'), code + u"  done"_s);
    QTextDocument text;
    text.setHtml(QToolTip::text());
    const QFont font = text.firstBlock().begin().fragment().charFormat().font();
    EXPECT_EQ(QFontInfo(font).family(), QFontInfo(command->font()).family());
    command->setText(u"zeile\n"_s.repeated(500));
    EXPECT_TRUE(tipAt(*command, {5, 5}).endsWith(u"zeile\n…"));

    const std::string tooLong = "lang & <b>länger</b> " + std::string(300, 'x');
    for (const auto& [name, told, shown] :
         {std::tuple(std::string("a\tb\v\u0085c\r\nd"), u"a\tb\n\nc\nd"_s, u"a b  c d"_s),
          {tooLong, toQString(tooLong), toQString(tooLong)},
          {"kurz", {}, u"kurz"_s}}) {
        showProfile(name);
        state.categoryStore.replaceAll({with(exampleCategory(), &SSHCategory::name, name)});
        settle();
        for (QAbstractItemView* list :
             std::initializer_list<QAbstractItemView*>{&table, &sidebar}) {
            const int row = list == &table ? 0 : 3;
            tip = tipAt(*list->viewport(), middleOf(*list, row));
            EXPECT_EQ(name == tooLong ? tip.remove(u'\n') : tip, told);
            EXPECT_EQ(list->model()->index(row, 0).data().toString(), shown);
        }
    }
}

TEST_F(ListsTest, CutsOnlyTheCommandShort) {
    auto snippet = exampleSnippet();
    snippet.title = "Sehr lang\nund " + std::string(60, 'y');
    snippet.commandTemplate = "ls " + std::string(500, 'z');
    snippet.hint = "erste\nzweite\ndritte\nvierte";
    const auto labels = labelsOf(snippet);
    EXPECT_TRUE(labels[0]->text().startsWith(u"Sehr lang und y"));
    EXPECT_GE(labels[0]->height(), 2 * labels[0]->fontMetrics().lineSpacing());
    EXPECT_EQ(labels[1]->height(), 2 * labels[1]->fontMetrics().lineSpacing());
    EXPECT_EQ(labels[2]->height(), 3 * labels[2]->fontMetrics().lineSpacing());
    EXPECT_EQ(tipAt(*labels[2], {5, 5}), u"erste\nzweite\ndritte\nvierte");
}

TEST_F(ListsTest, GivesEachScriptTheHeightThatItNeeds) {
    const auto script = u"echo 世界 こんにちは ᄀ مرحبا 🚀 Ǻ Ѵ Ҝ ˪"_s;
    for (const int lines : {1, 2}) {
        const auto text = fromQString((script + u'\n').repeated(lines).chopped(1));
        const auto labels =
            labelsOf(with(exampleSnippet(), &CommandSnippet::commandTemplate, text));
        QTextLayout layout(script, labels[1]->font());
        layout.beginLayout();
        auto line = layout.createLine();
        line.setLineWidth(10'000);
        EXPECT_GE(labels[1]->height(), lines * line.height());
        layout.endLayout();
        EXPECT_GT(labels[2]->y(), labels[1]->geometry().bottom());
        EXPECT_LT(labels[2]->geometry().bottom(), labels[2]->parentWidget()->height());
    }
}

TEST_F(ListsTest, BeginsWithTheFirstProfileByKey) {
    const std::vector all{exampleId(11), exampleId(12), exampleId(13)};
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Space,
                           Qt::Key_End, Qt::Key_A}) {
        sidebar.setFocus();
        state.selection = ProfileSelection();
        table.selectionModel()->setCurrentIndex(table.model()->index(0, 0),
                                                QItemSelectionModel::NoUpdate);
        settle();
        table.setFocus();
        QTest::keyClick(&table, key, key == Qt::Key_A ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(state.selection->ids(), key == Qt::Key_A     ? all
                                          : key == Qt::Key_End ? std::vector{all[2]}
                                                               : std::vector{all[0]});
    }
    QTest::keyClick(&table, Qt::Key_Home);
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(state.selection->ids(), std::vector{all[1]});
}

TEST_F(ListsTest, ShowsTheKeyboardAndDeselectsByAClickBesideTheRows) {
    const auto shown = [&](QWidget& focused) {
        focused.setFocus();
        settle();
        return table.grab().toImage();
    };
    QTest::mouseClick(&window, Qt::LeftButton); // whatever used the keyboard before
    const auto withoutRing = shown(table);
    QTest::keyClick(&table, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_TRUE(shown(table) != withoutRing);
    state.selection = ProfileSelection({exampleId(11), exampleId(99)});
    settle();
    EXPECT_TRUE(shown(table) != shown(sidebar));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {5, table.viewport()->height() - 5});
    EXPECT_TRUE(state.selection->ids().empty());
    EXPECT_TRUE(shown(table) == withoutRing);
}

TEST_F(ListsTest, ShowsNoPasswordAndMarksTheFilter) {
    showProfile("Drucker");
    for (int column = 0;
         const auto* text : {u"Drucker", u"10.0.0.7", u"2222", u"pi", u"••••••••", u"✓"})
        EXPECT_EQ(table.model()->index(0, column++).data().toString(), QStringView(text));
    const auto groundOf = [&](int row) {
        const QPoint besideItsText(sidebar.viewport()->width() - 12, middleOf(sidebar, row).y());
        return sidebar.viewport()->grab().toImage().pixelColor(besideItsText);
    };
    EXPECT_NE(groundOf(0), groundOf(1));

    auto& commands = *window.findChild<QWidget*>(u"commands"_s);
    const auto top = [&](QWidget& widget) { return widget.mapTo(&window, QPoint()).y(); };
    const int before = top(commands);
    state.selectProfile(exampleProfile());
    settle();
    EXPECT_EQ(top(commands), before);
    EXPECT_EQ(top(sidebar), top(*named<QLineEdit>(window, "Befehle suchen")));
    EXPECT_TRUE(std::ranges::any_of(window.findChildren<ElidedLabel*>(), [](auto* label) {
        return label->isVisible() && label->text() == u"Aktiv: Drucker  (pi@10.0.0.7:2222)";
    }));
    state.store.replaceAll(std::vector<SSHProfile>(100, exampleProfile()));
    settle();
    EXPECT_EQ(top(*table.verticalScrollBar()), top(*table.viewport()));
}

TEST_F(ListsTest, KeepsEachColumnWithinItsLimits) {
    const auto before = QApplication::font();
    for (const bool isLarge : {false, true}) {
        auto font = before;
        font.setPixelSize(isLarge ? 26 : 13);
        QApplication::setFont(font);
        settle();
        for (int column = 0; const auto& [least, most] :
                             {std::pair(160, 0), {180, 0}, {60, 90}, {120, 0}, {90, 0}, {40, 60}}) {
            table.setColumnWidth(column, 3000);
            const int widest = table.columnWidth(column);
            EXPECT_TRUE(isLarge ? widest > most : widest == (most ? most : 3000)) << column;
            table.setColumnWidth(column, 1);
            const int narrowest = table.columnWidth(column++);
            EXPECT_TRUE(isLarge ? narrowest > least : narrowest == least) << least;
        }
        EXPECT_EQ(sidebar.parentWidget()->minimumWidth() > 200, isLarge);
    }
    QApplication::setFont(before);
}

TEST_F(ListsTest, AnswersToThePointerOnACommand) {
    auto& row = *window.findChild<SnippetRow*>();
    const auto left = row.grab().toImage();
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&row, &enter);
    const auto hovered = row.grab().toImage();
    EXPECT_TRUE(hovered != left);
    QTest::mousePress(&row, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(row.grab().toImage() != hovered);
}

} // namespace korvan
