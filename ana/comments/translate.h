// Comments written for other documentation systems, or for none, as the texts of a unit.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ana/comments/aliases.h"
#include "ana/comments/rich_text.h"

// What is known of the declaration that a comment describes.
struct gCommentHints {
  enum Declared { other, routine, enumeration };
  Declared declared = other;
  std::string name;                              // without scopes
  std::string scope;                             // the name of the class around it
  std::set<std::string, std::less<>> parameters; // their names
  bool titles = true;                            // "# Title" is one, and not a number
  bool pascal = false;
};

// Gives what comments show of files.
class gCommentFiles {
public:
  virtual ~gCommentFiles() = default;
  // UTF-8 with line feeds; nothing where there is no such file, or it may not be read.
  virtual std::optional<std::string> read(std::string_view name) = 0;
  // Where a picture that may be shown lies; empty if there is none.
  virtual std::string picture(std::string_view name) = 0;
};

// What the project says about comments.
struct gCommentOptions {
  std::set<std::string, std::less<>> sections; // that are published: "\cond name"
  bool internal = false;                       // private text is published
  gAliases aliases;                // own commands; whoever reads comments puts in their texts
  gCommentFiles * files = nullptr; // null: none may be read; not owned
};

struct gCommentPart {
  std::string entry; // "@description", "@return"
  gRichPieces text;
};

// A group that a comment begins, belongs to or names, in the order of the comment.
struct gCommentGroup {
  enum Kind {
    topic,
    joins,
    member,
    heading, // of members that follow
    open,    // what follows belongs to the one in front
    close,
    below, // a page that stands below this one
    hide,  // what follows isn't shown; nothing is hidden where the id is empty
    show,  // ends that
  };
  Kind kind = topic;
  std::string id, title;
};

struct gTranslated {
  enum Kind {
    nothing, // decoration, switches of tools
    unit,    // the description of the element beside it
    about,   // the description of the element that it names
    topic    // a text of its own
  };
  Kind kind = nothing;
  std::string name;      // of the element, or the title of the topic
  std::string id;        // by which references find the topic
  std::string title_id;  // the same, by its title; mostly empty
  std::string sort;      // of a topic: "topic", "page", "mainpage", "file"; empty for others
  bool excluded = false; // what it describes isn't shown
  std::vector<gCommentPart> parts;
  std::vector<gCommentGroup> groups;
  std::map<std::string, std::size_t> unknown; // commands, with their numbers
  std::map<std::string, std::size_t> missing; // files that would be shown, the same
};

// The inside of a comment, without its frame. Without hints it is about no declaration.
gTranslated translate(std::string_view comment, gCommentHints const * hints,
                      gCommentOptions const & options);

// What a comment is about: `unit` unless a command names something.
struct gCommentSubject {
  gTranslated::Kind kind = gTranslated::unit; // nothing if it opens or closes a group
  std::string name;
};
gCommentSubject comment_subject(std::string_view comment, bool pascal = false);

// The names behind "@param" and its kin.
std::set<std::string, std::less<>> described_parameters(std::string_view comment);

// The name in "#name", "ns::name(int)" and the like; empty if it is none.
std::string reference_target(std::string_view word);
// The same with the parameters, as in "ns::name(int,char*)const", from the begin of the text; how
// much of it that takes in `length`.
std::string overload_target(std::string_view text, std::size_t & length);
