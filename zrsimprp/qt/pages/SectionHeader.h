#pragma once

#include <QLabel>
#include <QWidget>

namespace zrsimprp {

// A section header: a caption followed by a horizontal rule to the right edge.
class SectionHeader : public QWidget {
  Q_OBJECT

 public:
  explicit SectionHeader(QWidget* parent = nullptr);

  QLabel* CaptionLabel() const { return caption_; }
  QWidget* Rule() const { return rule_; }

 private:
  QLabel* caption_;
  QWidget* rule_;
};

}  // namespace zrsimprp
