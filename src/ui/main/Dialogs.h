// SPDX-License-Identifier: MIT
#pragma once

#include "model/Uuid.h"
#include "state/Alerts.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class QDialog;
class QWidget;

namespace korvan {

// Keeps the dialogs of a window in step with its state: each is shown while its field is true, and
// closing it in any way makes the field false.
//
// The dialogs are modal to the window, which owns them, and never block the event loop. A dialog
// may close from within its own callback: it is deleted later, from the event loop. The state, the
// file panels and the window must outlive this object.
class Dialogs final : public QObject {
public:
    using MakeDialog = std::function<QDialog*(QWidget* parent)>;

    Dialogs(ContentView& state, FilePanels& filePanels, MakeDialog makeAbout, QWidget* window);

    // Opens and closes what differs from the state, and brings the messages of alerts up to date.
    void refresh();

private:
    // A field of the state and the dialog that is shown while it is true.
    struct Binding {
        Observable<bool> ContentView::* isShown;
        MakeDialog make;
        const Alert* alert = nullptr; // of a dialog that is an AlertSheet
        // When this field has another value than at the opening, the dialog is opened anew.
        Observable<Uuid> ContentView::* session = nullptr;

        QPointer<QDialog> dialog = {}; // null while it is closed
        Uuid shownSession = {};
    };

    [[nodiscard]] QDialog* makeProfileEditor(QWidget* parent);
    [[nodiscard]] QDialog* makeCategoryEditor(QWidget* parent);
    [[nodiscard]] QDialog* makeSnippetEditor(QWidget* parent);
    [[nodiscard]] QDialog* makeAlert(const Alert& alert, QWidget* parent);

    void open(Binding& binding);
    void close(Binding& binding);
    void dialogFinished(Binding& binding, int result);

    ContentView& m_state;
    FilePanels& m_filePanels;
    QWidget* m_window;
    std::vector<Binding> m_bindings; // never grows, since callbacks refer to its elements
};

} // namespace korvan
