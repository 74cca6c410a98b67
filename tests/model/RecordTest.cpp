// SPDX-License-Identifier: MIT
#include "model/SSHCategory.h"
#include "support/Examples.h"

#include <gtest/gtest.h>

namespace korvan {

TEST(SSHProfile, DiffersFromAnotherInAnyKindOfField) {
    const SSHProfile profile = exampleProfile();
    EXPECT_EQ(profile, exampleProfile());
    EXPECT_NE(profile, with(profile, &SSHProfile::id, exampleId(9)));
    EXPECT_NE(profile, with(profile, &SSHProfile::password, "x"));
    EXPECT_NE(profile, with(profile, &SSHProfile::port, 23));
    EXPECT_NE(profile, with(profile, &SSHProfile::categoryId, std::nullopt));
    EXPECT_NE(profile, with(profile, &SSHProfile::categoryId, exampleId(9)));
}

TEST(SSHCategory, IsTheSameHoweverItsAccentsAreComposed) {
    const SSHCategory composed = with(exampleCategory(), &SSHCategory::name, "B\u00FCro \u1EC7");
    for (const std::string name : {"Bu\u0308ro e\u0323\u0302", "Bu\u0308ro e\u0302\u0323"}) {
        const SSHCategory decomposed = with(exampleCategory(), &SSHCategory::name, name);
        EXPECT_EQ(composed, decomposed);
        EXPECT_EQ(std::hash<SSHCategory>{}(composed), std::hash<SSHCategory>{}(decomposed));
    }
    // Compatible, and yet another text.
    EXPECT_NE(with(composed, &SSHCategory::name, "\uFB01"),
              with(composed, &SSHCategory::name, "fi"));
    EXPECT_NE(composed, with(composed, &SSHCategory::id, exampleId(9)));
}

TEST(Uuid, IsRandomOfVersionFourAndWrittenInUpperCase) {
    const std::string text = Uuid::random().text();
    EXPECT_EQ(text.find_first_of("abcdef"), std::string::npos);
    EXPECT_EQ(text[14], '4');
    EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos);
    EXPECT_NE(Uuid::random(), Uuid::random());
    EXPECT_EQ(Uuid::parse(text)->text(), text);
}

} // namespace korvan
