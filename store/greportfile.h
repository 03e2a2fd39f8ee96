// The reports of a run as data: one JSON object a line.
#pragma once

#include <cstdio>

#include "vlb/greport.h"

// Keys: number (0 for reports without one), severity ("info", "warning", "doc_error", "error"),
// text, argument, path, line, stage, advice, and hints, the lines that continue the report. Keys
// without a value are left out. Progress isn't written. Bytes that are no UTF-8 become U+FFFD.
class gReportFile : public gReportSink {
public:
  gReportFile() = default;
  ~gReportFile() override { close(); }
  gReportFile(gReportFile const &) = delete;
  gReportFile & operator=(gReportFile const &) = delete;

  // Begins the file anew; false if it can't be made. A file that doesn't hold reports is left as
  // it is, and answers false with errno EEXIST.
  bool open(std::string const & path);
  void take(gReport report) override;
  // False if something couldn't be written; errno tells why.
  bool close();

  // One line, without its line feed.
  static std::string line_of(gReport const & report, std::vector<std::string> const & hints);

private:
  void write_last();

  std::FILE * file_ = nullptr;
  int failure_ = 0;           // the errno of the first failed write
  std::vector<gReport> last_; // waits for its hints
  std::vector<std::string> hints_;
};
