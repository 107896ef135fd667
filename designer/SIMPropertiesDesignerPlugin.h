#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

// Offers SIMPropertiesWidget in Qt Designer's widget box. The widget it creates is in design mode:
// the platform reports UserMode() false, so the control writes no definition and refuses page
// property changes (error 382), exactly as inside any form designer.
class SIMPropertiesDesignerPlugin : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  explicit SIMPropertiesDesignerPlugin(QObject* parent = nullptr) : QObject(parent) {}

  QString name() const override { return QStringLiteral("zrsimprp::SIMPropertiesWidget"); }
  QString group() const override { return QStringLiteral("ZrSIMPrp"); }
  QString toolTip() const override { return QStringLiteral("Simulation properties control"); }
  QString whatsThis() const override;
  QString includeFile() const override { return QStringLiteral("zrsimprp/qt/SIMPropertiesWidget.h"); }
  QIcon icon() const override { return QIcon(); }
  bool isContainer() const override { return false; }
  QWidget* createWidget(QWidget* parent) override;
  bool isInitialized() const override { return initialized_; }
  void initialize(QDesignerFormEditorInterface*) override { initialized_ = true; }
  QString domXml() const override;

 private:
  bool initialized_ = false;
};
