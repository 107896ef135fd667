#pragma once

#include <functional>
#include <string>

namespace zrsimprp {

// Where an entry shows its page values in words (`zrsim show`). A value that fails to read is shown
// as such by the receiver and does not stop the others.
class EntryShow {
 public:
  virtual ~EntryShow() = default;
  // Starts the part of a page.
  virtual void Section(const std::string& title) = 0;
  virtual void Line(const std::string& label, const std::function<std::string()>& value) = 0;
};

}  // namespace zrsimprp
