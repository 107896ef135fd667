#include "zrsim-editor/EditorApplication.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "zrsim-editor/EditorArguments.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/EditorSession.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsim-editor/FirstFrameProbe.h"
#include "zrsim-editor/ProcessClock.h"
#include "zrsim-editor/ScreenshotWriter.h"
#include "zrsimprp/Version.h"
#include "zrsimprp/qt/DarkPalette.h"

namespace zrsim_editor {

namespace {

constexpr int kUsageOrFileError = 2;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

bool HasDisplay() { return !Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty(); }

}  // namespace

bool EditorApplication::CanShowBoxes(const EditorOptions& options) {
  const std::string platform = Environment("QT_QPA_PLATFORM");
  return options.screenshot_dir.empty() && !options.exit_after_first_frame && HasDisplay() &&
         platform != "offscreen" && platform != "minimal";
}

std::string EditorApplication::DefaultProject(const std::string& application_dir) {
  return EditorArguments::FirstExisting(
      {ZRSIMPRP_BUILD_SAMPLE, application_dir + "/" + ZRSIMPRP_RELATIVE_SAMPLE, ZRSIMPRP_INSTALLED_SAMPLE});
}

int EditorApplication::Main(int& argc, char** argv, const std::vector<std::string>& words) {
  ProcessClock::MarkStart();
  EditorOptions options;
  try {
    options = EditorArguments::Parse(words);
  } catch (const EditorError& error) {
    return Fail(argc, argv, options, std::string(error.what()) + "\n" + EditorArguments::Usage());
  }
  if (options.help) {
    std::cout << EditorArguments::Usage();
    return 0;
  }
  if (options.version) {
    std::cout << "zrsim-editor " << zrsimprp::kVersion << "\n";
    return 0;
  }
  // Screenshots never need a screen; without one, an interactive start would only abort in Qt.
  if (!options.screenshot_dir.empty() && Environment("QT_QPA_PLATFORM").empty()) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
  if (options.screenshot_dir.empty() && !HasDisplay() && Environment("QT_QPA_PLATFORM").empty()) {
    std::cerr
        << "zrsim-editor: there is no display to show the form on; use --screenshot DIR to draw it into "
           "files instead\n";
    return kUsageOrFileError;
  }
  QApplication application(argc, argv);
  QApplication::setOrganizationName("ZrSIMPrp");
  QApplication::setApplicationName("zrsim-editor");
  if (options.dark) zrsimprp::DarkPalette::Apply();
  try {
    return Run(options);
  } catch (const EditorError& error) {
    return Fail(argc, argv, options, error.what());
  }
}

int EditorApplication::Run(const EditorOptions& options) {
  if (options.screenshot_dir.empty() && !options.exit_after_first_frame) return RunSession(options);
  std::string project = options.project;
  if (project.empty()) {
    project = DefaultProject(QApplication::applicationDirPath().toStdString());
    if (project.empty()) {
      throw EditorError("No project was named and the sample project was not found (looked for " +
                        std::string(ZRSIMPRP_BUILD_SAMPLE) + " and " + ZRSIMPRP_INSTALLED_SAMPLE +
                        "); name one with --project FILE.");
    }
  }
  std::unique_ptr<EditorDocument> document = EditorDocument::Open(project, options.simulation);
  EditorWindow window(*document);
  if (!options.screenshot_dir.empty() || options.exit_after_first_frame) {
    // Nobody is there to close a box: messages are printed instead.
    window.SetMessageSink([](const std::string& text, const std::string& title) {
      std::cerr << title << ": " << text << "\n";
    });
  }
  if (!window.Load()) return kUsageOrFileError;
  if (options.exit_after_first_frame) {
    FirstFrameProbe::Watch(&window, [] {
      std::cout << static_cast<long long>(ProcessClock::MillisecondsSinceStart() + 0.5) << std::endl;
      QApplication::exit(0);
    });
  }
  if (options.screenshot_dir.empty()) {
    window.RestoreGeometry();
    window.show();
    return QApplication::exec();
  }
  std::vector<std::string> problems;
  for (const std::string& path : ScreenshotWriter::WriteAll(window, options.screenshot_dir, problems)) {
    std::cout << path << "\n";
  }
  for (const std::string& problem : problems) std::cerr << "zrsim-editor: " << problem << "\n";
  return 0;
}

int EditorApplication::RunSession(const EditorOptions& options) {
  EditorSession session;
  if (options.project.empty()) {
    if (!session.StartWithoutProject(DefaultProject(QApplication::applicationDirPath().toStdString())))
      return 0;
  } else if (!session.ShowDocument(EditorDocument::Open(options.project, options.simulation))) {
    return kUsageOrFileError;
  }
  session.show();
  return QApplication::exec();
}

int EditorApplication::Fail(int& argc, char** argv, const EditorOptions& options,
                            const std::string& message) {
  const bool named = message.rfind("zrsim-editor:", 0) == 0;
  std::cerr << (named ? "" : "zrsim-editor: ") << message
            << (message.empty() || message.back() != '\n' ? "\n" : "");
  if (!CanShowBoxes(options)) return kUsageOrFileError;
  std::unique_ptr<QApplication> own;
  if (!QApplication::instance()) own = std::make_unique<QApplication>(argc, argv);
  QMessageBox::critical(nullptr, QStringLiteral("zrsim-editor"), QString::fromStdString(message));
  return kUsageOrFileError;
}

}  // namespace zrsim_editor
