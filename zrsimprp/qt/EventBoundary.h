#pragma once

#include <functional>
#include <string>

#include "zrsimprp/control/PageEntry.h"

class QObject;

namespace zrsimprp {

class Platform;

// Where a person's action on a widget enters the model. An exception must never unwind through Qt's
// event loop, so an error the model raises while handling a click, a selection or an edit ends the
// action here and is shown as the internal-error report, through the platform of the control that
// the widget belongs to. The report names the page whose view holds the widget ("PagDensity"), or
// the control itself ("SIM") for its own widgets, the tabs. The model's own routines keep their own
// traps; this is the last one.
class EventBoundary {
 public:
  // The platform that reports the errors of every action on `root` and the widgets inside it.
  static void ReportThrough(QObject* root, Platform& platform);

  // The page whose module name the errors of every action on `view` and the widgets inside it carry.
  static void ReportAsPage(QObject* view, PageId page);

  // Runs `action` for a person's `event` on a widget inside `context`. Returns false when it raised
  // an error, which has then been reported; nothing is ever thrown from here.
  static bool Run(QObject* context, const char* event, const std::function<void()>& action);

  // The platform set for `context` or its nearest parent; outside any control, a platform of its own.
  static Platform& PlatformFor(QObject* context);
  // The module name of the page set for `context` or its nearest parent; outside any page, "SIM".
  static std::string ModuleFor(QObject* context);
};

}  // namespace zrsimprp
