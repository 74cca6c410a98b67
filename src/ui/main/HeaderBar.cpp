// SPDX-License-Identifier: MIT
#include "ui/main/HeaderBar.h"

#include "ui/style/Controls.h"
#include "ui/style/Drawing.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <iterator>
#include <ranges>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 12;
constexpr int kSpacing = 10;
constexpr int kDividerHeight = 18;
const QString kShortestTitle = u"Korvan…"_s;

QString fullLabelOf(const QPushButton* button) { return button->accessibleName(); }

} // namespace

HeaderBar::HeaderBar(ContentView& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_layout(new QHBoxLayout(this)) {
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    m_layout->setSpacing(kSpacing);

    auto* title = new ElidedLabel(TextStyle::title2);
    title->setText(u"Korvan Browser - Version 1.10"_s);
    m_title = title;
    m_layout->addWidget(m_title, 1);

    addButton(u"terminal"_s, u"Verbinden"_s, &ContentView::connectSelectedProfile,
              Target::selectedProfile);
    addButton(u"pencil"_s, u"Edit"_s, &ContentView::editProfile, Target::selectedProfile);
    addButton(u"trash"_s, u"Löschen"_s, &ContentView::requestDeleteProfile, Target::selectedProfile,
              SemanticColor::red);
    addDivider();
    addButton(u"plus"_s, u"Neu"_s, &ContentView::newProfile);
    addButton(u"doc.on.doc"_s, u"SSH-Befehl kopieren"_s, &ContentView::copySSHCommand,
              Target::selectedProfile);
    addButton(u"arrow.clockwise"_s, u"Neu laden"_s, &ContentView::reloadAll);
    addDivider();
    addButton(u"square.and.arrow.up"_s, u"Export"_s, &ContentView::exportBackup);
    addButton(u"square.and.arrow.down"_s, u"Import"_s, &ContentView::importBackup);
    addButton(u"info.circle"_s, u"Über"_s, &ContentView::openAbout);
    m_panelToggle = addButton(u"sidebar.right"_s, u"Befehle aus"_s, &ContentView::toggleSnippets);
    std::ranges::rotate(m_buttons, std::prev(m_buttons.end())); // the toggle is needed most
    refresh();
}

QPushButton* HeaderBar::addButton(const QString& symbol, const QString& label, Action action,
                                  Target target, SemanticColor color) {
    QPushButton* button = makeButton(symbol, label, color);
    button->setAccessibleName(label);
    connect(button, &QPushButton::clicked, this, [this, action] { (m_state.*action)(); });
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
    const bool hasProfile = m_state.selectedProfile() != nullptr;
    for (QPushButton* button : m_profileButtons)
        button->setEnabled(hasProfile);
    setLabel(m_panelToggle, m_state.showSnippets ? u"Befehle aus"_s : u"Befehle ein"_s);
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
    const int shortestTitle = m_title->fontMetrics().horizontalAdvance(kShortestTitle);
    m_title->setMinimumWidth(shortestTitle);
    int needed = m_layout->sizeHint().width() - m_title->sizeHint().width() + shortestTitle;
    // After the toggle, what acts on a profile stays readable the longest.
    for (QPushButton* button : m_buttons | std::views::reverse) {
        if (needed <= width()) break;
        const int before = button->sizeHint().width();
        button->setText({});
        button->setToolTip(fullLabelOf(button));
        needed -= before - button->sizeHint().width();
    }
}

QSize HeaderBar::minimumSizeHint() const {
    // No width, since labels go before the bar would widen the window.
    return {0, m_layout->minimumSize().height()};
}

void HeaderBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitLabels();
}

// Fits the labels once everything in the bar has the new font.
bool HeaderBar::event(QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::ApplicationFontChange || type == QEvent::FontChange ||
        type == QEvent::StyleChange)
        QMetaObject::invokeMethod(this, &HeaderBar::fitLabels, Qt::QueuedConnection);
    return QWidget::event(event);
}

void HeaderBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawLine(painter, rect(), Qt::BottomEdge, colorFor(SemanticColor::separator, palette()));
}

} // namespace korvan
