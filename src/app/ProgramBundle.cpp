// SPDX-License-Identifier: MIT
#include "app/ProgramBundle.h"

#include <string_view>

namespace korvan {

namespace {

constexpr auto kVersionKey = "CFBundleShortVersionString";
constexpr auto kBuildKey = "CFBundleVersion";

std::string textFor(std::string_view key, const BundleInformation& bundle) {
    const auto entry = bundle.infoDictionary.find(key);
    if (entry == bundle.infoDictionary.end()) return "?";
    const std::string* text = std::get_if<std::string>(&entry->second);
    return text ? *text : "?";
}

} // namespace

BundleInformation programBundle() {
    return {{{kVersionKey, KORVAN_VERSION}, {kBuildKey, KORVAN_BUILD}}, KORVAN_IDENTIFIER};
}

std::string versionText(const BundleInformation& bundle) {
    return "Version " + textFor(kVersionKey, bundle) + " (" + textFor(kBuildKey, bundle) +
           ")  •  " + bundle.bundleIdentifier.value_or("?");
}

} // namespace korvan
