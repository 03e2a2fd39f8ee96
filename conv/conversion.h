// The frame of a conversion: input, log, progress, break, and the folder that is put in place
// when all went well.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "app/options/run_input.h"
#include "conv/atc/document.h"
#include "conv/vlt/rules.h"
#include "vlb/gexception.h"
#include "vlb/pending.h"

// What a conversion counts for the user.
struct gConversionResult {
  bool success = false;
  gPathstring start; // the file to open first
  std::size_t files = 0;
  std::size_t unchanged = 0; // of these files: they are the same as in the result before
  std::size_t bytes = 0;
  std::size_t pages = 0;                    // HTML files among them, without those of sources
  std::map<std::string, std::size_t> units; // with a name and a text, by their style
  std::size_t without_text = 0;             // with a name alone
};

// Ends a conversion. The frame reports the fault: it may have come up on any thread.
class gExcConversion : public gException {
public:
  explicit gExcConversion(gReport fault)
      : gException("Conversion failed"),
        fault_(std::move(fault)) {}
  gReport const & fault() const { return fault_; }

private:
  gReport fault_;
};

// One conversion. Writes into a folder beside the target's output folder; finish() swaps the two.
// Without finish() the old result stays as it was. A file that is equal to that of the old result
// isn't written: it goes over as it is, so that whoever copies results by time sees what changed.
class gConversion {
public:
  explicit gConversion(gConversionInput const & input); // outlives this
  ~gConversion();
  gConversion(gConversion const &) = delete;
  gConversion & operator=(gConversion const &) = delete;

  // Makes the folder, and reads the intermediate code and the script. False after a report.
  bool start();
  gDocument const & document() const { return document_; }
  gVltRules const & rules() const { return rules_; }
  gConversionInput const & input() const { return input_; }
  std::string title() const; // `atc_title`, else the document's name
  // Writes a file of the result; `name` is relative and may have folders. Throws gExcUserBreak if
  // the user asked for a stop; gExcConversion if the file can't be written. From any thread.
  void write(std::string const & name, std::string_view text);
  // Where a file of the result lies until finish().
  gPathstring written(std::string const & name) const { return gPathstring(work_).append(name); }
  // Copies a file; false, after a report, if it can't be read.
  bool copy(gPathstring const & from, std::string const & name);
  // Shows how far the work is; polls the user's break (gExcUserBreak).
  void progress(std::size_t done, std::size_t all);
  // Puts the result in place. False after a report; the old result is then still there.
  bool finish(std::string const & start_file);

  // Success only from finish() on.
  gConversionResult const & result() const { return result_; }

private:
  gPathstring place_for(std::string const & name);
  // What lies in the folder that is written, folders with a "/".
  bool is_whole(std::set<std::string> const & made) const;
  bool keep_foreign_files(std::set<std::string> const & made);
  bool keep_unchanged(std::string const & name, std::string_view text) const;

  gConversionInput const & input_;
  gPathstring folder_, work_; // of the result, and where it is written
  bool replaces_ = false;     // there is an old result
  std::optional<Vlb::gPending> pending_;
  gDocument document_;
  gVltRules rules_;
  std::mutex mutex_;           // of the folders made, and of what is counted
  std::set<std::string> made_; // folders in work_, so that not every file asks for its own
  gConversionResult result_;
  int shown_ = -1; // percent
};

namespace Conv {
// Opens the log of the target beside its output folder ("htm.log"), and sets levels and counts.
// run() closes it.
void open_log(gConversionInput const & input);
// Runs a converter under the guards that every conversion has: the log, the break, the status line.
// `work` throws or answers false when it fails; the result is empty then.
gConversionResult run(gConversionInput const & input, bool (*work)(gConversion &));
} // namespace Conv

// The converters: entries of a worker thread. They report through Msg::log.
namespace Htm {
gConversionResult make_manual(gConversionInput const & input);
}
namespace RTF {
// Of both targets that are RTF.
gConversionResult make_manual(gConversionInput const & input);
} // namespace RTF
