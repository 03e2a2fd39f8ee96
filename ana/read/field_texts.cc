// An empty line, or the next "@name:", ends the text of a field.

#include "ana/read/field_texts.h"

#include <string_view>

#include "ana/comments/commands.h"
#include "ana/comments/name_marks.h"
#include "ana/comments/words.h"

namespace {

bool is_command(std::string_view word) {
  return Commands::find(word).kind != gCommandKind::none;
}

} // namespace

std::vector<std::pair<std::string, std::string>>
take_field_texts(std::string & comment, std::set<std::string, std::less<>> const & fields) {
  std::vector<std::pair<std::string, std::string>> taken;
  std::string left;
  bool in_field = false;
  for (std::size_t at = 0; at < comment.size();) {
    std::size_t const end = std::min(comment.find('\n', at), comment.size());
    std::string_view const whole = std::string_view(comment).substr(at, end - at);
    std::string_view line = trimmed(whole);
    at = end + 1;
    std::string_view const name = Comments::name_described_in(line);
    if (!name.empty() && fields.contains(name)) {
      taken.emplace_back(name, "");
      line = trimmed(line.substr(name.size() + 2));
      in_field = true;
    } else if (line.empty() || !name.empty())
      in_field = false;
    if (in_field)
      taken.back().second += Comments::from_name_marks(line, is_command) + "\n";
    else
      left.append(whole) += '\n';
  }
  if (!taken.empty())
    comment = std::move(left);
  return taken;
}
