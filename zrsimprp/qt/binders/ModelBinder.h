#pragma once

#include <QObject>
#include <functional>
#include <vector>

namespace zrsimprp {

// Keeps one Qt widget in step with one headless model object. A model change only schedules a
// refresh; all changes made during one turn of the event loop are drawn by a single refresh, so that
// a page load that touches a grid a thousand times redraws it once.
class ModelBinder : public QObject {
  Q_OBJECT

 public:
  explicit ModelBinder(QObject* parent);
  ~ModelBinder() override;

  // Draws the model now; a refresh still pending is dropped.
  void RefreshNow();
  bool RefreshPending() const { return pending_; }
  int RefreshCount() const { return refresh_count_; }

 signals:
  // The model changed since the last refresh; sent once per batch of changes.
  void ModelChanged();

 protected:
  template <class Model>
  void Watch(Model& model) {
    const int id = model.Subscribe([this] { ScheduleRefresh(); });
    unsubscribers_.push_back([&model, id] { model.Unsubscribe(id); });
  }
  void ScheduleRefresh();
  virtual void Refresh() = 0;
  // True while the binder writes to its widgets: their signals then are not a person's actions.
  bool Mirroring() const { return mirroring_; }

 private:
  std::vector<std::function<void()>> unsubscribers_;
  bool pending_ = false;
  bool mirroring_ = false;
  int refresh_count_ = 0;
};

}  // namespace zrsimprp
