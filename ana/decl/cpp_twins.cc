// What two branches of one "#if" declare alike is one declaration, which holds under both
// conditions.
#include "ana/decl/cpp_reader.h"

#include <functional>

namespace Decl {

namespace {

constexpr std::uint32_t longest_hashed = 512; // bytes of a part of a declaration
constexpr std::size_t longest_condition = 512;

} // namespace

std::int32_t gCppReader::add(gDeclaration & item) {
  auto const index = static_cast<std::int32_t>(out_.items.size());
  std::uint32_t const position = item.name.empty() ? item.whole.begin : item.name.begin;
  item.line = source_.lines.line(position);
  item.column = source_.lines.column(position);
  item.end_line = source_.lines.line(item.whole.end == 0 ? 0 : item.whole.end - 1);
  item.condition = branches_.condition_at(item.whole.begin);
  item.params = static_cast<std::uint32_t>(out_.parameters.size()) - item.first_param;
  if (item.statement < 0)
    item.statement = index;
  if (item.condition >= 0) {
    if (std::int32_t const same = twin(item, index); same != index) {
      out_.parameters.resize(item.first_param);
      gDeclaration & known = out_.items[static_cast<std::size_t>(same)];
      known.condition = either(known.condition, item.condition);
      return same;
    }
  }
  out_.items.push_back(item);
  return index;
}

std::int32_t gCppReader::twin(gDeclaration const & item, std::int32_t next) {
  if (item.kind == gKind::name_space || item.marks & mark_unnamed)
    return next;
  auto const mixed = [](std::size_t hash, std::size_t more) {
    return (hash ^ more) * 0x9e3779b97f4a7c15u + (hash >> 29);
  };
  auto const hash_of = [&](gRange range) {
    range.end = std::min(range.end, range.begin + longest_hashed);
    std::string text = one_line(source_.text, range);
    std::erase(text, ' ');
    return std::hash<std::string>()(text);
  };
  std::size_t hash = mixed(static_cast<std::size_t>(item.kind), hash_of(item.name));
  hash = mixed(hash, static_cast<std::size_t>(item.scope));
  hash = mixed(hash, static_cast<std::size_t>(branches_.group_at(item.whole.begin)));
  hash = mixed(hash, hash_of(item.parameter_list));
  bool const typed = item.kind == gKind::typedef_ || item.kind == gKind::alias ||
                     item.kind == gKind::variable || item.kind == gKind::member;
  if (typed) // two types are two things, while routines may differ in what macros put in front
    hash = mixed(hash, hash_of(item.result));
  hash = mixed(hash, hash_of(item.qualifier));
  hash = mixed(hash, hash_of(item.template_head));
  hash = mixed(hash, hash_of(item.arguments));
  hash = mixed(hash, item.marks & (mark_definition | mark_forward | mark_const));
  auto const [known, fresh] = seen_.try_emplace(hash, next);
  if (fresh)
    return next;
  // The same branch may say it twice, such as overloads that differ in their result alone.
  gDeclaration const & other = out_.items[static_cast<std::size_t>(known->second)];
  return other.condition == item.condition ? next : known->second;
}

// The condition under which one of two holds; that around both where one is the other's "#else".
std::int32_t gCppReader::either(std::int32_t a, std::int32_t b) {
  if (a < 0 || b < 0 || a == b)
    return a < 0 || b < 0 ? -1 : a;
  auto const [known, fresh] = either_.try_emplace({a, b}, a);
  if (!fresh)
    return known->second;
  auto const text = [&](std::int32_t at) -> gCondition const & {
    return out_.conditions[static_cast<std::size_t>(at)];
  };
  std::int32_t const outer = text(a).outer;
  std::vector<std::string> & parts = disjuncts_.try_emplace(a, 1, text(a).text).first->second;
  // "!A && B" says no more than "B" beside "A".
  std::string rest = text(b).text;
  for (std::string const & part : parts) {
    std::string const no = negated_condition(part);
    if (rest == no)
      return known->second = outer;
    if (rest.starts_with(no + " && "))
      rest.erase(0, no.size() + 4);
  }
  if (text(b).outer != outer || text(a).text.size() + rest.size() > longest_condition)
    return a;
  std::vector<std::string> all = parts;
  all.push_back(rest);
  out_.conditions.push_back({text(a).text + " || " + rest, outer});
  known->second = static_cast<std::int32_t>(out_.conditions.size() - 1);
  disjuncts_.emplace(known->second, std::move(all));
  return known->second;
}

} // namespace Decl
