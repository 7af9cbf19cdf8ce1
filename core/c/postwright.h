#ifndef POSTWRIGHT_CORE_C_POSTWRIGHT_H_
#define POSTWRIGHT_CORE_C_POSTWRIGHT_H_

#include <postwright/Export.h>

#include <stddef.h>  // NOLINT(modernize-deprecated-headers): this header is C, too
#include <stdint.h>  // NOLINT(modernize-deprecated-headers)

// The core for programs in C, and for languages that bind to C. What it does is what AddressParser
// and Postwright do.
//
//   postwright_address* fixed = NULL;
//   int32_t result = postwright_fix("12 main st\naustin tx 78701", POSTWRIGHT_TERMINATED,
//                                   NULL, NULL, &fixed);
//   puts(result == POSTWRIGHT_DEFAULT_MATCH ? postwright_address_text(fixed)
//                                           : postwright_result_text(result));
//   postwright_address_free(fixed);
//
// Text is UTF-8 in both directions, whatever the locale. Letters beyond A to Z are put into upper
// case where LC_CTYPE is a UTF-8 locale when the first address is read, and otherwise stay as they
// are. Strings that a function returns end with a NUL; they belong to the handle that they come
// from and live as long as it does, those that come from no handle for the life of the process.
//
// Every function may be called from any thread. Reading and correcting take turns: a second call
// waits for the first. They must not run while another thread corrects or reads through the C++
// interface. Nothing throws, and no function takes back an argument; a handle is not changed once
// it is made, but by postwright_lines_put_back and postwright_candidates_compose, and is freed
// once.

#ifdef __cplusplus
extern "C" {
#endif

// How a call ended. The numbers from 0 on are those of FixResult and mean the same; the negative
// ones say that the call itself was at fault. Numbers never change, new ones may come.
enum {
  POSTWRIGHT_NONE = 0, /* done, where there is nothing else to tell */

  POSTWRIGHT_CONNECTION_FAILED = 1,
  POSTWRIGHT_NO_DATA = 2,
  POSTWRIGHT_BAD_REPLY = 3, /* empty (no network, too), not XML, or no answer to the question */
  POSTWRIGHT_NO_INTERNET = 4,
  POSTWRIGHT_INVALID_ADDRESS = 10, /* the service turned the address down */
  POSTWRIGHT_INVALID_ZIP = 11,
  POSTWRIGHT_INVALID_STATE = 12,
  POSTWRIGHT_INVALID_CITY = 13,
  POSTWRIGHT_ADDRESS_NOT_FOUND = 21, /* the text holds no address */
  POSTWRIGHT_MULTIPLE_MATCH = 22,
  POSTWRIGHT_STREET_MISMATCH = 25,
  POSTWRIGHT_EXACT_MATCH = 31,
  POSTWRIGHT_DEFAULT_MATCH = 32, /* the service answered with a standard form */

  POSTWRIGHT_BAD_ARGUMENT = -1, /* a null pointer, or a structure of an unknown size */
  POSTWRIGHT_BAD_TEXT = -2,     /* the text is not UTF-8, or holds a NUL */
  POSTWRIGHT_NO_MEMORY = -3,
  POSTWRIGHT_CANCELLED = -4,
  POSTWRIGHT_INTERNAL = -5, /* a fault of the library or of what it stands on; please report it */
  POSTWRIGHT_BAD_FILE = -6  /* a file cannot be used */
};

// Returns a sentence in English on what a result means; for an unknown number it says so.
POSTWRIGHT_CORE_EXPORT const char* postwright_result_text(int32_t result);

// Returns the library's version, "0.2.0".
POSTWRIGHT_CORE_EXPORT const char* postwright_version(void);

// Points the process's fixes at a Verify service: `host` with an optional port
// ("127.0.0.1:8470"), ASCII, and the account identifier that is sent with every request. Both are
// copied; null leaves that one as it is. To be called once, before the first fix. POSTWRIGHT_NONE,
// POSTWRIGHT_BAD_TEXT for a host that is empty or has blanks or control characters in it, or
// POSTWRIGHT_NO_MEMORY.
POSTWRIGHT_CORE_EXPORT int32_t postwright_set_service(const char* host, const char* user_id);

// Sets how long a request to the service may last as a whole; 120,000 unless set, or what the
// library was built with. More than a day counts as one. Does not hold for a host's own `read_url`.
// POSTWRIGHT_NONE, or POSTWRIGHT_BAD_ARGUMENT where it is not above 0. Any thread.
POSTWRIGHT_CORE_EXPORT int32_t postwright_set_timeout(int32_t milliseconds);

// As a length: the text ends at its first NUL.
#define POSTWRIGHT_TERMINATED SIZE_MAX

// An address, read or corrected.
typedef struct postwright_address postwright_address;

// The elements of an address (USPS Publication 28, section 23).
enum {
  POSTWRIGHT_PREFIX = 0, /* the lines above the address */
  POSTWRIGHT_NUMBER = 1, /* house number: "12 1/2" */
  POSTWRIGHT_PREDIRECTIONAL = 2,
  POSTWRIGHT_STREET = 3, /* "MAIN"; a box's whole line: "PO BOX 12" */
  POSTWRIGHT_STREET_SUFFIX = 4,
  POSTWRIGHT_POSTDIRECTIONAL = 5,
  POSTWRIGHT_SECONDARY_UNIT = 6,
  POSTWRIGHT_SECONDARY_NUMBER = 7,
  POSTWRIGHT_STREET_LINE = 8,  /* the delivery line: "12 N MAIN ST APT 4B" */
  POSTWRIGHT_URBANIZATION = 9, /* Puerto Rico */
  POSTWRIGHT_CITY = 10,
  POSTWRIGHT_STATE = 11,
  POSTWRIGHT_ZIP = 12,     /* "62701" or "62701-1234" */
  POSTWRIGHT_SUFFIX = 13,  /* the lines below the address */
  POSTWRIGHT_ELEMENTS = 14 /* how many there are */
};

// Returns an element, several lines where it has several; "" where the address has none, for an
// element that does not exist, and for a null address. A corrected address has no elements from
// number to secondary number (read its text for them), one that was read no urbanization.
POSTWRIGHT_CORE_EXPORT const char* postwright_address_element(const postwright_address* address,
                                                              int32_t element);

// Returns the whole text, lines separated by line feeds, the lines above and below the address in
// it; "" for a null address. Of an address that was read: its upper-case elements put together.
POSTWRIGHT_CORE_EXPORT const char* postwright_address_text(const postwright_address* address);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_address_free(postwright_address* address);

// Finds the address in `text`, `length` bytes of any line breaks, and splits it; asks nobody. The
// time taken is in proportion to the length. Sets `*address` to a handle that the caller frees, and
// to null unless the result is POSTWRIGHT_NONE: POSTWRIGHT_ADDRESS_NOT_FOUND,
// POSTWRIGHT_BAD_ARGUMENT, POSTWRIGHT_BAD_TEXT, POSTWRIGHT_NO_MEMORY, POSTWRIGHT_INTERNAL.
POSTWRIGHT_CORE_EXPORT int32_t postwright_parse(const char* text, size_t length,
                                                postwright_address** address);

// The lines of a label that are its address, and those around them: what AddressLines finds.
typedef struct postwright_lines postwright_lines;

// What a host is to do with a label.
enum {
  POSTWRIGHT_LINES_FOUND = 0,     /* ask about the address alone */
  POSTWRIGHT_LINES_UNCLEAR = 1,   /* ask about the whole text */
  POSTWRIGHT_LINES_LEFT_ALONE = 2 /* do not ask; there is a reason */
};

// The texts of the lines.
enum {
  POSTWRIGHT_LINES_ABOVE = 0,   /* above, address and below, one after the other, are the text */
  POSTWRIGHT_LINES_ADDRESS = 1, /* as typed */
  POSTWRIGHT_LINES_BELOW = 2,
  POSTWRIGHT_LINES_BETWEEN = 3,     /* lines between street and city that are not asked about */
  POSTWRIGHT_LINES_QUESTION = 4,    /* what to give to postwright_fix; "" for a label left alone */
  POSTWRIGHT_LINES_REASON = 5,      /* a code, "left-alone-rural-route"; "" unless left alone */
  POSTWRIGHT_LINES_EXPLANATION = 6, /* the same in English */
  POSTWRIGHT_LINES_TEXTS = 7        /* how many there are */
};

// Finds the lines of `text` that are the address; asks nobody. Sets `*lines` to a handle that the
// caller frees, and to null unless the result is POSTWRIGHT_NONE: POSTWRIGHT_BAD_ARGUMENT,
// POSTWRIGHT_BAD_TEXT, POSTWRIGHT_NO_MEMORY, POSTWRIGHT_INTERNAL.
POSTWRIGHT_CORE_EXPORT int32_t postwright_address_lines(const char* text, size_t length,
                                                        postwright_lines** lines);

// Returns a POSTWRIGHT_LINES_... outcome; POSTWRIGHT_LINES_UNCLEAR for null.
POSTWRIGHT_CORE_EXPORT int32_t postwright_lines_outcome(const postwright_lines* lines);

// Returns one of the texts; "" for null and for one that does not exist.
POSTWRIGHT_CORE_EXPORT const char* postwright_lines_text(const postwright_lines* lines,
                                                         int32_t which);

// Returns the label with `corrected`, a text that ends at its NUL, in the place of the address:
// see AddressLines::PutBack. The string belongs to the handle and lives until the next call of this
// function with it, which one thread at a time may make. Null where there is no memory, where an
// argument is null, and where `corrected` is not UTF-8.
POSTWRIGHT_CORE_EXPORT const char* postwright_lines_put_back(postwright_lines* lines,
                                                             const char* corrected);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_lines_free(postwright_lines* lines);

// Where a host's fetch puts the body of a reply.
typedef struct postwright_body postwright_body;

// Appends to the body. 0; POSTWRIGHT_NO_MEMORY where there is none or more than 16 MiB were given,
// or POSTWRIGHT_BAD_ARGUMENT where `body` is null, or `data` is and `size` is not 0. After a
// failure the fetch has failed, too, whatever it returns.
POSTWRIGHT_CORE_EXPORT int32_t postwright_body_append(postwright_body* body, const void* data,
                                                      size_t size);

// The levels of log messages.
enum { POSTWRIGHT_LOG_ERROR = 0, POSTWRIGHT_LOG_WARNING = 1, POSTWRIGHT_LOG_INFO = 2 };

// What a host does for the library instead of the library's own network and silence. A member may
// be null. Called on the thread of the fix, during it, with `context`; must not throw or jump out,
// and must not call postwright_fix or any of postwright_fix_..., postwright_parse,
// postwright_address_lines or postwright_unread_reason, which would wait for themselves.
typedef struct postwright_services {
  size_t size;  // sizeof(postwright_services)
  void* context;
  // Fetches an absolute http URL with one blocking GET and gives the body to
  // postwright_body_append. Returns 0, or anything else where it failed.
  int32_t (*read_url)(void* context, const char* url, postwright_body* body);
  // Takes one message, without a line end.
  void (*log)(void* context, int32_t level, const char* message);
} postwright_services;

// Lets another thread end a fix.
typedef struct postwright_canceller postwright_canceller;

// Returns null where there is no memory. Freed by the caller, after the fixes that use it; null is
// allowed. Once cancelled it stays so.
POSTWRIGHT_CORE_EXPORT postwright_canceller* postwright_canceller_new(void);
POSTWRIGHT_CORE_EXPORT void postwright_canceller_free(postwright_canceller* canceller);

// Ends the fixes that use the canceller, under way, waiting or still to come, within about a
// second; where the host fetches, once it is done with that. Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_cancel(postwright_canceller* canceller);

// Finds the address in `text` and asks the service for its standard form with one fetch. A text
// without an address is sent all the same and turned down by the service. `services` and
// `canceller` may be null: the library fetches by itself (bounds: MacPlatformServices) and logs
// nothing; nobody cancels. Both are borrowed for the call.
//
// Sets `*fixed` to a handle that the caller frees, and to null unless the result is
// POSTWRIGHT_DEFAULT_MATCH: POSTWRIGHT_INVALID_ADDRESS, POSTWRIGHT_BAD_REPLY,
// POSTWRIGHT_CANCELLED, POSTWRIGHT_BAD_ARGUMENT, POSTWRIGHT_BAD_TEXT, POSTWRIGHT_NO_MEMORY,
// POSTWRIGHT_INTERNAL.
POSTWRIGHT_CORE_EXPORT int32_t postwright_fix(const char* text, size_t length,
                                              const postwright_services* services,
                                              postwright_canceller* canceller,
                                              postwright_address** fixed);

// What could have been meant by a text that leaves a choice, as FixWithCandidates names it.
typedef struct postwright_candidates postwright_candidates;

// What is said of the numbers in a range: those of AddressRangeType.
enum {
  POSTWRIGHT_RANGE_ODD = 0,
  POSTWRIGHT_RANGE_EVEN = 1,
  POSTWRIGHT_RANGE_NONE = 2, /* nothing */
  POSTWRIGHT_RANGE_BOTH = 3
};

// One address, or a run of them. Ends of a range are texts, "100" or "1A", and "" where there is no
// range; not every number between them needs to be there. The strings belong to the candidates.
typedef struct postwright_candidate {
  // The whole label, its ranges in parentheses: "(100 - 198) MAIN ST" and the lines around it.
  const char* text;
  int32_t primary_type;  // house numbers; a POSTWRIGHT_RANGE_...
  const char* primary_low;
  const char* primary_high;
  int32_t secondary_type;  // units
  const char* secondary_low;
  const char* secondary_high;
} postwright_candidate;

// As postwright_fix, and asks the service for at most `most` candidates, from 1 to 50, in the head
// of its request ("Postwright-Candidates: 50"); a host's `read_url` sends that field by itself.
// Where the service names any the result is POSTWRIGHT_MULTIPLE_MATCH, `*candidates` is set to a
// handle that the caller frees, and `*fixed` where the service gave a standard form too. With
// every other result `*candidates` is null. POSTWRIGHT_BAD_ARGUMENT also where `most` is below 1.
POSTWRIGHT_CORE_EXPORT int32_t postwright_fix_candidates(const char* text, size_t length,
                                                         const postwright_services* services,
                                                         postwright_canceller* canceller,
                                                         int32_t most, postwright_address** fixed,
                                                         postwright_candidates** candidates);

// Returns how many there are; 0 for null.
POSTWRIGHT_CORE_EXPORT size_t postwright_candidates_count(const postwright_candidates* candidates);

// Returns a candidate, in the order in which a person would look; null where `index` is not below
// the count. Lives as long as the candidates.
POSTWRIGHT_CORE_EXPORT const postwright_candidate* postwright_candidates_at(
    const postwright_candidates* candidates, size_t index);

// Returns the label with the values chosen in the places of the candidate's ranges, to be asked
// about before it is taken for right. Any text is taken; null and "" leave a number out. The string
// belongs to the candidates and lives until the next call of this function with them, which one
// thread at a time may make. Null where there is no memory, where `index` is not below the count,
// and where a value is not UTF-8.
POSTWRIGHT_CORE_EXPORT const char* postwright_candidates_compose(postwright_candidates* candidates,
                                                                 size_t index, const char* primary,
                                                                 const char* secondary);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_candidates_free(postwright_candidates* candidates);

// The report of an answer: what VerifyReport, Confirmation and VerifyFailure say of it.
typedef struct postwright_report postwright_report;

// How the fetch ended: the numbers of FetchOutcome. Numbers never change, new ones may come.
enum {
  POSTWRIGHT_FETCH_UNKNOWN = 0,      /* nothing was fetched, or by the host's own `read_url` */
  POSTWRIGHT_FETCH_ANSWERED = 1,     /* over HTTP, whatever its status */
  POSTWRIGHT_FETCH_NO_NETWORK = 2,   /* no way to the host, or nobody to look up its name */
  POSTWRIGHT_FETCH_NOT_RESOLVED = 3, /* there is no such host, or it has no address */
  POSTWRIGHT_FETCH_REFUSED = 4,      /* no connection, or none that may be trusted */
  POSTWRIGHT_FETCH_TIMED_OUT = 5,
  POSTWRIGHT_FETCH_BROKE_OFF = 6,  /* the connection ended before the answer did */
  POSTWRIGHT_FETCH_BAD_ANSWER = 7, /* not HTTP, or too much of it */
  POSTWRIGHT_FETCH_ABANDONED = 8
};

// How far an address was confirmed as one that exists: the numbers of ConfirmationKind. Numbers
// never change, new ones may come.
enum {
  POSTWRIGHT_CONFIRMATION_NONE = 0, /* nobody was asked, or no address came back */
  POSTWRIGHT_CONFIRMATION_FULL = 1,
  POSTWRIGHT_CONFIRMATION_UNIT_MISSING = 2,     /* the building is known, and has units */
  POSTWRIGHT_CONFIRMATION_UNIT_NOT_KNOWN = 3,   /* the building is known, the unit is not */
  POSTWRIGHT_CONFIRMATION_NUMBER_NOT_KNOWN = 4, /* the street is known, the number is not */
  POSTWRIGHT_CONFIRMATION_FORM_ONLY = 5         /* well written; nobody has checked the street */
};

// The numbers of a report.
enum {
  POSTWRIGHT_REPORT_FETCH = 0,       /* a POSTWRIGHT_FETCH_... */
  POSTWRIGHT_REPORT_HTTP_STATUS = 1, /* where answered; else 0 */
  POSTWRIGHT_REPORT_RETRY_AFTER = 2, /* seconds that the service wants to be left alone; or 0 */
  POSTWRIGHT_REPORT_CONFIRMATION = 3,
  /* 1 where the service knows the street's numbers, and the one asked about is not among them */
  POSTWRIGHT_REPORT_CONTRADICTS_NUMBER = 4,
  /* 1 where the address was not judged, and asking again later may help; 0 also where nothing is
     known of the fetch */
  POSTWRIGHT_REPORT_UNANSWERED = 5,
  /* 1 where the service knows the building's units, and the one asked about is not among them */
  POSTWRIGHT_REPORT_CONTRADICTS_UNIT = 6,
  POSTWRIGHT_REPORT_NUMBERS = 7 /* how many there are */
};

// The texts of a report; each is "" where there is nothing to tell.
enum {
  POSTWRIGHT_REPORT_CONFIRMATION_CODE = 0, /* "confirmed", "unit-missing", "form-only" */
  POSTWRIGHT_REPORT_CONFIRMATION_TEXT = 1, /* the same in English */
  POSTWRIGHT_REPORT_REASON = 2,            /* why there is no address: "refused", "not-found" */
  POSTWRIGHT_REPORT_REASON_TEXT = 3,       /* in English: what happened and what to do */
  POSTWRIGHT_REPORT_ERROR_NUMBER = 4,      /* the service's own: "-2147219401" */
  POSTWRIGHT_REPORT_ERROR_SOURCE = 5,
  POSTWRIGHT_REPORT_ERROR_DESCRIPTION = 6,
  POSTWRIGHT_REPORT_DPV_CONFIRMATION = 7, /* "Y", "D", "S" or "N" */
  POSTWRIGHT_REPORT_DPV_FOOTNOTES = 8,    /* pairs run together: "AABB" */
  POSTWRIGHT_REPORT_FOOTNOTES = 9,        /* letters run together: "AN", as for a review */
  POSTWRIGHT_REPORT_RETURN_TEXT = 10,     /* a sentence on a default match */
  POSTWRIGHT_REPORT_ZIP4 = 11,
  POSTWRIGHT_REPORT_CARRIER_ROUTE = 12,
  POSTWRIGHT_REPORT_DELIVERY_POINT = 13,
  POSTWRIGHT_REPORT_SOURCE = 14, /* whose word it is: "base", "zip-list", "upstream", "cache" */
  POSTWRIGHT_REPORT_SOURCE_NAME = 15, /* the base's file, or the other service */
  POSTWRIGHT_REPORT_SOURCE_DATE = 16, /* when the base was made or the answer kept: "2026-11-20" */
  POSTWRIGHT_REPORT_SOURCE_TEXT = 17, /* in English: "the address base texas.base of 2026-11-20" */
  POSTWRIGHT_REPORT_TEXTS = 18        /* how many there are */
};

// As postwright_fix, or, where `most` is from 1 to 50, as postwright_fix_candidates, and sets
// `*report` to what else is known of the answer: a handle that the caller frees, whether there is
// an address or none; null where the call was cancelled or itself at fault. `most` 0 asks for no
// candidates; `candidates` may then be null. `report` may be null.
POSTWRIGHT_CORE_EXPORT int32_t postwright_fix_report(const char* text, size_t length,
                                                     const postwright_services* services,
                                                     postwright_canceller* canceller, int32_t most,
                                                     postwright_address** fixed,
                                                     postwright_candidates** candidates,
                                                     postwright_report** report);

// Reads the bytes of a reply that the host fetched, as they came. Of bytes that are no answer there
// is a report, too, of which every text is "". Sets `*report` to a handle that the caller frees,
// and to null unless the result is POSTWRIGHT_NONE: POSTWRIGHT_BAD_ARGUMENT, POSTWRIGHT_NO_MEMORY.
POSTWRIGHT_CORE_EXPORT int32_t postwright_report_new(const char* reply, size_t length,
                                                     postwright_report** report);

// Returns a number; 0 for null and for one that does not exist.
POSTWRIGHT_CORE_EXPORT int32_t postwright_report_number(const postwright_report* report,
                                                        int32_t which);

// Returns a text; "" for null and for one that does not exist.
POSTWRIGHT_CORE_EXPORT const char* postwright_report_text(const postwright_report* report,
                                                          int32_t which);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_report_free(postwright_report* report);

// Why the parser reads no address in a text: what UnreadReason says.
typedef struct postwright_unread postwright_unread;

// The numbers of UnreadCause. Numbers never change, new ones may come.
enum {
  POSTWRIGHT_UNREAD_NONE = 0, /* the parser reads an address */
  POSTWRIGHT_UNREAD_EMPTY = 1,
  POSTWRIGHT_UNREAD_FOREIGN_COUNTRY = 2, /* the last line names another country */
  POSTWRIGHT_UNREAD_SHORT_ZIP = 3,       /* four digits, in a state whose codes begin with 0 */
  POSTWRIGHT_UNREAD_NO_ZIP = 4,
  POSTWRIGHT_UNREAD_NO_STATE = 5,
  POSTWRIGHT_UNREAD_NUMBER_IN_WORDS = 6, /* "Twelve Main St" */
  POSTWRIGHT_UNREAD_NO_HOUSE_NUMBER = 7,
  POSTWRIGHT_UNREAD_UNCLEAR = 8 /* all of it is there, and still it is no address */
};

// The texts.
enum {
  POSTWRIGHT_UNREAD_CODE = 0,        /* "zip-missing"; "" where an address is read */
  POSTWRIGHT_UNREAD_EXPLANATION = 1, /* in English: what is missing and what to do */
  POSTWRIGHT_UNREAD_PROPOSAL = 2,    /* the text mended, to be offered; mostly "" */
  POSTWRIGHT_UNREAD_TEXTS = 3        /* how many there are */
};

// Looks at `text`; asks nobody, and takes time in proportion to the length. Sets `*unread` to a
// handle that the caller frees, and to null unless the result is POSTWRIGHT_NONE:
// POSTWRIGHT_BAD_ARGUMENT, POSTWRIGHT_BAD_TEXT, POSTWRIGHT_NO_MEMORY, POSTWRIGHT_INTERNAL.
POSTWRIGHT_CORE_EXPORT int32_t postwright_unread_reason(const char* text, size_t length,
                                                        postwright_unread** unread);

// Returns a cause; POSTWRIGHT_UNREAD_NONE for null.
POSTWRIGHT_CORE_EXPORT int32_t postwright_unread_cause(const postwright_unread* unread);

// Returns one of the texts; "" for null and for one that does not exist.
POSTWRIGHT_CORE_EXPORT const char* postwright_unread_text(const postwright_unread* unread,
                                                          int32_t which);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_unread_free(postwright_unread* unread);

// The account of a correction: what CorrectionReview says.
typedef struct postwright_review postwright_review;

// One change. Offsets count bytes of the two texts, lines are counted from 0. Where words were
// added or left out, one side is empty and its offsets are the place where they would stand. The
// strings belong to the review.
typedef struct postwright_change {
  const char* rule;    // a code that never changes its meaning: "suffix", "zip-of-street"
  const char* text;    // the same in English words
  const char* reason;  // of a doubt, one English sentence; else ""
  int32_t doubt;       // 0 or 1
  const char* typed;   // the words as typed
  size_t typed_line;
  size_t typed_begin;
  size_t typed_end;
  const char* corrected;  // the words as corrected
  size_t corrected_line;
  size_t corrected_begin;
  size_t corrected_end;
} postwright_change;

// Compares a text as typed with the text as corrected, word by word; asks nobody, waits for nobody,
// and takes time in proportion to the lengths. `footnotes` are the letters of the reply's Footnotes
// element, null or "" where there are none. Sets `*review` to a handle that the caller frees, and
// to null unless the result is POSTWRIGHT_NONE: POSTWRIGHT_BAD_ARGUMENT, POSTWRIGHT_BAD_TEXT,
// POSTWRIGHT_NO_MEMORY, POSTWRIGHT_INTERNAL.
POSTWRIGHT_CORE_EXPORT int32_t postwright_review_new(const char* typed, size_t typed_length,
                                                     const char* corrected, size_t corrected_length,
                                                     const char* footnotes,
                                                     postwright_review** review);

// Returns how many changes there are; 0 for a null review.
POSTWRIGHT_CORE_EXPORT size_t postwright_review_count(const postwright_review* review);

// Returns a change, in the order of the corrected text; null where `index` is not below the count.
// Lives as long as the review.
POSTWRIGHT_CORE_EXPORT const postwright_change* postwright_review_change(
    const postwright_review* review, size_t index);

// Returns the first doubt, which says why a person should look at the correction before it is
// taken; null where there is none.
POSTWRIGHT_CORE_EXPORT const postwright_change* postwright_review_doubt(
    const postwright_review* review);

// Null is allowed.
POSTWRIGHT_CORE_EXPORT void postwright_review_free(postwright_review* review);

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // POSTWRIGHT_CORE_C_POSTWRIGHT_H_
