// A file is known by its state as long as that is old enough to be trusted, else by its bytes. So a
// file that was only touched is the same, and one that was changed in the moment of its reading
// isn't.
#include "vlb/witness.h"

#include <atomic>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <new>

#include "vlb/gfilesystem.h"
#include "vlb/tempfiles.h"

namespace {

constexpr std::int64_t margin = 2'000'000'000; // nanoseconds

std::atomic<gWitness *> witness_in_use = nullptr;

// Of what can't be read; no bytes have it.
constexpr gContentHash unreadable = {0, 1};

gContentHash hash_of_kind(unsigned kind) {
  return {kind, 0};
}

// Where a link leads is part of what a folder shows: walks see by it what they have met before.
gContentHash hash_of_entries(std::string const & folder,
                             std::vector<Vlb::FolderEntry> const & entries,
                             gWitness const & witness) {
  gContentHash hash;
  for (Vlb::FolderEntry const & entry : entries) {
    std::string const path = gPathstring(folder).append(entry.name);
    if (witness.leaves_out(path))
      continue;
    hash = Vlb::content_hash(entry.name, hash);
    hash = Vlb::content_hash(std::to_string(static_cast<int>(entry.kind)), hash);
    std::error_code error;
    if (entry.kind == Vlb::EntryKind::link)
      hash = Vlb::content_hash(std::filesystem::weakly_canonical(path, error).string(), hash);
  }
  return hash;
}

std::string formatted(std::string const & form) {
  std::tm parts{};
  if (char const * const stated = std::getenv("SOURCE_DATE_EPOCH")) {
    std::time_t const seconds = std::strtoll(stated, nullptr, 10);
    gmtime_r(&seconds, &parts);
  } else {
    std::time_t const now = std::time(nullptr);
    localtime_r(&now, &parts);
  }
  char text[64];
  return std::string(text, std::strftime(text, sizeof text, form.c_str(), &parts));
}

// A file with a time to come is told of by some reports, which end when that time has come.
bool bytes_hold(std::string const & path, gWitness::gSight const & sight) {
  gFileState const state = gFileState::of(path);
  if (!sight.young && state == sight.state && state.exists())
    return true;
  std::string bytes;
  if (!gFileSystem::read_file(gPathstring(path), bytes))
    return sight.hash == unreadable;
  return state.written <= Vlb::now_in_nanoseconds() && Vlb::content_hash(bytes) == sight.hash;
}

template <class Sight> void note(std::string const & path, gWitness::Kind kind, Sight sight) {
  gWitness * const witness = witness_in_use;
  if (!witness)
    return;
  try {
    if (!witness->leaves_out(path) && !gTempFiles::holds(path))
      witness->saw(kind, path, sight(*witness));
  } catch (std::bad_alloc const &) {
    witness->give_up();
  }
}

} // namespace

void gWitness::saw(Kind kind, std::string const & what, gSight sight) {
  std::lock_guard const guard(mutex_);
  auto const [at, is_new] = sights_.try_emplace({kind, what}, sight);
  bool const from_future = sight.state.written > Vlb::now_in_nanoseconds();
  contradicted_ = contradicted_ || from_future || at->second.hash != sight.hash;
  at->second = sight;
}

void gWitness::give_up() {
  std::lock_guard const guard(mutex_);
  contradicted_ = true;
}

bool gWitness::leaves_out(std::string const & path) const {
  return path.starts_with(result_) &&
         (path.size() == result_.size() || path[result_.size()] == '/');
}

std::optional<gWitness::gSights> gWitness::sights() const {
  std::lock_guard const guard(mutex_);
  if (contradicted_)
    return {};
  return sights_;
}

std::set<std::string> gWitness::files(gSights const & sights) {
  std::set<std::string> found;
  for (auto const & [place, sight] : sights)
    if (place.first == Kind::bytes && sight.hash != unreadable)
      found.insert(place.second);
  return found;
}

std::set<std::string> gWitness::files() const {
  std::lock_guard const guard(mutex_);
  return files(sights_);
}

bool gWitness::holds(std::pair<Kind, std::string> const & place, gSight const & sight) const {
  auto const & [kind, what] = place;
  switch (kind) {
  case Kind::bytes:
    return bytes_hold(what, sight);
  case Kind::kind:
    return hash_of_kind(gFileState::of(what).kind()) == sight.hash;
  case Kind::entries:
    return hash_of_entries(what, Vlb::list_folder(gPathstring(what)), *this) == sight.hash;
  case Kind::moment:
    return Vlb::content_hash(formatted(what)) == sight.hash;
  }
  return false;
}

void Vlb::set_witness(gWitness * witness) {
  witness_in_use = witness;
}

void Vlb::note_bytes(std::string const & path, gFileState const & state, std::string_view bytes) {
  note(path, gWitness::Kind::bytes, [&](gWitness const &) -> gWitness::gSight {
    return {state, is_young(state, now_in_nanoseconds(), margin), content_hash(bytes)};
  });
}

void Vlb::note_unreadable(std::string const & path) {
  note(path, gWitness::Kind::bytes, [](gWitness const &) -> gWitness::gSight {
    return {{}, true, unreadable};
  });
}

void Vlb::note_kind(std::string const & path, unsigned kind) {
  note(path, gWitness::Kind::kind, [&](gWitness const &) -> gWitness::gSight {
    return {{}, false, hash_of_kind(kind)};
  });
}

void Vlb::note_entries(gPathstring const & folder, std::vector<FolderEntry> const & entries) {
  note(folder, gWitness::Kind::entries, [&](gWitness const & witness) -> gWitness::gSight {
    return {{}, false, hash_of_entries(folder, entries, witness)};
  });
}

std::string Vlb::moment_text(std::string const & form) {
  std::string text = formatted(form);
  if (gWitness * const witness = witness_in_use)
    witness->saw(gWitness::Kind::moment, form, {{}, false, content_hash(text)});
  return text;
}
