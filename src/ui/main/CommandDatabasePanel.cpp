// SPDX-License-Identifier: MIT
#include "ui/main/CommandDatabasePanel.h"

#include "desktop/QtText.h"
#include "ui/main/ColumnHeading.h"
#include "ui/main/SnippetList.h"
#include "ui/style/Controls.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 12;
constexpr int kSpacing = 10;
constexpr int kHeaderSpacing = 8;

QString activeProfileText(const SSHProfile& profile) {
    return onOneLine(toQString("Aktiv: " + profile.name + "  (" + profile.target() + ":" +
                               std::to_string(profile.port) + ")"));
}

} // namespace

CommandDatabasePanel::CommandDatabasePanel(ContentView& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_search(new QLineEdit),
      m_activeProfile(new ElidedLabel(TextStyle::caption, SemanticColor::secondary)),
      m_tip(new Label(u"Tipp: Profil auswählen → {HOST}/{USER}/{PORT}/{TARGET} werden ersetzt."_s,
                      TextStyle::caption, SemanticColor::secondary)),
      m_list(new SnippetList(state)) {
    setAutoFillBackground(true);
    m_search->setPlaceholderText(u"Suchen…"_s);
    m_search->setAccessibleName(u"Befehle suchen"_s);
    m_search->setClearButtonEnabled(true);
    for (auto* clear : m_search->findChildren<QToolButton*>())
        clear->setAccessibleName(u"Suche leeren"_s); // the toolkit gives it no name
    m_tip->setWordWrap(true);
    connect(m_search, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_state.snippetSearch = fromQString(text); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->setSpacing(kSpacing);
    layout->addWidget(makeHeader());
    layout->addWidget(m_search);
    layout->addLayout(makeInfoLine());
    layout->addWidget(m_list, 1);
    refresh();
}

QWidget* CommandDatabasePanel::makeHeader() {
    QPushButton* add = makeButton(u"plus"_s, u"Neu"_s);
    add->setToolTip(u"Neuen Befehl anlegen"_s);
    add->setAccessibleName(u"Neuen Befehl anlegen"_s);
    connect(add, &QPushButton::clicked, this, [this] { m_state.newSnippet(); });
    QToolButton* hide = makeSymbolButton(u"sidebar.right"_s, u"Liste ausblenden"_s);
    connect(hide, &QToolButton::clicked, this, [this] { m_state.showSnippets = false; });
    return new ColumnHeading(u"Befehlsdatenbank"_s, kHeaderSpacing, {add, hide});
}

// Both texts keep their room, so that the list begins at the same height with and without a
// profile.
QLayout* CommandDatabasePanel::makeInfoLine() {
    auto* layout = new QGridLayout;
    for (QLabel* label : std::initializer_list<QLabel*>{m_activeProfile, m_tip}) {
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        label->setSizePolicy(policy);
        layout->addWidget(label, 0, 0, Qt::AlignTop);
    }
    return layout;
}

void CommandDatabasePanel::refresh() {
    const QString search = toQString(*m_state.snippetSearch);
    if (m_search->text() != search) m_search->setText(search);
    const SSHProfile* profile = m_state.selectedProfile();
    m_activeProfile->setText(profile ? activeProfileText(*profile) : QString());
    m_activeProfile->setVisible(profile != nullptr);
    m_tip->setVisible(profile == nullptr);
    // Some letters need a higher line. It stays that high, so that the list does not move again.
    m_activeProfile->setMinimumHeight(
        std::max(m_activeProfile->minimumHeight(), m_activeProfile->sizeHint().height()));
    m_list->refresh();
}

} // namespace korvan
