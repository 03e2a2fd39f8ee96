// A report is written when the next one comes, since the hints behind it belong to its line.
#include "store/greportfile.h"

#include <cerrno>
#include <utility>

#include <nlohmann/json.hpp>

namespace {

char const * severity_name(Msg::type type) {
  switch (type) {
  case Msg::info:
    return "info";
  case Msg::warning:
  case Msg::warn_hint:
    return "warning";
  case Msg::doc_error:
    return "doc_error";
  default:
    return "error";
  }
}

std::string trimmed(std::string_view text) {
  gString result(text);
  result.wsp_rmleft().wsp_rmright();
  return result;
}

// Only what begins like a line of this file, or is empty, may be written over.
bool may_replace(std::string const & path) {
  std::FILE * const file = std::fopen(path.c_str(), "re");
  if (!file)
    return true;
  constexpr std::string_view begin = "{\"number\":";
  char head[begin.size()];
  std::size_t const length = std::fread(head, 1, sizeof head, file);
  std::fclose(file);
  return std::string_view(head, length) == begin.substr(0, length);
}

} // namespace

std::string gReportFile::line_of(gReport const & report, std::vector<std::string> const & hints) {
  gMessage const & message = *report.message;
  nlohmann::ordered_json line;
  line["number"] = message.number;
  line["severity"] = severity_name(message.severity);
  line["text"] = trimmed(message.text);
  if (!report.argument.empty())
    line["argument"] = report.argument;
  if (!report.place.path.empty())
    line["path"] = report.place.path;
  if (report.place.line > 0)
    line["line"] = report.place.line;
  if (report.stage != gRunStage::none)
    line["stage"] = stage_name(report.stage);
  if (!message.advice.empty())
    line["advice"] = message.advice;
  if (!hints.empty())
    line["hints"] = hints;
  return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

bool gReportFile::open(std::string const & path) {
  close();
  if (!may_replace(path)) {
    errno = EEXIST;
    return false;
  }
  file_ = std::fopen(path.c_str(), "we");
  return file_ != nullptr;
}

void gReportFile::take(gReport report) {
  if (report.message->severity == Msg::status)
    return;
  if (report.message->is_hint()) {
    hints_.push_back(trimmed(std::string(report.message->text) + report.argument));
    return;
  }
  write_last();
  last_.push_back(std::move(report));
}

void gReportFile::write_last() {
  if (!last_.empty() && file_) {
    std::string const line = line_of(last_.front(), hints_) + "\n";
    if (std::fwrite(line.data(), 1, line.size(), file_) != line.size() && failure_ == 0)
      failure_ = errno;
  }
  last_.clear();
  hints_.clear();
}

bool gReportFile::close() {
  write_last();
  if (file_ && std::fclose(std::exchange(file_, nullptr)) != 0 && failure_ == 0)
    failure_ = errno;
  errno = std::exchange(failure_, 0);
  return errno == 0;
}
