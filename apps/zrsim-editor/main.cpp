#include <string>
#include <vector>

#include "zrsim-editor/EditorApplication.h"

int main(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  return zrsim_editor::EditorApplication::Main(argc, argv, words);
}
