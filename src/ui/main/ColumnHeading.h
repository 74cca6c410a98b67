// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <initializer_list>

namespace korvan {

// The top row of a column: its name and its buttons, which it takes over. Side by side, all
// columns' are equally high, whatever their buttons are. A name that has no room ends in an
// ellipsis.
class ColumnHeading final : public QWidget {
    Q_OBJECT

public:
    ColumnHeading(const QString& name, int spacing, std::initializer_list<QWidget*> buttons);

    // Room for the whole name and the buttons.
    [[nodiscard]] int idealWidth() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitHeight();
};

} // namespace korvan
