#include "ExportFormat.h"

#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

using QVXML_940::ExportFormat;

TEST(ExportFormat, Defaults) {
  const ExportFormat format;
  EXPECT_TRUE(format.fIsNewParagraph);
  EXPECT_FALSE(format.fIndentation);
  EXPECT_TRUE(format.fFormat);
  EXPECT_EQ(format.fTabs, 0);
  EXPECT_TRUE(ExportFormat().IsNewParagraph());
  EXPECT_FALSE(ExportFormat().HasIndentation());
}

TEST(ExportFormat, TheFormatSwitchMastersTheOthers) {
  for (const bool format : {false, true}) {
    for (const bool indentation : {false, true}) {
      for (const bool paragraph : {false, true}) {
        ExportFormat layout;
        layout.SetFormat(format);
        layout.SetIndentation(indentation);
        layout.SetIsNewParagraph(paragraph);
        EXPECT_EQ(layout.HasIndentation(), format && indentation);
        EXPECT_EQ(layout.IsNewParagraph(), format && paragraph);
        EXPECT_EQ(layout.fFormat, format);
        EXPECT_EQ(layout.fIndentation, indentation);
        EXPECT_EQ(layout.fIsNewParagraph, paragraph);
      }
    }
  }
}

TEST(ExportFormat, CopiesAndMovesAllFields) {
  ExportFormat layout;
  layout.SetFormat(false);
  layout.SetIndentation(true);
  layout.SetIsNewParagraph(false);
  layout.fTabs = 7;
  const ExportFormat copy(layout);
  ExportFormat assigned;
  assigned = copy;
  const ExportFormat moved(std::move(assigned));
  EXPECT_FALSE(moved.fFormat);
  EXPECT_TRUE(moved.fIndentation);
  EXPECT_FALSE(moved.fIsNewParagraph);
  EXPECT_EQ(moved.fTabs, 7);
}
