// Titles are settings of the script; names are references, so that each target links in its way.

#include "conv/set/relation_text.h"

#include <algorithm>

#include "conv/set/new_nodes.h"

namespace {

constexpr std::size_t most_methods = 20;

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
    gNodeList links;
    for (int const member : part.members) {
      if (!links.empty())
        links.push_back(NewNode::text(", "));
      gNode link = link_to(member);
      std::string const & title = record(member).title;
      std::string const & name = record(member).name;
      link.children = {NewNode::text(
          title == name ? name.substr(name.size() - record(member).facts.last_part) : title)};
      links.push_back(std::move(link));
    }
    add_entry({NewNode::text(rules_.setting("inherited_title", "Inherited from") + " "),
               link_to(part.from)},
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
  gNode link_to(int unit) const {
    gNode link = NewNode::of(gNodeKind::reference, {NewNode::text(record(unit).name)});
    link.params = {record(unit).wintype, record(unit).label, ""};
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

void RelationText::set_into(gDocument const & document, gInheritance const & inheritance,
                            gVltRules const & rules, int unit, gNodeList & body) {
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
  if (!same && !own.facts.condition.empty())
    appender.add_condition(own.facts.condition);
}
