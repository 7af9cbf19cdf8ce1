#include <gtest/gtest.h>

#include <locale>

int main(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
