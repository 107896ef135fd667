#include "zrsimprp/qt/grid/GridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "zrsimprp/qt/grid/GridCellDelegate.h"

namespace zrsimprp {

GridView::GridView(QWidget* parent) : QTableView(parent) {
  setItemDelegate(new GridCellDelegate(this));
  horizontalHeader()->hide();
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setDefaultSectionSize(72);
  // A block of cells is selected with Shift or a drag, to copy, clear or fill it.
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::AnyKeyPressed);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setTabKeyNavigation(false);  // Tab walks the form, arrows walk the cells
  // The height follows the width (a narrow view needs its horizontal scroll bar); the stretch at the
  // foot of each page keeps the view from growing past that height.
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  // A person dragging a column edge changes the content width.
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int logical) {
    if (logical == 0 && frozen_view_ != nullptr) SyncFrozenView();
    if (!resizing_columns_) FitToContents();
  });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &GridView::OnHorizontalScroll);
}

void GridView::SetFrozenFirstColumn(bool frozen) {
  freeze_first_column_ = frozen;
  if (!frozen) {
    delete frozen_view_;
    frozen_view_ = nullptr;
    return;
  }
  if (frozen_view_ != nullptr) SyncFrozenView();
  OnHorizontalScroll(horizontalScrollBar()->value());
}

void GridView::OnHorizontalScroll(int value) {
  if (!freeze_first_column_ || model() == nullptr || model()->columnCount() < 2) return;
  if (frozen_view_ == nullptr && value > 0) MakeFrozenView();
  if (frozen_view_ != nullptr) frozen_view_->setVisible(value > 0);
}

void GridView::MakeFrozenView() {
  frozen_view_ = new QTableView(this);
  frozen_view_->setObjectName(QStringLiteral("frozenFirstColumn"));
  // The copy is only drawn: the focus, the keys and the screen reader stay with the table itself.
  frozen_view_->setFocusPolicy(Qt::NoFocus);
  frozen_view_->setAccessibleName(accessibleName());
  frozen_view_->setItemDelegate(new GridCellDelegate(frozen_view_));
  frozen_view_->horizontalHeader()->hide();
  frozen_view_->verticalHeader()->hide();
  frozen_view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  frozen_view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frozen_view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frozen_view_->setFrameShape(QFrame::NoFrame);
  frozen_view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  frozen_view_->setModel(model());
  frozen_view_->setSelectionModel(selectionModel());
  connect(verticalScrollBar(), &QScrollBar::valueChanged, frozen_view_->verticalScrollBar(),
          &QScrollBar::setValue);
  connect(model(), &QAbstractItemModel::modelReset, frozen_view_, [this] { SyncFrozenView(); });
  SyncFrozenView();
}

void GridView::SyncFrozenView() {
  if (frozen_view_ == nullptr || model() == nullptr) return;
  frozen_view_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
  for (int col = 1; col < model()->columnCount(); ++col) frozen_view_->setColumnHidden(col, true);
  frozen_view_->setColumnWidth(0, columnWidth(0));
  frozen_view_->verticalScrollBar()->setValue(verticalScrollBar()->value());
  PlaceFrozenView();
}

void GridView::PlaceFrozenView() {
  if (frozen_view_ == nullptr) return;
  frozen_view_->setGeometry(frameWidth(), frameWidth(), columnWidth(0) + 1, viewport()->height());
}

int GridView::CellMargins() const {
  // The delegate keeps a focus-frame margin plus one pixel on each side of the text, and the grid
  // line takes one more; two spare pixels keep rounding of fractional fonts from eliding the text.
  if (cell_margins_ < 0) {
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    cell_margins_ = 2 * margin + 1 + 2;
  }
  return cell_margins_;
}

int GridView::CellWidthFor(const std::string& text) const {
  return fontMetrics().horizontalAdvance(QString::fromStdString(text)) + CellMargins();
}

int GridView::CellWidthBound(const std::string& text) const {
  constexpr int kFirst = 0x20;
  constexpr int kLast = 0x7e;
  if (ascii_advances_.empty()) {
    const QFontMetricsF metrics(font());
    ascii_advances_.resize(kLast - kFirst + 1);
    for (int c = kFirst; c <= kLast; ++c) {
      ascii_advances_[static_cast<size_t>(c - kFirst)] = metrics.horizontalAdvance(QChar(c));
    }
  }
  double advance = 0;
  for (const char c : text) {
    if (c < kFirst || c > kLast) return -1;
    // A pixel more per character covers rounding and the rare kerning pair that spreads letters.
    advance += ascii_advances_[static_cast<size_t>(c - kFirst)] + 1;
  }
  return static_cast<int>(std::ceil(advance)) + CellMargins();
}

void GridView::ResizeColumns(const std::vector<std::pair<int, int>>& widths) {
  resizing_columns_ = true;
  QHeaderView* header = horizontalHeader();
  for (const auto& [col, width] : widths) header->resizeSection(col, width);
  resizing_columns_ = false;
  FitToContents();
}

bool GridView::NeedsVerticalBar() const {
  return model() != nullptr && model()->rowCount() > kMaxVisibleRows;
}

bool GridView::NeedsHorizontalBar(int width) const {
  const int bar = NeedsVerticalBar() ? verticalScrollBar()->sizeHint().width() : 0;
  return horizontalHeader()->length() > width - 2 * frameWidth() - bar;
}

int GridView::ContentHeight(int width) const {
  const int rows = model() != nullptr ? model()->rowCount() : 0;
  const int shown = std::clamp(rows, 1, kMaxVisibleRows);
  const int bar = NeedsHorizontalBar(width) ? horizontalScrollBar()->sizeHint().height() : 0;
  return shown * verticalHeader()->defaultSectionSize() + 2 * frameWidth() + bar;
}

int GridView::ContentWidth() const {
  const int bar = NeedsVerticalBar() ? verticalScrollBar()->sizeHint().width() : 0;
  return std::max(horizontalHeader()->length(), 1) + 2 * frameWidth() + bar;
}

void GridView::FitToContents() {
  const int content_width = ContentWidth();
  if (content_width != fitted_width_) {
    fitted_width_ = content_width;
    setMaximumWidth(content_width);
  }
  const int content_height = ContentHeight(width());
  if (content_height != fitted_height_) {
    fitted_height_ = content_height;
    updateGeometry();
  }
}

int GridView::heightForWidth(int width) const { return ContentHeight(width); }

// Without a width to go by, the hint is for the width the columns want.
QSize GridView::sizeHint() const {
  return QSize(std::min(QTableView::sizeHint().width(), ContentWidth()), ContentHeight(ContentWidth()));
}

QSize GridView::minimumSizeHint() const {
  return QSize(std::min(QTableView::minimumSizeHint().width(), ContentWidth()),
               ContentHeight(ContentWidth()));
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  PlaceFrozenView();
  // A narrower view may now need the horizontal scroll bar, and room for it below the rows.
  FitToContents();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    ascii_advances_.clear();
    cell_margins_ = -1;
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    SyncFrozenView();
    FitToContents();
  }
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  // The cursor cell shows as selected only while the grid has the focus.
  viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update();
}

bool GridView::WouldOpenEditor(const QModelIndex& index, EditTrigger trigger, QEvent* event) const {
  if (!index.isValid() || model() == nullptr) return false;
  if (!(model()->flags(index) & Qt::ItemIsEditable)) return false;
  if (state() == EditingState && currentIndex() == index) return false;
  if (trigger == AllEditTriggers) return true;
  if (!(editTriggers() & trigger)) return false;
  if (trigger == AnyKeyPressed) {
    auto* key =
        event != nullptr && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    return key != nullptr && !key->text().isEmpty() && key->text().at(0).isPrint();
  }
  return true;
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (WouldOpenEditor(index, trigger, event) && can_edit_ && !can_edit_(index.row(), index.column())) {
    return false;
  }
  const bool opened = QTableView::edit(index, trigger, event);
  if (opened && state() == EditingState) emit EditorOpened(indexWidget(index));
  return opened;
}

}  // namespace zrsimprp
