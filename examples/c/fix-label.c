// Corrects one label, in C: reads it from standard input, asks the Verify service that the first
// argument names, and writes the corrected label.
//
//   fix-label 127.0.0.1:8470 < label.txt

#include <postwright/postwright.h>

#include <stdio.h>

int main(int argc, char** argv) {
  static char label[65536];
  if (argc != 2 || postwright_set_service(argv[1], NULL) != POSTWRIGHT_NONE) {
    fputs("usage: fix-label HOST:PORT < LABEL\n", stderr);
    return 2;
  }
  const size_t length = fread(label, 1, sizeof label, stdin);
  if (length == sizeof label) {
    fputs("fix-label: not a label: it is longer than 64 KiB\n", stderr);
    return 2;
  }

  postwright_address* fixed = NULL;
  const int32_t result = postwright_fix(label, length, NULL, NULL, &fixed);
  if (result != POSTWRIGHT_DEFAULT_MATCH) {
    fprintf(stderr, "fix-label: %s\n", postwright_result_text(result));
    return 1;
  }
  printf("%s\n", postwright_address_text(fixed));
  postwright_address_free(fixed);
  return 0;
}
