#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace zrsim_editor {

// Checks the definition as the control would write it now, a moment after the person stops typing,
// so that the warnings line follows the edits; and, before a save, tells which findings the
// simulation did not have when it was opened. The project is read once per project (its layers'
// polygons included), not once per check.
class LiveLint : public QObject {
  Q_OBJECT

 public:
  // Gives the definition as the control writes it now ("" when it cannot be written).
  using TextSource = std::function<std::string()>;

  explicit LiveLint(TextSource text, QObject* parent = nullptr);

  // The findings of the saved definition, to show after loading and saving. The first call after
  // opening also remembers what the simulation had then: the saved text's findings and those of the
  // text the control writes from it.
  std::vector<zrsimprp::Finding> Saved(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                                       const std::string& saved_text);
  // Checks again once edits have paused for kDelayMs; a new edit restarts the wait.
  void Schedule();
  // Checks the text the control writes now, at once, and reports it through Checked.
  void CheckNow();
  // The findings of `text` that were not there when the simulation was opened (nor accepted since).
  std::vector<zrsimprp::Finding> NewSinceOpened(const std::string& text);
  // Takes findings the person chose to save with as known, so that they are not asked about again.
  void Accept(const std::vector<zrsimprp::Finding>& findings);

  bool Pending() const { return timer_.isActive(); }
  // How many times the written definition was checked (for the tests of the debounce).
  int Checks() const { return checks_; }

  // Long enough for a run of key strokes, short enough that the line follows the typing.
  static constexpr int kDelayMs = 400;

 signals:
  // The findings of the definition as it stands; `as_it_stands` is false when it is the saved one.
  void Checked(const std::vector<zrsimprp::Finding>& findings, bool as_it_stands);

 private:
  std::vector<zrsimprp::Finding> Lint(const std::string& text);
  // What makes two findings the same cause, wherever the entry stands in the text.
  static std::string Identity(const zrsimprp::Finding& finding);

  TextSource text_;
  QTimer timer_;
  std::shared_ptr<zrsimprp::ProjectDatabase> project_;
  std::unique_ptr<zrsimprp::ProjectFacts> facts_;
  bool opened_ = false;
  std::vector<std::string> known_;  // identities of the findings there when opened, or accepted
  std::string saved_written_;       // the text the control wrote right after the last load or save
  std::vector<zrsimprp::Finding> saved_findings_;
  int checks_ = 0;
};

}  // namespace zrsim_editor
