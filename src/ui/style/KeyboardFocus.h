// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace korvan {

// Makes focus rings appear only while the user works with the keyboard.
//
// A widget draws its ring only if its window has the attribute Qt::WA_KeyboardFocusChange. The
// toolkit sets that at the first Tab and never clears it. This class watches the whole application
// and keeps the attribute of all windows up to date: set after a key press, cleared after a press
// of a mouse button, a finger or a pen.
class KeyboardFocus final : public QObject {
    Q_OBJECT

public:
    // `parent` owns it.
    explicit KeyboardFocus(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Means { keyboard, pointer };

    void follow(Means means);
    void mark(QWidget& window) const;

    Means m_means = Means::pointer;
};

} // namespace korvan
