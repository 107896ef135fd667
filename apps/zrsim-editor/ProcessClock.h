#pragma once

namespace zrsim_editor {

// Time since this process began, for start-up measurements. Linux records when a process started in
// clock ticks since boot (usually 10 ms); where that record cannot be read, the time since the first
// call of MarkStart stands in for it.
class ProcessClock {
 public:
  // Remembers now as the fallback start; call it as early in main as possible.
  static void MarkStart();
  // Milliseconds since the process started.
  static double MillisecondsSinceStart();

 private:
  // Seconds since boot when the process started, or a negative number when unknown.
  static double StartSinceBoot();
};

}  // namespace zrsim_editor
