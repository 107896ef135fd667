#include "SIMPropertiesDesignerPlugin.h"

#include "zrsimprp/qt/SIMPropertiesWidget.h"

QString SIMPropertiesDesignerPlugin::whatsThis() const {
  return QStringLiteral(
      "The simulation properties control: six tabbed pages that edit one simulation's definition. "
      "At run time the host sets its project database and definition and calls Initialize.");
}

QWidget* SIMPropertiesDesignerPlugin::createWidget(QWidget* parent) {
  auto* widget = new zrsimprp::SIMPropertiesWidget(parent);
  widget->Platform().SetUserMode(false);
  return widget;
}

QString SIMPropertiesDesignerPlugin::domXml() const {
  return QStringLiteral(
      "<ui language=\"c++\">\n"
      " <widget class=\"zrsimprp::SIMPropertiesWidget\" name=\"simProperties\">\n"
      "  <property "
      "name=\"geometry\"><rect><x>0</x><y>0</y><width>760</width><height>520</height></rect></property>\n"
      " </widget>\n"
      "</ui>\n");
}
