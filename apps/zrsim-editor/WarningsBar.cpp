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
  // Each line is a link to where its finding points in the form.
  lines_->setTextFormat(Qt::RichText);
  lines_->setTextInteractionFlags(Qt::TextBrowserInteraction);
  connect(lines_, &QLabel::linkActivated, this,
          [this](const QString& link) { Activate(link.mid(QStringLiteral("finding:").size()).toInt()); });
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

void WarningsBar::ShowFindings(const std::vector<zrsimprp::Finding>& findings, bool as_it_stands) {
  findings_ = findings;
  as_it_stands_ = as_it_stands;
  Render();
}

void WarningsBar::ShowPageCheckCause(std::optional<zrsimprp::Finding> cause) {
  cause_ = std::move(cause);
  Render();
}

void WarningsBar::Render() {
  std::vector<zrsimprp::Finding> findings = findings_;
  if (cause_) findings.push_back(*cause_);
  shown_ = findings;
  count_ = static_cast<int>(findings.size());
  if (findings.empty()) {
    summary_->clear();
    lines_->clear();
    plain_lines_.clear();
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
  const QString source = as_it_stands_ ? tr("The definition as it stands") : tr("The saved definition");
  summary_->setText(tr("%1: %2 error(s), %3 warning(s). These are advice; the pages decide what is accepted.")
                        .arg(source)
                        .arg(errors)
                        .arg(warnings));
  QStringList shown = all.mid(0, kShownLines);
  QStringList links;
  for (int i = 0; i < shown.size(); ++i) {
    const bool points = !findings[static_cast<std::size_t>(i)].page.empty();
    const QString line = shown[i].toHtmlEscaped();
    links << (points ? QStringLiteral("<a href=\"finding:%1\">%2</a>").arg(i).arg(line) : line);
  }
  if (all.size() > kShownLines) {
    shown << tr("… and %1 more (see the tooltip)").arg(all.size() - kShownLines);
    links << shown.back().toHtmlEscaped();
  }
  plain_lines_ = shown.join('\n');
  lines_->setText(links.join(QStringLiteral("<br>")));
  setToolTip(all.join('\n'));
  show();
}

QString WarningsBar::Text() const {
  if (count_ == 0) return QString();
  return summary_->text() + '\n' + plain_lines_;
}

void WarningsBar::Activate(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= shown_.size()) return;
  emit FindingActivated(shown_[static_cast<std::size_t>(index)]);
}

}  // namespace zrsim_editor
