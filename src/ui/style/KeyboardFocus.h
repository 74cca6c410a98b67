// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace korvan {

// Tells whether the user works by keyboard or by pointer: by what was pressed last, a key or a
// button. Rings of focus are for the keyboard; the style shows them in windows that have the
// attribute Qt::WA_KeyboardFocusChange. The toolkit sets that with the first Tab and never takes it
// back; here it follows each press, in all windows.
//
// Lives as long as its parent, and watches the whole application.
class KeyboardFocus final : public QObject {
    Q_OBJECT

public:
    explicit KeyboardFocus(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Means { keyboard, pointer };

    void follow(Means means);
    void mark(QWidget& window) const;

    Means m_means = Means::pointer;
};

} // namespace korvan
