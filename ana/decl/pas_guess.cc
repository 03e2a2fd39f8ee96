// What the tokens alone tell of a text that may belong anywhere, such as an include file.
#include "ana/decl/pas_reader.h"

namespace Decl {

namespace {

bool begins_type(gPasView const & view, std::uint32_t at) {
  switch (view.word(at)) {
  case gPasWord::class_:
  case gPasWord::record:
  case gPasWord::object:
  case gPasWord::interface:
  case gPasWord::dispinterface:
  case gPasWord::objcclass:
  case gPasWord::objcprotocol:
  case gPasWord::cppclass:
  case gPasWord::array:
  case gPasWord::set:
  case gPasWord::file:
  case gPasWord::packed:
  case gPasWord::bitpacked:
  case gPasWord::procedure:
  case gPasWord::function:
  case gPasWord::reference:
  case gPasWord::specialize:
  case gPasWord::type:
    return true;
  default:
    return view.sign(at) == '(' || view.sign(at) == '^';
  }
}

// "TFoo" and "PFoo" are names of types by custom.
bool named_like_type(std::string_view name) {
  return name.size() > 1 && (name[0] == 'T' || name[0] == 'P') && name[1] >= 'A' && name[1] <= 'Z';
}

} // namespace

// Of a text of unknown place the first tokens tell what it holds.
gPascalContext gPasReader::guess() const {
  gPascalContext context;
  std::uint32_t first = 0;
  while (view_.sign(first) == '[')
    first = view_.behind(first);
  gPasWord const word = view_.word(first);
  bool const access = (pas_word_marks(word) & pas_access) != 0 || word == gPasWord::strict;
  char const behind = view_.sign(first + 1);
  bool const name = view_.is_name(first);
  if (access && behind != ':' && behind != ',' && behind != '=')
    context.section = gPascalContext::members;
  else if (name && (behind == ':' || behind == '=' || behind == '<'))
    context.block = guess_of_name(first);
  else if (name && behind == ',') {
    std::uint32_t at = first;
    while (view_.is_name(at) && view_.sign(at + 1) == ',')
      at += 2;
    if (view_.is_name(at) && view_.sign(at + 1) == ':')
      context.block = Block::variables;
    else if (view_.sign(at + 1) == ';' || view_.sign(at + 1) == '.')
      context.block = Block::none; // units
    else if (view_.is_name(at) || at >= view_.size())
      context.section = gPascalContext::values;
    else
      context.section = gPascalContext::body;
  } else if ((pas_word_marks(word) & pas_head) == 0 && !is_routine(first) &&
             word != gPasWord::unit && word != gPasWord::program && word != gPasWord::library &&
             word != gPasWord::package && word != gPasWord::class_ && view_.size() > 0) {
    context.section = gPascalContext::body;
  }
  return context;
}

gPasReader::Block gPasReader::guess_of_name(std::uint32_t name) const {
  if (view_.sign(name + 1) == ':')
    return Block::variables;
  if (view_.sign(name + 1) == '<' || begins_type(view_, name + 2))
    return Block::types;
  bool const alias = view_.is_name(name + 2) && view_.sign(name + 3) == ';';
  return alias && named_like_type(view_.text(name)) ? Block::types : Block::constants;
}

// The sign behind a name can tell that the entry is of another block.
bool gPasReader::fits(Block block) const {
  char const behind = view_.sign(at_ + 1);
  if (block == Block::types)
    return behind != ':' && behind != ',';
  if (block == Block::constants) {
    gPasWord const word = view_.word(at_ + 2);
    return behind != '=' || (word != gPasWord::class_ && word != gPasWord::record &&
                             word != gPasWord::interface && word != gPasWord::object);
  }
  return block != Block::variables || (behind != '=' && behind != '<');
}

// "A, B.C," up to a ";" or the end, without a type.
bool gPasReader::lists_units() const {
  if (!view_.is_name(at_) || (view_.sign(at_ + 1) != ',' && view_.sign(at_ + 1) != '.'))
    return false;
  std::uint32_t at = at_;
  while (view_.is_name(at) && (view_.sign(at + 1) == ',' || view_.sign(at + 1) == '.'))
    at += 2;
  return view_.sign(at) != ':' && view_.sign(at) != pas_assign && view_.sign(at + 1) != ':' &&
         view_.sign(at + 1) != pas_assign && view_.sign(at + 1) != '(';
}

bool gPasReader::begins_statement() const {
  switch (view_.word(at_)) {
  case gPasWord::if_:
  case gPasWord::while_:
  case gPasWord::for_:
  case gPasWord::with:
  case gPasWord::repeat:
  case gPasWord::inherited:
  case gPasWord::case_:
  case gPasWord::try_:
  case gPasWord::raise:
  case gPasWord::goto_:
    return true;
  default: {
    char const behind = view_.sign(at_ + 1);
    return view_.is_name(at_) && (behind == pas_assign || behind == '.' || behind == '(' ||
                                  behind == '^' || behind == '[' || behind == ';');
  }
  }
}

} // namespace Decl
