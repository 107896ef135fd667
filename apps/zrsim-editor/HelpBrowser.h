#pragma once

#include <QDialog>
#include <QString>

class QTextBlock;
class QTextBrowser;

namespace zrsim_editor {

// The user guide (docs/user-guide.md, built into the program) in a window of its own, opened at the
// section of the tab the person is looking at.
class HelpBrowser : public QDialog {
  Q_OBJECT

 public:
  explicit HelpBrowser(QWidget* parent = nullptr);

  // The heading of the guide's section for outer tab `outer` (0-5) and, on the Population tab,
  // inner tab `inner` (1 General, 2 Covariates).
  static QString SectionFor(int outer, int inner);
  // Scrolls so that the section's heading is at the top; false when the guide has no such section.
  bool ShowSection(const QString& heading);
  // The heading at the top of the view now.
  QString ShownSection() const;

  QTextBrowser* Browser() const { return browser_; }

  static constexpr const char* kGuideResource = ":/help/docs/user-guide.md";

 private:
  // Where the block starts in the document, in the scroll bar's units.
  int HeadingTop(const QTextBlock& block) const;

  QTextBrowser* browser_;
};

}  // namespace zrsim_editor
