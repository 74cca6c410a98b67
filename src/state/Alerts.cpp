// SPDX-License-Identifier: MIT
#include "state/Alerts.h"

namespace korvan {

namespace {

std::string inQuotes(std::string_view name) { return "„" + std::string(name) + "“"; }

std::string profileMessage(const ContentView& state) {
    const auto& candidate = *state.deleteCandidate;
    return candidate ? inQuotes(candidate->name) + " wird entfernt." : "Eintrag wird entfernt.";
}

std::string categoryMessage(const ContentView& state) {
    const auto& candidate = *state.deleteCategoryCandidate;
    return candidate
               ? inQuotes(candidate->name) + " wird gelöscht. Betroffene Profile werden auf " +
                     inQuotes("Ohne Kategorie") + " gesetzt."
               : "Kategorie wird gelöscht.";
}

std::string snippetMessage(const ContentView& state) {
    const auto& candidate = *state.snippetDeleteCandidate;
    return candidate ? inQuotes(candidate->title) + " wird entfernt." : "Eintrag wird entfernt.";
}

std::string importMessage(const ContentView&) {
    return "Beim Import werden vorhandene Profile, Kategorien und Befehle ersetzt. Fortfahren?";
}

std::string errorMessage(const ContentView& state) { return state.errorText; }

} // namespace

const std::array<Alert, 5>& alerts() {
    using State = ContentView;
    static constexpr std::array<Alert, 5> kAlerts{
        Alert{&State::showDeleteConfirm, "Profil wirklich löschen?", profileMessage, "Löschen",
              &State::confirmDeleteProfile, &State::cancelDeleteProfile},
        Alert{&State::showCategoryDeleteConfirm, "Kategorie wirklich löschen?", categoryMessage,
              "Löschen", &State::confirmDeleteCategory, &State::cancelDeleteCategory},
        Alert{&State::showSnippetDeleteConfirm, "Befehl wirklich löschen?", snippetMessage,
              "Löschen", &State::confirmDeleteSnippet, &State::cancelDeleteSnippet},
        Alert{&State::showImportConfirm, "Import aus Datei", importMessage, "Ersetzen (empfohlen)",
              &State::confirmImport, &State::cancelImport},
        Alert{&State::showError, "Fehler", errorMessage},
    };
    return kAlerts;
}

} // namespace korvan
