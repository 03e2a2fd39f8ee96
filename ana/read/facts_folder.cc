// The bytes of a file's facts, with what its reading asks of the run beside them.
#include "ana/read/facts_folder.h"

#include <fstream>

#include "ana/read/facts_archive.h"
#include "ana/read/facts_bytes.h"
#include "vlb/content_hash.h"
#include "vlb/gfilesystem.h"

namespace {

using Facts::gReader;
using Facts::gWriter;

void context(gWriter & archive, Decl::gPascalContext const & context) {
  archive.bits(context.section);
  archive.bits(context.block);
  archive.bits(static_cast<std::uint64_t>(context.access));
}

template <class T> void limited(gReader & archive, T & value, T last) {
  unsigned bits = 0;
  archive.bits(bits);
  archive.require(bits <= static_cast<unsigned>(last));
  value = archive.good() ? static_cast<T>(bits) : T{};
}

void context(gReader & archive, Decl::gPascalContext & context) {
  limited(archive, context.section, Decl::gPascalContext::body);
  limited(archive, context.block, Decl::gPascalContext::labels);
  limited(archive, context.access, Decl::gAccess::strict_private);
}

void path(gWriter & archive, gPathstring const & path) {
  archive.text(path);
}
void path(gReader & archive, gPathstring & path) {
  std::string text;
  archive.text(text);
  path = gPathstring(text);
}

template <class Archive, class File> void rest(Archive & archive, File & file) {
  archive.bits(file.declarations);
  archive.many(file.includes, [&](auto & one) {
    archive.text(one.name);
    archive.pieces(one.scope);
    context(archive, one.context);
  });
  archive.many(file.skipped, [&](auto & one) {
    path(archive, one.path);
    archive.number(one.first);
    archive.number(one.last);
    archive.text(one.reason);
    archive.text(one.scope);
  });
  archive.many(file.unknown, [&](auto & one) {
    archive.text(one.word);
    archive.bits(one.count);
    archive.number(one.line);
  });
}

// The body of sealed bytes; empty if they are damaged.
std::string_view body_of(std::string_view bytes) {
  std::size_t const head = Facts::sealed("").size();
  if (bytes.size() <= head || Facts::sealed(bytes.substr(head)) != bytes)
    return {};
  return bytes.substr(head);
}

bool write(gPathstring const & path, std::string_view bytes) {
  std::ofstream file(path.c_str(), std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

std::string bytes_of(Decl::gMacroTable const & macros) {
  gWriter archive;
  auto const sorted = macros.sorted();
  archive.many(sorted, [&](auto const & one) {
    archive.text(std::string_view(one.first));
    archive.bits(static_cast<std::uint64_t>(one.second->sense));
    archive.flag(one.second->with_parameters);
    archive.text(one.second->body);
  });
  return Facts::sealed(archive.bytes());
}

} // namespace

gFactsFolder::gFactsFolder(gPathstring folder, std::string key, Decl::gMacroTable const & macros)
    : folder_(std::move(folder)),
      key_(std::move(key) + Vlb::content_hash(bytes_of(macros)).text()) {}

std::string gFactsFolder::name_of(std::string const & path) {
  return Vlb::content_hash(path).text() + ".facts";
}

std::string gFactsFolder::key_of(std::string const & path, std::string_view text) const {
  return key_ + Vlb::content_hash(path, Vlb::content_hash(text)).text();
}

std::optional<gModernFile> gFactsFolder::find(gSrcFile const & file, std::string_view text) const {
  std::string bytes;
  if (!gFileSystem::read_file(gPathstring(folder_).append(name_of(file.opath())), bytes))
    return {};
  gReader archive(body_of(bytes));
  std::string key, facts;
  archive.text(key);
  archive.text(facts);
  std::optional<gFileFacts> own;
  if (archive.good() && key == key_of(file.opath(), text))
    own = facts_from_bytes(facts, file);
  if (!own)
    return {};
  gModernFile found;
  found.facts = std::move(*own);
  rest(archive, found);
  for (gIncludeRequest & request : found.includes)
    request.by = file;
  if (!archive.good() || !archive.at_end())
    return {};
  return found;
}

bool gFactsFolder::keep(gModernFile const & file, std::string_view text) const {
  std::string const name = file.facts.file.opath();
  std::string const key = key_of(name, text);
  std::string const facts = file.shows_files ? std::string() : facts_to_bytes(file.facts);
  gWriter archive;
  archive.text(key);
  archive.text(facts);
  rest(archive, file);
  return write(gPathstring(folder_).append(name_of(name)),
               facts.empty() ? std::string() : Facts::sealed(archive.bytes()));
}

std::optional<Decl::gMacroTable> gFactsFolder::read_macros(gPathstring const & folder) {
  struct gEntry {
    std::string name;
    Decl::gMacroFact fact;
  };
  std::string bytes;
  if (!gFileSystem::read_file(gPathstring(folder).append(macros_name), bytes) ||
      body_of(bytes).empty())
    return {};
  gReader archive(body_of(bytes));
  std::vector<gEntry> entries;
  archive.many(entries, [&](gEntry & one) {
    archive.text(one.name);
    limited(archive, one.fact.sense, Decl::gMacroSense::mixed);
    archive.flag(one.fact.with_parameters);
    archive.text(one.fact.body);
  });
  if (!archive.good())
    return {};
  Decl::gMacroTable macros;
  for (gEntry const & one : entries)
    macros.enter(one.name, one.fact);
  return macros;
}

bool gFactsFolder::write_macros(gPathstring const & folder, Decl::gMacroTable const & macros) {
  gPathstring const path = gPathstring(folder).append(macros_name);
  std::string const bytes = bytes_of(macros);
  std::string old;
  return (gFileSystem::file_exists(path) && gFileSystem::read_file(path, old) && old == bytes) ||
         write(path, bytes);
}
