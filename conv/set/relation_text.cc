// Titles are settings of the script; names are references, so that each target links in its way.

#include "conv/set/relation_text.h"

#include <algorithm>

#include "conv/set/new_nodes.h"

namespace {

constexpr std::size_t most_methods = 20;
constexpr std::size_t most_held = 300;

bool is_code(gNode const & node) {
  return node.kind == gNodeKind::verbatim ||
         (node.kind == gNodeKind::subentry &&
          std::ranges::all_of(node.children, [](gNode const & child) {
            return child.kind == gNodeKind::title || child.kind == gNodeKind::verbatim;
          }));
}

bool is_explanation(gNode const & node) {
  return node.kind != gNodeKind::link_line && !is_mark(node) && !is_code(node);
}

// Places and notes belong to the text that they stand in.
void drop_marks(gNodeList & nodes) {
  std::erase_if(nodes, [](gNode const & node) {
    return is_mark(node) || node.kind == gNodeKind::footnote || node.kind == gNodeKind::endnote;
  });
  for (gNode & node : nodes)
    drop_marks(node.children);
}

class gAppender {
public:
  gAppender(gDocument const & document, gVltRules const & rules, gNodeList & body)
      : document_(document),
        rules_(rules),
        body_(body) {}

  void add(char const * setting, char const * fallback, std::span<int const> units,
           std::size_t most) {
    if (units.empty())
      return;
    gNodeList links;
    for (int const unit : units.first(std::min(units.size(), most))) {
      if (!links.empty())
        links.push_back(NewNode::text(", "));
      links.push_back(link_to(unit));
    }
    if (units.size() > most)
      links.push_back(NewNode::text(", \u2026"));
    add_entry({NewNode::text(rules_.setting(setting, fallback))},
              {NewNode::of(gNodeKind::paragraph, std::move(links))});
  }
  void add_part(gInherited const & part) {
    add_entry({NewNode::text(rules_.setting("inherited_title", "Inherited from") + " "),
               link_to(part.from)},
              {NewNode::of(gNodeKind::paragraph, short_links(part.members))});
  }
  // Their scope is plain from where they are listed.
  void add_held(std::span<int const> units) {
    if (units.empty())
      return;
    gNodeList links = short_links(units.first(std::min(units.size(), most_held)));
    if (units.size() > most_held)
      links.push_back(NewNode::text(", \u2026"));
    add_entry({NewNode::text(rules_.setting("holds_title", "Contents"))},
              {NewNode::of(gNodeKind::paragraph, std::move(links))});
  }
  void add_friends(gFriends const & friends, int unit) {
    gNodeList links = short_links(friends.of(unit));
    for (std::string_view const one : friends.strange(unit)) {
      if (!links.empty())
        links.push_back(NewNode::text(", "));
      links.push_back(NewNode::code(std::string(one)));
    }
    if (!links.empty())
      add_entry({NewNode::text(rules_.setting("friends_title", "Friends"))},
                {NewNode::of(gNodeKind::paragraph, std::move(links))});
  }
  void add_condition(std::string const & condition) {
    gNode code = NewNode::of(gNodeKind::tt, {NewNode::text(condition)});
    body_.insert(body_.begin(),
                 NewNode::of(gNodeKind::paragraph,
                             {NewNode::text(rules_.setting("condition_title", "Only where") + " "),
                              std::move(code)}));
  }
  void add_text(int source) {
    gNodeList blocks = RelationText::explanation(document_.text_of(source));
    body_.insert(body_.end(), std::make_move_iterator(blocks.begin()),
                 std::make_move_iterator(blocks.end()));
    body_.push_back(NewNode::of(
        gNodeKind::paragraph,
        {NewNode::text(rules_.setting("borrowed_title", "Text of") + " "), link_to(source)}));
  }

private:
  gUnitRecord const & record(int unit) const {
    return document_.units[static_cast<std::size_t>(unit)];
  }
  // Several of one name are told once.
  gNodeList short_links(std::span<int const> units) const {
    gNodeList links;
    std::string last;
    for (int const unit : units) {
      std::string const & title = record(unit).title;
      std::string const & name = record(unit).name;
      if (!name.empty() && name == last)
        continue;
      last = name;
      if (!links.empty())
        links.push_back(NewNode::text(", "));
      gNode link = link_to(unit);
      link.children = {NewNode::text(
          title == name ? name.substr(name.size() - record(unit).facts.last_part) : title)};
      links.push_back(std::move(link));
    }
    return links;
  }
  gNode link_to(int unit) const {
    gUnitRecord const & other = record(unit);
    gNode link = NewNode::of(gNodeKind::reference,
                             {NewNode::text(other.name.empty() ? other.title : other.name)});
    link.params = {other.wintype, other.label, ""};
    return link;
  }
  void add_entry(gNodeList title, gNodeList blocks) {
    blocks.insert(blocks.begin(), NewNode::of(gNodeKind::title, std::move(title)));
    body_.push_back(NewNode::of(gNodeKind::subentry, std::move(blocks)));
  }

  gDocument const & document_;
  gVltRules const & rules_;
  gNodeList & body_;
};

} // namespace

bool RelationText::says_something(gNodeList const & body) {
  return std::ranges::any_of(body, is_explanation);
}

gNodeList RelationText::explanation(gUnitText const & text) {
  gNodeList blocks;
  if (!text.subject.empty())
    blocks.push_back(NewNode::of(gNodeKind::paragraph, text.subject));
  std::ranges::copy_if(text.body, std::back_inserter(blocks), is_explanation);
  drop_marks(blocks);
  return blocks;
}

void RelationText::set_into(gDocument const & document, gBookRelations const & relations,
                            gVltRules const & rules, int unit, gNodeList & body) {
  gInheritance const & inheritance = relations.inheritance;
  gAppender appender(document, rules, body);
  gUnitRecord const & own = document.units[static_cast<std::size_t>(unit)];
  bool const same =
      own.parent >= 0 &&
      document.units[static_cast<std::size_t>(own.parent)].facts.condition == own.facts.condition;
  int const source = inheritance.explained_by(unit);
  bool const silent = own.summary.empty();
  if (source >= 0 && silent && !says_something(body))
    appender.add_text(source);
  std::vector<int> implemented, replaced;
  for (int const other : inheritance.overridden(unit))
    (inheritance.is_abstract(other) ? implemented : replaced).push_back(other);
  appender.add("implements_title", "Implements", implemented, most_methods);
  appender.add("overrides_title", "Overrides", replaced, most_methods);
  bool const abstract = inheritance.is_abstract(unit);
  appender.add(abstract ? "implemented_title" : "overridden_title",
               abstract ? "Implemented in" : "Overridden in", inheritance.overriders(unit),
               most_methods);
  for (gInherited const & part : inheritance.inherited(unit))
    appender.add_part(part);
  appender.add_friends(relations.friends, unit);
  appender.add_held(relations.holdings.of(unit));
  appender.add("topics_title", "Topic", relations.holdings.topics_of(unit), most_methods);
  if (!same && !own.facts.condition.empty())
    appender.add_condition(own.facts.condition);
}
