// What a truss is described by: fields, their limits, and what becomes of them with another family.

#include "TrussFixture.h"

#include "modNumberText.h"

#include <optional>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

std::string Fault(const TrussFamily& family, const TrussTexts& texts) {
  const std::optional<TrussFault> fault = FaultOf(family, texts);
  return fault ? std::string(fault->option) + " " + fault->reason : "";
}

std::string FaultWith(const std::string& family, TrussField field, const std::string& text) {
  TrussTexts texts = StandardTexts(Family(family));
  texts[field] = text;
  return Fault(Family(family), texts);
}

TEST(TrussFieldsTest, HaveADescriptionEach) {
  std::set<std::string_view> options;
  for (std::size_t i = 0; i < TrussFieldCount; ++i) {
    EXPECT_EQ(static_cast<std::size_t>(TrussFields[i].field), i);
    EXPECT_TRUE(options.insert(TrussFields[i].option).second);
    EXPECT_FALSE(TrussFields[i].title.empty());
    EXPECT_FALSE(TrussFields[i].help.empty());
  }
}

TEST(TrussFieldsTest, BeginWithATruss) {
  for (const TrussFamily& family : TrussFamilies()) EXPECT_EQ(Fault(family, StandardTexts(family)), "") << family.name;
}

TEST(TrussFieldsTest, BeginWithTheFamilysSize) {
  EXPECT_THAT(StandardTexts(Family("pratt")).values, ElementsAre("24", "3", "8", "200", "2000", "1000", "1200", "10"));
  EXPECT_THAT(StandardTexts(Family("tower")).values, ElementsAre("4", "20", "8", "200", "2000", "1000", "1200", "10"));
  EXPECT_EQ(StandardTexts(Family("pratt")).support, "pin-roller");
  EXPECT_EQ(StandardTexts(Family("cantilever")).support, "pin-pin");
}

TEST(TrussFieldsTest, AreNamedWhenTheyAreNoNumberInTheirLimits) {
  for (const FieldDescription& each : TrussFields) {
    if (each.field == TrussField::Bays) continue;
    const std::string expected = std::string(each.option) + " must be a number from " + NumberText(each.least) +
                                 " to " + NumberText(each.most) + " " + std::string(each.unit);
    const float below = each.least < 0 ? each.least * 1.001F : each.least * 0.999F;
    for (const std::string& text : {std::string(), std::string("abc"), std::string("1,5"), std::string("nan"),
                                    NumberText(below), NumberText(each.most * 1.001F)}) {
      EXPECT_EQ(FaultWith("pratt", each.field, text), expected) << text;
    }
  }
}

TEST(TrussFieldsTest, SayTheirLimitsInWords) {
  EXPECT_EQ(FaultWith("pratt", TrussField::Span, "0"), "span must be a number from 0.1 to 10000 m");
  EXPECT_EQ(FaultWith("pratt", TrussField::Height, "-3"), "height must be a number from 0.1 to 10000 m");
  EXPECT_EQ(FaultWith("pratt", TrussField::E, "0"), "e must be a number from 0.001 to 10000 kN/mm2");
  EXPECT_EQ(FaultWith("pratt", TrussField::ChordArea, "0"), "chord-area must be a number from 1 to 1000000 mm2");
  EXPECT_EQ(FaultWith("pratt", TrussField::Load, "1e6"), "load must be a number from -100000 to 100000 kN");
}

TEST(TrussFieldsTest, MayBeAtTheirLimits) {
  for (const FieldDescription& each : TrussFields) {
    if (each.field == TrussField::Bays || each.field == TrussField::Span || each.field == TrussField::Height) continue;
    EXPECT_EQ(FaultWith("pratt", each.field, NumberText(each.least)), "");
    EXPECT_EQ(FaultWith("pratt", each.field, NumberText(each.most)), "");
  }
  EXPECT_EQ(FaultWith("pratt", TrussField::Span, "300"), "");
  EXPECT_EQ(FaultWith("pratt", TrussField::Height, "0.24"), "");
  EXPECT_EQ(FaultWith("pratt", TrussField::Height, "48"), "");
}

TEST(TrussFieldsTest, AllowNoTrussFlatterOrSteeperThanAny) {
  const std::string expected = "height must be a number from 0.24 to 48 m for a span of 24 m";
  EXPECT_EQ(FaultWith("pratt", TrussField::Height, "0.2399"), expected);
  EXPECT_EQ(FaultWith("pratt", TrussField::Height, "48.1"), expected);
  EXPECT_EQ(FaultWith("pratt", TrussField::Span, "301"),
            "height must be a number from 3.01 to 602 m for a span of 301 m");
  EXPECT_EQ(FaultWith("tower", TrussField::Height, "81"), "height must be a number from 0.1 to 80 m for a span of 4 m");
}

TEST(TrussFieldsTest, LimitTheBaysByTheFamily) {
  const std::string girder = "bays must be a whole number from 2 to 200 for the family pratt";
  for (const char* text : {"", "x", "1", "2.5", "201", "-4", "1e9"}) {
    EXPECT_EQ(FaultWith("pratt", TrussField::Bays, text), girder) << text;
  }
  for (const char* text : {"2", "3", "200", "8.0", "1e1"}) EXPECT_EQ(FaultWith("pratt", TrussField::Bays, text), "");
  EXPECT_EQ(FaultWith("k", TrussField::Bays, "3"), "bays must be a whole number from 4 to 200 for the family k");
  EXPECT_EQ(FaultWith("k", TrussField::Bays, "5"), "");
  const std::string fink = "bays must be an even number from 4 to 200 for the family fink";
  for (const char* text : {"2", "5", "7.5", "202"}) EXPECT_EQ(FaultWith("fink", TrussField::Bays, text), fink) << text;
  EXPECT_EQ(FaultWith("fink", TrussField::Bays, "6"), "");
  EXPECT_EQ(FaultWith("tower", TrussField::Bays, "1"), "");
  EXPECT_EQ(FaultWith("tower", TrussField::Bays, "0"),
            "bays must be a whole number from 1 to 200 for the family tower");
}

TEST(TrussFieldsTest, AreNotCheckedWhereTheySayNothing) {
  EXPECT_EQ(FaultWith("warren", TrussField::VerticalArea, "none"), "");
  EXPECT_NE(FaultWith("warren-verticals", TrussField::VerticalArea, "none"), "");
  TrussTexts texts = StandardTexts(Family("warren"));
  texts[TrussField::VerticalArea] = "none";
  EXPECT_GT(MakeTruss(Family("warren"), texts).memberCount, 0);
}

TEST(TrussFieldsTest, NameTheFirstFault) {
  TrussTexts texts = StandardTexts(Family("howe"));
  texts[TrussField::Load] = "?";
  texts[TrussField::E] = "?";
  const std::optional<TrussFault> fault = FaultOf(Family("howe"), texts);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->option, "e");
  EXPECT_EQ(fault->title, "E");
}

TEST(TrussFieldsTest, NameAnUnknownSupport) {
  TrussTexts texts = StandardTexts(Family("pratt"));
  texts.support = "rope";
  EXPECT_EQ(Fault(Family("pratt"), texts), "support must be one of pin-roller, roller-pin, pin-pin");
  EXPECT_EQ(Fault(Family("tower"), texts), "support must be one of pin-pin, pin-roller, roller-pin");
  EXPECT_EQ(FaultOf(Family("pratt"), texts)->title, "Support");
}

TEST(TrussFieldsTest, FollowTheFamilyAsFarAsNobodyChangedThem) {
  TrussTexts texts = StandardTexts(Family("pratt"));
  texts[TrussField::Height] = "7";

  const TrussTexts changed = TextsForFamily(texts, Family("pratt"), Family("tower"));

  EXPECT_THAT(changed.values, ElementsAre("4", "7", "8", "200", "2000", "1000", "1200", "10"));
  EXPECT_EQ(changed.support, "pin-pin");
}

TEST(TrussFieldsTest, KeepASupportThatWasChosen) {
  TrussTexts texts = StandardTexts(Family("pratt"));
  texts.support = "roller-pin";
  EXPECT_EQ(TextsForFamily(texts, Family("pratt"), Family("cantilever")).support, "roller-pin");
}

TEST(TrussFamilyTest, HasANameOfItsOwn) {
  EXPECT_EQ(FamilyNames(), "pratt, howe, warren, warren-verticals, k, fink, bowstring, cantilever, tower");
  for (const TrussFamily& family : TrussFamilies()) EXPECT_EQ(FamilyNamed(family.name), &family);
  EXPECT_EQ(FamilyNamed("Pratt"), nullptr);
  EXPECT_EQ(FamilyNamed(""), nullptr);
}

} // namespace
} // namespace strutwright
