// SPDX-License-Identifier: MIT
#include "app/ProgramBundle.h"

#include <gtest/gtest.h>

namespace korvan {

TEST(ProgramBundle, WritesWhatIsMissingOrNoTextAsAQuestionMark) {
    BundleInformation bundle;
    EXPECT_EQ(versionText(bundle), "Version ? (?)  •  ?");

    bundle.infoDictionary = {{"CFBundleShortVersionString", "1.10"}, {"CFBundleVersion", "7"}};
    EXPECT_EQ(versionText(bundle), "Version 1.10 (7)  •  ?");

    bundle.infoDictionary["CFBundleVersion"] = std::int64_t{7};
    bundle.bundleIdentifier = "example.Korvan";
    EXPECT_EQ(versionText(bundle), "Version 1.10 (?)  •  example.Korvan");
}

} // namespace korvan
