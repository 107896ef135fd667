#include <iostream>
#include <string>
#include <vector>

#include "zrsim/CommandLine.h"

int main(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  return zrsim::CommandLine(std::cin, std::cout, std::cerr).Run(words);
}
