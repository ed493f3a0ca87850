#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "platform/text.h"

namespace dg {
namespace {

using namespace std::string_literals;

TEST(Text, TrimsTakeBlanksOnly) {
  EXPECT_EQ(trimLeft("  a b "), "a b ");
  EXPECT_EQ(trimRight("  a b "), "  a b");
  EXPECT_EQ(trim("  a b "), "a b");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim(""), "");
  EXPECT_EQ(trim("\t a\t "), "\t a\t");
  EXPECT_EQ(trimRight("a \0"s), "a \0"s);
  EXPECT_EQ(shown(" LOT7 \0 \0"s), " LOT7");
  EXPECT_EQ(shown("\0\0"s), "");
}

TEST(Text, CaseFoldingKnowsTheLettersOfTheCodePage) {
  EXPECT_EQ(upperCase("az{9 \xE4\xF7\x9A\xFF\xDF"), "AZ{9 \xC4\xF7\x8A\x9F\xDF");
  EXPECT_EQ(lowerCase("AZ[9 \xC4\xD7\x8A\x9F\xDF"), "az[9 \xE4\xD7\x9A\xFF\xDF");
  EXPECT_TRUE(equalIgnoringCase("PartL", "PARTl"));
  EXPECT_FALSE(equalIgnoringCase("Part", "PartL"));
  EXPECT_FALSE(equalIgnoringCase("[", "{"));
}

TEST(Text, MiddleNeverLeavesTheText) {
  EXPECT_EQ(middle("ABCDE", 2, 3), "BCD");
  EXPECT_EQ(middle("ABCDE", 4, 9), "DE");
  EXPECT_EQ(middle("ABCDE", 4), "DE");
  EXPECT_EQ(middle("ABCDE", 6, 1), "");
  EXPECT_EQ(middle("ABCDE", 0, 2), "");
  EXPECT_EQ(middle("", 1, 1), "");
}

TEST(Text, EveryByteSurvivesUnicodeAndBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte)
    bytes += static_cast<char>(byte);
  EXPECT_EQ(bytesFromUtf8(utf8FromBytes(bytes)), bytes);
  EXPECT_EQ(utf8FromBytes("\x80\x85\xE9\xFF\x9F\x81"),
            "\xE2\x82\xAC\xE2\x80\xA6\xC3\xA9\xC3\xBF\xC5\xB8\xC2\x81");
}

TEST(Text, ForeignAndMalformedCharactersBecomeQuestionMarks) {
  EXPECT_EQ(bytesFromUtf8("a\xC4\x80z"), "a?z");              // a letter outside the code page
  EXPECT_EQ(bytesFromUtf8("\xF0\x9F\x98\x80"), "?");          // four bytes, one character
  EXPECT_EQ(bytesFromUtf8("\xC2\x80"), "?");                  // a control that the page gives away
  EXPECT_EQ(bytesFromUtf8("\xE9t\xE9"), "?t?");               // not UTF-8
  EXPECT_EQ(bytesFromUtf8("\xC0\xAF"), "??");                 // overlong
  EXPECT_EQ(bytesFromUtf8("\xED\xA0\x80"), "???");            // a surrogate
  EXPECT_EQ(bytesFromUtf8("\xF8\x88\x80\x80\x80"), "?????");  // no such lead byte
  EXPECT_EQ(bytesFromUtf8("x\xE2\x82"), "x??");               // cut off
}

TEST(Text, ControlsBecomeBlanks) {
  EXPECT_EQ(withoutControls("a\0\r\n\x1B[2J\x7F\xE9"s), "a    [2J \xE9");
}

TEST(MessageBox, WithoutAHandlerIsHarmlessToATerminal) {
  const MessageBoxHandler former = setMessageBoxHandler({});
  testing::internal::CaptureStderr();
  MsgBox("one\x1B[2J\r\ntw\xE9\x9D\n", kOkOnly, "Title\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Title : one [2J\n  tw\xC3\xA9 \n  \n");
  setMessageBoxHandler(former);
}

}  // namespace
}  // namespace dg
