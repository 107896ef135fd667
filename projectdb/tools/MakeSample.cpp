// Writes the sample project to the path given on the command line.
#include <iostream>

#include "projectdb/SampleProject.h"
#include "zrsimprp/host/RuntimeError.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: zrsim-make-sample <file.gpkg>\n";
    return 2;
  }
  try {
    zrsimprp::SampleProject::Create(argv[1]);
  } catch (const zrsimprp::RuntimeError& error) {
    std::cerr << "zrsim-make-sample: " << error.description << "\n";
    return 1;
  }
  return 0;
}
