// SPDX-License-Identifier: MIT
#include "app/VersionText.h"

#include <string_view>

namespace korvan {

namespace {

std::string textFor(std::string_view key, const BundleInformation& bundle) {
    const auto entry = bundle.infoDictionary.find(key);
    if (entry == bundle.infoDictionary.end()) return "?";
    const std::string* text = std::get_if<std::string>(&entry->second);
    return text ? *text : "?";
}

} // namespace

std::string versionText(const BundleInformation& bundle) {
    return "Version " + textFor("CFBundleShortVersionString", bundle) + " (" +
           textFor("CFBundleVersion", bundle) + ")  •  " + bundle.bundleIdentifier.value_or("?");
}

} // namespace korvan
