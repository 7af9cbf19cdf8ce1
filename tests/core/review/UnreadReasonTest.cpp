#include <postwright/UnreadReason.h>

#include "common/WideText.h"

#include <gtest/gtest.h>

namespace postwright {

TEST(UnreadReasonTest, NamesWhatIsMissing) {
  const struct {
    std::wstring label;
    std::string code;
    std::wstring proposal;
  } kRows[] = {
      {L"12 Main St\nAustin TX 78701", "", L""},
      {L"", "empty", L""},
      {L" \n\t", "empty", L""},
      {L"ring twice", "zip-missing", L""},
      {L"12 Main St\nAustin TX", "zip-missing", L""},
      {L"12 Main St\nAustin TX 7870", "zip-missing", L""},  // no zero is missing in Texas
      {L"12 Main St\nAlbany NY 2108", "zip-missing", L""},
      {L"12 Main St\nBoston MA 2108", "zip-short", L"12 Main St\nBoston MA 02108"},
      {L"2108 Main St\r\nNewark, N.J. 7102.\r\nTel 2108", "zip-short",
       L"2108 Main St\r\nNewark, N.J. 07102.\r\nTel 2108"},
      {L"PO Box 4\nSan Juan, Puerto Rico  0901 ", "zip-short",
       L"PO Box 4\nSan Juan, Puerto Rico  00901 "},
      {L"12 Main St, Boston, MA, 2108", "zip-short", L"12 Main St, Boston, MA, 02108"},
      {L"2108 Main St\nBoston MA 2108", "zip-short", L"2108 Main St\nBoston MA 02108"},
      {L"12 Main St\nBoston MA 2108-1234", "zip-missing", L""},
      {L"12 Main St\nBoston MA 210", "zip-missing", L""},
      {std::wstring(201, L'x') + L" Boston MA 2108", "zip-missing", L""},  // no line of a label
      {L"12 Main St\nAustin 78701", "state-missing", L""},
      {L"a\nb\nc\nd\ne\nf\ng\n12 Main St\nAustin 78701", "state-missing", L""},
      {L"12 Main St\nAustin ZZ 78701", "state-missing", L""},
      {L"12 Main St\n78701", "state-missing", L""},
      {L"Jane Doe\nMain St\nAustin TX 78701", "number-missing", L""},
      {L"Jane Doe\nAustin TX\n78701", "number-missing", L""},
      {L"Jane Doe\nTwelve Main St\nAustin TX 78701", "number-in-words",
       L"Jane Doe\n12 Main St\nAustin TX 78701"},
      {L"Twenty-one Oak Avenue\nAustin TX 78701", "number-in-words",
       L"21 Oak Avenue\nAustin TX 78701"},
      {L"Ninety Nine Oak Ave\nAustin TX 78701", "number-in-words", L"99 Oak Ave\nAustin TX 78701"},
      {L"One Main St, Austin, TX 78701", "number-in-words", L"1 Main St, Austin, TX 78701"},
      {L"One Love Church\nMain St\nAustin TX 78701", "number-missing", L""},
      {L"Twelve\nAustin TX 78701", "number-missing", L""},
      {L"Hundred Main St\nAustin TX 78701", "number-missing", L""},
      {L"12 Main St\nToronto ON M5V 3L9\nCanada", "foreign-country", L""},
      {L"12 Main St\nToronto ON M5V3L9", "foreign-country", L""},
      {L"10 Downing Street\nLondon SW1A 2AA UK", "foreign-country", L""},
      {L"Hauptstr. 5\n10115 Berlin, Germany", "foreign-country", L""},
      {L"Hauptstr. 5, Berlin 10115 Germany", "foreign-country", L""},
      {L"Rue 5; France", "foreign-country", L""},
      {L"12 Main St\nGeorgia 30303", "", L""},
      {L"Washington, D.C. 20500", "number-missing", L""},
      {L"1600 Pennsylvania Ave NW\nWashington, D.C. 20500", "unread", L""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Utf8FromWide(row.label));
    const UnreadReason reason(row.label);
    EXPECT_STREQ(reason.GetCode(), row.code.c_str());
    EXPECT_EQ(Utf8FromWide(reason.GetProposal()), Utf8FromWide(row.proposal));
    EXPECT_EQ(std::string(reason.GetText()).empty(), row.code.empty());
  }
}

}  // namespace postwright
