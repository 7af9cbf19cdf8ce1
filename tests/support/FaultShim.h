#ifndef POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_
#define POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_

// What a disk, or the end of the power, may do to a program at any of its calls.
//
// A library that stands before the C library, linked into a test or preloaded (LD_PRELOAD) into a
// program. It counts the calls that open, write, sync, cut, rename or remove a file in one folder,
// and has one of them go wrong. The environment says which, at the start of a program and with each
// call of FaultShimBegin:
//
//   POSTWRIGHT_FAULT_FOLDER  the folder, links resolved; without it nothing is done
//   POSTWRIGHT_FAULT_CALL    1: the first call that can go wrong in that way
//   POSTWRIGHT_FAULT_KIND    "fail": that one fails; "full": a write, and every one after it;
//                            "kill": the process ends in it, a write having been done by half
//   POSTWRIGHT_FAULT_REPORT  a file that is then told which one it was: "write book.csv"
//
// Writing fails with ENOSPC, all else with EIO. What removes a file or changes its mode does not
// fail, but a process may end in it.
//
// FaultShimFailMemory has the call of malloc, calloc or realloc fail that is the n-th from now on,
// in any thread; 0: none. FaultShimMemoryCalls tells how many there were since.
extern "C" {
void FaultShimBegin();
void FaultShimFailMemory(long call);
long FaultShimMemoryCalls();
}

#endif  // POSTWRIGHT_TESTS_SUPPORT_FAULTSHIM_H_
