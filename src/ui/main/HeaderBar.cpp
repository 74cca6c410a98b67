// SPDX-License-Identifier: MIT
#include "ui/main/HeaderBar.h"

#include "ui/style/Controls.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <ranges>

namespace korvan {

namespace {

constexpr int kPadding = 12;
constexpr int kSpacing = 10;
constexpr int kDividerHeight = 18;
constexpr int kShortestTitle = 90;

QString fullLabelOf(const QPushButton* button) { return button->accessibleName(); }

} // namespace

HeaderBar::HeaderBar(ContentView& view, QWidget* parent)
    : QWidget(parent), m_view(view), m_layout(new QHBoxLayout(this)) {
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    m_layout->setSpacing(kSpacing);

    auto* title = new ElidedLabel(TextStyle::title2);
    title->setText(u"Korvan Browser - Version 1.10"_qs);
    title->setMinimumWidth(kShortestTitle);
    m_title = title;
    m_layout->addWidget(m_title, 1);

    addButton(u"terminal"_qs, u"Verbinden"_qs, &ContentView::connectSelectedProfile,
              Target::selectedProfile);
    addButton(u"pencil"_qs, u"Edit"_qs, &ContentView::editProfile, Target::selectedProfile);
    addButton(u"trash"_qs, u"Löschen"_qs, &ContentView::requestDeleteProfile,
              Target::selectedProfile);
    addDivider();
    addButton(u"plus"_qs, u"Neu"_qs, &ContentView::newProfile);
    addButton(u"doc.on.doc"_qs, u"SSH-Befehl kopieren"_qs, &ContentView::copySSHCommand,
              Target::selectedProfile);
    addButton(u"arrow.clockwise"_qs, u"Neu laden"_qs, &ContentView::reloadAll);
    addDivider();
    addButton(u"square.and.arrow.up"_qs, u"Export"_qs, &ContentView::exportBackup);
    addButton(u"square.and.arrow.down"_qs, u"Import"_qs, &ContentView::importBackup);
    addButton(u"info.circle"_qs, u"Über"_qs, &ContentView::openAbout);
    m_panelToggle = addButton(u"sidebar.right"_qs, u"Befehle aus"_qs, &ContentView::toggleSnippets);
    refresh();
}

QPushButton* HeaderBar::addButton(const QString& symbol, const QString& label, Action action,
                                  Target target) {
    const bool destroys = action == &ContentView::requestDeleteProfile;
    QPushButton* button =
        makeButton(symbol, label, destroys ? SemanticColor::red : SemanticColor::primary);
    button->setAccessibleName(label);
    connect(button, &QPushButton::clicked, this, [this, action] { (m_view.*action)(); });
    if (target == Target::selectedProfile) m_profileButtons.push_back(button);
    m_buttons.push_back(button);
    m_layout->addWidget(button);
    return button;
}

void HeaderBar::addDivider() {
    QWidget* divider = makeSeparator(Qt::Vertical);
    divider->setFixedHeight(kDividerHeight);
    m_layout->addWidget(divider);
}

void HeaderBar::refresh() {
    const bool hasProfile = m_view.selectedProfile() != nullptr;
    for (QPushButton* button : m_profileButtons)
        button->setEnabled(hasProfile);
    setLabel(m_panelToggle, m_view.showSnippets ? u"Befehle aus"_qs : u"Befehle ein"_qs);
}

void HeaderBar::setLabel(QPushButton* button, const QString& label) {
    if (fullLabelOf(button) == label) return;
    button->setAccessibleName(label);
    fitLabels();
}

void HeaderBar::fitLabels() {
    for (QPushButton* button : m_buttons) {
        button->setText(fullLabelOf(button));
        button->setToolTip({});
    }
    int needed = m_layout->sizeHint().width() - m_title->sizeHint().width() + kShortestTitle;
    // The last ones first: what acts on a profile stays readable the longest.
    for (QPushButton* button : m_buttons | std::views::reverse) {
        if (needed <= width()) break;
        const int before = button->sizeHint().width();
        button->setText({});
        button->setToolTip(fullLabelOf(button));
        needed -= before - button->sizeHint().width();
    }
}

QSize HeaderBar::minimumSizeHint() const {
    // Narrow enough for every window: labels go before the bar would widen it.
    return {0, m_layout->minimumSize().height()};
}

void HeaderBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitLabels();
}

void HeaderBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitLabels();
}

void HeaderBar::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(0, height() - 1, width(), 1,
                            colorFor(SemanticColor::separator, palette()));
}

} // namespace korvan
