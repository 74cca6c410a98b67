// SPDX-License-Identifier: MIT
#include "ui/editors/ProfileEditorSheet.h"

#include "desktop/QtText.h"
#include "ui/style/Controls.h"
#include "ui/style/UserText.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <algorithm>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 740;
constexpr int kPadding = 25;
constexpr int kPasswordSpacing = 10;
constexpr int kIdentityFileSpacing = 8;

const QString kShowPassword = u"Anzeigen"_s;
const QString kHidePassword = u"Verbergen"_s;

} // namespace

ProfileEditorSheet::ProfileEditorSheet(std::unique_ptr<ProfileEditorView> state,
                                       FilePanels& filePanels, QWidget* parent)
    : EditorSheet(*state, kWidth, kPadding, parent), m_state(std::move(state)),
      m_filePanels(filePanels) {
    SSHProfile& profile = m_state->profile;
    QLineEdit* name = addTextRow(u"Name"_s, profile.name);
    setWidget(EditorField::name, name);
    setWidget(EditorField::host, addTextRow(u"IP / Host"_s, profile.host));
    setWidget(EditorField::user, addTextRow(u"Benutzername"_s, profile.user));
    addPortRow();
    addCategoryRow();
    addPasswordRow();
    addIdentityFileRow();
    m_extraArgs = addTextRow(u"Extra SSH-Args (optional)"_s, profile.extraArgs);
    m_extraArgs->setToolTip(u"Beispiele: -o StrictHostKeyChecking=no   oder   -J user@jump-host"_s);
    complete(name);
}

QLineEdit* ProfileEditorSheet::addTextRow(const QString& label, std::string& value) {
    QLineEdit* field = makeTextField(label, value);
    addRow(label, field);
    return field;
}

void ProfileEditorSheet::addPortRow() {
    const QString label = u"Port"_s;
    auto* port = new QLineEdit(QString::number(m_state->profile.port));
    port->setAccessibleName(label);
    port->setInputMethodHints(Qt::ImhPreferNumbers);
    connect(port, &QLineEdit::textChanged, this, [this, port](const QString& text) {
        m_state->setPortText(fromQString(text));
        fieldEdited(port);
    });
    addRow(label, port);
    setWidget(EditorField::port, port);
}

void ProfileEditorSheet::addCategoryRow() {
    const QString label = u"Kategorie"_s;
    const std::vector<SSHCategory>& categories = m_state->categories();
    auto* picker = new QComboBox;
    picker->setAccessibleName(label);
    // A long name must not widen the sheet.
    picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    picker->addItem(u"Ohne Kategorie"_s);
    for (const SSHCategory& category : categories)
        picker->addItem(toQString(category.name));

    if (const std::optional<Uuid>& id = m_state->profile.categoryId) {
        const auto category = std::ranges::find(categories, *id, &SSHCategory::id);
        // The id of a deleted category shows as an empty choice, until the user picks another.
        picker->setCurrentIndex(category == categories.end()
                                    ? -1
                                    : static_cast<int>(category - categories.begin()) + 1);
    }
    connect(picker, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        m_state->profile.categoryId =
            index == 0
                ? std::nullopt
                : std::optional(m_state->categories()[static_cast<std::size_t>(index) - 1].id);
    });
    addRow(label, picker);
}

void ProfileEditorSheet::addPasswordRow() {
    const QString label = u"Passwort (nur Notizfeld)"_s;
    m_password = makeTextField(label, m_state->profile.password);
    m_togglePassword = makeLinkButton(kHidePassword);
    connect(m_togglePassword, &QAbstractButton::clicked, this, [this] {
        m_state->showPassword = !m_state->showPassword;
        refresh();
    });
    auto* place = new QVBoxLayout;
    place->addWidget(m_togglePassword, 0, Qt::AlignRight | Qt::AlignVCenter);
    auto* row = new QHBoxLayout;
    row->setSpacing(kPasswordSpacing);
    row->addWidget(m_password, 1);
    row->addLayout(place);
    addRow(label, m_password, row);
    // As wide as the button's longer text, so that the field beside it keeps its width.
    place->addStrut(m_togglePassword->fontMetrics().horizontalAdvance(kHidePassword));
}

void ProfileEditorSheet::addIdentityFileRow() {
    const QString label = u"Key-Datei"_s;
    m_identityFile = new QLineEdit;
    m_identityFile->setAccessibleName(label);
    m_identityFile->setEnabled(false);
    tintIdentityFile();
    QPushButton* choose = makeButton(u"folder"_s, u"Auswählen…"_s);
    m_clearIdentityFile =
        makeSymbolButton(u"xmark.circle.fill"_s, u"Key entfernen"_s, SemanticColor::secondary);
    m_clearIdentityFile->setFocusPolicy(Qt::StrongFocus);
    connect(choose, &QPushButton::clicked, this, [this] {
        const bool isChosen = m_state->chooseIdentityFile(m_filePanels);
        refresh();
        if (isChosen) m_extraArgs->setFocus(); // there, Return saves; here, it would ask again
    });
    connect(m_clearIdentityFile, &QAbstractButton::clicked, this, [this] {
        m_state->clearIdentityFile();
        refresh();
    });
    auto* row = new QHBoxLayout;
    row->setSpacing(kIdentityFileSpacing);
    row->addWidget(m_identityFile, 1);
    row->addWidget(choose);
    row->addWidget(m_clearIdentityFile);
    addRow(label, m_identityFile, row);
}

void ProfileEditorSheet::refresh() {
    EditorSheet::refresh();
    const auto echoMode = m_state->showPassword ? QLineEdit::Normal : QLineEdit::Password;
    if (m_password->echoMode() != echoMode) m_password->setEchoMode(echoMode);
    m_togglePassword->setText(m_state->showPassword ? kHidePassword : kShowPassword);

    const QString path = toQString(m_state->profile.identityFile);
    if (m_identityFile->text() != path) {
        // Moves the cursor to the end, so that the file name is visible.
        m_identityFile->setText(path);
        m_identityFile->setToolTip(toolTipFor(path));
    }
    m_clearIdentityFile->setEnabled(!path.isEmpty());
}

void ProfileEditorSheet::tintIdentityFile() {
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text,
                     colorFor(SemanticColor::secondary, this->palette()));
    m_identityFile->setPalette(palette);
}

void ProfileEditorSheet::changeEvent(QEvent* event) {
    EditorSheet::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_identityFile) tintIdentityFile();
}

} // namespace korvan
