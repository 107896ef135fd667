#include "zrsim-editor/HelpBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "zrsimprp/control/PageTable.h"

namespace zrsim_editor {

namespace {

QString GuideText() {
  QFile file(QString::fromLatin1(HelpBrowser::kGuideResource));
  if (!file.open(QIODevice::ReadOnly)) {
    return QStringLiteral("# Help\n\nThe user guide is missing from this build of the editor.");
  }
  return QString::fromUtf8(file.readAll());
}

bool IsSectionHeading(const QTextBlock& block) { return block.blockFormat().headingLevel() == 2; }

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QDialog(parent), browser_(new QTextBrowser(this)) {
  setWindowTitle(tr("Simulation properties - Help"));
  browser_->setOpenExternalLinks(true);
  browser_->setMarkdown(GuideText());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(browser_);
  resize(640, 560);
}

QString HelpBrowser::SectionFor(int outer, int inner) {
  const zrsimprp::PageEntry* page = zrsimprp::PageTable::AtPosition(outer, inner);
  return page != nullptr ? QString::fromUtf8(page->help_section) : QString();
}

bool HelpBrowser::ShowSection(const QString& heading) {
  for (QTextBlock block = browser_->document()->begin(); block.isValid(); block = block.next()) {
    if (!IsSectionHeading(block) || block.text() != heading) continue;
    browser_->setTextCursor(QTextCursor(block));
    browser_->verticalScrollBar()->setValue(HeadingTop(block));
    return true;
  }
  return false;
}

QString HelpBrowser::ShownSection() const {
  // The last heading at the top of the view or above it; once the view cannot scroll further, the
  // last heading in view (the guide's last sections cannot reach the top).
  const QScrollBar* bar = browser_->verticalScrollBar();
  const int top = bar->value();
  const int limit = bar->value() >= bar->maximum() ? top + browser_->viewport()->height() : top + 2;
  QString shown;
  for (QTextBlock block = browser_->document()->begin(); block.isValid(); block = block.next()) {
    if (IsSectionHeading(block) && HeadingTop(block) <= limit) shown = block.text();
  }
  return shown;
}

int HelpBrowser::HeadingTop(const QTextBlock& block) const {
  return static_cast<int>(browser_->document()->documentLayout()->blockBoundingRect(block).top());
}

}  // namespace zrsim_editor
