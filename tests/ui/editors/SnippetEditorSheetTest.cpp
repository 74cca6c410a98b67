// SPDX-License-Identifier: MIT
#include "ui/editors/SnippetEditorSheet.h"

#include "support/Examples.h"
#include "support/Widgets.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <gtest/gtest.h>

namespace korvan {

namespace {

class SnippetEditorSheetTest : public testing::Test {
protected:
    QPlainTextEdit& open(const std::string& commandTemplate) {
        sheet = std::make_unique<SnippetEditorSheet>(
            SnippetEditorView(
                with(exampleSnippet(), &CommandSnippet::commandTemplate, commandTemplate), [] {},
                [this](const CommandSnippet& snippet) { saved = snippet; }),
            nullptr);
        activate(*sheet);
        auto* editor = named<QPlainTextEdit>(*sheet, "Befehl (Template)");
        editor->setFocus();
        return *editor;
    }

    std::unique_ptr<SnippetEditorSheet> sheet;
    CommandSnippet saved;
};

} // namespace

TEST_F(SnippetEditorSheetTest, KeepsLineBreaksThatAreTypedAndLeavesTheTemplateByTab) {
    QPlainTextEdit& editor = open("a\u00a0b");
    EXPECT_EQ(sheet->width(), 680);
    EXPECT_GE(editor.height(), 120);
    editor.moveCursor(QTextCursor::End);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClick(&editor, Qt::Key_C);
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), buttonOf(*sheet, "Abbrechen"));
    click(buttonOf(*sheet, "Speichern"));
    EXPECT_EQ(saved.commandTemplate, "a\u00a0b\nc\n");
}

TEST_F(SnippetEditorSheetTest, HandsBackUnchangedWhatNobodyEdited) {
    const std::string odd = "a\r\nb\rc\u2028d\u2029e\u00a0f" + std::string("\0g", 2);
    for (int time = 0; time < 2; ++time) {
        QPlainTextEdit& editor = open(odd);
        if (time == 1) QTest::keyClick(&editor, Qt::Key_X);
        editor.undo();
        click(buttonOf(*sheet, "Speichern"));
        EXPECT_EQ(saved.commandTemplate, odd);
    }
}

TEST_F(SnippetEditorSheetTest, ShowsTheFocusAndTheErrorOnTheFrameOfTheTemplate) {
    QPlainTextEdit& editor = open(" ");
    const auto edge = [frame = editor.parentWidget()] {
        return frame->grab().toImage().pixelColor(1, frame->height() / 2);
    };
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Highlight));
    auto* hint = named<QLineEdit>(*sheet, "Hinweis (optional)");
    hint->setFocus();
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Base));
    hint->setText("h");
    QTest::keyClick(hint, Qt::Key_Return);
    EXPECT_TRUE(editor.hasFocus() && edge().red() > 2 * edge().blue());
    editor.setPlainText("c");
    EXPECT_EQ(edge(), editor.palette().color(QPalette::Highlight));
    QTest::keyClick(hint, Qt::Key_Return);
    EXPECT_EQ(saved.hint + saved.commandTemplate, "hc");
}

} // namespace korvan
