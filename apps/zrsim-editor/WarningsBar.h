#pragma once

#include <QFrame>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/lint/Finding.h"

class QLabel;

namespace zrsim_editor {

// The line under the tabs that lists what the lint finds in the simulation's definition (the same
// lines `zrsim check` prints). Advice only: it never blocks OK or Apply, and it is hidden when there
// is nothing to say.
class WarningsBar : public QFrame {
  Q_OBJECT

 public:
  explicit WarningsBar(QWidget* parent = nullptr);

  // Lints `definition` against `project` and shows the findings.
  void ShowFindingsFor(std::shared_ptr<zrsimprp::ProjectDatabase> project, const std::string& definition);
  // The findings of the saved definition, or (`as_it_stands`) of the text the control writes now.
  void ShowFindings(const std::vector<zrsimprp::Finding>& findings, bool as_it_stands = false);
  // The error behind a page's generic unexpected-error message, shown after the definition's findings
  // until the next check of a page (no value clears it).
  void ShowPageCheckCause(std::optional<zrsimprp::Finding> cause);

  // What the bar says (empty when there are no findings), one finding a line.
  QString Text() const;
  int FindingCount() const { return count_; }

  // Findings beyond this many are summed up in a last line; all of them are in the tooltip.
  static constexpr int kShownLines = 4;

  // What clicking the shown line `index` does: announces the finding, so the window can take the
  // person to its page and control.
  void Activate(int index);

 signals:
  void FindingActivated(const zrsimprp::Finding& finding);

 private:
  void Render();

  std::vector<zrsimprp::Finding> findings_;
  std::vector<zrsimprp::Finding> shown_;  // as listed, the page check's cause last
  bool as_it_stands_ = false;
  QString plain_lines_;
  std::optional<zrsimprp::Finding> cause_;
  QLabel* summary_ = nullptr;
  QLabel* lines_ = nullptr;
  int count_ = 0;
};

}  // namespace zrsim_editor
