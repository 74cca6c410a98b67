// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <initializer_list>

namespace korvan {

// The top row of a column: its name and its buttons, which it owns. All headings have the same
// height, whatever their buttons, since they stand side by side. A name without room ends in an
// ellipsis.
class ColumnHeading final : public QWidget {
    Q_OBJECT

public:
    ColumnHeading(const QString& name, int spacing, std::initializer_list<QWidget*> buttons);

    // The width that shows the whole name and the buttons.
    [[nodiscard]] int idealWidth() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitHeight();
};

} // namespace korvan
