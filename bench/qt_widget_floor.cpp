// The Qt widget against its floor: SIMPropertiesWidget creating, loading and drawing every outer tab
// of a simulation over 1,000 strata, next to a hand-written form that creates and fills the same Qt
// widgets (tab bar, stacked pages, tables over item models, lists, boxes, the chart) with the same
// contents and draws them the same way, with no control behind it. Before timing, both forms are
// drawn once and their inventories (every visible kind of widget with its texts, state, and every
// table's cells) compared, so the floor cannot drift from what the widget shows. After the table the
// program prints the widget/floor time ratio; the aim is at most 1.1.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLineSeries>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/grid/GridCellColors.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"
#include "zrsimprp/qt/map/StrataMapPanel.h"

namespace {

constexpr int kStrata = 1000;
constexpr int kOuterTabs = 6;
constexpr double kTarget = 1.1;
constexpr const char* kWidgetBenchmark = "BM_WidgetCreateLoadRenderAllTabs";
constexpr const char* kFloorBenchmark = "BM_FloorCreateFillRenderAllTabs";
constexpr const char* kInterleavedBenchmark = "BM_WidgetOverFloorInterleaved";

// ---- The data both forms show ----

// The per-stratum texts, made once: the widget reads them from the definition and the project, the
// floor is handed them ready.
struct StrataData {
  std::vector<std::string> names;
  std::vector<std::string> densities;
  std::vector<std::string> sizes;
  std::vector<std::string> scales;
  std::vector<std::string> shapes;
};

StrataData MakeStrataData(int strata) {
  StrataData data;
  for (int i = 1; i <= strata; ++i) {
    const std::string number = std::to_string(i);
    data.names.push_back("S" + number);
    data.densities.push_back(number + ".5");
    data.sizes.push_back(number + "00");
    data.scales.push_back(number + "0");
    data.shapes.push_back(number + ".25");
  }
  return data;
}

std::string Joined(const std::vector<std::string>& values) {
  std::string text;
  for (const std::string& value : values) {
    if (!text.empty()) text += ',';
    text += value;
  }
  return text;
}

std::shared_ptr<zrsimprp::MemoryProjectDatabase> MakeProject(const StrataData& data) {
  auto database = std::make_shared<zrsimprp::MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  zrsimprp::MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  for (size_t i = 0; i < data.names.size(); ++i) {
    layer.ids.emplace_back(static_cast<int32_t>(i + 1));
    layer.labels.emplace_back(data.names[i]);
  }
  database->AddLayer(layer);
  database->AddDataFilter(5, "All data");
  database->AddModelDefinition(7, "HN model", "MA", "");
  return database;
}

std::string Definition(const StrataData& data) {
  return "Engine=SIM;Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;Density=Uniform /Densities=" +
         Joined(data.densities) + " /GridSpace=10;PopSize=\"Fixed N\" /Values=" + Joined(data.sizes) +
         ";Clusters=False;Detectability=\"Hazard Rate\" /ParamByStratum=True;DetFuncParam=\"\" /Scale=" +
         Joined(data.scales) + ";DetFuncParam=\"\" /Shape=" + Joined(data.shapes) +
         ";Analyse=False;ParallelProcessing=False /cores=1;";
}

// ---- The floor: a hand-written form with the same widgets and contents ----

// A table of texts as a hand-written form would keep it: fixed (heading) rows and columns are grey.
class TextTableModel : public QAbstractTableModel {
 public:
  TextTableModel(int rows, int cols, int fixed_rows, int fixed_cols, const QPalette& palette, QObject* parent)
      : QAbstractTableModel(parent),
        rows_(rows),
        cols_(cols),
        fixed_rows_(fixed_rows),
        fixed_cols_(fixed_cols),
        texts_(static_cast<size_t>(rows * cols)),
        alignments_(static_cast<size_t>(rows * cols), Qt::AlignLeft | Qt::AlignVCenter),
        palette_(palette) {}

  void SetText(int row, int col, const QString& text, Qt::Alignment alignment) {
    texts_[Cell(row, col)] = text;
    alignments_[Cell(row, col)] = alignment;
  }
  void SetEnabled(bool enabled) { enabled_ = enabled; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override {
    return parent.isValid() ? 0 : rows_;
  }
  int columnCount(const QModelIndex& parent = QModelIndex()) const override {
    return parent.isValid() ? 0 : cols_;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return QVariant();
    const size_t cell = Cell(index.row(), index.column());
    const bool fixed = Fixed(index);
    switch (role) {
      case Qt::DisplayRole:
      case Qt::EditRole:
      case Qt::AccessibleTextRole:
        return texts_[cell];
      // Headings, cells a person may edit and cells of a disabled table are told apart by the same
      // colour rule a hand-written form would have to follow to be as readable.
      case Qt::BackgroundRole:
        return ColorsOf(fixed).background;
      case Qt::ForegroundRole:
        return ColorsOf(fixed).text;
      case Qt::TextAlignmentRole:
        return static_cast<int>(alignments_[cell]);
      default:
        return QVariant();
    }
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable;
    if (enabled_) flags |= Qt::ItemIsEnabled;
    if (enabled_ && !Fixed(index)) flags |= Qt::ItemIsEditable;
    return flags;
  }

 private:
  size_t Cell(int row, int col) const { return static_cast<size_t>(row * cols_ + col); }
  bool Fixed(const QModelIndex& index) const {
    return index.row() < fixed_rows_ || index.column() < fixed_cols_;
  }
  zrsimprp::GridCellColors::Colors ColorsOf(bool fixed) const {
    using Kind = zrsimprp::GridCellColors::Kind;
    const Kind kind = fixed ? Kind::kHeading : enabled_ ? Kind::kEditable : Kind::kDisabled;
    return zrsimprp::GridCellColors::For(kind, palette_);
  }

  int rows_;
  int cols_;
  int fixed_rows_;
  int fixed_cols_;
  bool enabled_ = true;
  std::vector<QString> texts_;
  std::vector<Qt::Alignment> alignments_;
  QPalette palette_;
};

constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr Qt::Alignment kCentre = Qt::AlignCenter;
constexpr int kIndent = 22;

// One page of the floor: widgets laid out top to bottom, made by small helpers.
class FloorPage : public QWidget {
 public:
  explicit FloorPage(QWidget* parent = nullptr) : QWidget(parent), body_(new QVBoxLayout(this)) {
    body_->setSpacing(4);
  }

  QVBoxLayout* Body() const { return body_; }

  static QWidget* Header(const char* caption, QWidget* parent) {
    auto* header = new QWidget(parent);
    auto* label = new QLabel(QString::fromUtf8(caption), header);
    auto* rule = new QFrame(header);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 6, 0, 2);
    layout->addWidget(label);
    layout->addWidget(rule, 1);
    return header;
  }
  static QLabel* Label(const char* caption, QWidget* parent, bool enabled = true) {
    auto* label = new QLabel(QString::fromUtf8(caption), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(label->text().size() > 60);
    label->setEnabled(enabled);
    return label;
  }
  static QLineEdit* Edit(const char* text, QWidget* parent, bool enabled = true) {
    auto* edit = new QLineEdit(QString::fromUtf8(text), parent);
    edit->setEnabled(enabled);
    return edit;
  }
  static QComboBox* Combo(std::initializer_list<const char*> items, int current, QWidget* parent,
                          bool enabled = true, const char* edit_text = nullptr) {
    auto* combo = new QComboBox(parent);
    combo->setMinimumContentsLength(18);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setEditable(edit_text != nullptr);
    QStringList list;
    for (const char* item : items) list.append(QString::fromUtf8(item));
    combo->addItems(list);
    combo->setCurrentIndex(current);
    if (edit_text != nullptr) combo->setEditText(QString::fromUtf8(edit_text));
    combo->setEnabled(enabled);
    return combo;
  }
  template <class Button>
  static Button* Check(const char* caption, bool checked, QWidget* parent, bool enabled = true) {
    auto* button = new Button(QString::fromUtf8(caption), parent);
    button->setAutoExclusive(false);
    button->setChecked(checked);
    button->setEnabled(enabled);
    return button;
  }
  static QTableView* Table(TextTableModel* model, int visible_rows, QWidget* parent) {
    auto* view = new QTableView(parent);
    view->horizontalHeader()->hide();
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 8);
    view->horizontalHeader()->setDefaultSectionSize(72);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    model->setParent(view);
    view->setModel(model);
    const int shown = std::clamp(model->rowCount(), 1, visible_rows);
    view->setFixedHeight(shown * view->verticalHeader()->defaultSectionSize() + 2 * view->frameWidth() +
                         view->horizontalScrollBar()->sizeHint().height());
    return view;
  }
  static void FitLabelColumn(QTableView* view) { view->resizeColumnToContents(0); }
  // "+" and "-" under a table; `minus_enabled` for the one place where "-" is enabled.
  static QWidget* PlusMinus(QWidget* parent, bool visible = true, bool minus_enabled = false) {
    auto* buttons = new QWidget(parent);
    auto* column = new QVBoxLayout(buttons);
    column->setContentsMargins(0, 0, 0, 0);
    for (const char* caption : {"+", "-"}) {
      auto* button = new QPushButton(QString::fromUtf8(caption), buttons);
      button->setAutoDefault(false);
      button->setFixedWidth(button->sizeHint().height() + 4);
      button->setEnabled(minus_enabled && caption[0] == '-');
      button->setVisible(visible);
      column->addWidget(button);
    }
    column->addStretch(1);
    return buttons;
  }
  static QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int indent = 0) {
    auto* row = new QHBoxLayout;
    if (indent > 0) row->addSpacing(indent);
    for (QWidget* widget : widgets) row->addWidget(widget);
    row->addStretch(1);
    return row;
  }
  static QHBoxLayout* FillRow(std::initializer_list<QWidget*> widgets, int indent = 0) {
    auto* row = new QHBoxLayout;
    if (indent > 0) row->addSpacing(indent);
    bool first = true;
    for (QWidget* widget : widgets) {
      row->addWidget(widget, first ? 1 : 0, first ? Qt::Alignment() : Qt::AlignTop);
      first = false;
    }
    return row;
  }
  void Finish() { body_->addStretch(1); }

 private:
  QVBoxLayout* body_;
};

// A two-row table: a heading row with the stratum names and one row of values.
TextTableModel* StrataRow(const StrataData& data, const std::vector<std::string>& values, const char* heading,
                          const char* label, Qt::Alignment label_alignment, Qt::Alignment cell_alignment,
                          const QPalette& palette) {
  const int cols = static_cast<int>(data.names.size()) + 1;
  auto* model = new TextTableModel(2, cols, 1, 1, palette, nullptr);
  model->SetText(0, 0, QString::fromUtf8(heading), kLeft);
  model->SetText(1, 0, QString::fromUtf8(label), label_alignment);
  for (int col = 1; col < cols; ++col) {
    const size_t i = static_cast<size_t>(col - 1);
    model->SetText(0, col, QString::fromStdString(data.names[i]), cell_alignment);
    model->SetText(1, col, QString::fromStdString(values[i]),
                   cell_alignment == kLeft ? kRight : cell_alignment);
  }
  return model;
}

TextTableModel* Headings(std::initializer_list<const char*> texts, bool down, const QPalette& palette,
                         bool enabled) {
  const int count = static_cast<int>(texts.size());
  auto* model =
      new TextTableModel(down ? count : 1, down ? 1 : count, down ? 0 : 1, down ? 1 : 0, palette, nullptr);
  int i = 0;
  for (const char* text : texts) {
    model->SetText(down ? i : 0, down ? 0 : i, QString::fromUtf8(text), kLeft);
    ++i;
  }
  model->SetEnabled(enabled);
  return model;
}

QWidget* SimulationPage() {
  auto* page = new FloorPage;
  auto* body = page->Body();
  body->addWidget(FloorPage::Header("Survey design", page));
  body->addWidget(
      FloorPage::Check<QRadioButton>("Select design (generate multiple surveys)", false, page, false));
  body->addLayout(FloorPage::Row({FloorPage::Combo({"10 Lines"}, -1, page, false, " ")}, kIndent));
  body->addWidget(FloorPage::Check<QRadioButton>("Select single survey", true, page));
  body->addLayout(
      FloorPage::Row({FloorPage::Combo({"1 Line survey"}, 0, page, true, "1 Line survey")}, kIndent));
  body->addWidget(FloorPage::Header("Region selection", page));
  body->addLayout(FloorPage::Row(
      {FloorPage::Label("Region / strata layer:", page), FloorPage::Combo({"Strata"}, 0, page)}));
  body->addWidget(FloorPage::Header("Number of Repetitions", page));
  QLineEdit* reps = FloorPage::Edit("10", page);
  reps->setFixedWidth(reps->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 12);
  body->addLayout(FloorPage::Row(
      {FloorPage::Label("Repeat the simulation", page), reps, FloorPage::Label("times", page)}));
  page->Finish();
  return page;
}

QWidget* DensityPage(const StrataData& data) {
  auto* page = new FloorPage;
  auto* body = page->Body();
  const QPalette palette = page->palette();
  body->addWidget(FloorPage::Header("Relative density surface", page));
  body->addWidget(
      FloorPage::Check<QRadioButton>("Uniform density (within strata where applicable)", true, page));
  QTableView* densities = FloorPage::Table(
      StrataRow(data, data.densities, "Strata:", "Density:", kLeft, kLeft, palette), 2, page);
  FloorPage::FitLabelColumn(densities);
  body->addLayout(FloorPage::FillRow({densities}, kIndent));
  body->addWidget(FloorPage::Check<QRadioButton>("Simple model ", false, page, false));
  body->addLayout(
      FloorPage::FillRow({FloorPage::Edit("e.g. = -100 + x*1.02 + y*1.15", page, false)}, kIndent));
  body->addWidget(FloorPage::Check<QRadioButton>("DSM analysis", false, page, false));
  body->addLayout(FloorPage::Row(
      {FloorPage::Label("Layer:", page, false), FloorPage::Combo({}, -1, page, false, "Layer"),
       FloorPage::Label("Field:", page, false), FloorPage::Combo({}, -1, page, false, "Field")},
      kIndent));
  body->addLayout(FloorPage::Row({FloorPage::Label("GridSpacing:", page), FloorPage::Edit("10", page)}));
  body->addWidget(FloorPage::Check<QCheckBox>("Add Hotspots", false, page));
  QTableView* hotspots = FloorPage::Table(
      Headings({"Centre X", "Centre Y", "Sigma", "Amplitude"}, false, palette, true), 4, page);
  body->addLayout(FloorPage::FillRow({hotspots, FloorPage::PlusMinus(page)}, kIndent));
  page->Finish();
  return page;
}

QWidget* PopulationGeneralPage(const StrataData& data, QWidget* parent) {
  auto* page = new FloorPage(parent);
  auto* body = page->Body();
  const QPalette palette = page->palette();
  body->addWidget(FloorPage::Header("Population Size", page));
  body->addWidget(FloorPage::Check<QRadioButton>("Fixed N", true, page));
  body->addWidget(FloorPage::Check<QRadioButton>("Poisson N (generated according to density surface pdf)",
                                                 false, page, false));
  body->addWidget(FloorPage::Check<QRadioButton>("Fixed average D (Poisson N)", false, page, false));
  QTableView* sizes =
      FloorPage::Table(StrataRow(data, data.sizes, "", "N:", kRight, kCentre, palette), 2, page);
  FloorPage::FitLabelColumn(sizes);
  body->addLayout(FloorPage::FillRow({sizes}));
  body->addWidget(FloorPage::Header("Animals in clusters", page));
  body->addWidget(FloorPage::Check<QCheckBox>("Generate cluster sizes", false, page, false));
  auto* frame = new QGroupBox(QStringLiteral("Cluster Size Distribution"), page);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(
      FloorPage::Check<QRadioButton>("Define distribution for cluster size:", false, frame, false));
  inside->addLayout(FloorPage::Row(
      {FloorPage::Combo({"Please Select", "Poisson", "Negative-Binomial"}, 0, frame, false)}, kIndent));
  QTableView* params =
      FloorPage::Table(Headings({"Parameter Name:", "Parameter Value"}, true, palette, false), 2, frame);
  params->setEnabled(false);
  FloorPage::FitLabelColumn(params);
  inside->addLayout(FloorPage::FillRow({params}, kIndent));
  inside->addWidget(FloorPage::Check<QRadioButton>("Specify probability mass function (pmf) for cluster size",
                                                   true, frame, false));
  QTableView* pmf =
      FloorPage::Table(Headings({"Cluster Size", "Probability"}, true, palette, false), 2, frame);
  pmf->setEnabled(false);
  FloorPage::FitLabelColumn(pmf);
  inside->addLayout(FloorPage::FillRow({pmf, FloorPage::PlusMinus(frame)}, kIndent));
  body->addWidget(frame);
  page->Finish();
  return page;
}

// Made hidden, as the Covariates tab is not the one shown.
QWidget* PopulationCovariatesPage(QWidget* parent) {
  auto* page = new FloorPage(parent);
  page->hide();
  auto* body = page->Body();
  const QPalette palette = page->palette();
  body->addWidget(FloorPage::Header("Population Covariates", page));
  body->addWidget(FloorPage::Check<QCheckBox>("Include continuous covariate", false, page, false));
  body->addLayout(FloorPage::Row(
      {FloorPage::Label("Covariate Name:", page, false), FloorPage::Edit("", page, false)}, kIndent));
  body->addLayout(
      FloorPage::Row({FloorPage::Label("Covariate distribution:", page, false),
                      FloorPage::Combo({"Please Select", "Normal", "Log-Normal"}, 0, page, false)},
                     kIndent));
  QTableView* continuous =
      FloorPage::Table(Headings({"Parameter Name:", "Parameter Value"}, true, palette, false), 2, page);
  continuous->setEnabled(false);
  FloorPage::FitLabelColumn(continuous);
  body->addLayout(FloorPage::FillRow({continuous}, kIndent));
  body->addWidget(FloorPage::Check<QCheckBox>("Include categorical covariate", false, page, false));
  body->addLayout(FloorPage::Row(
      {FloorPage::Label("Covariate name:", page, false), FloorPage::Edit("", page, false)}, kIndent));
  QTableView* levels =
      FloorPage::Table(Headings({"Cov. Value:", "Probability:"}, true, palette, false), 2, page);
  levels->setEnabled(false);
  FloorPage::FitLabelColumn(levels);
  body->addLayout(FloorPage::FillRow({levels, FloorPage::PlusMinus(page)}, kIndent));
  page->Finish();
  return page;
}

QWidget* PopulationPage(const StrataData& data) {
  auto* page = new QWidget;
  auto* bar = new QTabBar(page);
  bar->setDrawBase(true);
  bar->addTab(QStringLiteral("General"));
  bar->addTab(QStringLiteral("Covariates"));
  QWidget* covariates = PopulationCovariatesPage(page);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(bar);
  layout->addWidget(PopulationGeneralPage(data, page));
  layout->addWidget(covariates);
  return page;
}

QChartView* DetectionChart(QWidget* parent) {
  auto* view = new QChartView(parent);
  QChart* chart = view->chart();
  chart->legend()->hide();
  auto* x_axis = new QValueAxis;
  auto* y_axis = new QValueAxis;
  chart->addAxis(x_axis, Qt::AlignBottom);
  chart->addAxis(y_axis, Qt::AlignLeft);
  x_axis->setLabelFormat(QStringLiteral("%g"));
  y_axis->setLabelFormat(QStringLiteral("%g"));
  x_axis->setRange(0, 50);
  x_axis->setTickCount(3);
  y_axis->setRange(0, 30);
  y_axis->setTickCount(11);
  y_axis->setVisible(false);
  QList<QPointF> points;
  for (int i = 0; i < 50; ++i)
    points.append(QPointF(i, 30 * (1 - std::exp(-std::pow(i / 20.0 + 0.01, -2.0)))));
  auto* series = new QLineSeries;
  series->replace(points);
  chart->addSeries(series);
  series->attachAxis(x_axis);
  series->attachAxis(y_axis);
  view->setRenderHint(QPainter::Antialiasing);
  view->setFixedSize(200, 133);
  view->setEnabled(false);
  return view;
}

QWidget* DetectabilityPage(const StrataData& data) {
  auto* page = new FloorPage;
  auto* body = page->Body();
  const QPalette palette = page->palette();
  body->addWidget(FloorPage::Header("Detectability", page));
  body->addLayout(FloorPage::Row({FloorPage::Label("Detection function model:", page),
                                  FloorPage::Combo({"Half-Normal", "Hazard Rate"}, 1, page)}));
  body->addWidget(FloorPage::Check<QCheckBox>("Define parameters for each stratum", true, page, false));
  const int cols = static_cast<int>(data.names.size()) + 1;
  auto* model = new TextTableModel(3, cols, 1, 1, palette, nullptr);
  model->SetText(0, 0, QStringLiteral("Region"), kLeft);
  model->SetText(1, 0, QStringLiteral("Scale"), kLeft);
  model->SetText(2, 0, QStringLiteral("Shape"), kLeft);
  for (int col = 1; col < cols; ++col) {
    const size_t i = static_cast<size_t>(col - 1);
    model->SetText(0, col, QString::fromStdString(data.names[i]), kCentre);
    model->SetText(1, col, QString::fromStdString(data.scales[i]), kCentre);
    model->SetText(2, col, QString::fromStdString(data.shapes[i]), kCentre);
  }
  QTableView* parameters = FloorPage::Table(model, 6, page);
  FloorPage::FitLabelColumn(parameters);
  body->addLayout(FloorPage::FillRow({parameters}));
  auto* frame = new QGroupBox(QStringLiteral("Detection Function"), page);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(
      FloorPage::Label("This provides a guide to the average detectability of the population.", frame));
  auto* side = new QWidget(frame);
  auto* side_column = new QVBoxLayout(side);
  side_column->setContentsMargins(0, 0, 0, 0);
  auto* preview = new QPushButton(QStringLiteral("Display Detection Function"), side);
  preview->setAutoDefault(false);
  preview->setEnabled(false);
  side_column->addWidget(preview);
  side_column->addWidget(FloorPage::Label("", side));
  side_column->addStretch(1);
  inside->addLayout(FloorPage::Row({DetectionChart(frame), side}));
  body->addWidget(frame);
  page->Finish();
  return page;
}

QWidget* AnalysesPage() {
  auto* page = new FloorPage;
  auto* body = page->Body();
  const QPalette palette = page->palette();
  body->addWidget(FloorPage::Header("Analyses", page));
  body->addWidget(FloorPage::Check<QCheckBox>("Analyse simulated data", false, page, false));
  QLabel* filter_caption = FloorPage::Label("Data Filter:", page);
  QLabel* model_caption = FloorPage::Label("Model Definition:", page);
  const int caption_width = std::max(filter_caption->sizeHint().width(), model_caption->sizeHint().width());
  filter_caption->setMinimumWidth(caption_width);
  model_caption->setMinimumWidth(caption_width);
  body->addLayout(FloorPage::Row({filter_caption, FloorPage::Combo({"5 All data"}, 0, page, false)}));
  body->addLayout(FloorPage::Row({model_caption, FloorPage::Combo({"7 HN model"}, 0, page)}));
  auto* frame = new QGroupBox(QStringLiteral("Model definition"), page);
  auto* inside = new QVBoxLayout(frame);
  inside->addLayout(FloorPage::Row(
      {FloorPage::Label("Type of model: ", frame), FloorPage::Combo({}, -1, frame, false, "Model Type")}));
  auto* model = new TextTableModel(1, 2, 0, 1, palette, nullptr);
  model->SetText(0, 0, QStringLiteral("Analysis 1"), kLeft);
  model->SetEnabled(false);
  QTableView* models = FloorPage::Table(model, 4, frame);
  models->setEnabled(false);
  FloorPage::FitLabelColumn(models);
  inside->addLayout(FloorPage::FillRow({models, FloorPage::PlusMinus(frame, false, true)}));
  QLabel* criteria_caption = FloorPage::Label("Select among multiple model using:", frame);
  QComboBox* criteria = FloorPage::Combo({"AIC", "AICc", "BIC"}, 0, frame, false);
  criteria_caption->hide();
  criteria->hide();
  inside->addLayout(FloorPage::Row({criteria_caption, criteria}));
  body->addWidget(frame);
  page->Finish();
  return page;
}

QWidget* MiscPage() {
  auto* page = new FloorPage;
  auto* body = page->Body();
  body->addWidget(FloorPage::Header("Additional simulation options", page));
  auto* frame = new QGroupBox(QStringLiteral("Cores"), page);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(FloorPage::Label(
      "The maximum number of cores that the simulation will use is one less than the number of cores on the "
      "machine. If Max cores exceeds this number or is left blank it will default to using one less than the "
      "number of cores on the machine.",
      frame));
  inside->addLayout(
      FloorPage::Row({FloorPage::Label("Max cores:", frame), FloorPage::Edit("", frame, false)}));
  body->addWidget(frame);
  body->addWidget(FloorPage::Check<QCheckBox>("Run in parallel", false, page));
  page->Finish();
  return page;
}

// The whole floor form: outer tab bar over a stack of scrolling pages.
class FloorForm : public QWidget {
 public:
  explicit FloorForm(const StrataData& data) : tabs_(new QTabBar(this)), pages_(new QStackedWidget(this)) {
    tabs_->setDrawBase(true);
    for (const char* caption :
         {"&Simulation", "&Density", "&Population", "D&etectability", "&Analysis", "&Misc."})
      tabs_->addTab(QString::fromUtf8(caption));
    for (QWidget* page : {SimulationPage(), DensityPage(data), PopulationPage(data), DetectabilityPage(data),
                          AnalysesPage(), MiscPage()}) {
      auto* area = new QScrollArea(pages_);
      area->setWidgetResizable(true);
      area->setFrameShape(QFrame::NoFrame);
      area->setWidget(page);
      pages_->addWidget(area);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabs_);
    layout->addWidget(pages_, 1);
  }

  void ShowTab(int index) {
    tabs_->setCurrentIndex(index);
    pages_->setCurrentIndex(index);
  }
  QImage Render() {
    layout()->activate();
    return grab().toImage();
  }

 private:
  QTabBar* tabs_;
  QStackedWidget* pages_;
};

// ---- What a form shows, for the comparison ----

QString QtClass(const QObject* object) {
  const QMetaObject* meta = object->metaObject();
  while (meta != nullptr && !QByteArray(meta->className()).startsWith('Q')) meta = meta->superClass();
  return meta != nullptr ? QString::fromLatin1(meta->className()) : QString();
}

// Column widths count only where the table can be seen: they are not drawn on a hidden page.
QString TableSummary(QTableView* view, bool shown) {
  const QAbstractItemModel* model = view->model();
  size_t hash = 1469598103934665603ULL;
  const auto mix = [&hash](const QString& text) { hash = (hash ^ qHash(text)) * 1099511628211ULL; };
  int widths = 0;
  for (int col = 0; col < model->columnCount(); ++col) widths += view->columnWidth(col);
  for (int row = 0; row < model->rowCount(); ++row) {
    for (int col = 0; col < model->columnCount(); ++col) {
      const QModelIndex index = model->index(row, col);
      mix(model->data(index, Qt::DisplayRole).toString());
      mix(model->data(index, Qt::BackgroundRole).value<QColor>().name());
      mix(model->data(index, Qt::ForegroundRole).value<QColor>().name());
      mix(QString::number(model->data(index, Qt::TextAlignmentRole).toInt()));
      mix(QString::number(static_cast<int>(model->flags(index))));
    }
  }
  return QStringLiteral(" %1x%2 widths=%3 cells=%4")
      .arg(model->rowCount())
      .arg(model->columnCount())
      .arg(shown ? QString::number(widths) : QStringLiteral("-"))
      .arg(hash, 16, 16, QLatin1Char('0'));
}

QString Describe(QWidget* widget, QWidget* form) {
  QString line = QtClass(widget);
  if (widget->isHidden()) line += QStringLiteral(" hidden");
  if (!widget->isEnabled()) line += QStringLiteral(" disabled");
  if (auto* label = qobject_cast<QLabel*>(widget)) line += " '" + label->text() + "'";
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    line += " '" + button->text() + "'" + (button->isChecked() ? " checked" : "");
  }
  if (auto* box = qobject_cast<QGroupBox*>(widget)) line += " '" + box->title() + "'";
  if (auto* edit = qobject_cast<QLineEdit*>(widget)) line += " '" + edit->text() + "'";
  if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    line += QStringLiteral(" current=%1 '%2'").arg(combo->currentIndex()).arg(combo->currentText());
    for (int i = 0; i < combo->count(); ++i) line += " [" + combo->itemText(i) + "]";
  }
  if (auto* bar = qobject_cast<QTabBar*>(widget)) {
    for (int i = 0; i < bar->count(); ++i) line += " [" + bar->tabText(i) + "]";
    line += QStringLiteral(" current=%1").arg(bar->currentIndex());
  }
  if (auto* chart = qobject_cast<QChartView*>(widget)) {
    line += QStringLiteral(" series=%1 %2x%3")
                .arg(chart->chart()->series().size())
                .arg(chart->width())
                .arg(chart->height());
  }
  if (auto* table = qobject_cast<QTableView*>(widget); table != nullptr && table->model() != nullptr) {
    line += TableSummary(table, table->isVisibleTo(form));
  }
  return line;
}

// The maps beside the Density and Simulation pages are drawn by the same panels whatever form holds
// the pages; the floor is a hand-written form of the pages alone, so the maps are not compared.
bool InsideAMap(const QWidget* widget) {
  for (const QWidget* w = widget; w != nullptr; w = w->parentWidget()) {
    if (qobject_cast<const zrsimprp::DensityMapPanel*>(w) != nullptr) return true;
    if (qobject_cast<const zrsimprp::StrataMapPanel*>(w) != nullptr) return true;
  }
  return false;
}

// Every widget a person sees, by Qt class, text and state, sorted; the internals Qt makes for its own
// widgets (scroll bars, viewports, headers) are left out.
std::vector<std::string> Inventory(QWidget* form) {
  static const QStringList kShown = {
      "QLabel",     "QLineEdit",  "QComboBox", "QRadioButton", "QCheckBox",      "QPushButton", "QGroupBox",
      "QTableView", "QChartView", "QTabBar",   "QScrollArea",  "QStackedWidget", "QFrame"};
  std::vector<std::string> lines;
  for (QWidget* widget : form->findChildren<QWidget*>()) {
    if (!kShown.contains(QtClass(widget)) || InsideAMap(widget)) continue;
    lines.push_back(Describe(widget, form).toStdString());
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

// ---- The two benchmarks ----

const StrataData& Data() {
  static const StrataData data = MakeStrataData(kStrata);
  return data;
}

void RenderAllTabs(zrsimprp::SIMPropertiesWidget& widget) {
  for (int tab = 0; tab < kOuterTabs; ++tab) {
    widget.ShowOuterTab(tab);
    QImage image = widget.Render();
    benchmark::DoNotOptimize(image.bits());
  }
}

void RenderAllTabs(FloorForm& form) {
  for (int tab = 0; tab < kOuterTabs; ++tab) {
    form.ShowTab(tab);
    QImage image = form.Render();
    benchmark::DoNotOptimize(image.bits());
  }
}

// Loads the widget like a host does; false (after printing them) when the control reported anything.
bool LoadWidget(zrsimprp::SIMPropertiesWidget& widget,
                const std::shared_ptr<zrsimprp::MemoryProjectDatabase>& database,
                const std::string& definition, std::vector<std::string>& messages) {
  zrsimprp::CModGlobal::Clear();
  widget.Platform().SetMessageSink([&messages](const std::string& text, const std::string&,
                                               zrsimprp::MessageIcon) { messages.push_back(text); });
  widget.SetProjectDatabase(database);
  widget.SetDefinition(definition);
  widget.Initialize();
  widget.resize(800, 600);
  return messages.empty();
}

// Both forms drawn once; the differences between what they show, as lines of text.
std::vector<std::string> Differences() {
  const auto database = MakeProject(Data());
  std::vector<std::string> messages;
  zrsimprp::SIMPropertiesWidget widget;
  LoadWidget(widget, database, Definition(Data()), messages);
  RenderAllTabs(widget);
  FloorForm floor(Data());
  floor.resize(800, 600);
  RenderAllTabs(floor);
  std::vector<std::string> differences;
  for (const std::string& message : messages) differences.push_back("the control said: " + message);
  const std::vector<std::string> shown = Inventory(&widget);
  const std::vector<std::string> floor_shown = Inventory(&floor);
  std::set_difference(shown.begin(), shown.end(), floor_shown.begin(), floor_shown.end(),
                      std::back_inserter(differences));
  std::vector<std::string> extra;
  std::set_difference(floor_shown.begin(), floor_shown.end(), shown.begin(), shown.end(),
                      std::back_inserter(extra));
  for (const std::string& line : extra) differences.push_back("floor only: " + line);
  zrsimprp::CModGlobal::Clear();
  return differences;
}

void BM_WidgetCreateLoadRenderAllTabs(benchmark::State& state) {
  const auto database = MakeProject(Data());
  const std::string definition = Definition(Data());
  for (auto _ : state) {
    zrsimprp::SIMPropertiesWidget widget;
    std::vector<std::string> messages;
    if (!LoadWidget(widget, database, definition, messages)) {
      state.SkipWithError(("the control reported: " + messages.front()).c_str());
      break;
    }
    RenderAllTabs(widget);
  }
  state.counters["strata"] = kStrata;
  zrsimprp::CModGlobal::Clear();
}
BENCHMARK(BM_WidgetCreateLoadRenderAllTabs)->Unit(benchmark::kMillisecond);

void BM_FloorCreateFillRenderAllTabs(benchmark::State& state) {
  for (auto _ : state) {
    FloorForm form(Data());
    form.resize(800, 600);
    RenderAllTabs(form);
  }
  state.counters["strata"] = kStrata;
}
BENCHMARK(BM_FloorCreateFillRenderAllTabs)->Unit(benchmark::kMillisecond);

// The machine's speed drifts by a fifth within a minute, more than the gap being measured: here the
// two forms take turns within each iteration (which goes first alternates), so both meet the same
// moments of the machine, and the ratio is of their summed wall times.
void BM_WidgetOverFloorInterleaved(benchmark::State& state) {
  const auto database = MakeProject(Data());
  const std::string definition = Definition(Data());
  using Clock = std::chrono::steady_clock;
  Clock::duration widget_time{};
  Clock::duration floor_time{};
  const auto run_widget = [&]() {
    const Clock::time_point start = Clock::now();
    zrsimprp::SIMPropertiesWidget widget;
    std::vector<std::string> messages;
    const bool loaded = LoadWidget(widget, database, definition, messages);
    if (loaded) RenderAllTabs(widget);
    widget_time += Clock::now() - start;
    return loaded;
  };
  const auto run_floor = [&]() {
    const Clock::time_point start = Clock::now();
    {
      FloorForm form(Data());
      form.resize(800, 600);
      RenderAllTabs(form);
    }
    floor_time += Clock::now() - start;
  };
  bool widget_first = false;
  for (auto _ : state) {
    widget_first = !widget_first;
    if (!widget_first) run_floor();
    if (!run_widget()) {
      state.SkipWithError("the control reported a message");
      break;
    }
    if (widget_first) run_floor();
  }
  const double iterations = static_cast<double>(std::max<benchmark::IterationCount>(state.iterations(), 1));
  state.counters["widget_ms"] = std::chrono::duration<double, std::milli>(widget_time).count() / iterations;
  state.counters["floor_ms"] = std::chrono::duration<double, std::milli>(floor_time).count() / iterations;
  state.counters["widget_over_floor"] = floor_time.count() > 0 ? static_cast<double>(widget_time.count()) /
                                                                     static_cast<double>(floor_time.count())
                                                               : 0;
  zrsimprp::CModGlobal::Clear();
}
BENCHMARK(BM_WidgetOverFloorInterleaved)->Unit(benchmark::kMillisecond);

// Shows the table as usual and keeps the time per iteration of the two runs for the ratio.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  // Colours only on a terminal, so a log file reads plainly.
  RatioReporter() : ConsoleReporter(isatty(fileno(stdout)) != 0 ? OO_Defaults : OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred || run.iterations == 0) continue;
      // With repetitions the median stands for the run; a single run stands for itself.
      const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
      if (run.run_type != Run::RT_Iteration && !median) continue;
      const std::string& name = run.run_name.function_name;
      if (!median && medians_.count(name) != 0) continue;
      if (median) medians_.insert(name);
      real_[name] = run.GetAdjustedRealTime() / kPerSecond;
      cpu_[name] = run.GetAdjustedCPUTime() / kPerSecond;
      const auto ratio = run.counters.find("widget_over_floor");
      if (name == kInterleavedBenchmark && ratio != run.counters.end()) interleaved_ = ratio->second.value;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // 0 when either run is missing.
  double Ratio(bool cpu) const {
    const auto& times = cpu ? cpu_ : real_;
    const auto widget = times.find(kWidgetBenchmark);
    const auto floor = times.find(kFloorBenchmark);
    if (widget == times.end() || floor == times.end() || floor->second <= 0) return 0;
    return widget->second / floor->second;
  }
  // The ratio of the turn-taking run; 0 when it did not run.
  double Interleaved() const { return interleaved_; }
  double Milliseconds(const char* name) const {
    const auto found = real_.find(name);
    return found == real_.end() ? 0 : found->second * 1e3;
  }

 private:
  static constexpr double kPerSecond = 1e3;  // both benchmarks report milliseconds
  std::map<std::string, double> real_;
  std::map<std::string, double> cpu_;
  std::set<std::string> medians_;
  double interleaved_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  const std::vector<std::string> differences = Differences();
  if (!differences.empty()) {
    std::fprintf(stderr, "The floor does not show what the widget shows (%zu differences):\n",
                 differences.size());
    for (const std::string& line : differences) std::fprintf(stderr, "  %s\n", line.c_str());
    return 1;
  }
  std::printf("The floor shows what the widget shows (%d strata, every outer tab).\n", kStrata);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  const double ratio = reporter.Ratio(false);
  if (ratio > 0) {
    std::printf(
        "widget/floor, one after the other: %.2f wall, %.2f process time (widget %.1f ms, floor %.1f ms)\n",
        ratio, reporter.Ratio(true), reporter.Milliseconds(kWidgetBenchmark),
        reporter.Milliseconds(kFloorBenchmark));
  }
  const double interleaved = reporter.Interleaved();
  if (interleaved > 0) {
    std::printf("widget/floor, taking turns: %.2f wall (aim at most %.2f): %s\n", interleaved, kTarget,
                interleaved <= kTarget ? "met" : "missed");
  }
  return 0;
}
