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

namespace {

constexpr int kWidth = 740;
constexpr int kPadding = 25;
constexpr int kPasswordSpacing = 10;
constexpr int kIdentityFileSpacing = 8;

const QString kShowPassword = QStringLiteral("Anzeigen");
const QString kHidePassword = QStringLiteral("Verbergen");

} // namespace

ProfileEditorSheet::ProfileEditorSheet(ProfileEditorView state, FilePanels& filePanels,
                                       QWidget* parent)
    : EditorSheet(kWidth, kPadding, parent), m_state(std::move(state)), m_filePanels(filePanels) {
    SSHProfile& profile = m_state.profile;
    QLineEdit* name = addTextRow(QStringLiteral("Name"), profile.name);
    setWidget(EditorField::name, name);
    setWidget(EditorField::host, addTextRow(QStringLiteral("IP / Host"), profile.host));
    setWidget(EditorField::user, addTextRow(QStringLiteral("Benutzername"), profile.user));
    addPortRow();
    addCategoryRow();
    addPasswordRow();
    addIdentityFileRow();
    m_extraArgs = addTextRow(QStringLiteral("Extra SSH-Args (optional)"), profile.extraArgs);
    m_extraArgs->setToolTip(
        QStringLiteral("Beispiele: -o StrictHostKeyChecking=no   oder   -J user@jump-host"));
    complete(name);
}

QLineEdit* ProfileEditorSheet::addTextRow(const QString& label, std::string& value) {
    QLineEdit* field = makeTextField(label, value);
    addRow(label, field);
    return field;
}

void ProfileEditorSheet::addPortRow() {
    const QString label = QStringLiteral("Port");
    auto* port = new QLineEdit(QString::number(m_state.profile.port));
    port->setAccessibleName(label);
    port->setInputMethodHints(Qt::ImhPreferNumbers);
    connect(port, &QLineEdit::textChanged, this, [this, port](const QString& text) {
        m_state.setPortText(fromQString(text));
        fieldEdited(port);
    });
    addRow(label, port);
    setWidget(EditorField::port, port);
}

void ProfileEditorSheet::addCategoryRow() {
    const QString label = QStringLiteral("Kategorie");
    const std::vector<SSHCategory>& categories = m_state.categories();
    auto* picker = new QComboBox;
    picker->setAccessibleName(label);
    // A long name is no reason for a wider sheet.
    picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    picker->addItem(QStringLiteral("Ohne Kategorie"));
    for (const SSHCategory& category : categories)
        picker->addItem(toQString(category.name));

    if (const std::optional<Uuid>& id = m_state.profile.categoryId) {
        const auto category = std::ranges::find(categories, *id, &SSHCategory::id);
        // An id that no category has shows as no choice at all, until the user picks one.
        picker->setCurrentIndex(category == categories.end()
                                    ? -1
                                    : static_cast<int>(category - categories.begin()) + 1);
    }
    connect(picker, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        m_state.profile.categoryId =
            index == 0
                ? std::nullopt
                : std::optional(m_state.categories()[static_cast<std::size_t>(index) - 1].id);
    });
    addRow(label, picker);
}

void ProfileEditorSheet::addPasswordRow() {
    const QString label = QStringLiteral("Passwort (nur Notizfeld)");
    m_password = makeTextField(label, m_state.profile.password);
    m_togglePassword = makeLinkButton(kHidePassword);
    connect(m_togglePassword, &QAbstractButton::clicked, this, [this] {
        m_state.showPassword = !m_state.showPassword;
        refresh();
    });
    auto* place = new QVBoxLayout;
    place->addWidget(m_togglePassword, 0, Qt::AlignRight | Qt::AlignVCenter);
    auto* row = new QHBoxLayout;
    row->setSpacing(kPasswordSpacing);
    row->addWidget(m_password, 1);
    row->addLayout(place);
    addRow(label, m_password, row);
    // As wide as the button's longer text, so that the field beside it does not move.
    place->addStrut(m_togglePassword->fontMetrics().horizontalAdvance(kHidePassword));
}

void ProfileEditorSheet::addIdentityFileRow() {
    const QString label = QStringLiteral("Key-Datei");
    m_identityFile = new QLineEdit;
    m_identityFile->setAccessibleName(label);
    m_identityFile->setEnabled(false);
    tintIdentityFile();
    QPushButton* choose = makeButton(QStringLiteral("folder"), QStringLiteral("Auswählen…"));
    m_clearIdentityFile =
        makeSymbolButton(QStringLiteral("xmark.circle.fill"), QStringLiteral("Key entfernen"),
                         SemanticColor::secondary);
    m_clearIdentityFile->setFocusPolicy(Qt::StrongFocus);
    connect(choose, &QPushButton::clicked, this, [this] {
        const bool isChosen = m_state.chooseIdentityFile(m_filePanels);
        refresh();
        if (isChosen) m_extraArgs->setFocus(); // where Return saves instead of asking once more
    });
    connect(m_clearIdentityFile, &QAbstractButton::clicked, this, [this] {
        m_state.clearIdentityFile();
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
    const auto echoMode = m_state.showPassword ? QLineEdit::Normal : QLineEdit::Password;
    if (m_password->echoMode() != echoMode) m_password->setEchoMode(echoMode);
    m_togglePassword->setText(m_state.showPassword ? kHidePassword : kShowPassword);

    const QString path = toQString(m_state.profile.identityFile);
    if (m_identityFile->text() != path) {
        m_identityFile->setText(path); // leaves the cursor, and so what is visible, at the end
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
