#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace zrsim_editor {

// The list of the project's simulations beside the pages, with New, Duplicate, Rename and Delete. It
// only asks: whoever owns it (EditorSession) decides, and then shows the names again.
class SimulationsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit SimulationsPanel(QWidget* parent = nullptr);

  // Shows `names` with `current` selected.
  void SetNames(const std::vector<std::string>& names, const std::string& current);
  // The names as shown.
  std::vector<std::string> Names() const;

  QListWidget* List() const { return list_; }
  QPushButton* NewButton() const { return new_; }
  QPushButton* DuplicateButton() const { return duplicate_; }
  QPushButton* RenameButton() const { return rename_; }
  QPushButton* DeleteButton() const { return delete_; }

 signals:
  // A person clicked a simulation other than the open one.
  void OpenRequested(const QString& name);
  void NewRequested();
  void DuplicateRequested();
  void RenameRequested();
  void DeleteRequested();

 private:
  void OnClicked(QListWidgetItem* item);

  QListWidget* list_ = nullptr;
  QPushButton* new_ = nullptr;
  QPushButton* duplicate_ = nullptr;
  QPushButton* rename_ = nullptr;
  QPushButton* delete_ = nullptr;
  QString current_;
};

}  // namespace zrsim_editor
