// SPDX-License-Identifier: MIT
#include "ui/editors/SnippetEditorSheet.h"

#include "support/Examples.h"
#include "support/Widgets.h"

#include <QApplication>
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
                [this](const CommandSnippet& snippet) { saved = snippet.commandTemplate; }),
            nullptr);
        activate(*sheet);
        auto* editor = named<QPlainTextEdit>(*sheet, "Befehl (Template)");
        editor->setFocus();
        return *editor;
    }

    std::unique_ptr<SnippetEditorSheet> sheet;
    std::string saved;
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
    EXPECT_EQ(saved, "a\u00a0b\nc\n");
}

TEST_F(SnippetEditorSheetTest, HandsBackUnchangedWhatNobodyEdited) {
    const std::string odd = "a\r\nb\rc\u2028d\u2029e\u00a0f" + std::string("\0g", 2);
    for (int time = 0; time < 2; ++time) {
        QPlainTextEdit& editor = open(odd);
        if (time == 1) QTest::keyClick(&editor, Qt::Key_X);
        editor.undo();
        click(buttonOf(*sheet, "Speichern"));
        EXPECT_EQ(saved, odd);
    }
}

} // namespace korvan
