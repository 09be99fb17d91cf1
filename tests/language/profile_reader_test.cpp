#include "language/profile_reader.h"

#include <gtest/gtest.h>

#include <array>

using namespace orvane;

TEST(ProfileReader, TellsMissingKeysFromValuelessAndEmptyOnes) {
    const std::array<ProfileSectionRequest, 2> sections{{{"alpha", 4}, {"beta", 2}}};
    const auto values = ReadNumberedKeys("[Alpha]\n1=one\n2\n3=\n[beta]\n2 = 'two' \n", sections);
    ASSERT_EQ(values.size(), 2u);
    ASSERT_EQ(values[0].size(), 4u);
    ASSERT_EQ(values[1].size(), 2u);
    EXPECT_TRUE(values[0][0].present);
    EXPECT_TRUE(values[0][0].hasValue);
    EXPECT_EQ(values[0][0].text, "one");
    EXPECT_TRUE(values[0][1].present);
    EXPECT_FALSE(values[0][1].hasValue);
    EXPECT_TRUE(values[0][2].hasValue);
    EXPECT_EQ(values[0][2].text, "");
    EXPECT_FALSE(values[0][3].present);
    EXPECT_FALSE(values[1][0].present);
    EXPECT_EQ(values[1][1].text, "two");
}

TEST(ProfileReader, AValuelessFirstOccurrenceStillWins) {
    const std::array<ProfileSectionRequest, 1> sections{{{"s", 1}}};
    const auto values = ReadNumberedKeys("[s]\n1\n1=late\n", sections);
    EXPECT_TRUE(values[0][0].present);
    EXPECT_FALSE(values[0][0].hasValue);
}

TEST(ProfileReader, NoRequestsOrNoKeysReadNothing) {
    EXPECT_TRUE(ReadNumberedKeys("[s]\n1=x\n", {}).empty());
    const std::array<ProfileSectionRequest, 1> none{{{"s", 0}}};
    const auto values = ReadNumberedKeys("[s]\n1=x\n", none);
    ASSERT_EQ(values.size(), 1u);
    EXPECT_TRUE(values[0].empty());
}
