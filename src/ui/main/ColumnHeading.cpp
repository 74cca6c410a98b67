// SPDX-License-Identifier: MIT
#include "ui/main/ColumnHeading.h"

#include "ui/style/Controls.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>
#include <QStyleOptionButton>

namespace korvan {

ColumnHeading::ColumnHeading(const QString& name, int spacing,
                             std::initializer_list<QWidget*> buttons) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    auto* label = new ElidedLabel(TextStyle::headline);
    label->setText(name);
    layout->addWidget(label, 1);
    for (QWidget* button : buttons)
        layout->addWidget(button);
    fitHeight();
}

int ColumnHeading::idealWidth() const { return layout()->sizeHint().width(); }

void ColumnHeading::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitHeight();
}

// At least as high as a push button.
void ColumnHeading::fitHeight() {
    QStyleOptionButton option;
    option.initFrom(this);
    setMinimumHeight(
        style()->sizeFromContents(QStyle::CT_PushButton, &option, QSize(0, 0), this).height());
}

} // namespace korvan
