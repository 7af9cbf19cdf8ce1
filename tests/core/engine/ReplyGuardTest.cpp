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

// A document a hundred and one deep, if what stands before each tag does not end an element.
std::string DeepBehind(const std::string& text) {
  return Times(101, "<a>" + text);
}

struct GuardCase {
  const char* name;
  std::string reply;
};

TEST(ReplyGuardTest, RefusesWhatWouldBreakTheParser) {
  const GuardCase kRows[] = {
      {"a NUL", std::string("<R>\0</R>", 8)},
      {"a lead byte that steps over a tag", Times(101, "<a>\xE2</a>")},
      {"a lead byte at the end", "<?xml version=\"1.0\"?><R>\xEF"},
      {"a continuation byte", "<R>\x80</R>"},
      {"an overlong form", "<R>\xC0\xBC</R>"},
      {"a surrogate", "<R>\xED\xA0\x80</R>"},
      {"beyond Unicode", "<R>\xF4\x90\x80\x80</R>"},
      {"101 levels", DeepBehind("")},
      {"end tags in front", "</a></a>" + DeepBehind("")},
      {"end tags in comments", DeepBehind("<!--</a>-->")},
      {"end tags in character data", DeepBehind("<![CDATA[</a>]]>")},
      {"end tags in attributes", Times(101, "<a b='</a>'>")},
      {"empty tags in attributes", Times(101, "<a b='/>'>")},
      {"names beyond ASCII", Times(101, "<\xC3\xA9>")},
      {"a comment in a declaration", "<?xml version='><!--'?>" + DeepBehind("")},
      {"a declaration inside", "<R><?XML version='>'?></R>"},
      {"a declaration of blanks", "<?xml   "},
      {"a reference over a tag", "<a>&#x</a>x1;"},
      {"a reference over a quote", "<a b='&#'><c d='#1;'/></a>"},
      {"a reference in a declaration", "<?xml version='&#x'?><a b='x1;'/>"},
      {"101 attributes", "<a" + Times(101, " b='1'") + "/>"},
      {"too many tags", "<R>" + Times(100'001, "<a/>")},
      {"too many attributes", "<R>" + Times(1'001, "<a" + Times(100, " b=1") + "/>")},
  };
  for (const GuardCase& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_NE(FindReplyFault(row.reply), nullptr);
  }
}

TEST(ReplyGuardTest, PassesWhatTheParserReads) {
  const GuardCase kRows[] = {
      {"100 levels", Times(100, "<a>") + Times(100, "</a>")},
      {"many siblings", "<R>" + Times(5000, "<a>x</a><b/><c d='/>' e=\"'\"/>") + "</R>"},
      {"100 attributes",
       [] {
         std::string attributes;
         for (int i = 0; i < 100; ++i) {
           attributes += " a" + std::to_string(i) + "='='";
         }
         return "<R" + attributes + "/>";
       }()},
      {"declaration, document type, comment",
       "\xEF\xBB\xBF<?xml version=\"1.0\" encoding='UTF-8'?><!DOCTYPE R>\n<!-- <a> &# --><R/>"},
      {"character data", "<R><![CDATA[<a><b>&#]]></R>"},
      {"references", "<R a='&#65;&#x4f;&lt;'>&#x1F3E0;&amp;&#10;</R>"},
      {"every length of UTF-8", "<R>A\xC3\x91\xE1\xBA\xA4\xF0\x9F\x8F\xA0\xEF\xBF\xBE</R>"},
      {"extra end tags", "<R/></R></R>"},
  };
  for (const GuardCase& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FindReplyFault(row.reply), nullptr);
    TiXmlDocument document;
    document.Parse(row.reply.c_str());
    EXPECT_NE(document.RootElement(), nullptr);
    EXPECT_FALSE(document.Error()) << document.ErrorDesc();
  }
}

}  // namespace

}  // namespace postwright
