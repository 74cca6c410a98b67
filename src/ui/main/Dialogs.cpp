// SPDX-License-Identifier: MIT
#include "ui/main/Dialogs.h"

#include "desktop/QtText.h"
#include "ui/editors/CategoryEditorSheet.h"
#include "ui/editors/ProfileEditorSheet.h"
#include "ui/editors/SnippetEditorSheet.h"
#include "ui/main/AlertSheet.h"

#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

Dialogs::Dialogs(ContentView& state, FilePanels& filePanels, MakeDialog makeAbout, QWidget* window)
    : m_state(state), m_filePanels(filePanels), m_window(window) {
    using State = ContentView;
    m_bindings = {
        {.isShown = &State::showEditor,
         .make = [this](QWidget* parent) { return makeProfileEditor(parent); },
         .session = &State::editorSessionID},
        {.isShown = &State::showCategoryEditor,
         .make = [this](QWidget* parent) { return makeCategoryEditor(parent); }},
        {.isShown = &State::showSnippetEditor,
         .make = [this](QWidget* parent) { return makeSnippetEditor(parent); }},
        {.isShown = &State::showAbout, .make = std::move(makeAbout)},
    };
    for (const Alert& alert : alerts())
        m_bindings.push_back({.isShown = alert.isShown,
                              .make = [&](QWidget* parent) { return makeAlert(alert, parent); },
                              .alert = &alert});
}

void Dialogs::refresh() {
    for (Binding& each : m_bindings) {
        if (each.session && each.shownSession != *(m_state.*each.session)) close(each);
        if (!(m_state.*each.isShown))
            close(each);
        else if (!each.dialog)
            open(each);
        else if (each.alert)
            static_cast<AlertSheet*>(each.dialog.data())
                ->setMessage(toQString(each.alert->message(m_state)));
    }
}

void Dialogs::open(Binding& binding) {
    if (binding.session) binding.shownSession = m_state.*binding.session;
    QDialog* dialog = binding.make(m_window);
    binding.dialog = dialog;
    connect(dialog, &QDialog::finished, this,
            [this, &binding](int result) { dialogFinished(binding, result); });
    dialog->setWindowModality(Qt::WindowModal);
    dialog->open();
}

void Dialogs::close(Binding& binding) {
    QDialog* dialog = std::exchange(binding.dialog, nullptr);
    if (!dialog) return;
    // Hidden and not closed: its callbacks are for what the user does.
    dialog->disconnect(this);
    dialog->hide();
    dialog->deleteLater();
}

void Dialogs::dialogFinished(Binding& binding, int result) {
    close(binding);
    const Alert* alert = binding.alert;
    if (alert && alert->isConfirmation()) {
        const auto answer = result == QDialog::Accepted ? alert->confirm : alert->cancel;
        (m_state.*answer)();
    } else if (m_state.*binding.isShown) {
        m_state.*binding.isShown = false;
    }
}

QDialog* Dialogs::makeProfileEditor(QWidget* parent) {
    return new ProfileEditorSheet(
        std::make_unique<ProfileEditorView>(
            m_state.editorDraft, m_state.categoryStore.categories(),
            [this] { m_state.showEditor = false; },
            [this](const SSHProfile& profile) { m_state.saveProfile(profile); }),
        m_filePanels, parent);
}

QDialog* Dialogs::makeCategoryEditor(QWidget* parent) {
    return new CategoryEditorSheet(
        std::make_unique<CategoryEditorView>(
            m_state.editingCategory->value_or(SSHCategory()),
            [this] { m_state.showCategoryEditor = false; },
            [this](const SSHCategory& category) { m_state.saveCategory(category); }),
        parent);
}

QDialog* Dialogs::makeSnippetEditor(QWidget* parent) {
    return new SnippetEditorSheet(
        std::make_unique<SnippetEditorView>(
            m_state.editingSnippet->value_or(CommandSnippet()),
            [this] { m_state.showSnippetEditor = false; },
            [this](const CommandSnippet& snippet) { m_state.saveSnippet(snippet); }),
        parent);
}

QDialog* Dialogs::makeAlert(const Alert& alert, QWidget* parent) {
    using Role = AlertSheet::Role;
    std::vector<AlertSheet::Button> buttons;
    if (alert.isConfirmation()) {
        buttons.push_back({toQString(alert.destructiveButton), Role::destructive});
        buttons.push_back({u"Abbrechen"_s, Role::cancel});
    } else {
        buttons.push_back({u"OK"_s, Role::standard});
    }
    return new AlertSheet(toQString(alert.title), toQString(alert.message(m_state)), buttons,
                          parent);
}

} // namespace korvan
