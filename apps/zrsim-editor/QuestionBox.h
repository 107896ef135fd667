#pragma once

#include <string>
#include <vector>

#include "zrsim-editor/EditorWindow.h"

class QWidget;

namespace zrsim_editor {

// The editor's questions: one button per choice, named as the editor names it everywhere. The first
// choice that throws nothing away is the default; closing the box answers Go back.
class QuestionBox {
 public:
  static EditorWindow::Choice Ask(QWidget* parent, const std::string& text,
                                  const std::vector<EditorWindow::Choice>& choices);
};

}  // namespace zrsim_editor
