#include "AnalysisTexts.h"

#include "AnalysisFixture.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

using AnalysisTextsTest = AnalysisFixture;

TEST_F(AnalysisTextsTest, SayWhyAMemberIsIgnored) {
  EXPECT_EQ(IgnoredText({3, MemberFault::EBelowZero}), "Error: member index 3 E-value\nMember ignored");
  EXPECT_EQ(IgnoredText({3, MemberFault::ABelowZero}), "Error: member index 3 A-value\nMember ignored");
  EXPECT_EQ(IgnoredText({12, MemberFault::NoLength}), "Error: member index 12 has no length\nMember ignored");
  EXPECT_EQ(IgnoredText({32767, MemberFault::NoNode}), "Error: member index 32767 node numbers\nMember ignored");
}

TEST_F(AnalysisTextsTest, SayWhyThereIsNoElongation) {
  EXPECT_EQ(NoStretchText(1, StretchFault::E), "Ignoring member 1 as E is not valid");
  EXPECT_EQ(NoStretchText(2, StretchFault::A), "Ignoring member 2 as area is not valid");
  EXPECT_EQ(NoStretchText(3, StretchFault::EAndA), "Ignoring member 3 as E and A are not valid");
}

TEST_F(AnalysisTextsTest, NameAMemberThatCanNotBe) {
  EXPECT_EQ(NoSuchMemberText(0), "Error: member index of 0 called");
  EXPECT_EQ(NoSuchMemberText(-3), "Error: member index of -3 called");
}

TEST_F(AnalysisTextsTest, NameANodeThatDoesNotExist) {
  SetTables(Triangle());
  EXPECT_EQ(UnknownNodeText({4, 9}, "Mend it."),
            "Member 4 names node 9, which does not exist: the nodes are numbered 1 to 3.\nMend it.");
  EXPECT_EQ(UnknownNodeText({4, 1e30F}, "Mend it."),
            "Member 4 names node 1E+30, which does not exist: the nodes are numbered 1 to 3.\nMend it.");
  SetTables({});
  EXPECT_EQ(UnknownNodeText({1, -2}, "Mend it."),
            "Member 1 names node -2, which does not exist: the model has no nodes.\nMend it.");
}

TEST_F(AnalysisTextsTest, GiveTheCodeOfAFailure) {
  EXPECT_EQ(AnalysisFailureText(EmptyModelCheck), "Structure is unstable - Aborting analysis\nFailed Check 0");
  EXPECT_EQ(AnalysisFailureText(UnstableCheck), "Structure is unstable - Aborting analysis\nFailed Check 2");
}

} // namespace
} // namespace strutwright
