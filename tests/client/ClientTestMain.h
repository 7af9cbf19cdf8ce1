#ifndef POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_
#define POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_

#include <QtTest>
#include <locale>

// The main of a QTest program: the character locale as a host sets it, then one test class under an
// application of the given kind.
#define POSTWRIGHT_CLIENT_TEST_MAIN(Application, TestClass)                                  \
  int main(int argc, char** argv) {                                                          \
    std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype)); \
    Application application(argc, argv);                                                     \
    TestClass test;                                                                          \
    return QTest::qExec(&test, argc, argv);                                                  \
  }

#endif  // POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_
