// What a run has seen of the world outside, so that a later one can tell whether it would see the
// same. All that reads files, looks for them, lists folders or asks for the time goes through here.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "vlb/content_hash.h"
#include "vlb/file_state.h"
#include "vlb/folder.h"

class gWitness {
public:
  enum class Kind : unsigned char {
    bytes,   // of a file, or that it can't be read
    kind,    // what a name leads to
    entries, // of a folder
    moment,  // date or time in a form
  };
  struct gSight {
    gFileState state; // of a file at its reading; zeros for the other kinds
    bool young = false;
    gContentHash hash;
  };
  // By kind, and path or form.
  using gSights = std::map<std::pair<Kind, std::string>, gSight>;

  // What a run does in the folder of its results isn't seen: it finds there what it left.
  explicit gWitness(std::string result) : result_(std::move(result)) {}

  // From any thread.
  void saw(Kind kind, std::string const & what, gSight sight);
  // It missed something.
  void give_up();
  bool leaves_out(std::string const & path) const;
  // Nothing if it saw one thing in two ways, so that nobody can tell what the run went by.
  std::optional<gSights> sights() const;

  // The files that could be read.
  static std::set<std::string> files(gSights const & sights);
  std::set<std::string> files() const;

  // True if a run would see just that now.
  bool holds(std::pair<Kind, std::string> const & place, gSight const & sight) const;

private:
  std::string result_; // without a separator at its end
  mutable std::mutex mutex_;
  gSights sights_;
  bool contradicted_ = false;
};

namespace Vlb {
// Null for none. Not owned; set while no other thread reads.
void set_witness(gWitness * witness);

// For what reads. Nothing happens without a witness. None of these throws: a witness for whom there
// is no memory has seen nothing that could be trusted.
void note_bytes(std::string const & path, gFileState const & state, std::string_view bytes);
void note_unreadable(std::string const & path);
void note_kind(std::string const & path, unsigned kind);
void note_entries(gPathstring const & folder, std::vector<FolderEntry> const & entries);

// Date and time of now, or of SOURCE_DATE_EPOCH, which makes results reproducible. The form is that
// of strftime.
std::string moment_text(std::string const & form);
} // namespace Vlb
