#include "zrsimprp/qt/DarkPalette.h"

#include <QApplication>
#include <QStyleFactory>

namespace zrsimprp {

QPalette DarkPalette::Make() {
  QPalette palette;
  const QColor window(53, 53, 53);
  const QColor base(35, 35, 35);
  const QColor text(230, 230, 230);
  const QColor dimmed(140, 140, 140);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, QColor(25, 25, 25));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, dimmed);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::Button, window);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::BrightText, Qt::red);
  palette.setColor(QPalette::Light, QColor(75, 75, 75));
  palette.setColor(QPalette::Midlight, QColor(66, 66, 66));
  palette.setColor(QPalette::Mid, QColor(40, 40, 40));
  palette.setColor(QPalette::Dark, QColor(25, 25, 25));
  palette.setColor(QPalette::Shadow, QColor(20, 20, 20));
  palette.setColor(QPalette::Link, QColor(90, 160, 240));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
    palette.setColor(QPalette::Disabled, role, dimmed);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(45, 45, 45));
  palette.setColor(QPalette::Disabled, QPalette::Button, QColor(45, 45, 45));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(80, 80, 80));
  return palette;
}

void DarkPalette::Apply() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(Make());
}

}  // namespace zrsimprp
