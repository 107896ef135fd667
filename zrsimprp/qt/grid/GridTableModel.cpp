#include "zrsimprp/qt/grid/GridTableModel.h"

#include <QApplication>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/qt/EventBoundary.h"
#include "zrsimprp/qt/PaletteColors.h"
#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/grid/GridCellColors.h"

namespace zrsimprp {
namespace {

Qt::Alignment AlignmentOf(CellAlignment alignment, const std::string& text) {
  switch (alignment) {
    case CellAlignment::kLeftCenter:
      return Qt::AlignLeft | Qt::AlignVCenter;
    case CellAlignment::kCenterCenter:
      return Qt::AlignCenter;
    case CellAlignment::kRightCenter:
      return Qt::AlignRight | Qt::AlignVCenter;
    case CellAlignment::kGeneral:
      break;
  }
  // General alignment: numbers to the right, words to the left.
  return (IsNumeric(text) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

GridTableModel::GridTableModel(Grid& grid, QWidget* palette_source, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      palette_source_(palette_source),
      rows_(grid.Rows()),
      cols_(grid.Cols()) {}

int GridTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int GridTableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

bool GridTableModel::InGrid(const QModelIndex& index) const {
  return index.isValid() && index.row() < grid_.Rows() && index.column() < grid_.Cols() &&
         index.row() < rows_ && index.column() < cols_;
}

std::optional<GridCellColors::Kind> GridTableModel::KindOf(int row, int col) const {
  if (grid_.IsFixedCell(row, col)) return GridCellColors::Kind::kHeading;
  const Color back = grid_.CellBackColor(row, col);
  // A cell the page greyed, or any cell of a grid that takes no edits, is one a person cannot change.
  if (back == grid_.BackColorFixed() || !grid_.Enabled() || !grid_.Editable()) {
    return GridCellColors::Kind::kDisabled;
  }
  if (back == grid_.BackColor()) return GridCellColors::Kind::kEditable;
  // A colour of the page's own choosing is shown as it is.
  return std::nullopt;
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
  if (!InGrid(index)) return QVariant();
  const int row = index.row();
  const int col = index.column();
  const QPalette palette = palette_source_ != nullptr ? palette_source_->palette() : QApplication::palette();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      if (const auto* heading = HeadingAt(row, col)) return QString::fromStdString(heading->text);
      return QString::fromStdString(grid_.TextMatrix(row, col));
    case Qt::EditRole:
      return QString::fromStdString(grid_.TextMatrix(row, col));
    case Qt::ToolTipRole:
      if (const auto* heading = HeadingAt(row, col)) return QString::fromStdString(heading->Tooltip());
      return QVariant();
    case Qt::BackgroundRole:
      if (const auto kind = KindOf(row, col)) return GridCellColors::For(*kind, palette).background;
      return PaletteColors::Background(grid_.CellBackColor(row, col), palette);
    case Qt::ForegroundRole:
      if (const auto kind = KindOf(row, col)) return GridCellColors::For(*kind, palette).text;
      // A disabled grid's text is greyed like any other disabled control's.
      return PaletteColors::Foreground(grid_.CellBackColor(row, col), palette,
                                       grid_.Enabled() ? QPalette::Active : QPalette::Disabled);
    case kFixedCellRole:
      return grid_.IsFixedCell(row, col);
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(grid_.CellAlignmentAt(row, col), grid_.TextMatrix(row, col)));
    default:
      return QVariant();
  }
}

Qt::ItemFlags GridTableModel::flags(const QModelIndex& index) const {
  if (!InGrid(index)) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsSelectable;
  if (grid_.Enabled()) flags |= Qt::ItemIsEnabled;
  // Whether an editor really opens is asked of the grid when a person starts an edit.
  if (grid_.Enabled() && grid_.Editable() && !grid_.IsFixedCell(index.row(), index.column())) {
    flags |= Qt::ItemIsEditable;
  }
  return flags;
}

bool GridTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !InGrid(index)) return false;
  bool accepted = false;
  UndoRecorder::Run(this, "Grid_AfterEdit", QStringLiteral("edit of a cell"), [&] {
    accepted = grid_.UserEditCell(index.row(), index.column(), value.toString().toStdString());
  });
  // Accepted or not, the cell shows what the grid holds now.
  emit dataChanged(index, index);
  return accepted;
}

void GridTableModel::SetColumnHeadings(int row, int first_col,
                                       std::shared_ptr<const std::vector<StrataHeadings::Heading>> headings) {
  heading_row_ = row;
  heading_first_col_ = first_col;
  if (headings != nullptr) headings_ = std::move(headings);
  if (rows_ > 0 && cols_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
  emit HeadingsChanged();
}

const StrataHeadings::Heading* GridTableModel::HeadingAt(int row, int col) const {
  if (row != heading_row_ || col < heading_first_col_ || headings_->empty()) return nullptr;
  if (static_cast<size_t>(grid_.Cols() - heading_first_col_) != headings_->size()) return nullptr;
  if (row >= grid_.Rows() || col >= grid_.Cols()) return nullptr;
  const auto& heading = (*headings_)[static_cast<size_t>(col - heading_first_col_)];
  // Pages name a stratum without a label by its place: only a cell that holds the label is renamed.
  const std::string& text = grid_.TextMatrix(row, col);
  if (text != heading.label && !heading.label.empty()) return nullptr;
  return &heading;
}

void GridTableModel::Sync() {
  if (rows_ != grid_.Rows() || cols_ != grid_.Cols()) {
    beginResetModel();
    rows_ = grid_.Rows();
    cols_ = grid_.Cols();
    endResetModel();
    return;
  }
  if (rows_ > 0 && cols_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
}

}  // namespace zrsimprp
