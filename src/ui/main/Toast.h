// SPDX-License-Identifier: MIT
#pragma once

#include "state/ContentView.h"

#include <QVariantAnimation>
#include <QWidget>

class QLabel;

namespace korvan {

class ElidedLabel;

// The note at the bottom of the window that confirms a copy. It lies over everything else and lets
// every click through. Its parent is the area it lies on; the state must outlive it.
class Toast final : public QWidget {
    Q_OBJECT

public:
    Toast(ContentView& state, QWidget* parent);

    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fadeTo(double opacity);
    void place();
    void tintSymbol();

    ContentView& m_state;
    QLabel* m_symbol;
    ElidedLabel* m_text;
    QVariantAnimation m_fade;
    bool m_isShown = false;
};

} // namespace korvan
