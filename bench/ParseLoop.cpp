// What bench/python.py compares with: a list of labels through the parser, in C++.
//
//   bench-parse-loop FILE    prints the least time of ten rounds, in seconds of the processor
//
// FILE has a label a line, with "|" for a line break.

#include <postwright/AddressParser.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>
#include <locale>
#include <string>
#include <vector>

#include "common/WideText.h"

using postwright::AddressInfo;
using postwright::AddressParser;

int main(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  std::ifstream file(argc > 1 ? argv[1] : "/dev/stdin");
  std::vector<std::wstring> labels;
  for (std::string line; std::getline(file, line);) {
    std::replace(line.begin(), line.end(), '|', '\n');
    labels.push_back(postwright::WideFromUtf8(line));
  }
  AddressParser* const parser = AddressParser::GetInstance();
  std::clock_t least = -1;
  for (int round = 0; round < 10; ++round) {
    const std::clock_t begin = std::clock();
    std::vector<AddressInfo> infos;
    infos.reserve(labels.size());
    for (const std::wstring& label : labels) {
      infos.push_back(parser->Parse(label));
    }
    const std::clock_t taken = std::clock() - begin;
    least = least < 0 ? taken : std::min(least, taken);
  }
  std::cout << static_cast<double>(least) / CLOCKS_PER_SEC << '\n';
}
