#ifndef POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_
#define POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_

#include <QtTest>
#include <locale>

// The main of a QTest program: makes an application of the given kind, then sets the character
// locale as a host does (the application had taken the environment's), and runs one test class.
#define POSTWRIGHT_CLIENT_TEST_MAIN(Application, TestClass)                                  \
  int main(int argc, char** argv) {                                                          \
    Application application(argc, argv);                                                     \
    std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype)); \
    TestClass test;                                                                          \
    return QTest::qExec(&test, argc, argv);                                                  \
  }

#endif  // POSTWRIGHT_TESTS_CLIENT_CLIENTTESTMAIN_H_
