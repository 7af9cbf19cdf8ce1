#ifndef POSTWRIGHT_EXAMPLES_BATCHHOST_PALETTE_H_
#define POSTWRIGHT_EXAMPLES_BATCHHOST_PALETTE_H_

// Gives the application the colours of a dark desktop, where the desktop does not.
void useDarkColours();

#endif  // POSTWRIGHT_EXAMPLES_BATCHHOST_PALETTE_H_
