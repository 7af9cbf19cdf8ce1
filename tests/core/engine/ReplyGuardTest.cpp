#include "core/engine/ReplyGuard.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

namespace postwright {

namespace {

std::string Times(int count, const std::string& text) {
  std::string repeated;
  for (int i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

}  // namespace

// Where the XML parser would go wrong; fuzz/corpus/engine_reply shows how.
TEST(ReplyGuardTest, RefusesWhatWouldBreakTheParser) {
  const std::string deep = Times(101, "<a>");
  const std::string kRows[] = {
      // A NUL; bytes that are not UTF-8.
      std::string("<R>\0</R>", 8), "<R>\xE2</R>", "<R>\x80</R>", "<R>\xC0\xBC</R>",
      "<R>\xED\xA0\x80</R>", "<R>\xF4\x90\x80\x80</R>",
      // Levels of nesting, and what only seems to end one.
      deep, "</a></a>" + deep, "<?xml a='><!--'?>" + deep, Times(101, "<a><!--</a>-->"),
      Times(101, "<a><![CDATA[</a>]]>"), Times(101, "<a b='</a>'>"), Times(101, "<a b='/>'>"),
      Times(101, "<\xC3\xA9>"), Times(101, "<_>"),
      // Declarations without an end; references out of range.
      "<R><?XML version='>'?></R>", "<?xml   ", "<?xml version='&#x'?><a b='x1;'/>",
      "<a>&#x</a>x1;", "<a b='&#'><c d='#1;'/></a>",
      // Too many levels.
      "<a" + Times(101, " b=''") + "/>", Times(100'001, "<a/>"),
      Times(1'001, "<a" + Times(100, " b=1") + "/>")};
  for (const std::string& row : kRows) {
    EXPECT_NE(FindReplyFault(row), nullptr) << row.substr(0, 40);
  }
}

TEST(ReplyGuardTest, PassesWhatTheParserReads) {
  std::string attributes;
  for (int i = 0; i < 100; ++i) {
    attributes += " a" + std::to_string(i) + "='>'";
  }
  const std::string kRows[] = {
      Times(100, "<a>") + Times(100, "</a>"),
      "<R>" + Times(5000, "<a>x</a><b/><c d='/>' e=\"'\"/>") + "</R>",
      "<R" + attributes + "/></R></R>",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding='UTF-8'?><!DOCTYPE R>\n<!-- <a> &# --><R/>",
      "<R a='&#65;&#x4f;&lt;'>&#x1F3E0;&amp;<![CDATA[<a><b>&#]]></R>",
      "<R>A\xC3\x91\xE1\xBA\xA4\xF0\x9F\x8F\xA0\xEF\xBF\xBE</R>"};
  for (const std::string& row : kRows) {
    SCOPED_TRACE(row.substr(0, 40));
    EXPECT_EQ(FindReplyFault(row), nullptr);
    TiXmlDocument document;
    document.Parse(row.c_str());
    EXPECT_TRUE(document.RootElement() != nullptr && !document.Error()) << document.ErrorDesc();
  }
}

}  // namespace postwright
