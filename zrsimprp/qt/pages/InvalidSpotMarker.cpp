#include "zrsimprp/qt/pages/InvalidSpotMarker.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QWidget>

#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

namespace {

constexpr int kFrameWidth = 2;

// A red rectangle drawn over a field; clicks go through it to the field.
class InvalidFrame : public QWidget {
 public:
  explicit InvalidFrame(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setAccessibleName(QStringLiteral("Invalid value"));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(QPen(QColor(215, 25, 32), kFrameWidth));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
};

bool SameSpot(const PageControl::InvalidSpot& a, const PageControl::InvalidSpot& b) {
  return a.control == b.control && a.row == b.row && a.col == b.col;
}

}  // namespace

InvalidSpotMarker::InvalidSpotMarker(PageControl& page, QWidget* root)
    : QObject(root), page_(page), root_(root) {
  subscription_ = page.Subscribe([this] { Update(); });
}

InvalidSpotMarker::~InvalidSpotMarker() { page_.Unsubscribe(subscription_); }

QWidget* InvalidSpotMarker::WidgetOf(const Control* control) const {
  for (ControlBinder* binder : root_->findChildren<ControlBinder*>()) {
    if (&binder->Model() == control) return binder->Widget();
  }
  return nullptr;
}

void InvalidSpotMarker::Update() {
  const PageControl::InvalidSpot& spot = page_.Invalid();
  if (SameSpot(spot, shown_)) return;
  Clear();
  shown_ = spot;
  if (spot.control == nullptr) return;
  if (QWidget* widget = WidgetOf(spot.control)) Mark(widget, spot.row, spot.col);
}

void InvalidSpotMarker::Mark(QWidget* widget, int row, int col) {
  marked_ = widget;
  QWidget* frame_parent = widget->parentWidget();
  if (auto* view = qobject_cast<QAbstractItemView*>(widget); view != nullptr && row >= 0 && col >= 0) {
    cell_ = view->model()->index(row, col);
    // The cell is only shown, never made current: the view's current cell is the grid's cursor in the
    // model, and moving it would change which row the page's own buttons act on.
    view->scrollTo(cell_);
    frame_parent = view->viewport();
    value_changed_ =
        connect(view->model(), &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex& top_left, const QModelIndex& bottom_right) {
                  if (!cell_.isValid() ||
                      (cell_.row() >= top_left.row() && cell_.row() <= bottom_right.row() &&
                       cell_.column() >= top_left.column() && cell_.column() <= bottom_right.column())) {
                    Clear();
                  }
                });
  } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
    value_changed_ = connect(edit, &QLineEdit::textChanged, this, &InvalidSpotMarker::Clear);
  } else if (auto* list = qobject_cast<QComboBox*>(widget)) {
    value_changed_ = connect(list, &QComboBox::currentTextChanged, this, &InvalidSpotMarker::Clear);
  }
  if (frame_parent == nullptr) return;
  frame_ = new InvalidFrame(frame_parent);
  widget->installEventFilter(this);
  PlaceFrame();
  frame_->show();
  frame_->raise();
}

void InvalidSpotMarker::PlaceFrame() {
  if (frame_ == nullptr || marked_ == nullptr) return;
  if (auto* view = qobject_cast<QAbstractItemView*>(marked_.data()); view != nullptr && cell_.isValid()) {
    frame_->setGeometry(view->visualRect(cell_));
    return;
  }
  frame_->setGeometry(marked_->geometry().adjusted(-kFrameWidth, -kFrameWidth, kFrameWidth, kFrameWidth));
}

void InvalidSpotMarker::Clear() {
  disconnect(value_changed_);
  if (marked_ != nullptr) marked_->removeEventFilter(this);
  delete frame_.data();
  marked_ = nullptr;
  cell_ = QPersistentModelIndex();
  // The page may still name the spot: it is not shown again until the page names another one.
}

bool InvalidSpotMarker::eventFilter(QObject* watched, QEvent* event) {
  if (watched == marked_ && (event->type() == QEvent::Move || event->type() == QEvent::Resize ||
                             event->type() == QEvent::LayoutRequest)) {
    PlaceFrame();
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace zrsimprp
