#include "zrsim/CheckReportWriter.h"

#include <ostream>

#include "zrsim/JsonText.h"
#include "zrsim/VisibleText.h"

namespace zrsim {

namespace {

std::string JsonOrNull(const std::string& text) { return text.empty() ? "null" : JsonString(text); }

const char* JsonBool(bool value) { return value ? "true" : "false"; }

}  // namespace

const char* CheckReportWriter::Outcome(const SimulationCheck& check) {
  if (check.HasErrors()) return "failed";
  return check.HasWarnings() ? "warnings" : "clean";
}

std::string CheckReportWriter::FindingLine(const zrsimprp::Finding& finding) {
  std::string line = finding.code + " " + zrsimprp::SeverityName(finding.severity);
  if (finding.line > 0) line += " at line " + std::to_string(finding.line);
  if (!finding.entry.empty()) {
    line += " (" + finding.entry + (finding.field.empty() ? "" : " /" + finding.field) + ")";
  }
  return VisibleText(line + ": " + finding.sentence);
}

void CheckReportWriter::WriteText(std::ostream& out, std::ostream& err) const {
  std::size_t failed = 0;
  std::size_t warned = 0;
  for (const SimulationCheck& check : checks_) {
    if (several_) out << "== " << VisibleText(check.name) << "\n";
    WriteOneText(out, err, check);
    if (check.HasErrors()) {
      ++failed;
    } else if (check.HasWarnings()) {
      ++warned;
    }
  }
  if (several_) {
    out << "Checked " << checks_.size() << (checks_.size() == 1 ? " simulation: " : " simulations: ")
        << failed << " failed, " << warned << " with warnings only, " << (checks_.size() - failed - warned)
        << " clean.\n";
  }
}

void CheckReportWriter::WriteOneText(std::ostream& out, std::ostream& err,
                                     const SimulationCheck& check) const {
  for (const std::string& report : check.internal_errors) {
    // The report is written for a message box with CR LF line ends.
    std::string text = report;
    for (std::size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
      text.erase(at, 1);
    err << "Pellunar Internal Error" << (several_ ? " (" + VisibleText(check.name) + ")" : "") << ":\n"
        << VisibleLines(text) << "\n";
  }
  for (const PageVerdict& verdict : check.pages) {
    out << verdict.page << ": "
        << (verdict.valid             ? "OK"
            : verdict.message.empty() ? "the check could not be completed (see the error report)"
                                      : VisibleText(verdict.message))
        << "\n";
  }
  for (const zrsimprp::Finding& finding : check.findings) out << FindingLine(finding) << "\n";
}

void CheckReportWriter::WriteJson(std::ostream& out) const {
  std::size_t failed = 0;
  std::size_t warned = 0;
  out << "{\"format\":\"zrsim-check\",\"version\":1,\"strict\":" << JsonBool(strict_)
      << ",\"exit_status\":" << exit_status_ << ",\"simulations\":[";
  for (std::size_t i = 0; i < checks_.size(); ++i) {
    if (i) out << ",";
    WriteOneJson(out, checks_[i]);
    if (checks_[i].HasErrors()) {
      ++failed;
    } else if (checks_[i].HasWarnings()) {
      ++warned;
    }
  }
  out << "],\"summary\":{\"simulations\":" << checks_.size() << ",\"failed\":" << failed
      << ",\"warnings\":" << warned << ",\"clean\":" << (checks_.size() - failed - warned) << "}}\n";
}

void CheckReportWriter::WriteOneJson(std::ostream& out, const SimulationCheck& check) const {
  out << "\n{\"source\":" << JsonString(check.source) << ",\"name\":" << JsonString(check.name)
      << ",\"is_definition\":" << JsonBool(check.is_definition)
      << ",\"outcome\":" << JsonString(Outcome(check)) << ",\"pages\":[";
  for (std::size_t i = 0; i < check.pages.size(); ++i) {
    const PageVerdict& verdict = check.pages[i];
    out << (i ? "," : "") << "{\"page\":" << JsonString(verdict.page)
        << ",\"valid\":" << JsonBool(verdict.valid) << ",\"message\":" << JsonString(verdict.message) << "}";
  }
  out << "],\"findings\":[";
  for (std::size_t i = 0; i < check.findings.size(); ++i) {
    const zrsimprp::Finding& finding = check.findings[i];
    out << (i ? "," : "") << "{\"code\":" << JsonString(finding.code)
        << ",\"severity\":" << JsonString(zrsimprp::SeverityName(finding.severity))
        << ",\"entry\":" << JsonOrNull(finding.entry) << ",\"field\":" << JsonOrNull(finding.field)
        << ",\"place\":";
    if (finding.place_kind.empty()) {
      out << "null";
    } else {
      out << "{\"kind\":" << JsonString(finding.place_kind) << ",\"name\":" << JsonString(finding.place)
          << "}";
    }
    out << ",\"suggestion\":" << JsonOrNull(finding.suggestion) << ",\"line\":";
    if (finding.line > 0) {
      out << finding.line;
    } else {
      out << "null";
    }
    out << ",\"sentence\":" << JsonString(finding.sentence) << ",\"strata\":[";
    for (std::size_t k = 0; k < finding.strata.size(); ++k) {
      const zrsimprp::FindingStratum& stratum = finding.strata[k];
      out << (k ? "," : "") << "{\"index\":" << stratum.index << ",\"id\":" << JsonString(stratum.id)
          << ",\"name\":" << JsonString(stratum.name) << "}";
    }
    out << "],\"form\":";
    if (finding.page.empty()) {
      out << "null";
    } else {
      out << "{\"page\":" << JsonString(finding.page) << ",\"control\":" << JsonString(finding.control)
          << "}";
    }
    out << "}";
  }
  out << "],\"internal_errors\":[";
  for (std::size_t i = 0; i < check.internal_errors.size(); ++i) {
    out << (i ? "," : "") << JsonString(check.internal_errors[i]);
  }
  out << "]}";
}

}  // namespace zrsim
