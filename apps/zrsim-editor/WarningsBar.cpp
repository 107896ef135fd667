#include "zrsim-editor/WarningsBar.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include "zrsim/CheckReportWriter.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace zrsim_editor {

WarningsBar::WarningsBar(QWidget* parent) : QFrame(parent) {
  setObjectName("warningsBar");
  setFrameShape(QFrame::StyledPanel);
  summary_ = new QLabel(this);
  summary_->setObjectName("warningsSummary");
  QFont bold = summary_->font();
  bold.setBold(true);
  summary_->setFont(bold);
  lines_ = new QLabel(this);
  lines_->setObjectName("warningsLines");
  lines_->setWordWrap(true);
  lines_->setTextFormat(Qt::PlainText);
  lines_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 3, 6, 3);
  layout->setSpacing(2);
  layout->addWidget(summary_);
  layout->addWidget(lines_);
  setAccessibleName(tr("Warnings about the definition"));
  hide();
}

void WarningsBar::ShowFindingsFor(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                                  const std::string& definition) {
  // The lint reads the project through its own interfaces and never touches the control or the
  // project globals, so it runs beside the control the person is editing.
  zrsimprp::ProjectFacts facts(std::move(project));
  ShowFindings(zrsimprp::DefinitionLint(&facts).Check(definition).findings);
}

void WarningsBar::ShowFindings(const std::vector<zrsimprp::Finding>& findings) {
  findings_ = findings;
  Render();
}

void WarningsBar::ShowPageCheckCause(std::optional<zrsimprp::Finding> cause) {
  cause_ = std::move(cause);
  Render();
}

void WarningsBar::Render() {
  std::vector<zrsimprp::Finding> findings = findings_;
  if (cause_) findings.push_back(*cause_);
  count_ = static_cast<int>(findings.size());
  if (findings.empty()) {
    summary_->clear();
    lines_->clear();
    setToolTip(QString());
    hide();
    return;
  }
  int errors = 0;
  QStringList all;
  for (const zrsimprp::Finding& finding : findings) {
    if (finding.severity == zrsimprp::Severity::kError) ++errors;
    all << QString::fromStdString(zrsim::CheckReportWriter::FindingLine(finding));
  }
  const int warnings = count_ - errors;
  summary_->setText(tr("The saved definition: %1 error(s), %2 warning(s). These are advice; the pages decide "
                       "what is accepted.")
                        .arg(errors)
                        .arg(warnings));
  QStringList shown = all.mid(0, kShownLines);
  if (all.size() > kShownLines) shown << tr("… and %1 more (see the tooltip)").arg(all.size() - kShownLines);
  lines_->setText(shown.join('\n'));
  setToolTip(all.join('\n'));
  show();
}

QString WarningsBar::Text() const {
  if (count_ == 0) return QString();
  return summary_->text() + '\n' + lines_->text();
}

}  // namespace zrsim_editor
