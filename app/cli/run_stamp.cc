// Whoever changes a file while the run is at work is noticed in one of three ways: the witness has
// seen two things, the state of a file isn't the one that was read, or what a part has left isn't
// as it was when the part was done: the next run looks.
#include "app/cli/run_stamp.h"

#include <algorithm>
#include <array>
#include <new>

#include "ana/output_folder.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/shell/run.h"
#include "store/json_text.h"
#include "vlb/folder_record.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/random_name.h"

namespace {

constexpr std::size_t most_reports = gReportList::capacity;
constexpr std::array targets = {"htm", "rtf", "hlp"};

// Another build may make other results, and other bytes of what is kept. Where the system doesn't
// tell which program this is, nothing that was kept fits.
std::string version_of_program() {
  gFileState const program = gFileState::of("/proc/self/exe");
  std::string text = program.exists() ? VELLUMAR_VERSION : Vlb::random_name();
  for (std::int64_t const part : {static_cast<std::int64_t>(program.inode),
                                  static_cast<std::int64_t>(program.size), program.written})
    text += " " + std::to_string(part);
  return text;
}

std::string key_of(std::vector<std::string> const & asked) {
  std::string key;
  for (std::string const & part :
       {to_json(Vapp::options), to_json(Vapp::options_ini), std::string(Vapp::project().file()),
        std::string(gFileSystem::get_curdir()), std::string(Vapp::program_dir())})
    key += part + '\n';
  for (std::string const & target : asked)
    key += target + '\n';
  return Vlb::content_hash(key).text();
}

gPathstring output_folder() {
  gPathstring folder = Vapp::option_path("out_dir");
  return folder.normalize(true);
}

// The names that belong to conversions.
std::set<std::string> names_of_targets() {
  std::set<std::string> names;
  for (std::string const target : targets)
    for (char const * const ending : {"", ".log", ".new", ".old"})
      names.insert(target + ending);
  return names;
}

} // namespace

gRunStamp::gRunStamp(std::vector<std::string> const & targets)
    : out_dir_(output_folder()),
      key_(key_of(targets)),
      cache_("runs", version_of_program()) {}

std::optional<gKeptRun> gRunStamp::find() const try {
  std::optional<std::string> const bytes = cache_.read(Vlb::content_hash(out_dir_).text());
  std::optional<gKeptRun> run = bytes ? run_of_bytes(*bytes) : std::nullopt;
  if (!run || run->key != key_)
    return {};
  gOutputFolder folder;
  if (!folder.exists() || !folder.lock())
    return {};
  // First what is likely to have changed: a result has more files than there are sources.
  gWitness const witness(out_dir_);
  for (auto const & [place, sight] : run->sights)
    if (!witness.holds(place, sight))
      return {};
  if (!run->left.holds(out_dir_))
    return {};
  return run;
} catch (std::bad_alloc const &) {
  return {};
}

void gRunStamp::keep(gKeptRun run) const {
  run.key = key_;
  cache_.write(Vlb::content_hash(out_dir_).text(), bytes_of_run(run));
}

gRunRecorder::gRunRecorder(gRunStamp const & stamp, gCliOutside & outside, gReportSink * next,
                           bool keeps)
    : stamp_(stamp),
      outside_(outside),
      next_(next),
      keeps_(keeps),
      witness_(stamp.out_dir()) {
  Vlb::set_witness(&witness_);
  outside_.keep_lines(&run_.lines);
  Msg::log.copy_to(this);
}

gRunRecorder::~gRunRecorder() {
  Msg::log.copy_to(nullptr);
  outside_.keep_lines(nullptr);
  Vlb::set_witness(nullptr);
}

// Whoever reports must not be hit by what is only kept for later.
void gRunRecorder::take(gReport report) {
  try {
    if (++reports_ <= most_reports)
      run_.reports.push_back(report);
  } catch (std::bad_alloc const &) {
    witness_.give_up();
  }
  if (next_)
    next_->take(std::move(report));
}

void gRunRecorder::settle(std::string const & target) try {
  if (!keeps_)
    return;
  std::set<std::string> left_out = {gFolderRecord::file_name};
  if (target.empty()) {
    left_out.merge(names_of_targets());
  } else {
    for (auto const & entry : Vlb::list_folder(stamp_.out_dir()))
      if (entry.name != target && entry.name != target + ".log")
        left_out.insert(entry.name);
  }
  run_.left.add(gFolderSnapshot::take(stamp_.out_dir(), left_out));
} catch (std::bad_alloc const &) {
  witness_.give_up();
}

void gRunRecorder::keep(Msg::type worst) try {
  bool const all_lines = outside_.keep_lines(nullptr);
  std::optional<gWitness::gSights> sights = witness_.sights();
  if (!keeps_ || !all_lines || !sights || reports_ > most_reports ||
      output_folder() != stamp_.out_dir())
    return;
  run_.sights = std::move(*sights);
  std::set<std::string> settled;
  for (auto const & [name, hash] : run_.left.tops)
    settled.insert(name);
  run_.left.add(gFolderSnapshot::take(stamp_.out_dir(), settled));
  run_.analysis = gRun::last_result();
  run_.last = gConversionRun::last_result();
  run_.worst = worst;
  stamp_.keep(run_);
} catch (std::bad_alloc const &) {
  // The run went well all the same.
}
