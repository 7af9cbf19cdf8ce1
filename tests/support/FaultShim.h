#ifndef POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_
#define POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_

// What a disk or a power cut may do to a program at any of its calls.
//
// A library in front of the C library, linked into a test or preloaded (LD_PRELOAD) into a program.
// It counts the calls that open, write, sync, truncate, rename or remove a file in one folder, and
// makes one of them go wrong. The environment says which, at the start of a program and at each
// call of FaultShimBegin:
//
//   POSTWRIGHT_FAULT_FOLDER  the folder, links resolved; without it nothing is done
//   POSTWRIGHT_FAULT_CALL    1: the first call that can go wrong in that way
//   POSTWRIGHT_FAULT_KIND    "fail": that call fails; "full": a write and every one after it fails;
//                            "kill": the process ends in the call, a write half done
//   POSTWRIGHT_FAULT_REPORT  a file that receives which call it was: "write book.csv"
//
// Writing fails with ENOSPC, everything else with EIO. Calls that remove a file or change its mode
// do not fail, but a process may end in them.
//
// FaultShimFailMemory makes the n-th call of malloc, calloc or realloc from now on fail, in any
// thread; 0: none. FaultShimMemoryCalls returns how many there have been since.
extern "C" {
void FaultShimBegin();
void FaultShimFailMemory(long call);
long FaultShimMemoryCalls();
}

#endif  // POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_
