#include "zrsim-editor/LiveLint.h"

#include <algorithm>
#include <utility>

#include "zrsimprp/lint/DefinitionLint.h"

namespace zrsim_editor {

LiveLint::LiveLint(TextSource text, QObject* parent) : QObject(parent), text_(std::move(text)) {
  timer_.setSingleShot(true);
  timer_.setInterval(kDelayMs);
  connect(&timer_, &QTimer::timeout, this, &LiveLint::CheckNow);
}

std::vector<zrsimprp::Finding> LiveLint::Lint(const std::string& text) {
  if (!facts_) return {};
  return zrsimprp::DefinitionLint(facts_.get()).Check(text).findings;
}

std::string LiveLint::Identity(const zrsimprp::Finding& finding) {
  // The line is left out: the control writes the entries in its own order.
  return finding.code + '\n' + finding.entry + '\n' + finding.field + '\n' + finding.place + '\n' +
         finding.sentence;
}

std::vector<zrsimprp::Finding> LiveLint::Saved(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                                               const std::string& saved_text) {
  if (project != project_ || !facts_) {
    // A Save As moves the simulation into another file: its facts are read afresh.
    project_ = std::move(project);
    facts_ = std::make_unique<zrsimprp::ProjectFacts>(project_);
  }
  timer_.stop();
  saved_findings_ = Lint(saved_text);
  saved_written_ = text_();
  if (!opened_) {
    opened_ = true;
    Accept(saved_findings_);
    Accept(Lint(saved_written_));
  }
  return saved_findings_;
}

void LiveLint::Schedule() { timer_.start(); }

void LiveLint::CheckNow() {
  timer_.stop();
  ++checks_;
  const std::string text = text_();
  // A text that cannot be written has no findings of its own; the line keeps what it said.
  if (text.empty()) return;
  if (text == saved_written_) {
    emit Checked(saved_findings_, false);
    return;
  }
  emit Checked(Lint(text), true);
}

std::vector<zrsimprp::Finding> LiveLint::NewSinceOpened(const std::string& text) {
  std::vector<zrsimprp::Finding> fresh;
  for (zrsimprp::Finding& finding : Lint(text)) {
    if (std::find(known_.begin(), known_.end(), Identity(finding)) == known_.end())
      fresh.push_back(std::move(finding));
  }
  return fresh;
}

void LiveLint::Accept(const std::vector<zrsimprp::Finding>& findings) {
  for (const zrsimprp::Finding& finding : findings) known_.push_back(Identity(finding));
}

}  // namespace zrsim_editor
