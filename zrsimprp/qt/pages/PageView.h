#pragma once

#include <QBoxLayout>
#include <QWidget>
#include <initializer_list>
#include <string>
#include <vector>

class QChartView;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zrsimprp {

class Button;
class Chart;
class CheckBox;
class ComboBox;
class Frame;
class Grid;
class GridView;
class Label;
class LabelLine;
class OptionGroup;
class PageControl;
class SectionHeader;
class TextBox;

// What every page view shares: widgets made and bound to their model controls, laid out top to
// bottom, and Tab walking them in the order they were made (the form order).
class PageView : public QWidget {
  Q_OBJECT

 public:
  PageView(PageControl& page, QWidget* parent);

  // The widgets Tab visits on this page, in form order.
  const std::vector<QWidget*>& FocusChain() const { return focus_chain_; }

 protected:
  // Makers: each makes the widget, binds it to the model control and (for widgets that take focus)
  // appends it to the focus chain. `parent` is the widget the new one will be laid out in.
  SectionHeader* MakeHeader(LabelLine& model, QWidget* parent);
  QLabel* MakeLabel(Label& model, QWidget* parent);
  QLineEdit* MakeTextBox(TextBox& model, const QString& name, QWidget* parent);
  QComboBox* MakeComboBox(ComboBox& model, const QString& name, QWidget* parent);
  // `object_name` is the control's own name ("flxN"), the one a form designer gives the grid.
  GridView* MakeGrid(Grid& model, const QString& object_name, const QString& name, QWidget* parent);
  QPushButton* MakeButton(Button& model, const QString& name, QWidget* parent);
  QCheckBox* MakeCheckBox(CheckBox& model, QWidget* parent);
  // Option buttons are not chained: the view chains each where it stands in the form.
  std::vector<QRadioButton*> MakeOptions(OptionGroup& model, QWidget* parent);
  QGroupBox* MakeFrame(Frame& model, QWidget* parent);
  QChartView* MakeChart(Chart& model, const QString& name, QWidget* parent);
  // The "+" and "-" buttons that stand in a column beside a grid.
  QWidget* MakeAddRemoveButtons(Button& add, const QString& add_name, Button& remove,
                                const QString& remove_name, QWidget* parent);

  // A caption and the field it names: the caption names the field for screen readers and its
  // mnemonic focuses it.
  static void NameAfter(QLabel* caption, QWidget* field);

  // Layout helpers: a row of widgets followed by a stretch, optionally indented under an option.
  static QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int indent = 0);
  // A row whose first widget (a grid) takes the spare width, up to what its columns need.
  static QHBoxLayout* FillRow(std::initializer_list<QWidget*> widgets, int indent = 0);
  static QVBoxLayout* Column(std::initializer_list<QWidget*> widgets);
  static constexpr int kIndent = 22;

  QVBoxLayout* Body() const { return body_; }
  // Closes the layout and chains Tab through the widgets in the order they were made.
  void Finish();

  void Chain(QWidget* widget) { focus_chain_.push_back(widget); }

 private:
  QVBoxLayout* body_;
  std::vector<QWidget*> focus_chain_;
};

}  // namespace zrsimprp
