// SPDX-License-Identifier: MIT
#include "ui/main/ProfileTableModel.h"

#include "desktop/QtText.h"
#include "model/Text.h"
#include "ui/style/Colors.h"
#include "ui/style/TextStyles.h"
#include "ui/style/UserText.h"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

// What the user typed into this column, null for a column that shows no such text.
const std::string* writtenText(const SSHProfile& profile, int column) {
    switch (column) {
    case ProfileTableModel::name: return &profile.name;
    case ProfileTableModel::host: return &profile.host;
    case ProfileTableModel::user: return &profile.user;
    default: return nullptr;
    }
}

QString cellText(const SSHProfile& profile, int column) {
    if (const std::string* text = writtenText(profile, column)) return onOneLine(toQString(*text));
    switch (column) {
    case ProfileTableModel::port: return QString::number(profile.port);
    case ProfileTableModel::password: return isBlank(profile.password) ? QString() : u"••••••••"_s;
    case ProfileTableModel::key: return isBlank(profile.identityFile) ? QString() : u"✓"_s;
    default: return {};
    }
}

// What a screen reader says: bullets and ticks do not read well.
QString spokenText(const SSHProfile& profile, int column) {
    const QString text = cellText(profile, column);
    const bool isMark = column == ProfileTableModel::password || column == ProfileTableModel::key;
    return isMark ? (text.isEmpty() ? u"Nicht vorhanden"_s : u"Vorhanden"_s) : text;
}

QColor cellColor(const SSHProfile& profile, int column) {
    const QPalette palette = QGuiApplication::palette();
    switch (column) {
    case ProfileTableModel::password: return colorFor(SemanticColor::secondary, palette);
    case ProfileTableModel::key:
        return colorFor(isBlank(profile.identityFile) ? SemanticColor::secondary
                                                      : SemanticColor::green,
                        palette);
    default: return colorFor(SemanticColor::primary, palette);
    }
}

} // namespace

ProfileTableModel::ProfileTableModel(const ContentView& state, QObject* parent)
    : QAbstractTableModel(parent), m_state(state) {
    restyle();
    assign(m_state.filteredProfiles());
}

void ProfileTableModel::restyle() {
    m_bodyFont = fontFor(TextStyle::body);
    m_monospacedFont = fontFor(TextStyle::body, FontDesign::monospaced);
}

bool ProfileTableModel::refresh() {
    if (m_revision == m_state.store.revision() && m_filter == m_state.categoryFilter) return false;
    std::vector<std::size_t> places = m_state.filteredProfiles();
    if (showsTheSameRows(places)) {
        // An edit in place: the table keeps its selection and scroll position by itself.
        assign(std::move(places));
        if (rowCount() > 0) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnTotal - 1));
        return false;
    }
    beginResetModel();
    assign(std::move(places));
    endResetModel();
    return true;
}

bool ProfileTableModel::showsTheSameRows(const std::vector<std::size_t>& places) const {
    if (places.size() != m_ids.size()) return false;
    for (std::size_t row = 0; row < places.size(); ++row)
        if (m_state.store.profiles()[places[row]].id != m_ids[row]) return false;
    return true;
}

void ProfileTableModel::assign(std::vector<std::size_t> places) {
    m_places = std::move(places);
    m_ids.clear();
    m_ids.reserve(m_places.size());
    for (const std::size_t place : m_places)
        m_ids.push_back(m_state.store.profiles()[place].id);
    m_revision = m_state.store.revision();
    m_filter = m_state.categoryFilter;
}

const SSHProfile* ProfileTableModel::profileAt(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    // The store may have changed. The next refresh follows it.
    const std::size_t place = m_places[static_cast<std::size_t>(row)];
    const std::vector<SSHProfile>& profiles = m_state.store.profiles();
    return place < profiles.size() ? &profiles[place] : nullptr;
}

int ProfileTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
}

int ProfileTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnTotal;
}

QVariant ProfileTableModel::data(const QModelIndex& index, int role) const {
    const SSHProfile* profile = profileAt(index.row());
    if (!profile) return {};
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole: return cellText(*profile, column);
    case kWrittenText: {
        const std::string* text = writtenText(*profile, column);
        return text ? toQString(*text) : QString();
    }
    case Qt::AccessibleTextRole: return spokenText(*profile, column);
    case Qt::ForegroundRole: return cellColor(*profile, column);
    case Qt::FontRole:
        return column == host || column == port || column == user ? m_monospacedFont : m_bodyFont;
    default: return {};
    }
}

QVariant ProfileTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    switch (section) {
    case name: return u"Name"_s;
    case host: return u"IP / Host"_s;
    case port: return u"Port"_s;
    case user: return u"Benutzer"_s;
    case password: return u"Passwort"_s;
    case key: return u"Key"_s;
    default: return {};
    }
}

} // namespace korvan
